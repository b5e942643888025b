// Short texts that belong to columns, in as few rows as they fit into.

#pragma once

#include <string>
#include <vector>

namespace tabulorix {

struct ColumnLabel {
    int m_Column;
    std::string m_Text;  // ASCII, not empty
};

// Each label starts in its column, in the first row in which a blank parts it from the label before
// it: there are never more rows than the longest label has characters and one. `labels` are in
// ascending columns.
std::vector<std::string> PlaceLabels(const std::vector<ColumnLabel>& labels);

}  // namespace tabulorix

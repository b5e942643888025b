#include "LabelRows.h"

#include <algorithm>

namespace tabulorix {

std::vector<std::string> PlaceLabels(const std::vector<ColumnLabel>& labels) {
    std::vector<std::string> rows;
    for (const ColumnLabel& label : labels) {
        const auto column = static_cast<std::size_t>(label.m_Column);
        auto row = std::find_if(rows.begin(), rows.end(), [column](const std::string& placed) {
            return placed.size() < column || (placed.empty() && column == 0);
        });
        if (row == rows.end()) {
            row = rows.emplace(rows.end());
        }
        row->resize(column, ' ');
        *row += label.m_Text;
    }
    return rows;
}

}  // namespace tabulorix

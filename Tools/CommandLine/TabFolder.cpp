#include "TabFolder.h"

#include <algorithm>
#include <functional>
#include <optional>
#include <string_view>
#include <utility>

#include "FileExtension.h"
#include "FileName.h"
#include "FolderListing.h"
#include "Terminal.h"

namespace tabulorix {

namespace {

constexpr std::string_view kUsualExtension = "tab";

// Both to the same place: as the user would name it, and from the folder that was named.
struct Place {
    STR m_Path;
    STR m_Subfolder;
};

bool IsHidden(std::string_view name) {
    return name.starts_with('.');
}

std::optional<InputFile::Origin> FindOrigin(std::string_view name) {
    const std::string extension = GetLowerCaseExtension(name);
    if (extension == kUsualExtension || extension == "btab" || extension == "crd") {
        return InputFile::Origin::FoundTab;
    }
    if (extension == "txt") {
        return InputFile::Origin::FoundText;
    }
    return std::nullopt;
}

class FolderSearch {
public:
    explicit FolderSearch(const STR& folder) { m_Waiting.push_back({folder, {}}); }

    TabFolder Run() {
        while (!m_Waiting.empty() && !WasInterrupted()) {
            const Place place = std::move(m_Waiting.back());
            m_Waiting.pop_back();
            LookInto(place);
        }
        return std::move(m_Result);
    }

private:
    void LookInto(const Place& place);

    std::vector<Place> m_Waiting;  // the next one last
    TabFolder m_Result;
};

void FolderSearch::LookInto(const Place& place) {
    FolderListing listing = ListFolder(place.m_Path);
    if (!listing.m_Result) {
        m_Result.m_Failures.push_back({place.m_Path, listing.m_Result.m_Error});
    }
    std::ranges::sort(listing.m_Files, {}, [](const STR& name) {
        return std::pair(GetLowerCaseExtension(name) != kUsualExtension, name.View());
    });
    for (const STR& name : listing.m_Files) {
        const auto origin = IsHidden(name) ? std::nullopt : FindOrigin(name);
        if (origin) {
            m_Result.m_Files.push_back({JoinPath(place.m_Path, name), *origin, place.m_Subfolder});
        }
    }
    std::ranges::sort(listing.m_Folders, std::ranges::greater(), &STR::View);
    for (const STR& name : listing.m_Folders) {
        if (!IsHidden(name)) {
            m_Waiting.push_back({JoinPath(place.m_Path, name), JoinPath(place.m_Subfolder, name)});
        }
    }
}

}  // namespace

TabFolder FindTabFiles(const STR& folder) {
    return FolderSearch(folder).Run();
}

}  // namespace tabulorix

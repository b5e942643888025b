#include "EmbeddedResources.h"
#include "Messages.h"
#include "Resources.h"

namespace tabulorix {

STR LoadStringResource(ModuleHandle /*module*/, int id) {
    switch (id) {
        case TABULORIX_MESSAGE_LINE_IGNORED:
            return TABULORIX_TEXT_LINE_IGNORED;
        case TABULORIX_MESSAGE_LINES_IGNORED:
            return TABULORIX_TEXT_LINES_IGNORED;
        default:
            return {};
    }
}

std::string_view FindBinaryResource(ModuleHandle /*module*/, const char* type, int id) {
    if (type != std::string_view("TREENODE") || id != 100) {
        return {};
    }
    return {g_TabulorixBlankScore,
            static_cast<std::size_t>(g_TabulorixBlankScoreEnd - g_TabulorixBlankScore)};
}

}  // namespace tabulorix

// In place of all the other sources here when the program is built without pugixml.

#include "Exceptions.h"
#include "MusicXml.h"

namespace tabulorix {

bool CanComposeMusicXml() noexcept {
    return false;
}

std::string ComposeMusicXml(const TreeNode&) {
    RecordThrowLocation("MusicXml_missing", __LINE__);
    throw Exception(
        "this build of tabulorix has no MusicXML, which takes pugixml: use --format vif");
}

}  // namespace tabulorix

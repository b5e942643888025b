// In place of all the other sources here when the program is built without pugixml.

#include "Exceptions.h"
#include "MusicXml.h"

namespace tabulorix {

bool CanComposeMusicXml() noexcept {
    return false;
}

std::string ComposeMusicXml(const TreeNode&) {
    RecordThrowLocation("MusicXml_missing", __LINE__);
    throw Exception("this build has no MusicXML");
}

}  // namespace tabulorix

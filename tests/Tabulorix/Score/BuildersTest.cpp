#include "ScoreElements.h"
#include "SignatureBuilders.h"
#include "TestSupport.h"

namespace tabulorix {

TEST_CASE("What no import writes can be built too") {
    TreeNode items("Items");
    CHECK(AddTimeSignature(items, 0, 2, 2, {}, 29, 1).GetChild(9)->GetText() == "C");
    CHECK(AddTimeSignature(items, 0, 4, 4, {}, 28, {}).GetChild(9)->GetText() == "c");
    CHECK(items.GetChild(1)->GetChildCount() == 10);
    CHECK(AddClef(items, 0, ClefKind::Flagged, 23).GetChildInt("Flags", 0) == 5);

    TreeNode& element = FindOrAddElement(items, GetListLabel(ListKind::Brackets), "Old");
    CHECK(&FindOrAddElement(items, "Brackets", "New") == &element);
    CHECK(element.GetChildText("Type", {}) == "New");
    CHECK(GetList(items, ListKind::MidPoints).GetLabel() == "MidPoints");
    CHECK(GetListLabel(static_cast<ListKind>(9)).empty());
}

}  // namespace tabulorix

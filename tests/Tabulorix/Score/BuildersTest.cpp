#include "ScoreElements.h"
#include "SignatureBuilders.h"
#include "TestSupport.h"

namespace tabulorix {

TEST_CASE("Fields, elements and lists are found again or appended") {
    TreeNode node("Stave");
    AddIntField(node, "A", -1);
    AddTextField(node, "A", "two");
    SetIntField(node, "A", 3);
    SetTextField(node, "B", "b");
    TreeNode& element = FindOrAddElement(node, "C", "Old");
    CHECK(&FindOrAddElement(node, "C", "New") == &element);
    CHECK(&FindOrAddElement(node, "", "D") != &FindOrAddElement(node, "", "D"));
    for (int i = 0; i < 20; ++i) {
        GetList(node, static_cast<ListKind>(i % 9));
    }
    CHECK(GetTreeText(node) == GetTreeText(R"(Stave { A "3" A "two" B "b" C { Type "New" }
        { Type "D" } { Type "D" } Bars Items Staves Barlines Notes Instruments BarSpacings
        Brackets MidPoints })"));
    CHECK(GetListLabel(static_cast<ListKind>(9)).empty());
}

TEST_CASE("Signatures and clefs can be of kinds that no import writes") {
    TreeNode items("Items");
    CHECK(AddTimeSignature(items, 0, 2, 2, {}, 29, 1).GetChild(9)->GetText() == "C");
    CHECK(AddTimeSignature(items, 0, 4, 4, {}, 28, {}).GetChild(9)->GetText() == "c");
    CHECK(items.GetChild(1)->GetChildCount() == 10);
    CHECK(AddClef(items, 0, ClefKind::Flagged, 23).GetChildInt("Flags", 0) == 5);
}

}  // namespace tabulorix

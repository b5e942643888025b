#include <set>

#include "ScoreSkeleton.h"
#include "ScoreTemplate.h"
#include "SignatureBuilders.h"
#include "StaveTypes.h"
#include "TestSupport.h"
#include "TextBuilders.h"

namespace tabulorix {

TEST_CASE("The blank score has no music") {
    const auto score = CreateBlankScore();
    const TreeNode& music = *GetMusic(*score);
    for (const char* list : {"Staves", "Instruments", "Barlines", "Brackets"}) {
        CHECK(music.FindChild(list)->GetChildCount() == 0);
    }
    CHECK(music.FindChild("SystemStave")->FindChild("Bars")->GetChildCount() == 1);
    CHECK(music.FindChild("BarSpacings")->GetChild(0)->GetChildInt("BarNum", -1) == 0);
    CHECK(GetTreeText(*score).starts_with("VifFileVersion \"10100004\"\r\n{\r\n"));
}

TEST_CASE("The blank score has every style that is written into a score, each once") {
    const auto score = CreateBlankScore();
    const auto hasNames = [&score](const char* list, const std::vector<std::string_view>& wanted) {
        std::set<std::string_view> names = {""};
        for (const TreeNode* entry : GetMusic(*score)->FindChild(list)->GetChildren()) {
            CHECK(names.insert(entry->GetChildText("Name", "")).second);
        }
        return std::all_of(wanted.begin(), wanted.end(), [&](auto n) { return names.count(n); });
    };
    CHECK(hasNames("TextStyles",
                   {kTextStyleTempo, kTextStyleChordSymbol, kTextStyleInstrumentNames}));
    for (int clef = 0; clef <= 22; ++clef) {
        CHECK(hasNames("ClefStyles", {GetClefStyle(clef)}));
    }
    for (const bool isShown : {false, true}) {
        const auto find = [&score, isShown](const std::vector<int>& pitches) {
            return FindStaveType(*score, StaveCategory::Tab, pitches, isShown).value_or("none");
        };
        CHECK(find({128, 118, 110, 100, 90, 80}).View().starts_with("Guitar tab (standard"));
        CHECK(find({124, 118, 110, 100, 86, 76}).View().starts_with("Guitar tab (open G tuning"));
        CHECK(find({86, 76, 66, 56}).View().starts_with("Bass guitar tab (4-string"));
        // These two are left for tunings that have no type.
        const auto name = isShown ? kStaveTypeWithRhythms : kStaveTypeWithoutRhythms;
        CHECK_FALSE(hasNames("StaveTypes", {name}));
        CHECK(AddStaveType(*score, {name, 48, 120, {56, 66}, isShown}));
        CHECK(find({56, 66}) == STR(name));
    }
}

}  // namespace tabulorix

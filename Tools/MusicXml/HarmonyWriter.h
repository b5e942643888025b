// Writes chord symbols as MusicXML:
//
//     <harmony>
//         <root> <root-step>F</root-step> <root-alter>1</root-alter> </root>
//         <kind text="m7">minor-seventh</kind>        "other" for a suffix that has no kind
//         <bass> <bass-step>E</bass-step> </bass>
//     </harmony>

#pragma once

#include <pugixml.hpp>
#include <string_view>

namespace tabulorix {

// `chord` is the text of a chord symbol. One without a root becomes a text over the stave.
void AddHarmony(pugi::xml_node measure, std::string_view chord);

}  // namespace tabulorix

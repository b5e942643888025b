// The functions that this program exports, as a plug-in finds them.

#pragma once

namespace standin {

// From now on GetProcAddress does not find function `number` of this program, 1 to 6 in the order
// of Place, but finds all the others; 0 is none. The name in the loaded export table is changed in
// its last letter, which leaves the names in their order.
void HideExport(int number);

}  // namespace standin

// What a program carries beside its code: its strings and its binary resources. Windows files hold
// them in their resource section, other programs inside themselves.

#pragma once

#include <string_view>

#include "ResId.h"
#include "STR.h"

namespace tabulorix {

// Longer strings are cut.
constexpr int kLongestResourceString = 999;

// Empty when the module has no such string. A null module is the main program.
STR LoadStringResource(ModuleHandle module, int id);

// The resource's bytes, valid while the module is loaded; empty when it has none.
std::string_view FindBinaryResource(ModuleHandle module, const char* type, int id);

}  // namespace tabulorix

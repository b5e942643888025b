// The floating-point control word. The host has its own, and a plug-in must neither change it nor
// call the host with another one.

#pragma once

#include <string>

namespace standin {

unsigned GetControlWord();
void SetControlWord(unsigned word);

// Complains in the log when the word is not `wanted`; `when` names the moment. Sets it then.
void CheckControlWord(unsigned wanted, const char* when, const std::string& call);

}  // namespace standin

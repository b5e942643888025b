#include "ControlWord.h"

#include "Log.h"

namespace standin {

unsigned GetControlWord() {
    unsigned short word = 0;
    asm volatile("fnstcw %0" : "=m"(word));
    return word;
}

void SetControlWord(unsigned word) {
    const auto low = static_cast<unsigned short>(word);
    asm volatile("fnclex\n\tfldcw %0" : : "m"(low));
}

void CheckControlWord(unsigned wanted, const char* when, const std::string& call) {
    const unsigned found = GetControlWord();
    if (found != wanted) {
        SetControlWord(wanted);
        LogAlways("COMPLAINT: the control word is " + Hex(found) + ", not " + Hex(wanted) + ", " +
                  when + " " + call);
    }
}

}  // namespace standin

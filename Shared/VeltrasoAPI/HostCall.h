// The way into the host's code.
//
// The host may be built with another compiler, whose exceptions run none of this program's
// destructors on their way. They end here and become an Exception; so a call of the host's code
// comes back or throws like any other. Faults, such as access violations, pass through to the
// host's own crash handling.

#pragma once

#include "FloatingPoint.h"

namespace tabulorix {

// Gives back what `call(context)` does. Throws what it throws when it is an exception of this
// program's kind, and Exception for another compiler's.
int CallContainingForeignExceptions(int (*call)(void*), void* context);

// The same for a function object that returns an int, in the host's floating-point environment.
template <class Call>
int CallHost(Call call) {
    const HostFloatingPoint floatingPoint;
    return CallContainingForeignExceptions(
        [](void* context) { return (*static_cast<Call*>(context))(); }, &call);
}

}  // namespace tabulorix

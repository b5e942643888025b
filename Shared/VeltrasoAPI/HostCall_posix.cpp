#include "HostCall.h"

namespace tabulorix {

// All compilers of these systems share one kind of exception.
int CallContainingForeignExceptions(int (*call)(void*), void* context) {
    return call(context);
}

}  // namespace tabulorix

// What this process uses, to find what a plug-in leaves behind.

#pragma once

#include <string>

namespace standin {

// "tls 5 heap 81234 handles 40 gdi 3 user 9 working-set 5242880 private 4194304": taken
// thread-local slots, bytes in all heaps, and the system's own counters, 0 where it does not count.
std::string GetFigures();

// Holds the process still until a line comes from standard input, so that others can measure it
// meanwhile. Goes on at once where the input has ended.
void WaitForLine();

}  // namespace standin

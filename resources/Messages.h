// The messages of the results list: the one source for the string table of the Windows files, for
// programs that carry their strings inside, and for the tests. Read by the C++ and the resource
// compiler.
//
// "%1" and "%2" stand for line numbers, counted from 1.

#pragma once

#define TABULORIX_MESSAGE_LINE_IGNORED 100
#define TABULORIX_MESSAGE_LINES_IGNORED 101

#define TABULORIX_TEXT_LINE_IGNORED \
    "Line %1 looks like it isn't a real tab stave line so it has been ignored"
#define TABULORIX_TEXT_LINES_IGNORED \
    "Lines %1 to %2 inclusive don't seem to be part of a real stave so they have been ignored"

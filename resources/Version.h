// The version of the program: the one source for the command line, the version block of the Windows
// files and whatever shows it. Read by the C++ and the resource compiler.

#pragma once

#define TABULORIX_VERSION_MAJOR 1
#define TABULORIX_VERSION_MINOR 0
#define TABULORIX_VERSION_PATCH 0
#define TABULORIX_VERSION_BUILD 1

#define TABULORIX_STRINGIFY_(x) #x
#define TABULORIX_STRINGIFY(x) TABULORIX_STRINGIFY_(x)

#define TABULORIX_VERSION_STRING                                              \
    TABULORIX_STRINGIFY(TABULORIX_VERSION_MAJOR)                              \
    "." TABULORIX_STRINGIFY(TABULORIX_VERSION_MINOR) "." TABULORIX_STRINGIFY( \
        TABULORIX_VERSION_PATCH)

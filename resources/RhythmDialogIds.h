// The rhythm dialog and its controls. Read by the C++ and the resource compiler.

#pragma once

#define TABULORIX_RHYTHM_DIALOG 100

#define TABULORIX_RHYTHM_ALWAYS 1000
#define TABULORIX_RHYTHM_INDICATED 1001
#define TABULORIX_RHYTHM_NEVER 1002
#define TABULORIX_RHYTHM_DONT_SHOW 102

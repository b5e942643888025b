// The binary resources of programs that carry them inside, put there by EmbeddedResources.S.

#pragma once

extern "C" {

// The blank score that every conversion starts from: tree text in UTF-16LE, up to the end mark.
extern const char g_TabulorixBlankScore[];
extern const char g_TabulorixBlankScoreEnd[];
}

// The extension of a file name, to be compared in any case of letters and in any locale.

#pragma once

#include <algorithm>
#include <string>
#include <string_view>

#include "Ascii.h"

namespace tabulorix {

// What follows the last dot of the name, in lower case; empty without a dot.
inline std::string GetLowerCaseExtension(std::string_view name) {
    const std::size_t dot = name.rfind('.');
    std::string extension(dot == std::string_view::npos ? "" : name.substr(dot + 1));
    std::transform(extension.begin(), extension.end(), extension.begin(), ToLower);
    return extension;
}

}  // namespace tabulorix

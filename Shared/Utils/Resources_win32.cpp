#include <windows.h>

#include "Resources.h"

namespace tabulorix {

STR LoadStringResource(ModuleHandle module, int id) {
    char text[kLongestResourceString + 1];
    const int length =
        LoadStringA(static_cast<HINSTANCE>(module), static_cast<UINT>(id), text, sizeof text);
    return length <= 0 ? STR() : STR(std::string_view(text, static_cast<std::size_t>(length)));
}

std::string_view FindBinaryResource(ModuleHandle module, const char* type, int id) {
    const auto instance = static_cast<HMODULE>(module);
    const HRSRC place = FindResourceA(instance, MAKEINTRESOURCEA(id), type);
    const HGLOBAL loaded = place == nullptr ? nullptr : LoadResource(instance, place);
    const void* bytes = loaded == nullptr ? nullptr : LockResource(loaded);
    if (bytes == nullptr) {
        return {};
    }
    return {static_cast<const char*>(bytes), SizeofResource(instance, place)};
}

}  // namespace tabulorix

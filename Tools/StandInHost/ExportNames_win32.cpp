#include <windows.h>

#include <array>
#include <cstring>
#include <string>
#include <string_view>

#include "ExportNames.h"
#include "Log.h"

namespace standin {

namespace {

constexpr std::array<std::string_view, 6> kNames{
    "VEL_LOADTEMPFILE",          "VEL_RESULTSDIALOGMESSAGE",   "VEL_UPDATEPROGRESSDIALOG",
    "VEL_DESTROYPROGRESSDIALOG", "VEL_CREATEPROGRESSDIALOG_2", "VEL_CHOOSETRANSPOSINGINSTRUMENTS"};

constexpr char kHiddenLetter = '_';

template <typename T>
T* AtOffset(void* base, DWORD offset) {
    return reinterpret_cast<T*>(static_cast<char*>(base) + offset);
}

void WriteLetter(char* place, char letter) {
    DWORD before = 0;
    VirtualProtect(place, 1, PAGE_READWRITE, &before);
    *place = letter;
    VirtualProtect(place, 1, before, &before);
}

// Visits the names in the export table of this program.
template <typename Visitor>
void VisitNames(Visitor visit) {
    void* base = GetModuleHandleA(nullptr);
    const auto* dosHeader = static_cast<const IMAGE_DOS_HEADER*>(base);
    const auto* headers = AtOffset<IMAGE_NT_HEADERS>(base, static_cast<DWORD>(dosHeader->e_lfanew));
    const DWORD table =
        headers->OptionalHeader.DataDirectory[IMAGE_DIRECTORY_ENTRY_EXPORT].VirtualAddress;
    const auto* exports = AtOffset<IMAGE_EXPORT_DIRECTORY>(base, table);
    const DWORD* offsets = AtOffset<DWORD>(base, exports->AddressOfNames);
    for (DWORD i = 0; i < exports->NumberOfNames; ++i) {
        visit(AtOffset<char>(base, offsets[i]));
    }
}

}  // namespace

void HideExport(int number) {
    VisitNames([number](char* exported) {
        for (std::size_t i = 0; i < kNames.size(); ++i) {
            const std::string_view name = kNames[i];
            if (std::strncmp(exported, name.data(), name.size() - 1) == 0) {
                const bool isHidden = static_cast<int>(i) + 1 == number;
                WriteLetter(exported + name.size() - 1, isHidden ? kHiddenLetter : name.back());
            }
        }
    });
}

}  // namespace standin

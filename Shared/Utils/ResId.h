// Names one string or resource of the program by numeric id and module.
//
// A module is the system's handle of the loaded file that holds the resources; null names the
// default module, which a plug-in is told when it is loaded. A program that carries its resources
// inside itself ignores modules.

#pragma once

#include <string_view>

#include "STR.h"

namespace tabulorix {

using ModuleHandle = void*;

class ResId {
public:
    explicit ResId(int id, ModuleHandle module = nullptr) noexcept : m_Id(id), m_Module(module) {}

    int GetId() const noexcept { return m_Id; }

    // The string-table text of this id, at most 999 characters. An id without one gives an empty
    // text and a line in the debug log.
    STR GetString() const;

    // The bytes of the resource of the given type, valid while its module is loaded. Looked for in
    // the module, then in the main program. Empty when there is none.
    std::string_view GetResource(const char* type) const;

    static void SetDefaultModule(ModuleHandle module) noexcept;
    static ModuleHandle GetDefaultModule() noexcept;

private:
    int m_Id;
    ModuleHandle m_Module;
};

}  // namespace tabulorix

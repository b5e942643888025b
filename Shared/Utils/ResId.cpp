#include "ResId.h"

#include "Log.h"
#include "Resources.h"

namespace tabulorix {

namespace {

ModuleHandle g_DefaultModule = nullptr;

ModuleHandle OrDefault(ModuleHandle module) {
    return module == nullptr ? g_DefaultModule : module;
}

}  // namespace

STR ResId::GetString() const {
    STR text = LoadStringResource(OrDefault(m_Module), m_Id);
    if (text.IsEmpty()) {
        WriteDebugLog(STR("ResId::GetString failed to load string with ID ") + STR::FromInt(m_Id) +
                      "\n");
    }
    return text;
}

std::string_view ResId::GetResource(const char* type) const {
    const std::string_view bytes = FindBinaryResource(OrDefault(m_Module), type, m_Id);
    return bytes.empty() ? FindBinaryResource(nullptr, type, m_Id) : bytes;
}

void ResId::SetDefaultModule(ModuleHandle module) noexcept {
    g_DefaultModule = module;
}

ModuleHandle ResId::GetDefaultModule() noexcept {
    return g_DefaultModule;
}

}  // namespace tabulorix

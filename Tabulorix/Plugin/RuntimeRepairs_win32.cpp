// Repairs of the compiler's run-time library, which expects to be the only one of its process and
// to stay in it for good. This DLL brings its own copy and is unloaded again.
//
// Three of them stand here. The fourth, for exceptions of other compilers, is in
// HostCall_win32.cpp.

#include <unwind.h>
#include <windows.h>

#include <cstddef>
#include <cstdlib>
#include <cstring>

extern "C" {

// The linker's name for the start of this DLL.
extern const char __ImageBase[];

void __register_frame_info(const void* frames, void* record);
void* __deregister_frame_info(const void* frames);
}

namespace __gnu_cxx {
void __freeres();
}

namespace {

// Unwind tables. The start-up code registers this DLL's tables with the shared run-time when the
// host has loaded that, and with the DLL's own copy only otherwise. But every throw in here uses
// the copy, and without tables it would end the process. So they are registered with the copy as
// well.

constexpr const char* kSharedRuntime = "libgcc_s_dw2-1.dll";
// The linker is told to cut section names to eight characters.
constexpr char kUnwindSection[] = {'.', 'e', 'h', '_', 'f', 'r', 'a', 'm'};

// Null when the DLL has no tables.
const char* FindUnwindTables() noexcept {
    const auto* start = reinterpret_cast<const IMAGE_DOS_HEADER*>(__ImageBase);
    const auto* headers = reinterpret_cast<const IMAGE_NT_HEADERS*>(__ImageBase + start->e_lfanew);
    const auto* sections = reinterpret_cast<const IMAGE_SECTION_HEADER*>(headers + 1);
    for (WORD i = 0; i < headers->FileHeader.NumberOfSections; ++i) {
        if (std::memcmp(sections[i].Name, kUnwindSection, sizeof kUnwindSection) == 0) {
            return __ImageBase + sections[i].VirtualAddress;
        }
    }
    return nullptr;
}

_Unwind_Reason_Code StopAtOnce(_Unwind_Context* /*frame*/, void* /*argument*/) noexcept {
    return _URC_END_OF_STACK;
}

class UnwindTables {
public:
    UnwindTables() noexcept {
        if (GetModuleHandleA(kSharedRuntime) != nullptr) {
            m_Tables = FindUnwindTables();
        }
        if (m_Tables != nullptr) {
            __register_frame_info(m_Tables, m_Record);
            _Unwind_Backtrace(StopAtOnce, nullptr);
        }
    }
    ~UnwindTables() {
        if (m_Tables != nullptr) {
            __deregister_frame_info(m_Tables);
        }
    }
    UnwindTables(const UnwindTables&) = delete;
    UnwindTables& operator=(const UnwindTables&) = delete;

private:
    const void* m_Tables = nullptr;
    void* m_Record[16] = {};  // the run-time's own, which it needs only part of
};

// Emergency memory. The run-time keeps memory for exceptions that are thrown when there is no
// other, and leaves it to the end of the process: 18 KB for every load of the DLL.

class EmergencyMemory {
public:
    constexpr EmergencyMemory() noexcept = default;
    ~EmergencyMemory() { __gnu_cxx::__freeres(); }
    EmergencyMemory(const EmergencyMemory&) = delete;
    EmergencyMemory& operator=(const EmergencyMemory&) = delete;
};

// Both are the first to be made and the last to go.
[[gnu::init_priority(101)]] EmergencyMemory g_EmergencyMemory;
[[gnu::init_priority(101)]] UnwindTables g_UnwindTables;

}  // namespace

// Thread-local variables. The run-time takes one of the system's few thread-local slots at the
// first throw and never gives it back: the process dies after some 1,100 loads with a throw. The
// only such variables are the run-time's own few words about exceptions, and the plug-in runs on
// one thread, so plain memory serves as well. This takes the place of the run-time's function.

namespace {

// What the compiler writes for each variable.
struct ThreadLocalVariable {
    std::size_t m_Size;
    std::size_t m_Alignment;
    void* m_Place;               // null before its first use
    const void* m_InitialBytes;  // null for zeros
};

constexpr std::size_t kPlaceUnit = 16;
alignas(kPlaceUnit) char g_Places[16 * kPlaceUnit];
std::size_t g_UsedBytes = 0;

}  // namespace

extern "C" void* __emutls_get_address(ThreadLocalVariable* variable) {
    if (variable->m_Place == nullptr) {
        if (variable->m_Size > sizeof g_Places - g_UsedBytes) {
            std::abort();
        }
        variable->m_Place = g_Places + g_UsedBytes;
        g_UsedBytes += (variable->m_Size + kPlaceUnit - 1) / kPlaceUnit * kPlaceUnit;
        if (variable->m_InitialBytes != nullptr) {
            std::memcpy(variable->m_Place, variable->m_InitialBytes, variable->m_Size);
        }
    }
    return variable->m_Place;
}

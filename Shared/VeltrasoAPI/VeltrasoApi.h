// The binary interface between the plug-in and the Veltraso host: the records that they exchange,
// the five functions that the plug-in exports and the six that the host's executable exports. Both
// sides are 32-bit Windows modules, and every function has C linkage, its plain name, and the C
// calling convention, in which the caller removes the arguments from the stack.
//
// The host calls VEL_INIT once, then VEL_OPENFILE any number of times, then VEL_TERM, always on one
// thread. From inside one of its own functions that the plug-in called it may call any of the five.
// Every pointer that is passed belongs to the caller and is valid during the call only; where that
// is not so, it is said below. Texts are zero-terminated, in the system's 8-bit code page.

#pragma once

#include <cstddef>
#include <cstdint>

namespace tabulorix {

// What the host tells at VEL_INIT.
struct PluginHostInfo {
    void* m_ParentWindow;  // window handle, valid until VEL_TERM; owns the plug-in's dialogs
    void* m_Unused4;
    void* m_Unused8;
    void* m_Module;  // module handle of the plug-in, from which it loads its resources
    std::uintptr_t m_ProgressCookie;  // first argument of every progress function, unchanged
    void* m_Unused20;
    const char* m_SettingsFolder;  // for the option file; copied, up to 511 characters; may be null
};

// One type of file that the plug-in opens. The texts are the plug-in's, valid while it is loaded.
struct ImportFileType {
    const char* m_Description;
    const char* m_Extension;  // without its dot
    const char* m_TypeCode;   // four characters
};

// What the plug-in answers at VEL_INIT. It writes the named fields and leaves the others alone.
struct PluginInitResult {
    void* m_Unused0[8];
    std::int32_t m_FileTypeCount;
    const ImportFileType* m_FileTypes;  // the first row; the plug-in's, valid while it is loaded
    std::int32_t m_Constant8;           // 8; its meaning is the host's
};

// Elsewhere the records serve tests only and may be wider.
constexpr bool kHasHostLayout = sizeof(void*) == 4;

static_assert(!kHasHostLayout ||
              (offsetof(PluginHostInfo, m_ParentWindow) == 0 &&
               offsetof(PluginHostInfo, m_Module) == 12 &&
               offsetof(PluginHostInfo, m_ProgressCookie) == 16 &&
               offsetof(PluginHostInfo, m_SettingsFolder) == 24 && sizeof(PluginHostInfo) == 28));
static_assert(!kHasHostLayout ||
              (offsetof(PluginInitResult, m_FileTypeCount) == 32 &&
               offsetof(PluginInitResult, m_FileTypes) == 36 &&
               offsetof(PluginInitResult, m_Constant8) == 40 && sizeof(PluginInitResult) == 44));
static_assert(!kHasHostLayout ||
              (offsetof(ImportFileType, m_Description) == 0 &&
               offsetof(ImportFileType, m_Extension) == 4 &&
               offsetof(ImportFileType, m_TypeCode) == 8 && sizeof(ImportFileType) == 12));

extern "C" {

// What the plug-in exports.

// VEL_INIT: 1 when all six functions of the host were found, else 0; the result is filled either
// way. 0 with nothing touched for a null record or from inside an import. May be called again.
using VelInitFunction = int(const PluginHostInfo* info, PluginInitResult* result);

// VEL_OPENFILE: imports the file. 1 when it is a tab, also when the user cancels or the import
// fails; 0 when it is none. The score reaches the host through VEL_LOADTEMPFILE, inside this call.
using VelOpenFileFunction = int(const char* path);

// VEL_TERM: always 1. From inside an import it takes effect when that import ends.
using VelTermFunction = int();

// What the host exports. The plug-in calls these from inside VEL_OPENFILE only.

// VEL_LOADTEMPFILE: loads the score completely before it returns; the file is deleted then. The
// result is ignored.
using VelLoadTempFileFunction = int(const char* scorePath);

// VEL_UPDATEPROGRESSDIALOG: `percent` is 0 to 100, the caption may be empty. 0 means that the user
// cancelled. Also called, as is the next one, when no display was opened.
using VelUpdateProgressDialogFunction = int(std::uintptr_t cookie, int percent,
                                            const char* caption);

// VEL_DESTROYPROGRESSDIALOG: closes the progress display. The result is ignored.
using VelDestroyProgressDialogFunction = int(std::uintptr_t cookie);

// VEL_CREATEPROGRESSDIALOG_2: opens the progress display, which runs from `minimum` to `maximum`.
// The meaning of `last`, always 30, is the host's. The result is ignored.
using VelCreateProgressDialog2Function = int(std::uintptr_t cookie, const char* title, int minimum,
                                             int maximum, int last);

// What both export under one name; the plug-in's only forwards to the host's, and gives 0 while it
// has none.

// VEL_RESULTSDIALOGMESSAGE: a line of the results list. The plug-in ignores the host's result.
using VelResultsDialogMessageFunction = int(const char* title, const char* fileName, int kind,
                                            int location1, int location2, const char* text);

// VEL_CHOOSETRANSPOSINGINSTRUMENTS: both values and the result are the host's.
using VelChooseTransposingInstrumentsFunction = int(std::uintptr_t value1, std::uintptr_t value2);
}

}  // namespace tabulorix

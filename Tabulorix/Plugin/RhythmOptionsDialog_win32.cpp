#include "RhythmOptionsDialog_win32.h"

#include <windows.h>

#include <memory>

#include "HostCall.h"
#include "ResId.h"
#include "RhythmDialogIds.h"

namespace tabulorix {

namespace {

constexpr INT_PTR kConfirmed = 1;
constexpr INT_PTR kCancelled = 0;

struct LevelButton {
    RhythmLevel m_Level;
    int m_Id;
};

constexpr LevelButton kLevelButtons[] = {
    {RhythmLevel::Always, TABULORIX_RHYTHM_ALWAYS},
    {RhythmLevel::WhenIndicated, TABULORIX_RHYTHM_INDICATED},
    {RhythmLevel::Never, TABULORIX_RHYTHM_NEVER},
};

// What the window procedure works on.
struct OpenDialog {
    ImportOptions& m_Options;
    HWND m_Window = nullptr;
    bool m_DontShowAgain = false;
};

// " v2.8.0 build 7" for the file version 2.8.0.7 of the module; empty when it has none.
STR GetVersionText(HMODULE module) {
    char path[MAX_PATH];
    const DWORD length = GetModuleFileNameA(module, path, sizeof path);
    const bool isWhole = length > 0 && length < sizeof path;
    const DWORD size = isWhole ? GetFileVersionInfoSizeA(path, nullptr) : 0;
    const auto block = std::make_unique<char[]>(size);
    void* found = nullptr;
    UINT foundSize = 0;
    if (size == 0 || GetFileVersionInfoA(path, 0, size, block.get()) == 0 ||
        VerQueryValueA(block.get(), "\\", &found, &foundSize) == 0 ||
        foundSize < sizeof(VS_FIXEDFILEINFO)) {
        return {};
    }
    const auto& version = *static_cast<const VS_FIXEDFILEINFO*>(found);
    return STR(" v") + STR::FromInt(HIWORD(version.dwFileVersionMS)) + "." +
           STR::FromInt(LOWORD(version.dwFileVersionMS)) + "." +
           STR::FromInt(HIWORD(version.dwFileVersionLS)) + " build " +
           STR::FromInt(LOWORD(version.dwFileVersionLS));
}

void AppendVersionToCaption(HWND window) {
    char caption[256];
    const int length = GetWindowTextA(window, caption, sizeof caption);
    const STR text(std::string_view(caption, static_cast<std::size_t>(length)));
    const auto module = static_cast<HMODULE>(ResId::GetDefaultModule());
    SetWindowTextA(window, (text + GetVersionText(module)).GetText());
}

void CentreOnScreen(HWND window) {
    RECT place;
    GetWindowRect(window, &place);
    const int left = GetSystemMetrics(SM_CXSCREEN) / 2 - (place.right - place.left) / 2;
    const int top = GetSystemMetrics(SM_CYSCREEN) / 2 - (place.bottom - place.top) / 2;
    SetWindowPos(window, nullptr, left, top, 0, 0, SWP_NOSIZE | SWP_NOZORDER | SWP_NOACTIVATE);
}

// The keyboard starts at the chosen button. Without one it starts at OK, for the system checks a
// radio button that it gives the focus.
void ShowLevel(HWND window, int storedLevel) {
    int focus = IDOK;
    for (const LevelButton& button : kLevelButtons) {
        if (static_cast<int>(button.m_Level) == storedLevel) {
            CheckRadioButton(window, TABULORIX_RHYTHM_ALWAYS, TABULORIX_RHYTHM_NEVER, button.m_Id);
            focus = button.m_Id;
        }
    }
    SetFocus(GetDlgItem(window, focus));
}

RhythmLevel GetChosenLevel(HWND window) {
    for (const LevelButton& button : kLevelButtons) {
        if (IsDlgButtonChecked(window, button.m_Id) == BST_CHECKED) {
            return button.m_Level;
        }
    }
    return RhythmLevel::Never;
}

void Open(OpenDialog& dialog, HWND window) {
    dialog.m_Window = window;
    AppendVersionToCaption(window);
    CentreOnScreen(window);
    ShowLevel(window, dialog.m_Options.GetStoredLevel());
    dialog.m_Options.Save();
}

void Confirm(OpenDialog& dialog, HWND window) {
    dialog.m_Options.SetRhythmLevel(GetChosenLevel(window));
    dialog.m_DontShowAgain = IsDlgButtonChecked(window, TABULORIX_RHYTHM_DONT_SHOW) == BST_CHECKED;
    EndDialog(window, kConfirmed);
}

// False for a message that the system is to deal with. TRUE as the answer to the first message
// would let the system choose the focus.
bool Handle(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
    if (message == WM_INITDIALOG) {
        SetWindowLongPtrA(window, DWLP_USER, lParam);
        Open(*reinterpret_cast<OpenDialog*>(lParam), window);
        return false;
    }
    const auto dialog = reinterpret_cast<OpenDialog*>(GetWindowLongPtrA(window, DWLP_USER));
    if (message != WM_COMMAND || dialog == nullptr) {
        return false;
    }
    switch (LOWORD(wParam)) {
        case IDOK:
            Confirm(*dialog, window);
            return true;
        case IDCANCEL:
            EndDialog(window, kCancelled);
            return true;
        default:
            return false;
    }
}

// No exception may pass through the system's frames; a dialog that fails is a cancelled one.
INT_PTR CALLBACK HandleMessage(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
    try {
        return Handle(window, message, wParam, lParam) ? TRUE : FALSE;
    } catch (...) {
        EndDialog(window, kCancelled);
        return TRUE;
    }
}

}  // namespace

RhythmDialog::Answer RhythmOptionsDialog::Show(void* parentWindow, ImportOptions& options) {
    const auto parent = static_cast<HWND>(parentWindow);
    OpenDialog dialog{options};
    INT_PTR result = kCancelled;
    try {
        // While the dialog is open the host's windows live on, and so does their code.
        result = CallHost([&] {
            return DialogBoxParamA(static_cast<HINSTANCE>(ResId::GetDefaultModule()),
                                   MAKEINTRESOURCEA(TABULORIX_RHYTHM_DIALOG), parent, HandleMessage,
                                   reinterpret_cast<LPARAM>(&dialog));
        });
    } catch (...) {
        // The system's own clearing up was jumped over.
        EnableWindow(parent, TRUE);
        DestroyWindow(dialog.m_Window);
    }
    return {result == kConfirmed, dialog.m_DontShowAgain};
}

}  // namespace tabulorix

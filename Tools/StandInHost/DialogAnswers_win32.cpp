#include "DialogAnswers_win32.h"

#include <algorithm>
#include <cstdlib>
#include <string_view>
#include <utility>

#include "Log.h"

namespace standin {

namespace {

constexpr const char* kWindowClass = "StandInHost";

struct NamedControl {
    std::string_view m_Name;
    int m_Id;
};

constexpr NamedControl kControls[] = {{"always", 1000}, {"only", 1001}, {"never", 1002},
                                      {"box", 102},     {"ok", IDOK},   {"cancel", IDCANCEL}};

std::string GetWindowTextOf(HWND window) {
    char text[256] = "";
    GetWindowTextA(window, text, sizeof text);
    return text;
}

std::string DescribePlace(HWND dialog) {
    RECT rectangle{};
    GetWindowRect(dialog, &rectangle);
    const long width = rectangle.right - rectangle.left;
    const long height = rectangle.bottom - rectangle.top;
    const bool isCentred = rectangle.left == GetSystemMetrics(SM_CXSCREEN) / 2 - width / 2 &&
                           rectangle.top == GetSystemMetrics(SM_CYSCREEN) / 2 - height / 2;
    return isCentred ? "centred" : "not centred";
}

void Describe(HWND dialog) {
    Log("dialog " + Quoted(GetWindowTextOf(dialog).c_str()) + " " + DescribePlace(dialog) +
        ", default button " + std::to_string(LOWORD(SendMessageA(dialog, DM_GETDEFID, 0, 0))));
    const LogIndent indent;
    for (HWND control = GetWindow(dialog, GW_CHILD); control != nullptr;
         control = GetWindow(control, GW_HWNDNEXT)) {
        const bool isChecked = SendMessageA(control, BM_GETCHECK, 0, 0) == BST_CHECKED;
        Log("control " + std::to_string(GetDlgCtrlID(control)) + " " +
            Quoted(GetWindowTextOf(control).c_str()) + (isChecked ? " checked" : "") +
            (GetFocus() == control ? " focused" : ""));
    }
}

// Lets the dialog paint itself and its user act.
void Wait(HWND dialog, DWORD milliseconds) {
    const DWORD start = GetTickCount();
    DWORD passed = 0;
    while (IsWindowVisible(dialog) != 0 && passed < milliseconds) {
        MsgWaitForMultipleObjects(0, nullptr, FALSE, milliseconds - passed, QS_ALLINPUT);
        MSG message;
        while (PeekMessageA(&message, nullptr, 0, 0, PM_REMOVE) != 0) {
            if (IsDialogMessageA(dialog, &message) == 0) {
                DispatchMessageA(&message);
            }
        }
        passed = GetTickCount() - start;
    }
    // The dialog's own loop must wake up to see that the dialog has ended.
    PostMessageA(dialog, WM_NULL, 0, 0);
}

// As if typed; the dialog's own loop takes it from the queue.
void PressKey(HWND dialog, UINT message, WPARAM key) {
    HWND focus = GetFocus();
    PostMessageA(focus != nullptr ? focus : dialog, message, key, 0);
    Wait(dialog, 50);
}

}  // namespace

DialogAnswers::DialogAnswers(const std::vector<Answer>& answers, std::function<void()> whileOpen)
    : m_Answers(answers), m_WhileOpen(std::move(whileOpen)) {
    WNDCLASSA windowClass{};
    windowClass.lpfnWndProc = OnMessage;
    windowClass.hInstance = GetModuleHandleA(nullptr);
    windowClass.lpszClassName = kWindowClass;
    RegisterClassA(&windowClass);
    m_Window = CreateWindowExA(0, kWindowClass, "Stand-in host", WS_OVERLAPPEDWINDOW, 0, 0, 200,
                               100, nullptr, nullptr, windowClass.hInstance, nullptr);
    if (m_Window == nullptr) {
        LogAlways("COMPLAINT: there is no window, so no dialog can be answered");
        return;
    }
    SetWindowLongPtrA(m_Window, GWLP_USERDATA, reinterpret_cast<LONG_PTR>(this));
}

DialogAnswers::~DialogAnswers() {
    if (m_Window != nullptr) {
        DestroyWindow(m_Window);
    }
}

LRESULT CALLBACK DialogAnswers::OnMessage(HWND window, UINT message, WPARAM first, LPARAM second) {
    auto* self = reinterpret_cast<DialogAnswers*>(GetWindowLongPtrA(window, GWLP_USERDATA));
    if (message == WM_ENTERIDLE && first == MSGF_DIALOGBOX && self != nullptr) {
        self->OnIdle(reinterpret_cast<HWND>(second));
        return 0;
    }
    return DefWindowProcA(window, message, first, second);
}

void DialogAnswers::OnIdle(HWND dialog) {
    std::erase_if(m_Open, [](HWND open) { return IsWindow(open) == 0; });
    if (std::find(m_Open.begin(), m_Open.end(), dialog) != m_Open.end()) {
        return;
    }
    m_Open.push_back(dialog);
    const std::size_t number = m_DialogCount++;
    Describe(dialog);
    m_WhileOpen();
    if (m_Answers.empty()) {
        return;
    }
    for (const std::string& deed : m_Answers[std::min(number, m_Answers.size() - 1)]) {
        Take(dialog, deed);
    }
}

void DialogAnswers::Take(HWND dialog, const std::string& deed) {
    Log("dialog: " + deed);
    const auto control =
        std::find_if(std::begin(kControls), std::end(kControls),
                     [&deed](const NamedControl& named) { return named.m_Name == deed; });
    if (control != std::end(kControls)) {
        SendDlgItemMessageA(dialog, control->m_Id, BM_CLICK, 0, 0);
    } else if (deed.starts_with("pause=")) {
        Wait(dialog, static_cast<DWORD>(std::atoi(deed.c_str() + 6)));
    } else if (deed == "enter") {
        PressKey(dialog, WM_KEYDOWN, VK_RETURN);
    } else if (deed == "escape") {
        PressKey(dialog, WM_KEYDOWN, VK_ESCAPE);
    } else if (deed.starts_with("alt+")) {
        PressKey(dialog, WM_SYSCHAR, static_cast<WPARAM>(deed.back()));
    } else if (deed == "close") {
        PostMessageA(dialog, WM_SYSCOMMAND, SC_CLOSE, 0);
    } else {
        LogAlways("COMPLAINT: nobody can do that in a dialog: " + deed);
    }
}

}  // namespace standin

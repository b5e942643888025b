// The host's window, which owns the plug-in's dialogs, and the hand that answers them.
//
// A dialog tells its owner whenever it has nothing to do. The first time, it is described in the
// log and answered as the script says; a dialog with another owner would wait for its user.

#pragma once

#include <windows.h>

#include <functional>
#include <string>
#include <vector>

#include "Script.h"

namespace standin {

class DialogAnswers {
public:
    // `whileOpen` is called for each dialog before it is answered. The window is not shown.
    DialogAnswers(const std::vector<Answer>& answers, std::function<void()> whileOpen);
    ~DialogAnswers();
    DialogAnswers(const DialogAnswers&) = delete;
    DialogAnswers& operator=(const DialogAnswers&) = delete;

    HWND GetWindow() const { return m_Window; }

private:
    static LRESULT CALLBACK OnMessage(HWND window, UINT message, WPARAM first, LPARAM second);
    void OnIdle(HWND dialog);
    void Take(HWND dialog, const std::string& deed);

    const std::vector<Answer>& m_Answers;
    std::function<void()> m_WhileOpen;
    HWND m_Window = nullptr;
    std::size_t m_DialogCount = 0;
    std::vector<HWND> m_Open;  // dialogs that have been answered and may still be there
};

}  // namespace standin

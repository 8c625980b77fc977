// The application object of a module and the message loop. Loops call idle work when the queue is empty; a test or a
// scripted host drives a modal dialog from there, as a person would.
#pragma once

#include <functional>

#include "framework/cmd_target.h"

class CWnd;

class CWinApp : public CCmdTarget {
    QV_DECLARE_RUNTIME_CLASS
    CWinApp() = default;
    ~CWinApp() override;
    virtual bool InitInstance();
    virtual int ExitInstance();
};

// Runs until `goOn` answers false or WM_QUIT comes (which is posted again for the outer loop and ends this one).
// Returns false when it ended by WM_QUIT or a failing GetMessage.
bool RunMessageLoop(const std::function<bool()>& goOn);
// PreTranslateMessage up the parents, then TranslateMessage and DispatchMessage.
void PumpMessage(MSG& message);
// Handles what is queued now without waiting.
void PumpPending();

// Called whenever a loop of this thread has nothing to do, with the count of calls since the last message; true asks to
// be called again at once. One handler at a time; returns the one before.
using IdleHandler = std::function<bool(int count)>;
IdleHandler SetIdleHandler(IdleHandler handler);

// The thread's main window, or null: the owner of what has no better one.
[[nodiscard]] CWnd* GetMainWnd();
void SetMainWnd(CWnd* window);

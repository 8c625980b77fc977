#include "app/main_window.h"

#include "base/text.h"

namespace qv {

namespace {

constexpr UINT kChangeSettings = 0x8001;
constexpr UINT kExit = 0x8002;
constexpr UINT kLog = 100;

HMENU BuildMenu() {
    HMENU settings = CreatePopupMenu();
    AppendMenuW(settings, MF_STRING, kChangeSettings, L"&Change...");
    HMENU tools = CreatePopupMenu();
    AppendMenuW(tools, MF_POPUP, reinterpret_cast<UINT_PTR>(settings), L"&Settings");
    HMENU file = CreatePopupMenu();
    AppendMenuW(file, MF_STRING, kExit, L"E&xit");
    HMENU bar = CreateMenu();
    AppendMenuW(bar, MF_POPUP, reinterpret_cast<UINT_PTR>(file), L"&File");
    AppendMenuW(bar, MF_POPUP, reinterpret_cast<UINT_PTR>(tools), L"&Tools");
    return bar;
}

}  // namespace

const MessageMap* MainWindow::GetMessageMap() const {
    static const MessageMap map{CWnd::GetThisMessageMap(),
                                {
                                    on::Size<&MainWindow::OnSizeLog>(),
                                    on::Plain<&MainWindow::OnFocus>(WM_SETFOCUS),
                                    on::Destroy<&MainWindow::OnWindowDestroyed>(),
                                    on::Command<&MainWindow::OnChangeSettings>(kChangeSettings),
                                    on::Command<&MainWindow::OnExit>(kExit),
                                }};
    return &map;
}

bool MainWindow::CreateMain(std::wstring_view title) {
    const RECT rect{60, 40, 60 + 900, 40 + 560};
    if (!CreateEx(0, nullptr, title, WS_OVERLAPPEDWINDOW | WS_CLIPCHILDREN, rect, nullptr,
                  reinterpret_cast<UINT_PTR>(BuildMenu()))) {
        return false;
    }
    return m_log.Create(WS_VISIBLE | WS_VSCROLL | ES_MULTILINE | ES_READONLY | ES_AUTOVSCROLL, GetClientRect(), this,
                        kLog);
}

void MainWindow::Log(std::wstring_view line) {
    if (!m_log.IsLive()) return;
    const int end = m_log.GetWindowTextLength();
    m_log.SetSel(end, end);
    const std::wstring text = std::wstring(line) + L"\r\n";
    m_log.SendMessage(EM_REPLACESEL, FALSE, reinterpret_cast<LPARAM>(text.c_str()));
}

void MainWindow::PostChangeSettings(bool closeAfter) {
    m_closeAfter = closeAfter;
    PostMessage(WM_COMMAND, kChangeSettings);
}

void MainWindow::OnChangeSettings() {
    // Also when it throws: nobody else would end the program.
    struct CloseAfter {
        MainWindow& window;
        ~CloseAfter() {
            if (window.m_closeAfter && window.IsLive()) window.DestroyWindow();
        }
    } const closeAfter{*this};
    m_change();
}

void MainWindow::OnExit() {
    PostMessage(WM_CLOSE);
}

void MainWindow::OnWindowDestroyed() {
    OnDestroy();
    PostQuitMessage(0);
}

void MainWindow::OnSizeLog(UINT type, int cx, int cy) {
    OnSize(type, cx, cy);
    if (m_log.IsLive()) m_log.MoveWindow(0, 0, cx, cy);
}

void MainWindow::OnFocus() {
    if (m_log.IsLive()) m_log.SetFocus();
}

}  // namespace qv

// What is there before anybody makes a window: the classes of dialogs and of the desktop itself, and its two own
// windows.
#include <utility>

#include "platform/headless/desktop/classes.h"
#include "platform/headless/desktop/dialog_manager.h"
#include "platform/headless/desktop/screen.h"
#include "platform/headless/desktop/window_table.h"

using namespace qv::headless;

namespace {

constexpr ATOM kDesktopAtom = 32769;

LRESULT DesktopWindowProc(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
    return DefWindowProcW(window, message, wParam, lParam);
}

Window* MakeRoot(WindowClass& windowClass, const RECT& place) {
    auto window = std::make_unique<Window>();
    window->windowClass = &windowClass;
    window->procedure = DesktopWindowProc;
    window->style = WS_POPUP | WS_VISIBLE | WS_CLIPCHILDREN | WS_CLIPSIBLINGS;
    window->place = window->client = place;
    return AddRoot(std::move(window));
}

bool SetUp() {
    AddSystemClass(L"#32770", kDialogAtom, DialogWindowProc, DLGWINDOWEXTRA);
    WindowClass& desktop = AddSystemClass(L"#32769", kDesktopAtom, DesktopWindowProc, 0);
    Windows().root = MakeRoot(desktop, {0, 0, Screen().size.cx, Screen().size.cy});
    Windows().messageRoot = MakeRoot(desktop, {});
    return true;
}

// With the library: every caller comes after it.
[[maybe_unused]] const bool s_ready = SetUp();

}  // namespace

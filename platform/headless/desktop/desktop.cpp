#include "platform/headless/doors/desktop.h"

#include <cstdlib>

#include "platform/headless/desktop/desktop_state.h"

namespace qv::desk {

std::size_t LiveMenus() noexcept;

State& Desk() {
    // Never destroyed: windows and classes of modules that unload late still find it.
    static State& state = *new State;
    return state;
}

namespace {

constexpr int kUsualWidth = 1920;
constexpr int kUsualHeight = 1200;

// The resolution that the desktop has at first: QV_DPI, so that whole test programs can run at another one.
UINT FirstDpi() {
    const char* text = std::getenv("QV_DPI");
    const int dpi = text != nullptr ? std::atoi(text) : 0;
    return dpi > 0 ? static_cast<UINT>(dpi) : USER_DEFAULT_SCREEN_DPI;
}

// What QV_SCREEN says ("1366x768"), or as many pixels as make the usual screen as large to the eye at the resolution.
SIZE FirstScreen() {
    SIZE size{};
    if (const char* text = std::getenv("QV_SCREEN"); text != nullptr) {
        char* end = nullptr;
        size.cx = static_cast<LONG>(std::strtol(text, &end, 10));
        if (*end == 'x') size.cy = static_cast<LONG>(std::strtol(end + 1, nullptr, 10));
        if (size.cx > 0 && size.cy > 0) return size;
    }
    const int dpi = static_cast<int>(FirstDpi());
    return {MulDiv(kUsualWidth, dpi, USER_DEFAULT_SCREEN_DPI), MulDiv(kUsualHeight, dpi, USER_DEFAULT_SCREEN_DPI)};
}

LRESULT DesktopWindowProc(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
    return DefWindowProcW(window, message, wParam, lParam);
}

}  // namespace

State::State() {
    dpi = FirstDpi();
    screen = FirstScreen();
    workArea = {0, 0, screen.cx, screen.cy};
    // Slot 0 stays unused, so that no handle is null.
    slots.resize(1);
    uses.resize(1);
    const auto addClass = [this](const wchar_t* name, ATOM atom, WNDPROC procedure, int extra) {
        auto entry = std::make_unique<WindowClass>();
        entry->name = name;
        entry->info.cbSize = sizeof(WNDCLASSEXW);
        entry->info.style = CS_GLOBALCLASS | CS_DBLCLKS;
        entry->info.lpfnWndProc = procedure;
        entry->info.cbWndExtra = extra;
        entry->atom = atom;
        classAtoms[atom] = entry.get();
        WindowClass* added = entry.get();
        classes[name].push_back(std::move(entry));
        return added;
    };
    addClass(L"#32770", kDialogAtom, DialogWindowProc, DLGWINDOWEXTRA);
    WindowClass* desktop = addClass(L"#32769", kDesktopAtom, DesktopWindowProc, 0);
    const auto addRoot = [&] {
        auto window = std::make_unique<Window>();
        window->handle = reinterpret_cast<HWND>(slots.size() | (std::uintptr_t{1} << 16));
        window->windowClass = desktop;
        window->procedure = DesktopWindowProc;
        window->style = WS_POPUP | WS_VISIBLE | WS_CLIPCHILDREN | WS_CLIPSIBLINGS;
        window->place = {0, 0, screen.cx, screen.cy};
        window->client = window->place;
        Window* added = window.get();
        slots.push_back(std::move(window));
        uses.push_back(1);
        return added;
    };
    root = addRoot();
    messageRoot = addRoot();
    messageRoot->place = messageRoot->client = {};
}

}  // namespace qv::desk

namespace qv {

using desk::Desk;

void Desktop::Reset() {
    desk::State& state = Desk();
    for (desk::Window* root : {state.root, state.messageRoot}) {
        while (root->first)
            DestroyWindow(root->first->handle);
    }
    state.queue.clear();
    state.quitPosted = false;
    state.timers.clear();
    state.dirtyWindows.clear();
    state.focus = state.active = state.capture = nullptr;
    state.keys.fill(0);
    state.hooks.clear();
    state.hookChains.clear();
    state.boxAnswers.clear();
    state.windowLimit = 10000;
    state.failCreation = 0;
    state.dpi = desk::FirstDpi();
    const SIZE screen = desk::FirstScreen();
    SetScreenSize(static_cast<int>(screen.cx), static_cast<int>(screen.cy));
}

Desktop::Counters Desktop::Count() {
    const desk::State& state = Desk();
    return {.windows = state.liveWindows,
            .deviceContexts = desk::LiveContexts(),
            .fonts = desk::LiveFonts(),
            .gdiObjects = desk::LiveObjects(),
            .menus = desk::LiveMenus(),
            .hooks = state.hooks.size(),
            .timers = state.timers.size(),
            .queuedMessages = state.queue.size()};
}

void Desktop::SetScreenSize(int width, int height) {
    desk::State& state = Desk();
    state.screen = {width, height};
    state.workArea = {0, 0, width, height};
    state.root->place = state.root->client = state.workArea;
}

void Desktop::SetWorkArea(const RECT& area) {
    Desk().workArea = area;
}
void Desktop::SetDpi(UINT dpi) {
    Desk().dpi = dpi;
}
void Desktop::FailWindowCreation(std::size_t nth) {
    Desk().failCreation = nth;
}
void Desktop::SetWindowLimit(std::size_t limit) {
    Desk().windowLimit = limit;
}
void Desktop::AnswerMessageBox(int button) {
    Desk().boxAnswers.push_back(button);
}

}  // namespace qv

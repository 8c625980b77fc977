// What the desktop in memory consists of, and the steps that its parts share. Private to this folder: everything above
// sees the platform's calls only. Handles go stale whenever a message is sent, so a function that sends looks its
// windows up again by handle afterwards.
#pragma once

#include <array>
#include <cstddef>
#include <deque>
#include <map>
#include <memory>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "platform/headless/base/error.h"
#include "platform/headless/desktop/dialog.h"
#include "platform/headless/desktop/gdi.h"
#include "platform/headless/desktop/menu.h"
#include "platform/headless/desktop/user.h"

namespace qv::desk {

// Flags of WINDOWPOS beside the documented ones: they travel from placing a window to its default procedure.
inline constexpr UINT kSwpNoClientSize = 0x0800;
inline constexpr UINT kSwpNoClientMove = 0x1000;
inline constexpr UINT kSwpStateChanged = 0x8000;

inline constexpr WORD kDesktopAtom = 32769;
inline constexpr WORD kDialogAtom = 32770;

struct WindowClass {
    std::wstring name;
    WNDCLASSEXW info{};
    ATOM atom = 0;
};

struct ScrollBar {
    int minimum = 0;
    int maximum = 100;
    UINT page = 0;
    int position = 0;
    bool disabled = false;
    bool known = false;  // somebody has set it: it answers even without its style
};

// What the dialog manager keeps for one dialog; there as soon as the dialog's procedure has seen the window.
struct DialogState {
    int defaultId = IDOK;
    bool hasDefault = false;
    HWND savedFocus = nullptr;
    HFONT font = nullptr;
    bool ownsFont = false;
    SIZE baseUnits{};
};

struct Window {
    HWND handle = nullptr;
    WindowClass* windowClass = nullptr;
    WNDPROC procedure = nullptr;
    HINSTANCE instance = nullptr;
    DWORD style = 0;
    DWORD exStyle = 0;
    // Tree and z-order: the first child is the topmost one. Top-level windows are children of the desktop window.
    Window* parent = nullptr;
    HWND owner = nullptr;
    Window* first = nullptr;
    Window* last = nullptr;
    Window* next = nullptr;
    Window* previous = nullptr;
    // Relative to the parent's client area; the client area is relative to this rectangle's corner.
    RECT place{};
    RECT client{};
    std::wstring text;
    LONG_PTR id = 0;
    LONG_PTR userData = 0;
    HMENU menu = nullptr;
    std::vector<std::byte> extra;
    ScrollBar bars[2];
    HICON icons[2]{};
    // Placement: the rectangle to restore to, and where it was last minimised and maximised.
    RECT normal{};
    POINT minimised{-1, -1};
    POINT maximised{-1, -1};
    bool restoreToMaximised = false;
    bool sizePending = false;  // an overlapped window hears its first WM_SIZE and WM_MOVE when it is first shown
    bool destroying = false;
    bool redraw = true;
    // Update region: empty unless dirty.
    bool dirty = false;
    bool erase = false;
    RECT update{};
    std::unique_ptr<DialogState> dialog;
};

struct Hook {
    int kind = 0;
    HOOKPROC procedure = nullptr;
};

struct Timer {
    HWND window = nullptr;
    UINT_PTR id = 0;
    UINT period = 0;
    TIMERPROC callback = nullptr;
    DWORD due = 0;
};

struct State {
    State();

    // Windows by slot; a handle is a slot number and a count of the slot's uses, so that stale handles are recognised.
    std::vector<std::unique_ptr<Window>> slots;
    std::vector<std::uint16_t> uses;
    std::deque<std::size_t> freeSlots;
    Window* root = nullptr;
    Window* messageRoot = nullptr;
    std::size_t liveWindows = 0;
    std::size_t windowLimit = 10000;
    std::size_t failCreation = 0;  // 1 fails the next creation, 0 none

    std::unordered_map<std::wstring, std::vector<std::unique_ptr<WindowClass>>> classes;
    std::unordered_map<ATOM, WindowClass*> classAtoms;
    ATOM nextAtom = 0xC000;

    std::deque<MSG> queue;
    bool quitPosted = false;
    int exitCode = 0;
    std::vector<Timer> timers;
    UINT_PTR nextTimer = 1;
    std::deque<HWND> dirtyWindows;
    DWORD clock = 0;

    HWND focus = nullptr;
    HWND active = nullptr;
    HWND capture = nullptr;
    std::array<BYTE, 256> keys{};
    std::map<int, std::vector<HHOOK>> hookChains;  // the hook set last is called first
    std::unordered_map<HHOOK, Hook> hooks;
    HHOOK runningHook = nullptr;
    std::uintptr_t nextHook = 0x10001;

    SIZE screen{1920, 1200};
    RECT workArea{0, 0, 1920, 1200};
    UINT dpi = 96;
    std::deque<int> boxAnswers;
};

// The one desktop of the process.
[[nodiscard]] State& Desk();

// Null for a handle that is no live window; the second form also leaves the error that calls report then.
[[nodiscard]] Window* Peek(HWND handle) noexcept;
[[nodiscard]] Window* Find(HWND handle) noexcept;
[[nodiscard]] inline HWND HandleOf(const Window* window) noexcept {
    return window ? window->handle : nullptr;
}
[[nodiscard]] inline bool IsChildStyle(const Window& window) noexcept {
    return (window.style & (WS_CHILD | WS_POPUP)) == WS_CHILD;
}
[[nodiscard]] bool IsTopLevel(const Window& window) noexcept;
[[nodiscard]] Window* TopLevelOf(Window* window) noexcept;
[[nodiscard]] bool IsDescendant(const Window* ancestor, const Window* window) noexcept;
// Visible itself and all its ancestors.
[[nodiscard]] bool IsShown(const Window* window) noexcept;

// classes.cpp
[[nodiscard]] WindowClass* FindClass(HINSTANCE instance, LPCWSTR name);
[[nodiscard]] std::wstring LowerCase(std::wstring_view text);

// window_tree.cpp
void Link(Window& window, Window& parent, HWND insertAfter);
void Unlink(Window& window);
// Direct children, topmost first: a copy, since callbacks may change the tree.
[[nodiscard]] std::vector<HWND> ChildrenOf(const Window& window);
// The top-level windows that the window owns, topmost first.
[[nodiscard]] std::vector<HWND> OwnedBy(HWND owner);

// rectangles.cpp
[[nodiscard]] POINT ClientOrigin(const Window* window) noexcept;
[[nodiscard]] RECT ScreenRect(const Window& window) noexcept;
// Coordinates that callers hand in may be anything: their sums and differences wrap around, as the platform's do.
[[nodiscard]] constexpr LONG Sum(LONG a, LONG b) noexcept {
    return static_cast<LONG>(static_cast<ULONG>(a) + static_cast<ULONG>(b));
}
[[nodiscard]] constexpr LONG Difference(LONG a, LONG b) noexcept {
    return static_cast<LONG>(static_cast<ULONG>(a) - static_cast<ULONG>(b));
}
[[nodiscard]] inline LONG WidthOf(const RECT& rect) noexcept {
    return Difference(rect.right, rect.left);
}
[[nodiscard]] inline LONG HeightOf(const RECT& rect) noexcept {
    return Difference(rect.bottom, rect.top);
}

// placement.cpp
[[nodiscard]] MINMAXINFO QueryMinMax(HWND handle);
[[nodiscard]] bool HasTrackSize(DWORD style) noexcept;
// Asks the window for its client rectangle and stores it.
void CalculateClient(Window& window);
[[nodiscard]] bool PlaceWindow(WINDOWPOS position);

// show_window.cpp: the rectangle a window gets in its new state.
[[nodiscard]] RECT ChangeShowState(Window& window, int show);

// focus.cpp
void ActivateAnother(HWND leaving);
[[nodiscard]] bool HasSuccessor(HWND leaving);
[[nodiscard]] bool Activate(HWND handle, bool byMouse, bool setFocus);
void ForgetWindow(HWND handle);

// hooks.cpp: false when there is no hook of that kind.
[[nodiscard]] bool HasHook(int kind) noexcept;
LRESULT CallHooks(int kind, int code, WPARAM wParam, LPARAM lParam);

// messages.cpp
void DropMessages(HWND handle);

// painting.cpp
void Invalidate(Window& window, const RECT* rect, bool erase, bool children);
void Validate(Window& window, bool children);

// scroll.cpp
[[nodiscard]] ScrollBar* BarOf(Window& window, int bar) noexcept;

// device_context.cpp, gdi_objects.cpp
void ReleaseContextsOf(HWND handle);
[[nodiscard]] std::size_t LiveContexts() noexcept;
[[nodiscard]] std::size_t LiveFonts() noexcept;
[[nodiscard]] std::size_t LiveObjects() noexcept;
// Null for anything that is no font.
[[nodiscard]] const LOGFONTW* FontOf(HGDIOBJ object) noexcept;
[[nodiscard]] HFONT FontSelectedInto(HDC dc) noexcept;

// menu.cpp
void DestroyMenuOf(Window& window);

// dialog_manager.cpp
[[nodiscard]] DialogState* DialogOf(HWND handle) noexcept;
LRESULT DialogWindowProc(HWND window, UINT message, WPARAM wParam, LPARAM lParam);
[[nodiscard]] SIZE BaseUnitsOf(HFONT font);

}  // namespace qv::desk

#include "tests/platform/window_fixture.h"

#include <map>
#include <utility>

namespace qv::test {

namespace {

constexpr const wchar_t* kClass = L"QvLoggingWindow";

WindowFixture* g_fixture = nullptr;
MessageLog g_log;
std::map<HWND, std::string> g_names;

const std::map<UINT, const char*>& Known() {
    static const std::map<UINT, const char*> s_known = {
        {WM_NCCREATE, "NCCREATE"},
        {WM_CREATE, "CREATE"},
        {WM_SIZE, "SIZE"},
        {WM_GETMINMAXINFO, "GETMINMAXINFO"},
        {WM_ACTIVATE, "ACTIVATE"},
        {WM_SETFOCUS, "SETFOCUS"},
        {WM_KILLFOCUS, "KILLFOCUS"},
        {WM_ENABLE, "ENABLE"},
        {WM_CANCELMODE, "CANCELMODE"},
        {WM_DESTROY, "DESTROY"},
        {WM_NCDESTROY, "NCDESTROY"},
    };
    return s_known;
}

std::string NameOf(HWND window) {
    const auto found = g_names.find(window);
    return found == g_names.end() ? "-" : found->second;
}

std::string Details(UINT message, WPARAM wParam, LPARAM lParam) {
    switch (message) {
        case WM_ENABLE:
        case WM_SIZE:
            return " " + std::to_string(wParam);
        case WM_ACTIVATE:
            return " " + std::to_string(LOWORD(wParam)) + " " + NameOf(reinterpret_cast<HWND>(lParam));
        case WM_SETFOCUS:
        case WM_KILLFOCUS:
            return " " + NameOf(reinterpret_cast<HWND>(wParam));
        default:
            return {};
    }
}

std::wstring Widen(const char* text) {
    return {text, text + std::char_traits<char>::length(text)};
}

void Register() {
    WNDCLASSEXW windowClass{};
    windowClass.cbSize = sizeof windowClass;
    windowClass.lpfnWndProc = WindowFixture::Procedure;
    windowClass.hInstance = GetModuleHandleW(nullptr);
    windowClass.lpszClassName = kClass;
    RegisterClassExW(&windowClass);
}

}  // namespace

WindowFixture::WindowFixture() {
    g_fixture = this;
    g_log.clear();
    Register();
}

WindowFixture::~WindowFixture() {
    m_handler = nullptr;
    for (const HWND window : m_windows) {
        if (IsWindow(window)) DestroyWindow(window);
    }
    MSG message{};
    while (PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE)) {
    }
    g_names.clear();
    g_fixture = nullptr;
}

LRESULT CALLBACK WindowFixture::Procedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
    if (message == WM_NCCREATE || message == WM_GETMINMAXINFO) {
        // Named by the text it will have, before it has any.
        if (message == WM_NCCREATE) {
            const auto* name = reinterpret_cast<const CREATESTRUCTW*>(lParam)->lpszName;
            std::string narrow;
            for (; name && *name; ++name)
                narrow += static_cast<char>(*name);
            g_names[window] = narrow;
        }
    }
    const auto known = Known().find(message);
    if (known != Known().end()) {
        g_log.push_back(NameOf(window) + " " + known->second + Details(message, wParam, lParam));
    }
    LRESULT result = 0;
    if (g_fixture && g_fixture->m_handler && g_fixture->m_handler(window, message, wParam, lParam, result))
        return result;
    return DefWindowProcW(window, message, wParam, lParam);
}

HWND WindowFixture::Make(const char* name, DWORD style, HWND parent, RECT place, DWORD exStyle, int id) {
    const HWND window =
        CreateWindowExW(exStyle, kClass, Widen(name).c_str(), style, place.left, place.top, place.right - place.left,
                        place.bottom - place.top, parent, reinterpret_cast<HMENU>(static_cast<UINT_PTR>(id)),
                        GetModuleHandleW(nullptr), nullptr);
    if (window) m_windows.push_back(window);
    return window;
}

MessageLog WindowFixture::TakeLog() {
    return std::exchange(g_log, {});
}

}  // namespace qv::test

#include "host/libraries/layout_window.h"

#include "base/module_state.h"

namespace qv {

bool CreateAttached(CWnd& object, const wchar_t* className, const std::wstring& text, DWORD exStyle, DWORD style,
                    const RECT& place, const CWnd& page, UINT id) {
    const HWND window = ::CreateWindowExW(
        exStyle, className, text.c_str(), style | WS_CHILD, static_cast<int>(place.left), static_cast<int>(place.top),
        static_cast<int>(place.right - place.left), static_cast<int>(place.bottom - place.top), page.m_hWnd,
        reinterpret_cast<HMENU>(static_cast<UINT_PTR>(id)), GetResourceHandle(), nullptr);
    if (window == nullptr) return false;
    if (object.SubclassWindow(window)) return true;
    ::DestroyWindow(window);
    return false;
}

}  // namespace qv

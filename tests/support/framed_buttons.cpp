#include "tests/support/framed_buttons.h"

#include <string_view>

namespace qvtest {

std::vector<HWND> FramedButtons(HWND top) {
    std::vector<HWND> framed;
    ::EnumChildWindows(
        top,
        [](HWND window, LPARAM list) -> BOOL {
            wchar_t name[16] = {};
            ::GetClassNameW(window, name, 16);
            const auto type = static_cast<DWORD>(::GetWindowLongW(window, GWL_STYLE)) & BS_TYPEMASK;
            const bool isButton = std::wstring_view(name) == L"Button" || std::wstring_view(name) == L"BUTTON";
            if (isButton && type == BS_DEFPUSHBUTTON) reinterpret_cast<std::vector<HWND>*>(list)->push_back(window);
            return TRUE;
        },
        reinterpret_cast<LPARAM>(&framed));
    return framed;
}

}  // namespace qvtest

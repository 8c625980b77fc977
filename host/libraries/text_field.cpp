#include "host/libraries/text_field.h"

namespace qv {

namespace {

constexpr int kRoomAroundLine = 4;  // inside the sunken edges

int HeightOf(HWND window) {
    RECT rect{};
    ::GetWindowRect(window, &rect);
    return static_cast<int>(rect.bottom - rect.top);
}

}  // namespace

int TextFieldHeight(int lineHeight) {
    return lineHeight + 2 * ::GetSystemMetrics(SM_CYEDGE) + kRoomAroundLine;
}

int TextTopInField(HWND edit) {
    RECT window{};
    RECT text{};
    POINT client{0, 0};
    ::GetWindowRect(edit, &window);
    ::ClientToScreen(edit, &client);
    ::SendMessageW(edit, EM_GETRECT, 0, reinterpret_cast<LPARAM>(&text));
    return static_cast<int>(client.y - window.top + text.top);
}

int TextTopInCombo(HWND combo, int lineHeight) {
    COMBOBOXINFO info{};
    info.cbSize = sizeof(info);
    if (::GetComboBoxInfo(combo, &info) == FALSE) return (HeightOf(combo) - lineHeight) / 2;
    return static_cast<int>(info.rcItem.top + info.rcItem.bottom - lineHeight) / 2;
}

void FitComboHeight(HWND combo, int lineHeight) {
    const int wanted = TextFieldHeight(lineHeight);
    if (HeightOf(combo) == wanted) return;
    // What the platform adds to the height that it is given is its own; it shows in the window.
    ::SendMessageW(combo, CB_SETITEMHEIGHT, static_cast<WPARAM>(-1), lineHeight);
    const int added = HeightOf(combo) - lineHeight;
    ::SendMessageW(combo, CB_SETITEMHEIGHT, static_cast<WPARAM>(-1), wanted - added);
}

}  // namespace qv

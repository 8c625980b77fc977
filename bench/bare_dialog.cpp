#include "bench/bare_dialog.h"

#include "base/text.h"
#include "framework/app.h"

namespace bench {
namespace {

constexpr const wchar_t* kBareClass = L"QvBenchmarkBare";

std::wstring ClassOf(HWND window) {
    wchar_t name[64] = {};
    GetClassNameW(window, name, 64);
    return name;
}

std::wstring TextFrom(HWND window, UINT lengthMessage, UINT textMessage, WPARAM index) {
    const LRESULT length = SendMessageW(window, lengthMessage, index, 0);
    if (length <= 0) return {};
    std::wstring text(static_cast<std::size_t>(length) + 1, L'\0');
    const WPARAM argument = textMessage == WM_GETTEXT ? text.size() : index;
    SendMessageW(window, textMessage, argument, reinterpret_cast<LPARAM>(text.data()));
    text.resize(static_cast<std::size_t>(length));
    return text;
}

}  // namespace

BareDialog::BareDialog() : m_instance(GetModuleHandleW(nullptr)) {
    WNDCLASSW bare{};
    bare.lpfnWndProc = &DefWindowProcW;
    bare.hInstance = m_instance;
    bare.lpszClassName = kBareClass;
    RegisterClassW(&bare);  // a second time it is there already
}

void BareDialog::Capture(HWND frame) {
    m_windows.clear();
    m_handles.clear();
    Take(frame, 0);
}

void BareDialog::Open() {
    m_handles.assign(m_windows.size(), nullptr);
    for (std::size_t i = 0; i < m_windows.size(); ++i)
        m_handles[i] = Create(m_windows[i], i);
    ShowWindow(m_handles[0], SW_SHOW);
    PumpPending();
}

void BareDialog::Close() {
    DestroyWindow(m_handles[0]);
    PumpPending();
}

void BareDialog::Take(HWND window, std::size_t parent) {
    const std::size_t index = m_windows.size();
    Window taken{ClassOf(window), {}, 0, 0, {}, parent, nullptr, {}, -1, 0};
    taken.text = TextFrom(window, WM_GETTEXTLENGTH, WM_GETTEXT, 0);
    taken.style = static_cast<DWORD>(GetWindowLongPtrW(window, GWL_STYLE));
    taken.exStyle = static_cast<DWORD>(GetWindowLongPtrW(window, GWL_EXSTYLE));
    if (index == 0) taken.style &= ~static_cast<DWORD>(WS_VISIBLE);
    GetWindowRect(window, &taken.place);
    if (index != 0) {
        const HWND around = GetParent(window);
        MapWindowPoints(nullptr, around, reinterpret_cast<POINT*>(&taken.place), 2);
    }
    taken.font = reinterpret_cast<HFONT>(SendMessageW(window, WM_GETFONT, 0, 0));
    const bool isCombo = qv::EqualIgnoringCase(taken.className, L"ComboBox");
    if (isCombo) {
        const LRESULT count = SendMessageW(window, CB_GETCOUNT, 0, 0);
        for (LRESULT i = 0; i < count; ++i) {
            taken.entries.push_back(TextFrom(window, CB_GETLBTEXTLEN, CB_GETLBTEXT, static_cast<WPARAM>(i)));
        }
        taken.selected = SendMessageW(window, CB_GETCURSEL, 0, 0);
    }
    if (qv::EqualIgnoringCase(taken.className, L"Edit")) taken.limit = SendMessageW(window, EM_GETLIMITTEXT, 0, 0);
    if (qv::EqualIgnoringCase(taken.className, WC_TABCONTROLW)) {
        taken.entries.resize(static_cast<std::size_t>(SendMessageW(window, TCM_GETITEMCOUNT, 0, 0)), L"Page 00");
    }
    m_windows.push_back(std::move(taken));
    if (isCombo) return;  // what stands in a combo box is its own
    for (HWND child = GetWindow(window, GW_CHILD); child != nullptr; child = GetWindow(child, GW_HWNDNEXT))
        Take(child, index);
}

HWND BareDialog::Create(const Window& window, std::size_t index) const {
    const auto is = [&](const wchar_t* name) { return qv::EqualIgnoringCase(window.className, name); };
    const bool isTab = is(WC_TABCONTROLW);
    const bool isCombo = is(L"ComboBox");
    const bool isStandard = isTab || isCombo || is(L"Static") || is(L"Edit") || is(L"Button") || is(L"ScrollBar");
    const RECT& place = window.place;
    const HWND made =
        CreateWindowExW(window.exStyle, isStandard ? window.className.c_str() : kBareClass, window.text.c_str(),
                        window.style, place.left, place.top, place.right - place.left, place.bottom - place.top,
                        index == 0 ? nullptr : m_handles[window.parent], nullptr, m_instance, nullptr);
    if (window.font != nullptr) SendMessageW(made, WM_SETFONT, reinterpret_cast<WPARAM>(window.font), FALSE);
    if (window.limit > 0) SendMessageW(made, EM_SETLIMITTEXT, static_cast<WPARAM>(window.limit), 0);
    for (const std::wstring& entry : window.entries) {
        if (isCombo) SendMessageW(made, CB_ADDSTRING, 0, reinterpret_cast<LPARAM>(entry.c_str()));
        if (!isTab) continue;
        TCITEMW item{};
        item.mask = TCIF_TEXT;
        item.pszText = const_cast<wchar_t*>(entry.c_str());
        SendMessageW(made, TCM_INSERTITEMW, 0, reinterpret_cast<LPARAM>(&item));
    }
    if (isCombo) SendMessageW(made, CB_SETCURSEL, static_cast<WPARAM>(window.selected), 0);
    return made;
}

}  // namespace bench

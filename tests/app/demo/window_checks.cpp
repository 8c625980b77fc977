#include "tests/app/demo/window_checks.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <array>

#include "base/com.h"
#include "base/text.h"

namespace qvtest {

namespace {

bool IsOf(HWND window, const wchar_t* className) {
    return qv::EqualIgnoringCase(ClassOf(window), className);
}

std::wstring TextOf(HWND window) {
    std::wstring text(static_cast<std::size_t>(GetWindowTextLengthW(window)) + 1, L'\0');
    text.resize(static_cast<std::size_t>(GetWindowTextW(window, text.data(), static_cast<int>(text.size()))));
    return text;
}

RECT Client(HWND window) {
    RECT client{};
    GetClientRect(window, &client);
    return client;
}

// The size of a text in a window's own font, broken at a width as labels are; 0: not broken.
SIZE Measure(HWND window, const std::wstring& text, LONG breakAt, UINT flags = 0) {
    HDC dc = GetDC(window);
    const auto font = reinterpret_cast<HGDIOBJ>(SendMessageW(window, WM_GETFONT, 0, 0));
    const HGDIOBJ before = font != nullptr ? SelectObject(dc, font) : nullptr;
    RECT rect{0, 0, breakAt, 0};
    flags |= DT_CALCRECT | static_cast<UINT>(breakAt > 0 ? DT_WORDBREAK | DT_EDITCONTROL : DT_SINGLELINE);
    DrawTextW(dc, text.c_str(), static_cast<int>(text.size()), &rect, flags);
    if (before != nullptr) SelectObject(dc, before);
    ReleaseDC(window, dc);
    return {rect.right, rect.bottom};
}

std::vector<std::wstring> Entries(HWND list, UINT countMessage, UINT lengthMessage, UINT textMessage) {
    std::vector<std::wstring> entries;
    const LRESULT count = SendMessageW(list, countMessage, 0, 0);
    for (LRESULT i = 0; i < count; ++i) {
        const LRESULT length = SendMessageW(list, lengthMessage, static_cast<WPARAM>(i), 0);
        std::wstring text(static_cast<std::size_t>(length) + 1, L'\0');
        SendMessageW(list, textMessage, static_cast<WPARAM>(i), reinterpret_cast<LPARAM>(text.data()));
        text.resize(static_cast<std::size_t>(length));
        entries.push_back(text);
    }
    return entries;
}

void CheckLabel(HWND label) {
    const RECT client = Client(label);
    const SIZE needed = Measure(label, TextOf(label), client.right);
    EXPECT_LE(needed.cx, client.right) << Describe(label);
    EXPECT_LE(needed.cy, client.bottom) << Describe(label);
}

void CheckButton(HWND button) {
    const LONG kind = GetWindowLongW(button, GWL_STYLE) & 0xF;
    const RECT client = Client(button);
    if (kind == BS_AUTOCHECKBOX) {
        // Its label stands beside it; the box itself must be whole.
        const int box = MulDiv(13, static_cast<int>(GetDpiForWindow(button)), 96);
        EXPECT_GE(client.right, box) << Describe(button);
        EXPECT_GE(client.bottom, box) << Describe(button);
        return;
    }
    if (kind == BS_OWNERDRAW) return;
    const LONG frame = 2 * GetSystemMetrics(SM_CXEDGE);
    const SIZE needed = Measure(button, TextOf(button), 0);
    EXPECT_LE(needed.cx + frame, client.right) << Describe(button);
    EXPECT_LE(needed.cy + frame, client.bottom) << Describe(button);
}

void CheckField(HWND edit) {
    EXPECT_GE(Client(edit).bottom, Measure(edit, L"Äg", 0).cy) << Describe(edit);
}

void CheckCombo(HWND combo) {
    COMBOBOXINFO info{};
    info.cbSize = sizeof(info);
    ASSERT_NE(GetComboBoxInfo(combo, &info), FALSE) << Describe(combo);
    for (const std::wstring& entry : Entries(combo, CB_GETCOUNT, CB_GETLBTEXTLEN, CB_GETLBTEXT)) {
        const SIZE needed = Measure(combo, entry, 0, DT_NOPREFIX);
        EXPECT_LE(needed.cx, info.rcItem.right - info.rcItem.left) << Describe(combo) << " " << qv::ToUtf8(entry);
        EXPECT_LE(needed.cy, info.rcItem.bottom - info.rcItem.top) << Describe(combo) << " " << qv::ToUtf8(entry);
    }
}

void CheckList(HWND list) {
    const bool scrolls = SendMessageW(list, LB_GETHORIZONTALEXTENT, 0, 0) > Client(list).right;
    const auto lineHeight = static_cast<LONG>(SendMessageW(list, LB_GETITEMHEIGHT, 0, 0));
    for (const std::wstring& entry : Entries(list, LB_GETCOUNT, LB_GETTEXTLEN, LB_GETTEXT)) {
        const SIZE needed = Measure(list, entry, 0, DT_NOPREFIX);
        EXPECT_LE(needed.cy, lineHeight) << Describe(list) << " " << qv::ToUtf8(entry);
        // The box before the text is as high as the line at most.
        if (scrolls) continue;
        EXPECT_LE(needed.cx + lineHeight, Client(list).right) << Describe(list) << " " << qv::ToUtf8(entry);
    }
}

bool IsStop(HWND window) {
    return IsWindowVisible(window) != FALSE && IsWindowEnabled(window) != FALSE &&
           (GetWindowLongW(window, GWL_STYLE) & static_cast<LONG>(WS_TABSTOP)) != 0;
}

void AddStops(HWND parent, std::vector<HWND>& stops) {
    for (HWND child : VisibleChildren(parent)) {
        if ((GetWindowLongW(child, GWL_EXSTYLE) & static_cast<LONG>(WS_EX_CONTROLPARENT)) != 0) {
            AddStops(child, stops);
        } else if (IsStop(child)) {
            stops.push_back(child);
        }
    }
}

}  // namespace

std::wstring ClassOf(HWND window) {
    std::array<wchar_t, 64> name{};
    GetClassNameW(window, name.data(), static_cast<int>(name.size()));
    return name.data();
}

std::string Describe(HWND window) {
    const RECT rect = OnScreen(window);
    return qv::ToUtf8(qv::Format(L"%s \"%s\" at (%d, %d), %d x %d", ClassOf(window), TextOf(window),
                                 static_cast<int>(rect.left), static_cast<int>(rect.top),
                                 static_cast<int>(rect.right - rect.left), static_cast<int>(rect.bottom - rect.top)));
}

std::vector<HWND> VisibleChildren(HWND parent) {
    std::vector<HWND> children;
    for (HWND child = GetWindow(parent, GW_CHILD); child != nullptr; child = GetWindow(child, GW_HWNDNEXT)) {
        if (IsWindowVisible(child) != FALSE) children.push_back(child);
    }
    return children;
}

RECT OnScreen(HWND window) {
    RECT rect{};
    GetWindowRect(window, &rect);
    return rect;
}

LONG TextTopOnScreen(HWND field) {
    const LONG line = Measure(field, L"Äg", 0).cy;
    POINT top{0, 0};
    if (IsOf(field, L"COMBOBOX")) {
        COMBOBOXINFO info{};
        info.cbSize = sizeof(info);
        EXPECT_NE(GetComboBoxInfo(field, &info), FALSE) << Describe(field);
        top.y = (info.rcItem.top + info.rcItem.bottom - line) / 2;
    } else if (IsOf(field, L"LISTBOX")) {
        RECT entry{};
        EXPECT_NE(SendMessageW(field, LB_GETITEMRECT, 0, reinterpret_cast<LPARAM>(&entry)), LB_ERR) << Describe(field);
        top.y = (entry.top + entry.bottom - line) / 2;
    } else {
        // An empty field has no character to ask for.
        RECT text{};
        SendMessageW(field, EM_GETRECT, 0, reinterpret_cast<LPARAM>(&text));
        top.y = text.top;
        if (GetWindowTextLengthW(field) != 0) {
            const auto place = static_cast<DWORD_PTR>(SendMessageW(field, EM_POSFROMCHAR, 0, 0));
            top.y = static_cast<SHORT>(HIWORD(place));
        }
    }
    ClientToScreen(field, &top);
    return top.y;
}

void CheckTextFits(HWND window) {
    if (IsOf(window, L"STATIC")) return CheckLabel(window);
    if (IsOf(window, L"BUTTON")) return CheckButton(window);
    if (IsOf(window, L"EDIT")) return CheckField(window);
    if (IsOf(window, L"COMBOBOX")) return CheckCombo(window);
    if (IsOf(window, L"LISTBOX")) return CheckList(window);
    for (HWND child : VisibleChildren(window))
        CheckTextFits(child);
}

void CheckTabTitlesFit(HWND tabs) {
    const LRESULT count = SendMessageW(tabs, TCM_GETITEMCOUNT, 0, 0);
    ASSERT_GT(count, 0);
    const RECT client = Client(tabs);
    for (LRESULT i = 0; i < count; ++i) {
        std::array<wchar_t, 128> title{};
        TCITEMW item{};
        item.mask = TCIF_TEXT;
        item.pszText = title.data();
        item.cchTextMax = static_cast<int>(title.size());
        SendMessageW(tabs, TCM_GETITEMW, static_cast<WPARAM>(i), reinterpret_cast<LPARAM>(&item));
        RECT place{};
        SendMessageW(tabs, TCM_GETITEMRECT, static_cast<WPARAM>(i), reinterpret_cast<LPARAM>(&place));
        const SIZE needed = Measure(tabs, item.pszText, 0);
        EXPECT_LE(needed.cx, place.right - place.left) << qv::ToUtf8(item.pszText);
        EXPECT_LE(needed.cy, place.bottom - place.top) << qv::ToUtf8(item.pszText);
        EXPECT_GE(place.left, 0) << qv::ToUtf8(item.pszText);
        EXPECT_LE(place.right, client.right) << qv::ToUtf8(item.pszText);
    }
}

void CheckNoOverlap(HWND parent) {
    const std::vector<HWND> children = VisibleChildren(parent);
    for (std::size_t i = 0; i < children.size(); ++i) {
        for (std::size_t j = i + 1; j < children.size(); ++j) {
            const RECT a = OnScreen(children[i]), b = OnScreen(children[j]);
            RECT common{};
            EXPECT_EQ(IntersectRect(&common, &a, &b), FALSE)
                << Describe(children[i]) << " and " << Describe(children[j]);
        }
    }
}

void CheckInside(HWND parent) {
    RECT room = Client(parent);
    MapWindowPoints(parent, nullptr, reinterpret_cast<POINT*>(&room), 2);
    for (HWND child : VisibleChildren(parent)) {
        const RECT place = OnScreen(child);
        EXPECT_GE(place.left, room.left) << Describe(child);
        EXPECT_GE(place.top, room.top) << Describe(child);
        EXPECT_LE(place.right, room.right) << Describe(child) << " in " << Describe(parent);
        EXPECT_LE(place.bottom, room.bottom) << Describe(child) << " in " << Describe(parent);
        EXPECT_LT(place.left, place.right) << Describe(child);
        EXPECT_LT(place.top, place.bottom) << Describe(child);
    }
}

void CheckTabOrder(HWND dialog, HWND page) {
    std::vector<HWND> seen;
    AddStops(page, seen);
    ASSERT_FALSE(seen.empty());
    // As the eye goes: row by row, and from left to right where two stand in one row.
    std::stable_sort(seen.begin(), seen.end(), [](HWND a, HWND b) {
        const RECT left = OnScreen(a), right = OnScreen(b);
        if (left.bottom <= right.top || right.bottom <= left.top) return left.top < right.top;
        return left.left < right.left;
    });
    HWND current = seen.front();
    for (std::size_t i = 1; i < seen.size(); ++i) {
        current = GetNextDlgTabItem(dialog, current, FALSE);
        ASSERT_EQ(current, seen[i]) << "after " << Describe(seen[i - 1]) << " comes "
                                    << (current != nullptr ? Describe(current) : "nothing") << " instead of "
                                    << Describe(seen[i]);
    }
    current = GetNextDlgTabItem(dialog, current, FALSE);
    EXPECT_EQ(IsChild(page, current), FALSE) << Describe(current);
}

AccessibleFacts AskAccessible(HWND window) {
    AccessibleFacts facts;
    const auto object =
        qv::Receive<qv::ComPtr<IAccessible>>([&](auto out) {
            return AccessibleObjectFromWindow(window, static_cast<DWORD>(OBJID_CLIENT), IID_IAccessible, out);
        }).value;
    EXPECT_TRUE(object) << Describe(window);
    if (!object) return facts;
    VARIANT self{};
    self.vt = VT_I4;
    self.lVal = 0;
    const auto name = qv::Receive<qv::Bstr>([&](BSTR* out) { return object->get_accName(self, out); });
    facts.name = qv::TextOf(name.value.Get());
    const auto role = qv::Receive<qv::Variant>([&](VARIANT* out) { return object->get_accRole(self, out); });
    if (role.value.Get().vt == VT_I4) facts.role = role.value.Get().lVal;
    LONG left = 0, top = 0, width = 0, height = 0;
    EXPECT_EQ(object->accLocation(&left, &top, &width, &height, self), S_OK) << Describe(window);
    facts.place = {left, top, left + width, top + height};
    return facts;
}

}  // namespace qvtest

#include "app/dialog_view.h"

#include <algorithm>
#include <array>

#include "base/text.h"
#include "framework/check_list_box.h"
#include "host/libraries/color_button.h"
#include "host/libraries/search_ctrl.h"

namespace qv {

namespace {

constexpr std::array<std::wstring_view, 10> kKindNames{L"text",     L"number", L"check",  L"choice", L"check list",
                                                       L"password", L"path",   L"colour", L"button", L"missing"};

std::wstring ClassOf(HWND window) {
    std::array<wchar_t, 64> name{};
    GetClassNameW(window, name.data(), static_cast<int>(name.size()));
    return name.data();
}

struct Search {
    const wchar_t* className;
    HWND found;
};

HWND FindByClass(HWND parent, const wchar_t* className) {
    Search search{className, nullptr};
    EnumChildWindows(
        parent,
        [](HWND window, LPARAM param) -> BOOL {
            auto& wanted = *reinterpret_cast<Search*>(param);
            if (!EqualIgnoringCase(ClassOf(window), wanted.className)) return TRUE;
            wanted.found = window;
            return FALSE;
        },
        reinterpret_cast<LPARAM>(&search));
    return search.found;
}

RowKind KindOfPlanned(const XLayout::Column& column) {
    if (column.controlType == XLayout::kCheckBox) return RowKind::Check;
    if (column.controlType == XLayout::kComboBox) return RowKind::Choice;
    return column.dataType == XLayout::kText ? RowKind::Text : RowKind::Number;
}

RowKind KindOf(const XLayout::RowView& row) {
    if (row.willShow) return KindOfPlanned(row.column);
    CWnd* control = row.control;
    if (control == nullptr || !control->IsLive()) return RowKind::Missing;
    if (control->IsKindOf(CCheckListBox::kRuntimeClass)) return RowKind::CheckList;
    if (control->IsKindOf(XColorBtn::kRuntimeClass)) return RowKind::Colour;
    if (control->IsKindOf(XBaseSearchCtrl::kRuntimeClass)) return RowKind::Path;
    if (control->IsKindOf(CComboBox::kRuntimeClass)) return RowKind::Choice;
    if (control->IsKindOf(CButton::kRuntimeClass)) {
        return row.column.controlType == XLayout::kCheckBox ? RowKind::Check : RowKind::Button;
    }
    if (control->IsKindOf(CEdit::kRuntimeClass)) {
        if ((control->GetStyle() & ES_PASSWORD) != 0) return RowKind::Password;
        return row.column.dataType == XLayout::kText ? RowKind::Text : RowKind::Number;
    }
    return RowKind::Text;
}

// Joined with "|"; an entry that is neither on nor off counts as off.
std::wstring TickedEntries(HWND list) {
    const auto* box = DynamicDownCast<CCheckListBox>(CWnd::FromHandlePermanent(list));
    if (box == nullptr) return {};
    std::wstring ticked;
    for (int i = 0; i < box->GetCount(); ++i) {
        if (box->GetCheck(i) != BST_CHECKED) continue;
        if (!ticked.empty()) ticked += L'|';
        ticked += box->GetText(i);
    }
    return ticked;
}

std::wstring ChosenEntry(HWND combo) {
    const LRESULT chosen = SendMessageW(combo, CB_GETCURSEL, 0, 0);
    if (chosen == CB_ERR) return {};
    const LRESULT length = SendMessageW(combo, CB_GETLBTEXTLEN, static_cast<WPARAM>(chosen), 0);
    if (length <= 0) return {};
    std::wstring text(static_cast<std::size_t>(length) + 1, L'\0');
    SendMessageW(combo, CB_GETLBTEXT, static_cast<WPARAM>(chosen), reinterpret_cast<LPARAM>(text.data()));
    text.resize(static_cast<std::size_t>(length));
    return text;
}

// The dialog's own buttons; the numbers are fixed, and no other dialog has them all.
bool IsSettingsFrame(HWND top) {
    if (IsWindowVisible(top) == FALSE) return false;
    return std::ranges::all_of(std::array{IDOK, IDCANCEL, 126, 127, 128},
                               [top](int id) { return FindButton(top, id) != nullptr; });
}

HWND FindFrame() {
    for (const XLayout* layout : LiveLayouts()) {
        const CWnd* page = layout->GetParent();
        if (page != nullptr && page->IsLive()) return GetAncestor(page->m_hWnd, GA_ROOT);
    }
    HWND frame = nullptr;
    EnumThreadWindows(
        GetCurrentThreadId(),
        [](HWND window, LPARAM param) -> BOOL {
            if (!IsSettingsFrame(window)) return TRUE;
            *reinterpret_cast<HWND*>(param) = window;
            return FALSE;
        },
        reinterpret_cast<LPARAM>(&frame));
    return frame;
}

}  // namespace

DialogView DialogView::Look() {
    DialogView view;
    view.m_frame = FindFrame();
    if (view.m_frame == nullptr) return view;
    view.m_tabs = FindByClass(view.m_frame, WC_TABCONTROLW);
    int page = -1;
    for (const XLayout* layout : LiveLayouts()) {
        // Pages are made in tab order, each with its layout; one that could not be opened still has its tab.
        ++page;
        const CWnd* parent = layout->GetParent();
        if (parent == nullptr || !parent->IsLive()) continue;
        for (const XLayout::RowView& row : layout->GetRows()) {
            const RowKind kind = KindOf(row);
            view.m_rows.push_back({row.column.name, PlainLabel(row.column.prompt), kind,
                                   row.control != nullptr ? row.control->m_hWnd : nullptr, row.willShow, &row.column,
                                   page, parent->m_hWnd});
        }
    }
    return view;
}

void DialogView::GiveWindows(std::wstring_view item) {
    for (XLayout* layout : LiveLayouts())
        static_cast<void>(layout->GetColumnControl(item));
}

int DialogView::PageCount() const {
    return m_tabs == nullptr ? 0 : static_cast<int>(SendMessageW(m_tabs, TCM_GETITEMCOUNT, 0, 0));
}

int DialogView::ActivePage() const {
    return m_tabs == nullptr ? -1 : static_cast<int>(SendMessageW(m_tabs, TCM_GETCURSEL, 0, 0));
}

std::wstring DialogView::PageTitle(int page) const {
    std::array<wchar_t, 256> text{};
    TCITEMW item{};
    item.mask = TCIF_TEXT;
    item.pszText = text.data();
    item.cchTextMax = static_cast<int>(text.size());
    SendMessageW(m_tabs, TCM_GETITEMW, static_cast<WPARAM>(page), reinterpret_cast<LPARAM>(&item));
    return item.pszText != nullptr ? item.pszText : L"";
}

std::optional<int> DialogView::FindPage(std::wstring_view titleOrNumber) const {
    for (int page = 0; page < PageCount(); ++page) {
        if (PageTitle(page) == titleOrNumber) return page;
    }
    if (titleOrNumber.find_first_not_of(L"0123456789") != std::wstring_view::npos) return std::nullopt;
    const int number = LeadingInteger(titleOrNumber);
    return number < PageCount() ? std::optional(number) : std::nullopt;
}

const DialogRow* DialogView::FindRow(std::wstring_view item) const {
    const auto found = std::ranges::find(m_rows, item, &DialogRow::item);
    return found != m_rows.end() ? &*found : nullptr;
}

std::wstring_view NameOf(RowKind kind) {
    return kKindNames[static_cast<std::size_t>(kind)];
}

std::wstring TextOfWindow(HWND window) {
    const int length = GetWindowTextLengthW(window);
    std::wstring text(static_cast<std::size_t>(length) + 1, L'\0');
    text.resize(static_cast<std::size_t>(GetWindowTextW(window, text.data(), length + 1)));
    return text;
}

std::wstring ShownValue(const DialogRow& row) {
    if (row.willShow) return *row.willShow;
    switch (row.kind) {
        case RowKind::Missing:
            return {};
        case RowKind::Check:
            return SendMessageW(row.control, BM_GETCHECK, 0, 0) == BST_CHECKED ? L"1" : L"0";
        case RowKind::Choice:
            return ChosenEntry(row.control);
        case RowKind::CheckList:
            return TickedEntries(row.control);
        case RowKind::Password:
            return std::to_wstring(GetWindowTextLengthW(row.control));
        case RowKind::Colour: {
            const auto* button = DynamicDownCast<XColorBtn>(CWnd::FromHandlePermanent(row.control));
            return button != nullptr ? std::to_wstring(button->GetSelColor()) : L"";
        }
        default:
            return TextOfWindow(row.control);
    }
}

bool IsEnabled(const DialogRow& row) {
    return row.willShow ? !row.column->disabled : IsWindowEnabled(row.control) != FALSE;
}

HWND FindButton(HWND top, int id) {
    struct Wanted {
        int id;
        HWND found;
    } wanted{id, nullptr};
    EnumChildWindows(
        top,
        [](HWND window, LPARAM param) -> BOOL {
            auto& button = *reinterpret_cast<Wanted*>(param);
            if (GetDlgCtrlID(window) != button.id || !EqualIgnoringCase(ClassOf(window), L"Button")) return TRUE;
            button.found = window;
            return FALSE;
        },
        reinterpret_cast<LPARAM>(&wanted));
    return wanted.found;
}

}  // namespace qv

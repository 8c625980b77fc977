// The windows of one row: which control stands for which kind of row, how big it is and what text it holds.
#include "host/libraries/layout_row.h"

#include <algorithm>
#include <array>
#include <utility>

#include "base/text.h"
#include "host/libraries/layout_check_box.h"
#include "host/libraries/layout_combo_box.h"
#include "host/libraries/layout_window.h"
#include "host/libraries/text_field.h"

namespace {

const CRect kNowhere;
constexpr UINT kStaticId = 0xFFFF;
constexpr int kDroppedEntries = 12;
constexpr int kMaxPromptUnits = 200;  // dialog units; longer prompts are broken

// Characters that fit the longest double that is typed by hand: fifteen significant ones and a sign.
constexpr int kDoubleCharacters = 16;
// A short field still has to look like one.
constexpr int kMinEditCharacters = 6;

std::unique_ptr<CWnd> CreateEdit(const XLayout::Column& column, CWnd& page, UINT id, const qv::LayoutMetrics& metrics) {
    auto edit = std::make_unique<CEdit>();
    // A text of at most no characters: the field takes nothing, and the platform has no such limit.
    const bool takesNothing = column.dataType == XLayout::kText && column.limit <= 0;
    const DWORD style = WS_VISIBLE | WS_TABSTOP | ES_AUTOHSCROLL | (takesNothing ? ES_READONLY : 0);
    // Of its height from the start: where its text stands is asked before it is placed.
    const CRect place(0, 0, metrics.X(kMaxPromptUnits), qv::TextFieldHeight(metrics.LineHeight()));
    if (!qv::CreateAttached(*edit, L"EDIT", column.value, WS_EX_CLIENTEDGE, style, place, page, id)) return nullptr;
    const int limit = column.dataType == XLayout::kDouble ? kDoubleCharacters : column.limit;
    if (limit > 0) edit->LimitText(static_cast<UINT>(limit));
    return edit;
}

std::unique_ptr<CWnd> CreateCombo(const XLayout::Column& column, CWnd& page, UINT id, HFONT font) {
    auto combo = std::make_unique<qv::RowComboBox>();
    constexpr DWORD kStyle = WS_VISIBLE | WS_TABSTOP | WS_VSCROLL | CBS_DROPDOWNLIST;
    if (!qv::CreateAttached(*combo, L"COMBOBOX", {}, 0, kStyle, kNowhere, page, id)) return nullptr;
    if (font != nullptr) combo->SetFont(font, false);
    for (const XLayout::ColumnItem& item : column.items)
        combo->AddString(item.text);
    return combo;
}

std::unique_ptr<CWnd> CreateCheckBox(const XLayout::Column& column, CWnd& prompt, CWnd& page, UINT id) {
    auto box = std::make_unique<qv::RowCheckBox>();
    return box->Create(column.prompt, prompt, page, id) ? std::move(box) : nullptr;
}

int BoundOr(int pixels, int otherwise, const qv::LayoutMetrics& metrics) {
    return pixels > 0 ? metrics.Scale(pixels) : otherwise;
}

}  // namespace

void XLayout::Row::CreatePrompt(CWnd& page, const qv::LayoutMetrics& metrics) {
    promptSize = metrics.LabelSize(column.prompt, metrics.X(kMaxPromptUnits));
    promptSize.cx += metrics.Scale(2);  // a last letter may reach beyond its own width
    const bool isCheckBox = !isPlaceholder && column.controlType == kCheckBox;
    if (isCheckBox) {
        promptOutdent = metrics.Scale(qv::CheckBoxPrompt::kFrameRoom);
        prompt = std::make_unique<qv::CheckBoxPrompt>(control, promptOutdent);
    } else {
        prompt = std::make_unique<CStatic>();
    }
    // A group of its own keeps the arrow keys within the row's control.
    const DWORD style = WS_VISIBLE | WS_GROUP | SS_LEFT | SS_EDITCONTROL | (isCheckBox ? SS_NOTIFY : 0);
    if (!qv::CreateAttached(*prompt, L"STATIC", column.prompt, 0, style, kNowhere, page, kStaticId)) return;
    if (metrics.Font() != nullptr) prompt->SetFont(metrics.Font(), false);
    if (column.disabled) prompt->EnableWindow(false);
}

void XLayout::Row::CreateControl(CWnd& page, const qv::LayoutMetrics& metrics, UINT id) {
    if (isPlaceholder) {
        if (!HasControl()) return;
        if (metrics.Font() != nullptr && control->GetFont() == nullptr) control->SetFont(metrics.Font(), false);
        // A container of controls is entered through the stops inside it.
        if ((control->GetExStyle() & WS_EX_CONTROLPARENT) == 0) control->ModifyStyle(0, WS_TABSTOP);
        if ((control->GetStyle() & WS_VISIBLE) == 0) control->ShowWindow(SW_SHOWNA);
        NameControl();
        return;
    }
    switch (column.controlType) {
        case kEdit:
            ownControl = CreateEdit(column, page, id, metrics);
            break;
        case kComboBox:
            ownControl = CreateCombo(column, page, id, metrics.Font());
            break;
        case kCheckBox:
            ownControl = CreateCheckBox(column, *prompt, page, id);
            break;
        default:
            break;
    }
    control = ownControl.get();
    if (control == nullptr) return;
    if (metrics.Font() != nullptr && column.controlType != kComboBox) control->SetFont(metrics.Font(), false);
    if (column.controlType != kEdit) SetText(column.value);  // a field is created with its text
    NameControl();
    if (column.disabled) control->EnableWindow(false);
}

void XLayout::Row::NameControl() {
    // A button that shows a text goes by that, and fields, whose text is their value, by the prompt before them.
    const bool namesItself = control->IsKindOf(CButton::kRuntimeClass) && control->GetWindowTextLength() != 0;
    if (!namesItself && !control->IsKindOf(CEdit::kRuntimeClass)) {
        control->SetAccessibleName(qv::PlainLabel(column.prompt));
    }
}

int XLayout::Row::EntriesWidth(const qv::LayoutMetrics& metrics) const {
    if (isPlaceholder || column.controlType != kComboBox) return 0;
    int widest = 0;
    for (const ColumnItem& item : column.items)
        widest = std::max(widest, metrics.TextWidth(item.text));
    return widest + ::GetSystemMetrics(SM_CXVSCROLL) + metrics.X(6);
}

bool XLayout::Row::IsOfClass(const wchar_t* wanted) const {
    if (!HasControl()) return false;
    std::array<wchar_t, 16> className{};
    ::GetClassNameW(control->m_hWnd, className.data(), static_cast<int>(className.size()));
    return qv::EqualIgnoringCase(className.data(), wanted);
}

void XLayout::Row::Measure(const qv::LayoutMetrics& metrics, int commonWidth) {
    const int fieldHeight = qv::TextFieldHeight(metrics.LineHeight());
    int width = commonWidth;
    int height = fieldHeight;
    if (!isPlaceholder && column.controlType == kCheckBox) {
        width = metrics.Scale(qv::RowCheckBox::kSize);
        height = std::max(metrics.Y(10), width);
    } else if (!isPlaceholder && column.controlType == kComboBox && HasControl()) {
        qv::FitComboHeight(control->m_hWnd, metrics.LineHeight());
        height = control->GetWindowRect().Height();
        const int entries = std::clamp(static_cast<int>(column.items.size()), 1, kDroppedEntries);
        droppedHeight = entries * static_cast<int>(control->SendMessage(CB_GETITEMHEIGHT, 0)) + 2;
    } else if (!isPlaceholder && column.controlType == kEdit) {
        const int characters = column.dataType == kDouble ? kDoubleCharacters : std::max(column.limit, 0);
        const int each = column.dataType == kText ? metrics.AverageWidth() + 1 : metrics.DigitWidth();
        // Long before the product could overflow, the field has the common width anyway.
        const int shown = std::clamp(characters, kMinEditCharacters, 1000);
        if (column.dataType != kText || column.limit > 0) width = std::min(commonWidth, shown * each + metrics.X(6));
    }

    if (GrowsInWidth()) {
        minWidth = BoundOr(column.minWidth, width, metrics);
        maxWidth = std::max(minWidth, BoundOr(column.maxWidth, INT_MAX, metrics));
    } else {
        minWidth = maxWidth = BoundOr(column.minWidth, width, metrics);
    }
    isTall = GrowsInHeight();
    const bool isField = isPlaceholder ? IsOfClass(L"EDIT") && (control->GetStyle() & ES_MULTILINE) == 0
                                       : column.controlType == kEdit && HasControl();
    const bool isCombo = isPlaceholder ? IsOfClass(L"COMBOBOX") : column.controlType == kComboBox && HasControl();
    if (isTall) {
        minHeight = BoundOr(column.minHeight, 3 * metrics.LineHeight(), metrics);
        maxHeight = std::max(minHeight, BoundOr(column.maxHeight, INT_MAX, metrics));
        textTop = FirstEntryTop(metrics.LineHeight());
    } else if (isField) {
        // Whatever height was asked for: fields are alike.
        minHeight = maxHeight = fieldHeight;
        if (isPlaceholder) MakeField(fieldHeight);
        textTop = qv::TextTopInField(control->m_hWnd);
    } else {
        // A height that was given for the usual font may not cut a bigger one.
        const int least = isPlaceholder && column.minHeight > 0 ? metrics.LineHeight() + metrics.Scale(10) : 0;
        minHeight = maxHeight = std::max(BoundOr(column.minHeight, height, metrics), least);
        textTop = isCombo ? qv::TextTopInCombo(control->m_hWnd, metrics.LineHeight())
                          : (minHeight - metrics.LineHeight()) / 2;
    }
}

void XLayout::Row::MakeField(int height) {
    // A thin border around the sunken edge would make the field's frame smaller than its neighbours'.
    if ((control->GetExStyle() & WS_EX_CLIENTEDGE) != 0) control->ModifyStyle(WS_BORDER, 0, SWP_FRAMECHANGED);
    control->SetWindowPos(nullptr, 0, 0, height, height, SWP_NOMOVE | SWP_NOZORDER | SWP_NOACTIVATE | SWP_NOREDRAW);
}

int XLayout::Row::FirstEntryTop(int lineHeight) const {
    const int edge = ::GetSystemMetrics(SM_CYEDGE);
    if (!IsOfClass(L"LISTBOX")) return edge + 1;
    RECT frame{};
    ::AdjustWindowRectEx(&frame, control->GetStyle(), FALSE, control->GetExStyle());
    const int entryHeight = static_cast<int>(control->SendMessage(LB_GETITEMHEIGHT, 0));
    return static_cast<int>(-frame.top) + std::max(0, (entryHeight - lineHeight) / 2);
}

std::wstring XLayout::Row::GetText() const {
    if (isPlaceholder || !HasControl()) return {};
    switch (column.controlType) {
        case kCheckBox:
            return static_cast<const CButton*>(control)->GetCheck() == BST_CHECKED ? L"1" : L"0";
        case kComboBox: {
            const int selected = static_cast<const CComboBox*>(control)->GetCurSel();
            const bool isEntry = selected >= 0 && selected < static_cast<int>(column.items.size());
            return isEntry ? column.items[static_cast<std::size_t>(selected)].data : std::wstring();
        }
        default:
            return control->GetWindowText();
    }
}

void XLayout::Row::SetText(std::wstring_view text) {
    if (isPlaceholder || !HasControl()) return;
    switch (column.controlType) {
        case kCheckBox:
            static_cast<CButton*>(control)->SetCheck(text == L"1" ? BST_CHECKED : BST_UNCHECKED);
            break;
        case kComboBox: {
            const auto found = std::find_if(column.items.begin(), column.items.end(),
                                            [&](const ColumnItem& item) { return item.data == text; });
            const bool isEntry = found != column.items.end();
            static_cast<CComboBox*>(control)->SetCurSel(isEntry ? static_cast<int>(found - column.items.begin()) : -1);
            break;
        }
        default:
            control->SetWindowText(text);
            break;
    }
}

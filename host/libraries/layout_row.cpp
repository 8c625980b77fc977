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

constexpr UINT kStaticId = 0xFFFF;
constexpr DWORD kRowStyle = WS_VISIBLE;
constexpr int kDroppedEntries = 12;
constexpr int kMaxPromptUnits = 200;  // dialog units; longer prompts are broken

// Characters that fit the longest double that is typed by hand: fifteen significant ones and a sign.
constexpr int kDoubleCharacters = 16;
// A short field still has to look like one.
constexpr int kMinEditCharacters = 6;

CRect Scrolled(const CRect& place, POINT scrolled) {
    CRect moved = place;
    ::OffsetRect(&moved, -static_cast<int>(scrolled.x), -static_cast<int>(scrolled.y));
    return moved;
}

int BoundOr(int pixels, int otherwise, const qv::LayoutMetrics& metrics) {
    return pixels > 0 ? metrics.Scale(pixels) : otherwise;
}

}  // namespace

void XLayout::Row::Plan(const qv::LayoutMetrics& metrics) {
    promptSize = metrics.LabelSize(column.prompt, metrics.X(kMaxPromptUnits));
    promptSize.cx += metrics.Scale(2);  // a last letter may reach beyond its own width
    if (!isPlaceholder && column.controlType == kCheckBox) {
        promptOutdent = metrics.Scale(qv::CheckBoxPrompt::kFrameRoom);
    }
    if (!isPlaceholder || !HasControl()) return;
    if (metrics.Font() != nullptr && control->GetFont() == nullptr) control->SetFont(metrics.Font(), false);
    // A container of controls is entered through the stops inside it.
    if ((control->GetExStyle() & WS_EX_CONTROLPARENT) == 0) control->ModifyStyle(0, WS_TABSTOP);
    if ((control->GetStyle() & WS_VISIBLE) == 0) control->ShowWindow(SW_SHOWNA);
    NameControl();
}

void XLayout::Row::Make(const Surroundings& surroundings, UINT id) {
    isPlanned = false;
    MakePrompt(surroundings);
    if (!isPlaceholder) MakeControl(surroundings, id);
}

bool XLayout::Row::Discard() {
    if (isPlanned || isPlaceholder || isLent || !HasControl()) return false;
    std::wstring text = GetText();
    // Of two entries with the same data the first would be chosen next time.
    if (column.controlType == kComboBox && EntryOf(text) != static_cast<const CComboBox*>(control)->GetCurSel()) {
        return false;
    }
    latestText = std::move(text);
    isPlanned = true;
    control = nullptr;
    ownControl.reset();
    prompt.reset();
    return true;
}

void XLayout::Row::MakePrompt(const Surroundings& surroundings) {
    const bool isCheckBox = !isPlaceholder && column.controlType == kCheckBox;
    if (isCheckBox) {
        prompt = std::make_unique<qv::CheckBoxPrompt>(control, promptOutdent);
    } else {
        prompt = std::make_unique<CStatic>();
    }
    // A group of its own keeps the arrow keys within the row's control.
    const DWORD style =
        kRowStyle | WS_GROUP | SS_LEFT | SS_EDITCONTROL | (isCheckBox ? SS_NOTIFY : 0) | DisabledStyle();
    const CRect where = Scrolled(promptPlace, surroundings.scrolled);
    if (!qv::CreateAttached(*prompt, L"STATIC", column.prompt, 0, style, where, surroundings.page, kStaticId)) return;
    if (surroundings.font != nullptr) prompt->SetFont(surroundings.font, false);
}

void XLayout::Row::MakeControl(const Surroundings& surroundings, UINT id) {
    switch (column.controlType) {
        case kEdit:
            ownControl = MakeEdit(surroundings, id);
            break;
        case kComboBox:
            ownControl = MakeCombo(surroundings, id);
            break;
        case kCheckBox:
            ownControl = MakeCheckBox(surroundings, id);
            break;
        default:
            break;
    }
    control = ownControl.get();
    latestText.reset();
    if (control != nullptr) NameControl();
}

std::unique_ptr<CWnd> XLayout::Row::MakeEdit(const Surroundings& surroundings, UINT id) const {
    auto edit = std::make_unique<CEdit>();
    // A text of at most no characters: the field takes nothing, and the platform has no such limit.
    const bool takesNothing = column.dataType == kText && column.limit <= 0;
    const DWORD style =
        kRowStyle | WS_TABSTOP | ES_AUTOHSCROLL | (takesNothing ? DWORD{ES_READONLY} : 0) | DisabledStyle();
    const CRect where = Scrolled(controlPlace, surroundings.scrolled);
    if (!qv::CreateAttached(*edit, L"EDIT", PlannedText(), WS_EX_CLIENTEDGE, style, where, surroundings.page, id)) {
        return nullptr;
    }
    if (surroundings.font != nullptr) edit->SetFont(surroundings.font, false);
    const int limit = column.dataType == kDouble ? kDoubleCharacters : column.limit;
    if (limit > 0) edit->LimitText(static_cast<UINT>(limit));
    return edit;
}

std::unique_ptr<CWnd> XLayout::Row::MakeCombo(const Surroundings& surroundings, UINT id) const {
    auto combo = std::make_unique<qv::RowComboBox>(droppedHeight);
    const DWORD style = kRowStyle | WS_TABSTOP | WS_VSCROLL | CBS_DROPDOWNLIST | DisabledStyle();
    const CRect where = Scrolled(controlPlace, surroundings.scrolled);
    if (!qv::CreateAttached(*combo, L"COMBOBOX", {}, 0, style, where, surroundings.page, id)) return nullptr;
    if (surroundings.font != nullptr) combo->SetFont(surroundings.font, false);
    if (surroundings.comboFieldHeight != 0) {
        combo->SendMessage(CB_SETITEMHEIGHT, static_cast<WPARAM>(-1), surroundings.comboFieldHeight);
    }
    for (const ColumnItem& item : column.items)
        combo->AddString(item.text);
    if (const int entry = EntryOf(GivenText()); entry >= 0) combo->SetCurSel(entry);
    return combo;
}

std::unique_ptr<CWnd> XLayout::Row::MakeCheckBox(const Surroundings& surroundings, UINT id) const {
    auto box = std::make_unique<qv::RowCheckBox>();
    const CRect where = Scrolled(controlPlace, surroundings.scrolled);
    if (!box->Create(column.prompt, *prompt, surroundings.page, kRowStyle | DisabledStyle(), where, id)) return nullptr;
    if (surroundings.font != nullptr) box->SetFont(surroundings.font, false);
    if (GivenText() == L"1") box->SetCheck(BST_CHECKED);
    return box;
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

void XLayout::Row::Measure(const qv::LayoutMetrics& metrics, const qv::ControlMeasures& controls, int commonWidth) {
    const int fieldHeight = qv::TextFieldHeight(metrics.LineHeight());
    int width = commonWidth;
    int height = fieldHeight;
    if (!isPlaceholder && column.controlType == kCheckBox) {
        width = metrics.Scale(qv::RowCheckBox::kSize);
        height = std::max(metrics.Y(10), width);
    } else if (!isPlaceholder && column.controlType == kComboBox) {
        height = controls.comboHeight;
        const int entries = std::clamp(static_cast<int>(column.items.size()), 1, kDroppedEntries);
        droppedHeight = entries * controls.comboEntryHeight + 2;
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
    const bool isField =
        isPlaceholder ? IsOfClass(L"EDIT") && (control->GetStyle() & ES_MULTILINE) == 0 : column.controlType == kEdit;
    const bool isCombo = !isPlaceholder && column.controlType == kComboBox;
    if (isTall) {
        minHeight = BoundOr(column.minHeight, 3 * metrics.LineHeight(), metrics);
        maxHeight = std::max(minHeight, BoundOr(column.maxHeight, INT_MAX, metrics));
        textTop = FirstEntryTop(metrics.LineHeight());
    } else if (isField) {
        // Whatever height was asked for: fields are alike.
        minHeight = maxHeight = fieldHeight;
        if (isPlaceholder) MakeField(fieldHeight);
        textTop = isPlaceholder ? qv::TextTopInField(control->m_hWnd) : controls.fieldTextTop;
    } else {
        // A height that was given for the usual font may not cut a bigger one.
        const int least = isPlaceholder && column.minHeight > 0 ? metrics.LineHeight() + metrics.Scale(10) : 0;
        minHeight = maxHeight = std::max(BoundOr(column.minHeight, height, metrics), least);
        textTop = isCombo ? controls.comboTextTop : (minHeight - metrics.LineHeight()) / 2;
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

const std::wstring& XLayout::Row::GivenText() const {
    return latestText ? *latestText : column.value;
}

int XLayout::Row::EntryOf(std::wstring_view data) const {
    const auto found = std::find_if(column.items.begin(), column.items.end(),
                                    [&](const ColumnItem& item) { return item.data == data; });
    return found != column.items.end() ? static_cast<int>(found - column.items.begin()) : -1;
}

std::wstring XLayout::Row::PlannedText() const {
    const std::wstring& given = GivenText();
    switch (column.controlType) {
        case kCheckBox:
            return given == L"1" ? L"1" : L"0";
        case kComboBox:
            return EntryOf(given) >= 0 ? given : std::wstring();
        case kEdit:
            return given.substr(0, given.find(L'\0'));  // a window's text ends there
        default:
            return {};
    }
}

std::wstring XLayout::Row::GetShownText() const {
    if (column.controlType != kComboBox) return PlannedText();
    const int entry = EntryOf(GivenText());
    return entry >= 0 ? column.items[static_cast<std::size_t>(entry)].text : std::wstring();
}

std::wstring XLayout::Row::GetText() const {
    if (isPlaceholder) return {};
    if (isPlanned) return PlannedText();
    if (!HasControl()) return {};
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
    if (isPlaceholder) return;
    if (isPlanned) {
        latestText = text;
        return;
    }
    if (!HasControl()) return;
    switch (column.controlType) {
        case kCheckBox:
            static_cast<CButton*>(control)->SetCheck(text == L"1" ? BST_CHECKED : BST_UNCHECKED);
            break;
        case kComboBox:
            static_cast<CComboBox*>(control)->SetCurSel(EntryOf(text));
            break;
        default:
            control->SetWindowText(text);
            break;
    }
}

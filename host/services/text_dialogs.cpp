#include "host/services/text_dialogs.h"

#include <algorithm>

#include "framework/data_exchange.h"
#include "host/libraries/translation.h"

namespace qv {
namespace {

constexpr WORD kContentId = 1001;
constexpr int kWidth = 220;  // dialog units
constexpr int kHeight = 130;
constexpr int kMargin = 7;
constexpr int kButtonWidth = 50;
constexpr int kButtonHeight = 14;
constexpr int kButtonGap = 4;

// A dialog with one control that fills it and a row of buttons, the last one at the right.
DialogTemplateWriter MakeTemplate(std::wstring_view caption, DialogTemplateWriter::Class contentClass,
                                  DWORD contentStyle,
                                  std::initializer_list<std::pair<WORD, std::wstring_view>> buttons) {
    using Writer = DialogTemplateWriter;
    constexpr DWORD kShownChild = WS_CHILD | WS_VISIBLE | WS_TABSTOP;
    Writer result(Writer::Layout::Plain, WS_POPUP | WS_CAPTION | WS_SYSMENU | DS_MODALFRAME | DS_SETFONT, caption,
                  {0, 0, kWidth, kHeight}, {});
    const int buttonTop = kHeight - kMargin - kButtonHeight;
    result.Add(contentClass, kContentId, contentStyle | kShownChild | WS_VSCROLL, {},
               {kMargin, kMargin, kWidth - 2 * kMargin, buttonTop - 2 * kMargin}, WS_EX_CLIENTEDGE);
    int x = kWidth - kMargin - static_cast<int>(buttons.size()) * (kButtonWidth + kButtonGap) + kButtonGap;
    for (const auto& [id, text] : buttons) {
        const DWORD kind = id == buttons.begin()->first ? BS_DEFPUSHBUTTON : BS_PUSHBUTTON;
        result.Add(Writer::Button, id, kind | kShownChild, CoTranslateText(text),
                   {x, buttonTop, kButtonWidth, kButtonHeight});
        x += kButtonWidth + kButtonGap;
    }
    return result;
}

// A platform edit shows a line end only as CR and LF.
std::wstring WithEditLineEnds(std::wstring_view text) {
    std::wstring result;
    for (std::size_t i = 0; i < text.size(); ++i) {
        if (text[i] == L'\n' && (i == 0 || text[i - 1] != L'\r')) result += L'\r';
        result += text[i];
    }
    return result;
}

std::wstring WithPlainLineEnds(std::wstring text) {
    std::erase(text, L'\r');
    return text;
}

}  // namespace

TextDialog::TextDialog(std::wstring_view caption, std::wstring text, Mode mode, HWND beside)
    : m_memoryTemplate(mode == Mode::Edit
                           ? MakeTemplate(caption, DialogTemplateWriter::Edit,
                                          ES_MULTILINE | ES_AUTOVSCROLL | ES_WANTRETURN,
                                          {{WORD{IDOK}, L"OK"}, {WORD{IDCANCEL}, L"Cancel"}})
                           : MakeTemplate(caption, DialogTemplateWriter::Edit,
                                          ES_MULTILINE | ES_AUTOVSCROLL | ES_READONLY, {{WORD{IDCANCEL}, L"Close"}})),
      m_text(std::move(text)),
      m_mode(mode),
      m_beside(beside) {
    InitModalIndirect(m_memoryTemplate.Bytes());
}

bool TextDialog::OnInitDialog() {
    CDialog::OnInitDialog();
    m_edit.SubclassDlgItem(kContentId, this);
    m_edit.LimitText(0);
    m_edit.SetWindowText(WithEditLineEnds(m_text));
    CenterWindow();
    MoveBeside();
    return true;
}

void TextDialog::OnOK() {
    if (m_mode == Mode::Edit) m_text = WithPlainLineEnds(m_edit.GetWindowText());
    CDialog::OnOK();
}

// Right of the window, or left of it when there is no room, and always inside the work area.
void TextDialog::MoveBeside() {
    if (m_beside == nullptr || ::IsWindow(m_beside) == FALSE) return;
    MONITORINFO monitor{};
    monitor.cbSize = sizeof(monitor);
    RECT other{};
    if (!::GetMonitorInfoW(::MonitorFromWindow(m_beside, MONITOR_DEFAULTTONEAREST), &monitor) ||
        !::GetWindowRect(m_beside, &other)) {
        return;
    }
    const RECT& work = monitor.rcWork;
    const CRect own = GetWindowRect();
    int x = static_cast<int>(other.right);
    if (x + own.Width() > work.right) x = static_cast<int>(other.left) - own.Width();
    x = std::clamp(x, static_cast<int>(work.left),
                   std::max(static_cast<int>(work.left), static_cast<int>(work.right) - own.Width()));
    const int y = std::clamp(static_cast<int>(other.top), static_cast<int>(work.top),
                             std::max(static_cast<int>(work.top), static_cast<int>(work.bottom) - own.Height()));
    SetWindowPos(nullptr, x, y, 0, 0, SWP_NOSIZE | SWP_NOZORDER | SWP_NOACTIVATE);
}

const MessageMap* TextDialog::LinesEdit::GetMessageMap() const {
    static const MessageMap map{CEdit::GetThisMessageMap(), {on::Message<&LinesEdit::OnGetDlgCode>(WM_GETDLGCODE)}};
    return &map;
}

LRESULT TextDialog::LinesEdit::OnGetDlgCode(WPARAM, LPARAM lParam) {
    const LRESULT code = Default() & ~static_cast<LRESULT>(DLGC_HASSETSEL);
    const auto* message = reinterpret_cast<const MSG*>(lParam);
    const bool isReadOnly = (GetStyle() & ES_READONLY) != 0;
    const bool dialogKey = message != nullptr && (message->wParam == VK_TAB || message->wParam == VK_ESCAPE ||
                                                  (message->wParam == VK_RETURN && isReadOnly));
    return dialogKey ? code & ~static_cast<LRESULT>(DLGC_WANTALLKEYS | DLGC_WANTTAB) : code;
}

ChoiceDialog::ChoiceDialog(std::wstring_view caption, std::vector<std::wstring> entries, int selected)
    : m_memoryTemplate(MakeTemplate(caption, DialogTemplateWriter::ListBox, LBS_NOTIFY | LBS_NOINTEGRALHEIGHT,
                                    {{WORD{IDOK}, L"OK"}, {WORD{IDCANCEL}, L"Cancel"}})),
      m_entries(std::move(entries)),
      m_selected(selected) {
    InitModalIndirect(m_memoryTemplate.Bytes());
}

const MessageMap* ChoiceDialog::GetMessageMap() const {
    static const MessageMap map{CDialog::GetThisMessageMap(),
                                {on::Control<&ChoiceDialog::OnOK>(LBN_DBLCLK, kContentId)}};
    return &map;
}

bool ChoiceDialog::OnInitDialog() {
    CDialog::OnInitDialog();
    m_list.SubclassDlgItem(kContentId, this);
    for (const std::wstring& entry : m_entries)
        m_list.AddString(entry);
    if (m_list.SetCurSel(m_selected) == LB_ERR) m_list.SetCurSel(0);
    CenterWindow();
    return true;
}

void ChoiceDialog::OnOK() {
    m_selected = m_list.GetCurSel();
    if (m_selected != LB_ERR) CDialog::OnOK();
}

}  // namespace qv

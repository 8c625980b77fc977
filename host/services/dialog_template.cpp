#include "host/services/dialog_template.h"

namespace qv {
namespace {

constexpr std::size_t kControlCountAt = 4;  // in words, behind the two styles
constexpr WORD kPointSize = 8;
constexpr WORD kOrdinalFollows = 0xFFFF;

}  // namespace

DialogTemplate::DialogTemplate(std::wstring_view caption, SHORT cx, SHORT cy) {
    AppendLong(WS_POPUP | WS_CAPTION | WS_SYSMENU | DS_MODALFRAME | DS_SETFONT);
    AppendLong(0);
    AppendWord(0);  // controls
    for (const SHORT number : {SHORT{0}, SHORT{0}, cx, cy})
        AppendWord(static_cast<WORD>(number));
    AppendWord(0);  // no menu
    AppendWord(0);  // the dialog class
    AppendText(caption);
    AppendWord(kPointSize);
    AppendText(L"MS Shell Dlg");
}

void DialogTemplate::Add(const Control& control) {
    if (m_words.size() % 2 != 0) AppendWord(0);  // every control starts at a double word
    AppendLong(control.style | WS_CHILD | WS_VISIBLE);
    AppendLong(control.exStyle);
    for (const SHORT number : {control.x, control.y, control.cx, control.cy})
        AppendWord(static_cast<WORD>(number));
    AppendWord(control.id);
    AppendWord(kOrdinalFollows);
    AppendWord(static_cast<WORD>(control.controlClass));
    AppendText(control.text);
    AppendWord(0);  // no creation data
    ++m_words[kControlCountAt];
}

std::span<const std::byte> DialogTemplate::Bytes() const noexcept {
    return std::as_bytes(std::span(m_words));
}

void DialogTemplate::AppendLong(DWORD value) {
    AppendWord(LOWORD(value));
    AppendWord(HIWORD(value));
}

// 16-bit units, whatever the width of wchar_t; characters beyond the basic plane do not occur in captions.
void DialogTemplate::AppendText(std::wstring_view text) {
    for (const wchar_t character : text)
        AppendWord(static_cast<WORD>(character));
    AppendWord(0);
}

}  // namespace qv

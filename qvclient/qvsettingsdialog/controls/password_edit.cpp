#include "qvclient/qvsettingsdialog/controls/password_edit.h"

#include "base/text.h"
#include "base/wipe.h"
#include "host/libraries/message_box.h"
#include "qvclient/qvsettingsdialog/controls/en_de_crypt.h"

namespace {

constexpr DWORD kStyle = WS_CHILD | WS_VISIBLE | WS_BORDER | WS_GROUP | WS_TABSTOP | ES_AUTOHSCROLL;

}  // namespace

QV_RUNTIME_CLASS(XDynPasswordEdit, CEdit)

XDynPasswordEdit::~XDynPasswordEdit() {
    qv::Wipe(m_initValue);
    qv::Wipe(m_defaultValue);
}

const MessageMap* XDynPasswordEdit::GetThisMessageMap() {
    static const MessageMap map{CEdit::GetThisMessageMap(),
                                {
                                    on::Create<&XDynPasswordEdit::OnCreate>(),
                                    on::ControlReflect<&XDynPasswordEdit::OnChange>(EN_CHANGE),
                                }};
    return &map;
}

const MessageMap* XDynPasswordEdit::GetMessageMap() const {
    return GetThisMessageMap();
}

void XDynPasswordEdit::SetInitValue(std::wstring_view enciphered) {
    // Deliberate: the length of the value held so far decides, not the argument's. The first value comes in whole.
    if (m_initValue.size() > m_maxLength) enciphered = enciphered.substr(0, m_maxLength);
    qv::Wipe(m_initValue);
    m_initValue = enciphered;
    Decipher(m_initValue);
}

void XDynPasswordEdit::SetDefaultValue(std::wstring_view enciphered) {
    if (enciphered.size() > m_maxLength) enciphered = enciphered.substr(0, m_maxLength);
    qv::Wipe(m_defaultValue);
    m_defaultValue = enciphered;
    Decipher(m_defaultValue);
}

void XDynPasswordEdit::Decipher(std::wstring& value) {
    std::wstring plain;
    if (XEnDeCrypt().Decrypt(value, plain)) {
        value.swap(plain);
        return;
    }
    CoErrorBox(GetSafeHwnd(), L"Initialize Password field", L"Password not valid.\n(False length or invalid character)",
               0);
    value.clear();
}

bool XDynPasswordEdit::CreateOnPage(CWnd& page, UINT id) {
    return CreateEx(WS_EX_CLIENTEDGE, L"EDIT", L"", kStyle, RECT{0, 0, 0, 0}, page.m_hWnd, id);
}

void XDynPasswordEdit::ShowInitValue() {
    SetWindowText(m_initValue);
}

void XDynPasswordEdit::ShowDefaultValue() {
    SetWindowText(m_defaultValue);
}

std::wstring XDynPasswordEdit::GetValue() {
    std::wstring plain = GetWindowText();
    std::wstring enciphered = XEnDeCrypt().Encrypt(plain);
    qv::Wipe(plain);
    return enciphered;
}

bool XDynPasswordEdit::PreCreateWindow(CREATESTRUCTW& cs) {
    // The structure's style is signed, the styles are not.
    cs.style = static_cast<LONG>(static_cast<DWORD>(cs.style) | ES_PASSWORD | (IsReadOnly() ? ES_READONLY : 0U));
    return CEdit::PreCreateWindow(cs);
}

int XDynPasswordEdit::OnCreate(CREATESTRUCTW* cs) {
    const int result = CEdit::OnCreate(cs);
    if (result == -1) return result;
    if (m_maxLength != 0) LimitText(m_maxLength);
    return result;
}

// Runs after every change of the text, the program's own included. Deliberate: only the last character is looked at,
// and the whole field is emptied; what slips through elsewhere is refused by the cipher when the value is stored.
void XDynPasswordEdit::OnChange() {
    std::wstring text = GetWindowText();
    if (text.empty()) return;
    const std::size_t position = text.size() - 1;
    const wchar_t last = text.back();
    qv::Wipe(text);

    const XEnDeCrypt cipher;
    const std::wstring_view lastText(&last, 1);
    if (!cipher.ContainsInvalidChar(lastText)) return;
    SetWindowText(L"");
    std::uint8_t lowest = 0;
    std::uint8_t highest = 0;
    cipher.GetCharRange(lowest, highest);
    CoErrorBox(GetSafeHwnd(), L"Invalid character in Password",
               qv::Format(L"Invalid character in Password\nPosition: %d Char.: %d -> %s\n\nOnly characters in the "
                          L"range of %d to %d of ASCII-Table are allowed.",
                          position, static_cast<std::uint8_t>(last), lastText, lowest, highest),
               0);
}

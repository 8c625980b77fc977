#include "framework/controls.h"

QV_RUNTIME_CLASS(CStatic, CWnd)
QV_RUNTIME_CLASS(CButton, CWnd)
QV_RUNTIME_CLASS(CEdit, CWnd)
QV_RUNTIME_CLASS(CListBox, CWnd)
QV_RUNTIME_CLASS(CComboBox, CWnd)
QV_RUNTIME_CLASS(CTabCtrl, CWnd)

namespace {

LPARAM Pointer(const void* pointer) {
    return reinterpret_cast<LPARAM>(pointer);
}

int ToInt(LRESULT value) {
    return static_cast<int>(value);
}

// Text of an entry through a pair of messages that ask for its length and for itself.
std::wstring EntryText(const CWnd& list, UINT lengthMessage, UINT textMessage, int index) {
    const auto length = list.SendMessage(lengthMessage, static_cast<WPARAM>(index));
    if (length < 0) return {};
    std::wstring text(static_cast<std::size_t>(length) + 1, L'\0');
    const auto copied = list.SendMessage(textMessage, static_cast<WPARAM>(index), Pointer(text.data()));
    text.resize(copied > 0 ? static_cast<std::size_t>(copied) : 0);
    return text;
}

}  // namespace

bool CStatic::Create(std::wstring_view text, DWORD style, const RECT& rect, CWnd* parent, UINT id) {
    return CWnd::Create(L"STATIC", text, style, rect, parent, id);
}

bool CButton::Create(std::wstring_view caption, DWORD style, const RECT& rect, CWnd* parent, UINT id) {
    return CWnd::Create(L"BUTTON", caption, style, rect, parent, id);
}

int CButton::GetCheck() const {
    return ToInt(SendMessage(BM_GETCHECK));
}

void CButton::SetCheck(int check) {
    SendMessage(BM_SETCHECK, static_cast<WPARAM>(check));
}

const MessageMap* CEdit::GetThisMessageMap() {
    static const MessageMap map{CWnd::GetThisMessageMap(), {on::Message<&CEdit::OnMouseWheel>(WM_MOUSEWHEEL)}};
    return &map;
}

const MessageMap* CEdit::GetMessageMap() const {
    return GetThisMessageMap();
}

// A single line has nothing to scroll, yet not every platform leaves the wheel to the window around it.
LRESULT CEdit::OnMouseWheel(WPARAM wParam, LPARAM lParam) {
    HWND parent = ::GetParent(m_hWnd);
    if ((GetStyle() & ES_MULTILINE) != 0 || parent == nullptr) return Default();
    return ::SendMessageW(parent, WM_MOUSEWHEEL, wParam, lParam);
}

bool CEdit::Create(DWORD style, const RECT& rect, CWnd* parent, UINT id) {
    return CWnd::Create(L"EDIT", {}, style, rect, parent, id);
}

void CEdit::SetSel(int start, int end, bool noScroll) {
    SendMessage(EM_SETSEL, static_cast<WPARAM>(start), end);
    if (!noScroll) SendMessage(EM_SCROLLCARET);
}

void CEdit::GetSel(int& start, int& end) const {
    DWORD first = 0;
    DWORD last = 0;
    SendMessage(EM_GETSEL, reinterpret_cast<WPARAM>(&first), Pointer(&last));
    start = static_cast<int>(first);
    end = static_cast<int>(last);
}

void CEdit::LimitText(UINT characters) {
    SendMessage(EM_LIMITTEXT, characters);
}

UINT CEdit::GetLimitText() const {
    return static_cast<UINT>(SendMessage(EM_GETLIMITTEXT));
}

bool CEdit::SetReadOnly(bool readOnly) {
    return SendMessage(EM_SETREADONLY, readOnly ? TRUE : FALSE) != 0;
}

wchar_t CEdit::GetPasswordChar() const {
    return static_cast<wchar_t>(SendMessage(EM_GETPASSWORDCHAR));
}

bool CListBox::Create(DWORD style, const RECT& rect, CWnd* parent, UINT id) {
    return CWnd::Create(L"LISTBOX", {}, style, rect, parent, id);
}

int CListBox::AddString(const std::wstring& text) {
    return ToInt(SendMessage(LB_ADDSTRING, 0, Pointer(text.c_str())));
}

void CListBox::ResetContent() {
    SendMessage(LB_RESETCONTENT);
}

int CListBox::GetCount() const {
    return ToInt(SendMessage(LB_GETCOUNT));
}

std::wstring CListBox::GetText(int index) const {
    return EntryText(*this, LB_GETTEXTLEN, LB_GETTEXT, index);
}

int CListBox::FindStringExact(int startAfter, const std::wstring& text) const {
    return ToInt(SendMessage(LB_FINDSTRINGEXACT, static_cast<WPARAM>(startAfter), Pointer(text.c_str())));
}

int CListBox::GetCurSel() const {
    return ToInt(SendMessage(LB_GETCURSEL));
}

int CListBox::SetCurSel(int index) {
    return ToInt(SendMessage(LB_SETCURSEL, static_cast<WPARAM>(index)));
}

CRect CListBox::GetItemRect(int index) const {
    CRect rect;
    SendMessage(LB_GETITEMRECT, static_cast<WPARAM>(index), Pointer(static_cast<RECT*>(&rect)));
    return rect;
}

bool CComboBox::Create(DWORD style, const RECT& rect, CWnd* parent, UINT id) {
    return CWnd::Create(L"COMBOBOX", {}, style, rect, parent, id);
}

int CComboBox::AddString(const std::wstring& text) {
    return ToInt(SendMessage(CB_ADDSTRING, 0, Pointer(text.c_str())));
}

void CComboBox::ResetContent() {
    SendMessage(CB_RESETCONTENT);
}

int CComboBox::GetCount() const {
    return ToInt(SendMessage(CB_GETCOUNT));
}

std::wstring CComboBox::GetLBText(int index) const {
    return EntryText(*this, CB_GETLBTEXTLEN, CB_GETLBTEXT, index);
}

int CComboBox::FindStringExact(int startAfter, const std::wstring& text) const {
    return ToInt(SendMessage(CB_FINDSTRINGEXACT, static_cast<WPARAM>(startAfter), Pointer(text.c_str())));
}

int CComboBox::GetCurSel() const {
    return ToInt(SendMessage(CB_GETCURSEL));
}

int CComboBox::SetCurSel(int index) {
    return ToInt(SendMessage(CB_SETCURSEL, static_cast<WPARAM>(index)));
}

bool CTabCtrl::Create(DWORD style, const RECT& rect, CWnd* parent, UINT id) {
    // The class belongs to the common controls, which have to be asked for once.
    static const bool loaded = [] {
        INITCOMMONCONTROLSEX wanted{};
        wanted.dwSize = sizeof wanted;
        wanted.dwICC = ICC_TAB_CLASSES;
        return ::InitCommonControlsEx(&wanted) != FALSE;
    }();
    return loaded && CWnd::Create(WC_TABCONTROLW, {}, style, rect, parent, id);
}

int CTabCtrl::InsertItem(int index, const std::wstring& text) {
    TCITEMW item{};
    item.mask = TCIF_TEXT;
    item.pszText = const_cast<wchar_t*>(text.c_str());  // only read
    return ToInt(SendMessage(TCM_INSERTITEMW, static_cast<WPARAM>(index), Pointer(&item)));
}

bool CTabCtrl::SetItemText(int index, const std::wstring& text) {
    TCITEMW item{};
    item.mask = TCIF_TEXT;
    item.pszText = const_cast<wchar_t*>(text.c_str());  // only read
    return SendMessage(TCM_SETITEMW, static_cast<WPARAM>(index), Pointer(&item)) != 0;
}

std::wstring CTabCtrl::GetItemText(int index) const {
    // The control does not tell a text's length: the room doubles until the text leaves some of it free.
    for (std::size_t room = 256;; room *= 2) {
        std::wstring text(room, L'\0');
        TCITEMW item{};
        item.mask = TCIF_TEXT;
        item.pszText = text.data();
        item.cchTextMax = static_cast<int>(room);
        if (SendMessage(TCM_GETITEMW, static_cast<WPARAM>(index), Pointer(&item)) == 0) return {};
        text.assign(std::wstring(item.pszText));
        if (text.size() + 1 < room) return text;
    }
}

int CTabCtrl::GetItemCount() const {
    return ToInt(SendMessage(TCM_GETITEMCOUNT));
}

int CTabCtrl::GetCurSel() const {
    return ToInt(SendMessage(TCM_GETCURSEL));
}

int CTabCtrl::SetCurSel(int index) {
    return ToInt(SendMessage(TCM_SETCURSEL, static_cast<WPARAM>(index)));
}

bool CTabCtrl::GetItemRect(int index, RECT& rect) const {
    return SendMessage(TCM_GETITEMRECT, static_cast<WPARAM>(index), Pointer(&rect)) != 0;
}

int CTabCtrl::GetRowCount() const {
    return ToInt(SendMessage(TCM_GETROWCOUNT));
}

void CTabCtrl::AdjustRect(bool larger, RECT& rect) const {
    SendMessage(TCM_ADJUSTRECT, larger ? TRUE : FALSE, Pointer(&rect));
}

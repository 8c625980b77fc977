// CWnd: the road of a message through the object, and notifications handed back to the control that sent them.
#include "framework/thread_state.h"
#include "framework/window_hook.h"
#include "framework/wnd.h"

using qv::detail::HandledMessage;
using qv::detail::ThisThread;

namespace {

using Kind = MessageEntry::Kind;

bool Invoke(CWnd& object, Kind kind, const MessageArgs& args, UINT code, UINT id, LRESULT* result) {
    const MessageEntry* entry = object.GetMessageMap()->Find(kind, args.message, code, id);
    return entry != nullptr && entry->invoke(object, args, result);
}

// The control that a message to its parent speaks of; null for messages that are not handed back.
HWND SenderOf(HWND parent, UINT message, WPARAM wParam, LPARAM lParam) {
    switch (message) {
        case WM_CTLCOLORBTN:
        case WM_CTLCOLORDLG:
        case WM_CTLCOLOREDIT:
        case WM_CTLCOLORLISTBOX:
        case WM_CTLCOLORMSGBOX:
        case WM_CTLCOLORSCROLLBAR:
        case WM_CTLCOLORSTATIC:
        case WM_HSCROLL:
        case WM_VSCROLL:
            return reinterpret_cast<HWND>(lParam);
        case WM_DRAWITEM:
            return wParam != 0 ? reinterpret_cast<const DRAWITEMSTRUCT*>(lParam)->hwndItem : nullptr;
        case WM_DELETEITEM:
            return reinterpret_cast<const DELETEITEMSTRUCT*>(lParam)->hwndItem;
        case WM_COMPAREITEM:
            return reinterpret_cast<const COMPAREITEMSTRUCT*>(lParam)->hwndItem;
        case WM_MEASUREITEM: {
            if (wParam == 0) return nullptr;  // a menu
            // Lists ask while they are being created, when the parent may not know them by number yet.
            const CWnd* created = ThisThread().beingCreated;
            const auto* item = reinterpret_cast<const MEASUREITEMSTRUCT*>(lParam);
            if (created != nullptr && created->m_hWnd != nullptr &&
                created->GetDlgCtrlID() == static_cast<int>(item->CtlID) && ::GetParent(created->m_hWnd) == parent) {
                return created->m_hWnd;
            }
            return ::GetDlgItem(parent, static_cast<int>(item->CtlID));
        }
        default:
            return nullptr;
    }
}

}  // namespace

// Gives OnChildNotify, which is not for everyone, to the functions of this file.
struct Reflection : CWnd {
    static bool HandBack(HWND sender, UINT message, WPARAM wParam, LPARAM lParam, LRESULT* result) {
        CWnd* control = FromHandlePermanent(sender);
        return control != nullptr && (control->*&Reflection::OnChildNotify)(message, wParam, lParam, result);
    }
};

const MessageMap* CWnd::GetThisMessageMap() {
    static const MessageMap map{CCmdTarget::GetThisMessageMap(), {on::Message<&CWnd::OnGetObject>(WM_GETOBJECT)}};
    return &map;
}

const MessageMap* CWnd::GetMessageMap() const {
    return GetThisMessageMap();
}

LRESULT CWnd::WindowProc(UINT message, WPARAM wParam, LPARAM lParam) {
    LRESULT result = 0;
    if (m_hook != nullptr && m_hook->OnHookedMessage(message, wParam, lParam, &result)) return result;
    if (OnWndMsg(message, wParam, lParam, &result)) return result;
    HWND sender = SenderOf(m_hWnd, message, wParam, lParam);
    if (Reflection::HandBack(sender, message, wParam, lParam, &result)) return result;
    return DefWindowProc(message, wParam, lParam);
}

LRESULT CWnd::DefWindowProc(UINT message, WPARAM wParam, LPARAM lParam) {
    if (m_hWnd == nullptr) return 0;
    if (m_superProc != nullptr) return ::CallWindowProcW(m_superProc, m_hWnd, message, wParam, lParam);
    return ::DefWindowProcW(m_hWnd, message, wParam, lParam);
}

LRESULT CWnd::Default() {
    const HandledMessage message = ThisThread().current;
    // What a parent does by default with a control's question is to hand it back to the control.
    if (message.window == m_hWnd) {
        LRESULT result = 0;
        HWND sender = SenderOf(m_hWnd, message.message, message.wParam, message.lParam);
        if (Reflection::HandBack(sender, message.message, message.wParam, message.lParam, &result)) return result;
    }
    return DefWindowProc(message.message, message.wParam, message.lParam);
}

void CWnd::SetHook(WindowHook* hook) {
    m_hook = hook;
    std::vector<CWnd*>& hooked = ThisThread().hooked;
    std::erase(hooked, this);
    if (hook != nullptr) hooked.push_back(this);
}

bool CWnd::OnWndMsg(UINT message, WPARAM wParam, LPARAM lParam, LRESULT* result) {
    if (message == WM_COMMAND && OnCommand(wParam, lParam)) {
        *result = 0;
        return true;
    }
    if (message == WM_NOTIFY && lParam != 0 && OnNotify(wParam, lParam, result)) return true;
    return Invoke(*this, Kind::Message, {message, wParam, lParam}, 0, 0, result);
}

bool CWnd::OnCommand(WPARAM wParam, LPARAM lParam) {
    LRESULT result = 0;
    if (Reflection::HandBack(reinterpret_cast<HWND>(lParam), WM_COMMAND, wParam, lParam, &result)) return true;
    return OnCmdMsg(LOWORD(wParam), HIWORD(wParam));
}

bool CWnd::OnNotify(WPARAM wParam, LPARAM lParam, LRESULT* result) {
    LRESULT unused = 0;
    if (result == nullptr) result = &unused;
    const auto* header = reinterpret_cast<const NMHDR*>(lParam);
    if (Reflection::HandBack(header->hwndFrom, WM_NOTIFY, wParam, lParam, result)) return true;
    return Invoke(*this, Kind::Notify, {WM_NOTIFY, wParam, lParam}, header->code, static_cast<UINT>(header->idFrom),
                  result);
}

bool CWnd::OnChildNotify(UINT message, WPARAM wParam, LPARAM lParam, LRESULT* result) {
    const MessageArgs args{message, wParam, lParam};
    if (message == WM_COMMAND) return Invoke(*this, Kind::ReflectedCommand, args, HIWORD(wParam), 0, result);
    return Invoke(*this, Kind::ReflectedMessage, args, 0, 0, result);
}

bool CWnd::PreTranslateMessage(MSG&) {
    return false;
}

bool CWnd::OnSwitchPage(int) {
    return false;
}

HWND CWnd::OnDescendantFocused(HWND descendant) {
    if (m_hook != nullptr) m_hook->OnDescendantFocused(descendant);
    return descendant;
}

void CWnd::TellOfFocus(HWND control) {
    for (HWND around = ::GetAncestor(control, GA_PARENT); around != nullptr;
         around = ::GetAncestor(around, GA_PARENT)) {
        if (CWnd* object = FromHandlePermanent(around)) control = object->OnDescendantFocused(control);
    }
}

LRESULT CWnd::SendMessage(UINT message, WPARAM wParam, LPARAM lParam) const {
    return ::SendMessageW(m_hWnd, message, wParam, lParam);
}

bool CWnd::PostMessage(UINT message, WPARAM wParam, LPARAM lParam) const {
    return m_hWnd != nullptr && ::PostMessageW(m_hWnd, message, wParam, lParam) != FALSE;
}

int CWnd::OnCreate(CREATESTRUCTW*) {
    return static_cast<int>(Default());
}

void CWnd::OnDestroy() {
    Default();
}

void CWnd::OnClose() {
    Default();
}

void CWnd::OnSize(UINT, int, int) {
    Default();
}

void CWnd::OnGetMinMaxInfo(MINMAXINFO*) {
    Default();
}

int CWnd::OnMouseActivate(CWnd*, UINT, UINT) {
    return static_cast<int>(Default());
}

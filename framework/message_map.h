// Message maps: one table a class that names the messages it handles and the typed handlers for them. A class overrides
// GetMessageMap and returns its table, chained to its base's; the most derived entry wins. Parameters are decoded here,
// once, so that handlers take what they mean (OnSize(type, cx, cy)).
//
//     const MessageMap* XPage::GetMessageMap() const {
//         static const MessageMap map{CPropertyPage::GetThisMessageMap(), {
//             on::Size<&XPage::OnSize>(),
//             on::Message<&XPage::OnSettingsModified>(WM_SETTINGS_MODIFIED),
//         }};
//         return &map;
//     }
#pragma once

#include <vector>

#include "platform/platform.h"

class CCmdTarget;
class CWnd;

// What a handler is called with. For commands and notifications, code and id say which.
struct MessageArgs {
    UINT message;
    WPARAM wParam;
    LPARAM lParam;
};

struct MessageEntry {
    enum class Kind {
        Message,           // a window message
        Command,           // WM_COMMAND of a menu, an accelerator or a control: code and id match
        Notify,            // WM_NOTIFY: code and id match
        ReflectedCommand,  // a control's own WM_COMMAND, handed back to it by its parent: code matches
        ReflectedMessage,  // WM_CTLCOLOR*, WM_DRAWITEM and their kin, handed back to the control
    };
    // Returns true when the message is handled; then *result is the answer.
    using Invoke = bool (*)(CCmdTarget& target, const MessageArgs& args, LRESULT* result);

    Kind kind;
    UINT message;  // Kind::Message and ReflectedMessage
    UINT code;     // notification code, 0 for a click or a menu command
    UINT id;       // control or command id
    Invoke invoke;
};

struct MessageMap {
    const MessageMap* base;  // null for the root
    std::vector<MessageEntry> entries;

    // The first entry that matches, searching this table, then its bases; null when nobody handles it.
    [[nodiscard]] const MessageEntry* Find(MessageEntry::Kind kind, UINT message, UINT code, UINT id) const noexcept;
};

namespace on {

namespace detail {
// The class that a member function pointer belongs to.
template <class M>
struct MemberOf;
template <class C, class R, class... A>
struct MemberOf<R (C::*)(A...)> {
    using Class = C;
    using Result = R;
};

template <auto Handler>
using ClassOf = typename MemberOf<decltype(Handler)>::Class;

template <auto Handler>
ClassOf<Handler>& Target(CCmdTarget& target) {
    return static_cast<ClassOf<Handler>&>(target);
}

CWnd* WindowFrom(HWND handle);
}  // namespace detail

// Any message: LRESULT Handler(WPARAM, LPARAM).
template <auto Handler>
MessageEntry Message(UINT message) {
    return {MessageEntry::Kind::Message, message, 0, 0, [](CCmdTarget& target, const MessageArgs& a, LRESULT* result) {
                *result = (detail::Target<Handler>(target).*Handler)(a.wParam, a.lParam);
                return true;
            }};
}

// int OnCreate(CREATESTRUCTW*): -1 refuses the window, 0 goes on.
template <auto Handler>
MessageEntry Create() {
    return {MessageEntry::Kind::Message, WM_CREATE, 0, 0,
            [](CCmdTarget& target, const MessageArgs& a, LRESULT* result) {
                *result = (detail::Target<Handler>(target).*Handler)(reinterpret_cast<CREATESTRUCTW*>(a.lParam));
                return true;
            }};
}

// void OnDestroy(), and the other messages without parameters or result.
template <auto Handler>
MessageEntry Plain(UINT message) {
    return {MessageEntry::Kind::Message, message, 0, 0, [](CCmdTarget& target, const MessageArgs&, LRESULT* result) {
                (detail::Target<Handler>(target).*Handler)();
                *result = 0;
                return true;
            }};
}
template <auto Handler>
MessageEntry Destroy() {
    return Plain<Handler>(WM_DESTROY);
}
template <auto Handler>
MessageEntry Close() {
    return Plain<Handler>(WM_CLOSE);
}
template <auto Handler>
MessageEntry Paint() {
    return Plain<Handler>(WM_PAINT);
}

// void OnSize(UINT type, int cx, int cy): the client area's size in pixels.
template <auto Handler>
MessageEntry Size() {
    return {MessageEntry::Kind::Message, WM_SIZE, 0, 0, [](CCmdTarget& target, const MessageArgs& a, LRESULT* result) {
                (detail::Target<Handler>(target).*Handler)(static_cast<UINT>(a.wParam),
                                                           LOWORD(static_cast<DWORD_PTR>(a.lParam)),
                                                           HIWORD(static_cast<DWORD_PTR>(a.lParam)));
                *result = 0;
                return true;
            }};
}

// void OnGetMinMaxInfo(MINMAXINFO*).
template <auto Handler>
MessageEntry GetMinMaxInfo() {
    return {MessageEntry::Kind::Message, WM_GETMINMAXINFO, 0, 0,
            [](CCmdTarget& target, const MessageArgs& a, LRESULT* result) {
                (detail::Target<Handler>(target).*Handler)(reinterpret_cast<MINMAXINFO*>(a.lParam));
                *result = 0;
                return true;
            }};
}

// int OnMouseActivate(CWnd* topLevel, UINT hitTest, UINT message).
template <auto Handler>
MessageEntry MouseActivate() {
    return {MessageEntry::Kind::Message, WM_MOUSEACTIVATE, 0, 0,
            [](CCmdTarget& target, const MessageArgs& a, LRESULT* result) {
                *result = (detail::Target<Handler>(target).*Handler)(
                    detail::WindowFrom(reinterpret_cast<HWND>(a.wParam)), LOWORD(static_cast<DWORD_PTR>(a.lParam)),
                    HIWORD(static_cast<DWORD_PTR>(a.lParam)));
                return true;
            }};
}

namespace detail {
template <auto Handler>
bool InvokeVoid(CCmdTarget& target, const MessageArgs&, LRESULT* result) {
    (Target<Handler>(target).*Handler)();
    *result = 0;
    return true;
}
template <auto Handler>
bool InvokeNotify(CCmdTarget& target, const MessageArgs& a, LRESULT* result) {
    (Target<Handler>(target).*Handler)(reinterpret_cast<NMHDR*>(a.lParam), result);
    return true;
}
}  // namespace detail

// void OnHelp(): a menu command, an accelerator or a click on a button.
template <auto Handler>
MessageEntry Command(UINT id) {
    return {MessageEntry::Kind::Command, WM_COMMAND, 0, id, &detail::InvokeVoid<Handler>};
}
// void OnChangeName(): another notification of a control, sent as WM_COMMAND.
template <auto Handler>
MessageEntry Control(UINT code, UINT id) {
    return {MessageEntry::Kind::Command, WM_COMMAND, code, id, &detail::InvokeVoid<Handler>};
}
// void OnSelChange(NMHDR*, LRESULT*).
template <auto Handler>
MessageEntry Notify(int code, UINT id) {
    return {MessageEntry::Kind::Notify, WM_NOTIFY, static_cast<UINT>(code), id, &detail::InvokeNotify<Handler>};
}
// void OnClicked(): the control's own notification, handed back by its parent. The parent then does not handle it.
template <auto Handler>
MessageEntry ControlReflect(UINT code) {
    return {MessageEntry::Kind::ReflectedCommand, WM_COMMAND, code, 0, &detail::InvokeVoid<Handler>};
}
// LRESULT Handler(WPARAM, LPARAM): WM_CTLCOLOR*, WM_DRAWITEM, WM_MEASUREITEM, WM_HSCROLL, handed back by the parent.
template <auto Handler>
MessageEntry MessageReflect(UINT message) {
    return {MessageEntry::Kind::ReflectedMessage, message, 0, 0,
            [](CCmdTarget& target, const MessageArgs& a, LRESULT* result) {
                *result = (detail::Target<Handler>(target).*Handler)(a.wParam, a.lParam);
                return true;
            }};
}

}  // namespace on

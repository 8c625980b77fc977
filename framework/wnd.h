// CWnd: a window as an object. It attaches to a handle (its own, a subclassed control's, or another's for a moment),
// sends messages through its message map and hands notifications back to the control that sent them. It owns its window
// only while attached as a permanent object: destroying the object destroys the window. Its window may go at any time,
// in the middle of its methods too; an object without a window takes every call, does nothing and answers empty.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "base/geometry.h"
#include "framework/cmd_target.h"

class CDataExchange;
class WindowHook;
struct ModuleState;

namespace qv::detail {
struct WindowAccess;
}

class CWnd : public CCmdTarget {
    QV_DECLARE_RUNTIME_CLASS

    HWND m_hWnd = nullptr;

    CWnd() = default;
    ~CWnd() override;

    // --- handles and objects -------------------------------------------------------------------------------------
    // The object for a handle. FromHandle makes a temporary object where there is no permanent one; it lives until the
    // message loop is idle. Null gives null.
    static CWnd* FromHandle(HWND handle);
    static CWnd* FromHandlePermanent(HWND handle);
    // Makes this the permanent object of an existing window, whose procedure is not changed. False when either side is
    // already attached.
    bool Attach(HWND handle);
    // Gives the handle up and leaves the window alive, with the procedure it had before.
    HWND Detach();
    // Attaches and routes the window's messages through this object; Unsubclass undoes it and returns the handle.
    bool SubclassWindow(HWND handle);
    bool SubclassDlgItem(UINT id, CWnd* parent);
    HWND UnsubclassWindow();
    [[nodiscard]] HWND GetSafeHwnd() const noexcept { return m_hWnd; }
    // True when the object has a window that is still alive.
    [[nodiscard]] bool IsLive() const { return m_hWnd != nullptr && ::IsWindow(m_hWnd) != FALSE; }

    // --- creation and destruction --------------------------------------------------------------------------------
    // Creates a window of a registered class and attaches this object before its first message. A null class name means
    // the framework's own plain class. False (GetLastError tells) when it could not be created; the object is then
    // unattached. This holds for every Create of every class: until it has answered true the object, also one that
    // will belong to its window, is its creator's, and nothing deletes it or calls its PostNcDestroy.
    bool CreateEx(DWORD exStyle, const wchar_t* className, std::wstring_view title, DWORD style, const RECT& rect,
                  HWND parent, UINT_PTR idOrMenu);
    // A child window; WS_CHILD is added.
    virtual bool Create(const wchar_t* className, std::wstring_view title, DWORD style, const RECT& rect, CWnd* parent,
                        UINT id);
    // Last changes to what CreateEx will use. False gives the creation up.
    virtual bool PreCreateWindow(CREATESTRUCTW& cs);
    // Called once the object is attached to a window that it did not create itself.
    virtual void PreSubclassWindow();
    virtual bool DestroyWindow();
    // Called after WM_NCDESTROY of a window whose creation had succeeded, when the object is detached. Not the place
    // for `delete this`: calls of the object may be on the stack.
    virtual void PostNcDestroy();
    // True for objects that are made with new and go with their window: from the moment that its creation has succeeded
    // the object is deleted when its window is destroyed, as soon as no call can be inside it (framework/call_scope.h),
    // and at the latest before the DoModal in which it was made returns.
    [[nodiscard]] virtual bool BelongsToWindow() const;

    // --- text, state, tree ---------------------------------------------------------------------------------------
    [[nodiscard]] std::wstring GetWindowText() const;
    void SetWindowText(std::wstring_view text);
    [[nodiscard]] int GetWindowTextLength() const;
    [[nodiscard]] int GetDlgCtrlID() const;
    [[nodiscard]] DWORD GetStyle() const;
    [[nodiscard]] DWORD GetExStyle() const;
    // True when the style changed. flags: additional SetWindowPos flags, 0 to leave the frame alone.
    bool ModifyStyle(DWORD remove, DWORD add, UINT flags = 0);
    bool ModifyStyleEx(DWORD remove, DWORD add, UINT flags = 0);
    // True when it was disabled before. In a dialog, a focus that lies in a window that is disabled goes on to the next
    // tab stop first.
    bool EnableWindow(bool enable = true);
    [[nodiscard]] bool IsWindowEnabled() const;
    bool ShowWindow(int command);
    [[nodiscard]] bool IsWindowVisible() const;
    CWnd* SetFocus();
    static CWnd* GetFocus();
    [[nodiscard]] CWnd* GetParent() const;
    [[nodiscard]] CWnd* GetDlgItem(int id) const;
    [[nodiscard]] CWnd* GetNextDlgTabItem(CWnd* control, bool previous = false) const;
    [[nodiscard]] CWnd* GetTopLevelParent() const;
    void SetFont(HFONT font, bool redraw);
    [[nodiscard]] HFONT GetFont() const;
    void SetIcon(HICON icon, bool big);

    // --- position: pixels; MoveWindow in the parent's client area, GetWindowRect on the screen -----------------------
    void MoveWindow(int x, int y, int cx, int cy, bool repaint = true);
    void MoveWindow(const RECT& rect, bool repaint = true);
    bool SetWindowPos(HWND insertAfter, int x, int y, int cx, int cy, UINT flags);
    [[nodiscard]] CRect GetWindowRect() const;
    [[nodiscard]] CRect GetClientRect() const;
    void ClientToScreen(CRect& rect) const;
    void ScreenToClient(CRect& rect) const;
    [[nodiscard]] bool GetWindowPlacement(WINDOWPLACEMENT& placement) const;
    bool SetWindowPlacement(const WINDOWPLACEMENT& placement);
    // Centres a child in its parent, another window on its owner when that is visible, else (and always with onScreen)
    // in the screen's work area.
    void CenterWindow(bool onScreen = false);
    void Invalidate(bool erase = true);

    // --- messages ------------------------------------------------------------------------------------------------
    LRESULT SendMessage(UINT message, WPARAM wParam = 0, LPARAM lParam = 0) const;
    bool PostMessage(UINT message, WPARAM wParam = 0, LPARAM lParam = 0) const;
    // The default processing of the message that is being handled now.
    LRESULT Default();
    virtual LRESULT WindowProc(UINT message, WPARAM wParam, LPARAM lParam);
    virtual LRESULT DefWindowProc(UINT message, WPARAM wParam, LPARAM lParam);
    // A chance to eat a queued message before it is translated; asked from the message's window up to the top-level
    // one.
    virtual bool PreTranslateMessage(MSG& message);
    // Asked of the windows of a dialog when the user pages with the keyboard (Ctrl+Tab and its kin): +1 or -1. True
    // when this window holds pages and dealt with it.
    virtual bool OnSwitchPage(int step);
    // The focus came to this descendant, in whatever way: the place to scroll it into view. While a mouse button is
    // down it is told only once the button is up, so that nothing moves away under the pointer. Returns what the
    // windows further out are told of: the descendant, or this window where it is a control made of several.
    virtual HWND OnDescendantFocused(HWND descendant);
    // Tells it to every window around the control.
    static void TellOfFocus(HWND control);
    // One at a time; null takes it away. Borrowed: it must be taken away before it goes.
    void SetHook(WindowHook* hook);
    [[nodiscard]] WindowHook* GetHook() const noexcept { return m_hook; }

    // --- data exchange -------------------------------------------------------------------------------------------
    virtual void DoDataExchange(CDataExchange& exchange);
    void UpdateData();

    // --- accessibility: by default answered by the window's standard accessible object -------------------------------
    // The name that accessibility clients read, for a window that does not show it itself and that the platform finds
    // no label for. Empty, as at first: what the platform finds.
    virtual void SetAccessibleName(std::wstring_view name);
    virtual HRESULT get_accChildCount(LONG* count);
    virtual HRESULT get_accChild(VARIANT child, IDispatch** dispatch);
    virtual HRESULT get_accName(VARIANT child, BSTR* name);
    virtual HRESULT accLocation(LONG* left, LONG* top, LONG* width, LONG* height, VARIANT child);
    virtual HRESULT accHitTest(LONG left, LONG top, VARIANT* child);
    HRESULT GetAccessibleChildCount(LONG* count);
    HRESULT GetAccessibleChild(VARIANT child, IDispatch** dispatch);
    HRESULT GetAccessibleName(VARIANT child, BSTR* name);
    HRESULT GetAccessibilityLocation(LONG* left, LONG* top, LONG* width, LONG* height, VARIANT child);
    HRESULT GetAccessibilityHitTest(LONG left, LONG top, VARIANT* child);

    const MessageMap* GetMessageMap() const override;
    static const MessageMap* GetThisMessageMap();

protected:
    // WM_COMMAND: low word id, high word notification code; control window or 0. Reflects to the sender first, then
    // routes through the message map. True when handled.
    virtual bool OnCommand(WPARAM wParam, LPARAM lParam);
    virtual bool OnNotify(WPARAM wParam, LPARAM lParam, LRESULT* result);
    // A notification of this control, handed back by its parent. True keeps it from the parent.
    virtual bool OnChildNotify(UINT message, WPARAM wParam, LPARAM lParam, LRESULT* result);
    virtual bool OnWndMsg(UINT message, WPARAM wParam, LPARAM lParam, LRESULT* result);

    // Base behaviour of the common handlers, for derived classes to call.
    int OnCreate(CREATESTRUCTW* cs);
    void OnDestroy();
    void OnClose();
    void OnSize(UINT type, int cx, int cy);
    void OnGetMinMaxInfo(MINMAXINFO* info);
    int OnMouseActivate(CWnd* topLevel, UINT hitTest, UINT message);

private:
    friend struct qv::detail::WindowAccess;

    LRESULT OnGetObject(WPARAM wParam, LPARAM lParam);
    // Leaves the object as it was before it had a window.
    void Forget();

    std::wstring m_accessibleName;
    WNDPROC m_superProc = nullptr;  // the procedure below ours; null for windows of the framework's own class
    bool m_routed = false;          // the window's messages come through this object
    WindowHook* m_hook = nullptr;
    ModuleState* m_moduleState = nullptr;  // in force while the window handles messages
    int m_creations = 0;                   // creations of its window that are under way, one inside the other
    std::uint64_t m_madeAt = 0;            // when it was attached
    HWND m_treeRoot = nullptr;             // of the tree in which its window was when its destruction began
};

// Frees the temporary objects of this thread (CWnd::FromHandle); loops call it when idle.
void DeleteTemporaryObjects();

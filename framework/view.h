// Views without a document: a child window that scrolls (CScrollView) and one made from a dialog template (CFormView).
// A view is made with new and belongs to its window: it is its creator's until Create has answered true, and goes with
// the window from then on.
#pragma once

#include <cstddef>
#include <span>

#include "framework/window_scroller.h"

class CView : public CWnd {
    QV_DECLARE_RUNTIME_CLASS
    CView() = default;
    ~CView() override;
    // Called once after creation, when the content is there.
    virtual void OnInitialUpdate();
    [[nodiscard]] bool BelongsToWindow() const override;

    const MessageMap* GetMessageMap() const override;
    static const MessageMap* GetThisMessageMap();
};

class CScrollView : public CView {
    QV_DECLARE_RUNTIME_CLASS
    CScrollView();
    ~CScrollView() override;
    // The content's size in pixels. Page and line default to a tenth of the total and a tenth of the page.
    void SetScrollSizes(SIZE total, SIZE page = {0, 0}, SIZE line = {0, 0});
    // Pixels from the content's top left corner to the visible area's.
    [[nodiscard]] POINT GetScrollPosition() const;
    void ScrollToPosition(POINT position);
    // Scrolls until the focused control is visible.
    HWND OnDescendantFocused(HWND descendant) override;

    const MessageMap* GetMessageMap() const override;
    static const MessageMap* GetThisMessageMap();

protected:
    bool OnWndMsg(UINT message, WPARAM wParam, LPARAM lParam, LRESULT* result) override;
    void OnSize(UINT type, int cx, int cy);

private:
    WindowScroller m_scroller;
};

class CFormView : public CScrollView {
    QV_DECLARE_RUNTIME_CLASS
    explicit CFormView(UINT templateId);
    explicit CFormView(std::span<const std::byte> dialogTemplate);  // in memory; outlives the creation
    ~CFormView() override;

    // Creates the view from its template as a child of parent, without document or frame, with the control id;
    // className and title are ignored.
    bool Create(const wchar_t* className, std::wstring_view title, DWORD style, const RECT& rect, CWnd* parent,
                UINT id) override;
    void OnInitialUpdate() override;
    bool PreTranslateMessage(MSG& message) override;

    const MessageMap* GetMessageMap() const override;
    static const MessageMap* GetThisMessageMap();

private:
    LRESULT OnInitDialogMessage(WPARAM wParam, LPARAM lParam);

    UINT m_templateId = 0;
    std::span<const std::byte> m_template;
};

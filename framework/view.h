// Views without a document: a child window that scrolls (CScrollView) and one made from a dialog template (CFormView).
// A view is made with new and belongs to its window: it is its creator's until Create has answered true, and goes with
// the window from then on.
#pragma once

#include <cstddef>
#include <span>

#include "framework/wnd.h"

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
    CScrollView() = default;
    ~CScrollView() override;
    // The content's size in pixels. Page and line default to a tenth of the total and a tenth of the page.
    void SetScrollSizes(SIZE total, SIZE page = {0, 0}, SIZE line = {0, 0});
    [[nodiscard]] SIZE GetTotalSize() const noexcept { return m_total; }
    // Pixels from the content's top left corner to the visible area's.
    [[nodiscard]] POINT GetScrollPosition() const;
    void ScrollToPosition(POINT position);
    // Shows, hides and sizes the scroll bars for the current client size.
    void UpdateBars();
    // Scrolls until the focused control is visible.
    void OnDescendantFocused(HWND descendant) override;

    const MessageMap* GetMessageMap() const override;
    static const MessageMap* GetThisMessageMap();

protected:
    void OnSize(UINT type, int cx, int cy);

private:
    [[nodiscard]] CRect VisibleArea() const;
    LRESULT OnHScroll(WPARAM wParam, LPARAM lParam);
    LRESULT OnVScroll(WPARAM wParam, LPARAM lParam);
    LRESULT OnMouseWheel(WPARAM wParam, LPARAM lParam);
    void Scroll(int bar, UINT request, int thumb);
    [[nodiscard]] int ThumbPosition(int bar, int thumb) const;

    SIZE m_total{0, 0};
    SIZE m_page{0, 0};
    SIZE m_line{0, 0};
    bool m_insideUpdate = false;
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

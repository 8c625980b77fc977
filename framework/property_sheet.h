// CPropertySheet over a tab control, as a child window of a dialog, and its pages. Pages are made from a dialog
// template that is disabled in the resources; a page's window is created when it is activated for the first time, and
// enabled, without a border, with the extended style that lets Tab pass through. The sheet does not own the page
// objects. Both sides may go first.
#pragma once

#include <vector>

#include "framework/controls.h"
#include "framework/dialog.h"

class CPropertySheet;

class CPropertyPage : public CDialog {
    QV_DECLARE_RUNTIME_CLASS
    explicit CPropertyPage(UINT templateId);
    explicit CPropertyPage(std::span<const std::byte> dialogTemplate);  // in memory; outlives the page
    ~CPropertyPage() override;

    virtual bool OnSetActive();   // before the page is shown; false refuses
    virtual bool OnKillActive();  // before it is hidden; false keeps it

    // A page has no end of its own: both are the enclosing top-level dialog's.
    void OnOK() override;
    void OnCancel() override;

    const MessageMap* GetMessageMap() const override;
    static const MessageMap* GetThisMessageMap();

private:
    friend class CPropertySheet;
    bool CreateIn(CPropertySheet& sheet);
    CPropertySheet* m_sheet = nullptr;
};

class CPropertySheet : public CWnd {
    QV_DECLARE_RUNTIME_CLASS
    CPropertySheet(std::wstring_view caption, CWnd* parent, UINT firstPage);
    ~CPropertySheet() override;

    using CWnd::Create;
    // Creates the sheet's window as a child of parent and runs OnInitDialog. False when the platform refuses it or its
    // tab control; a page without a window is tried again when it is activated.
    virtual bool Create(CWnd* parent, DWORD style, DWORD exStyle = 0);
    void AddPage(CPropertyPage* page);
    [[nodiscard]] int GetPageCount() const noexcept;
    [[nodiscard]] CPropertyPage* GetPage(int index) const;  // null outside 0 .. count - 1
    [[nodiscard]] int GetPageIndex(const CPropertyPage* page) const;
    [[nodiscard]] CPropertyPage* GetActivePage() const;  // null when the sheet has none
    [[nodiscard]] int GetActiveIndex() const noexcept;
    // Creates the page's window if need be, shows it and selects its tab. False when it is refused or cannot be
    // created.
    bool SetActivePage(int index);
    bool SetActivePage(CPropertyPage* page);
    [[nodiscard]] CTabCtrl* GetTabControl() noexcept;

    // Runs when the window exists: creates the tab control with one tab a page and shows the first page.
    virtual bool OnInitDialog();

    // Ctrl+Tab, Ctrl+PgUp and Ctrl+PgDn, wrapping around.
    bool OnSwitchPage(int step) override;
    const MessageMap* GetMessageMap() const override;
    static const MessageMap* GetThisMessageMap();

protected:
    // Selection changes of the tab control switch pages here.
    bool OnNotify(WPARAM wParam, LPARAM lParam, LRESULT* result) override;
    int OnCreate(CREATESTRUCTW* cs);

private:
    friend class CPropertyPage;
    LRESULT OnSetFont(WPARAM wParam, LPARAM lParam);
    LRESULT OnGetFont(WPARAM wParam, LPARAM lParam);
    LRESULT OnSetFocus(WPARAM wParam, LPARAM lParam);
    bool ShowPage(int index);
    [[nodiscard]] CRect PageRect() const;
    // A page ends. After the active one no other comes to the front by itself.
    void Forget(const CPropertyPage* page);

    std::wstring m_caption;
    CWnd* m_parent;
    HFONT m_font = nullptr;  // the dialog's, not owned
    CTabCtrl m_tab;
    std::vector<CPropertyPage*> m_pages;
    int m_active = -1;
    UINT m_firstPage;
};

// XDynPropertyPage: one tab of the settings sheet. It turns a page record into windows: it creates the special
// controls, hands the row groups to the host's layout manager, keeps the layout fitted and reports the user's changes
// to the sheet. It knows nothing about values.
#pragma once

#include <string>

#include "framework/property_sheet.h"
#include "host/libraries/layout.h"
#include "qvclient/qvsettingsdialog/model/page_record.h"
#include "qvclient/qvsettingsdialog/model/settings_page.h"

class XDynPropertyPage : public CPropertyPage, public SettingsPage {
    QV_DECLARE_RUNTIME_CLASS
    // record and sheet must outlive the page. title is the tab's text, translated; pageIndex its position from 0.
    XDynPropertyPage(PageRecord& record, std::wstring title, UINT pageIndex, CPropertySheet& sheet);
    ~XDynPropertyPage() override;

    [[nodiscard]] XLayout& GetLayout() override { return m_layout; }
    [[nodiscard]] CWnd& PageWindow() override { return *this; }
    void MakeActivePage() override;

    // Pixels the layout needs, without the page's margins; 0 before the page's window exists.
    [[nodiscard]] int GetMinWidth() const { return m_layout.GetMinWidth(); }
    [[nodiscard]] int GetMinHeight() const { return m_layout.GetMinHeight(); }
    [[nodiscard]] bool CanResizeWidth() const { return m_layout.CanResizeWidth(); }
    [[nodiscard]] bool CanResizeHeight() const { return m_layout.CanResizeHeight(); }

    bool OnInitDialog() override;
    void DoDataExchange(CDataExchange& exchange) override;
    const MessageMap* GetMessageMap() const override;
    static const MessageMap* GetThisMessageMap();

protected:
    bool OnCommand(WPARAM wParam, LPARAM lParam) override;
    void OnSize(UINT type, int cx, int cy);
    LRESULT OnSettingsModified(WPARAM wParam, LPARAM lParam);

private:
    void CreateSpecialControls();
    void ReportChange();

    bool m_initialised = false;
    PageRecord& m_record;
    XLayout m_layout;
    std::wstring m_title;
    UINT m_pageIndex;
    CPropertySheet& m_sheet;
};

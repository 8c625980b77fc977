// XDynPropertyPage: one tab of the settings sheet. It turns a page record into windows: it creates the special
// controls, hands the row groups to the host's layout manager, keeps the layout fitted, reports the user's changes to
// the sheet, and takes the user to an input that the model refuses. It knows nothing about values.
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

    [[nodiscard]] bool IsThere() const override { return IsLive(); }
    [[nodiscard]] XLayout& GetLayout() override { return m_layout; }
    [[nodiscard]] bool RefuseInput(const XLayout::Column& row, std::wstring_view reason) override;
    void RefuseInput(SpecialControl& control) override;
    void ReportFailedSave(std::wstring_view text) override;

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
    // The window around the sheet, above which messages stand; null when there is none.
    [[nodiscard]] CWnd* Owner() const;

    bool m_initialised = false;
    PageRecord& m_record;
    XLayout m_layout;
    std::wstring m_title;
    UINT m_pageIndex;
    CPropertySheet& m_sheet;
};

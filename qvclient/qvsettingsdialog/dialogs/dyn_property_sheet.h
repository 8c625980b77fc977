// XDynPropertySheet: the tabs in the middle of the settings dialog. It builds a page for every page record that has a
// title, measures them, keeps the visible one fitted, and carries out what concerns all pages: validate and store,
// reset to defaults, and the notice that something changed.
#pragma once

#include <cstdint>
#include <list>
#include <map>
#include <memory>
#include <string>

#include "framework/property_sheet.h"
#include "qvclient/qvsettingsdialog/dialogs/dyn_property_page.h"
#include "qvclient/qvsettingsdialog/model/construction_set.h"

class XDynPropertySheet : public CPropertySheet {
    QV_DECLARE_RUNTIME_CLASS
    // Loads pages and items and makes the page objects; no window exists yet. parent hears of the first change.
    XDynPropertySheet(std::wstring_view caption, XConstructionSet& constructionSet, CWnd* parent, UINT firstPage);
    ~XDynPropertySheet() override;

    // Pixels that the dialog gives the sheet at least. Both may raise what they keep; asking for the height may lay the
    // dialog out first.
    [[nodiscard]] int GetRequiredWidth();
    [[nodiscard]] int GetRequiredHeight();

    // There are pages to show and the platform refused the windows of all of them.
    [[nodiscard]] bool AreAllPagesRefused() const;

    // Validates every page and, only when all pass, stores every page. False at the first page that fails or whose
    // window goes meanwhile: what is stored by then stays stored.
    bool ValidateAndStore();
    void ResetToDefaults();
    // The next change is passed on to the parent again.
    void ResetModifiedNotice();

    bool OnInitDialog() override;
    const MessageMap* GetMessageMap() const override;
    static const MessageMap* GetThisMessageMap();

protected:
    bool OnNotify(WPARAM wParam, LPARAM lParam, LRESULT* result) override;
    int OnCreate(CREATESTRUCTW* cs);
    void OnSize(UINT type, int cx, int cy);
    void OnGetMinMaxInfo(MINMAXINFO* info);
    LRESULT OnSettingsModified(WPARAM wParam, LPARAM lParam);

private:
    void BuildPages();
    [[nodiscard]] PageRecord* FindRecord(std::int32_t pageNumber) const;
    [[nodiscard]] int LargestMinWidth() const;
    [[nodiscard]] int LargestMinHeight() const;
    void FitPage(int cx, int cy);

    std::map<std::int32_t, std::unique_ptr<XDynPropertyPage>> m_pages;
    XConstructionSet& m_constructionSet;
    std::map<std::int32_t, PageRecord*> m_items;
    int m_requiredWidth = 0;
    int m_requiredHeight = 0;
    bool m_canResizeWidth = false;
    bool m_canResizeHeight = false;
    bool m_initialised = false;
    std::wstring m_widestTitle;
    CRect m_pageRect;  // left and top are a position, right and bottom coordinates in the sheet
    CWnd* m_parentDialog;
    bool m_modifiedNotified = false;
    bool m_pageRectValid = false;
    int m_baseHeight = 0;
};

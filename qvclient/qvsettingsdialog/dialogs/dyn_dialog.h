// XDynDialog: the settings dialog as such, whatever hosts it: the property sheet above a row of buttons, sized from the
// sheet, with OK, Cancel, Default and Help, and the placement record. The dialog that people see is XDialogForView,
// derived from it.
#pragma once

#include <memory>
#include <span>

#include "framework/dialog.h"
#include "qvclient/qvsettingsdialog/dialogs/dyn_property_sheet.h"

class XDynDialog : public CDialog {
    QV_DECLARE_RUNTIME_CLASS
    // constructionSet must outlive the dialog. parent may be null.
    XDynDialog(XConstructionSet& constructionSet, CWnd* parent);
    ~XDynDialog() override;

    // Every page is being validated and stored, for OK or Apply. A host that runs a message loop meanwhile lets people
    // press buttons: another OK, Apply, Default or Cancel is passed over until the first has come to its end.
    [[nodiscard]] bool IsStoring() const noexcept { return m_isStoring; }

    // The dialog's own size in pixels when it lives in a form view; 0 otherwise.
    [[nodiscard]] int GetViewWidth() const noexcept { return m_viewWidth; }
    [[nodiscard]] int GetViewHeight() const noexcept { return m_viewHeight; }
    [[nodiscard]] bool IsPlacementLoaded() const noexcept { return m_placementLoaded; }

    bool OnInitDialog() override;
    void DoDataExchange(CDataExchange& exchange) override;
    // Closes with IDOK once every page is stored. Stays open when a page is refused, or when the focus does not follow
    // to OK (a control kept it). A dialog whose window goes meanwhile is not ended: it counts as cancelled.
    void OnOK() override;
    void OnCancel() override;

    const MessageMap* GetMessageMap() const override;
    static const MessageMap* GetThisMessageMap();

protected:
    int OnCreate(CREATESTRUCTW* cs);
    void OnDestroy();
    void OnSize(UINT type, int cx, int cy);
    void OnGetMinMaxInfo(MINMAXINFO* info);
    void OnHelp();
    void OnDefaults();
    LRESULT OnInitFocus(WPARAM wParam, LPARAM lParam);
    LRESULT OnHelpKey(WPARAM wParam, LPARAM lParam);
    void OnNotShown() override;

    // True when every page is stored and the dialog still stands there.
    bool ValidateAndStore();
    // OnInitDialog came to its end.
    [[nodiscard]] bool IsInitialised() const noexcept { return m_initialised; }

    // Places the sheet and the buttons for the client width cx. heightKept: pixels that the sheet gets back from the
    // button row; buttons: ids from right to left.
    void Arrange(int cx, int heightKept, std::span<const int> buttons);
    // OK and Cancel stand a gap apart that is a part of the template's; the more buttons, the narrower.
    void SetButtonGapDivisor(int divisor) noexcept { m_buttonGapDivisor = divisor; }

    [[nodiscard]] XConstructionSet& ConstructionSet() const noexcept { return m_constructionSet; }
    [[nodiscard]] XDynPropertySheet* Sheet() const noexcept { return m_sheet.get(); }
    [[nodiscard]] bool LastOkSucceeded() const noexcept { return m_lastOkSucceeded; }
    [[nodiscard]] const WINDOWPLACEMENT& StoredPlacement() const noexcept { return m_storedPlacement; }

private:
    void MeasureButtons();
    // False when the platform refused it, or the window went meanwhile.
    bool CreateSheet(std::wstring_view caption);
    // The window rectangle around the sheet, from the window's present one.
    [[nodiscard]] CRect FitAroundSheet(CRect rect, bool hosted, int defaultWidth, int defaultHeight);
    void TranslateButtons();

    std::unique_ptr<XDynPropertySheet> m_sheet;
    int m_halfButtonHeight = 0;
    int m_buttonHeight = 0;
    int m_buttonWidth = 0;
    int m_buttonGap = 0;
    bool m_initialised = false;
    int m_buttonGapDivisor = 4;
    XConstructionSet& m_constructionSet;
    bool m_restoreEnabled;
    bool m_placementLoaded = false;
    WINDOWPLACEMENT m_storedPlacement;
    int m_viewWidth = 0;
    int m_viewHeight = 0;
    bool m_lastOkSucceeded = true;
    bool m_isStoring = false;
};

// XDynFolderSearchCtrl and XDynSearchFileCtrl: the controls of path and file items. They add to the host's choosers the
// item's values and an existence check with its messages, which runs when values are handed in and at OK and Apply, and
// only when the item asks for it.
#pragma once

#include <string>
#include <string_view>

#include "host/libraries/search_ctrl.h"
#include "qvclient/qvsettingsdialog/controls/special_control.h"

namespace qv {

// What both choosers share; the derived class supplies its check and texts.
template <class ChooserBase>
class DynSearchCtrl : public SpecialControlBase<ChooserBase>, public ValidatedControl {
public:
    // The check's state and the translated label, before the values: the values are checked when they come.
    void SetCheckPath(bool check);
    void SetLabel(std::wstring_view label) { m_label = label; }
    void SetInitValue(std::wstring_view path);
    void SetDefaultValue(std::wstring_view path);

    bool CreateOnPage(CWnd& page, UINT id) override;
    void ShowInitValue() override;
    void ShowDefaultValue() override;
    std::wstring GetValue() override;
    bool ValidateValue() override;
    void SelectDataInEditCtrl() override { ChooserBase::SelectDataInEditCtrl(); }

protected:
    // False when nothing is there; then a message was shown unless the platform had no words for it. report: the path
    // on success, else the reason. prefix: empty at OK and Apply.
    virtual bool Check(const std::wstring& path, std::wstring& report, std::wstring_view prefix) = 0;
    [[nodiscard]] virtual std::wstring_view TitleText() const = 0;  // of the browse dialog, untranslated
    // Shows text in an information box captioned with the label, owned by the active window.
    void ShowMessage(std::wstring_view text) const;
    // Prefix and label in one line, the report in the next.
    void ShowReport(std::wstring_view prefix, std::wstring_view report) const;

    [[nodiscard]] const std::wstring& Label() const noexcept { return m_label; }

private:
    std::wstring m_initValue;
    std::wstring m_defaultValue;
    bool m_checkPath = false;
    std::wstring m_label;
};

}  // namespace qv

class XDynFolderSearchCtrl : public qv::DynSearchCtrl<XSearchFolderCtrl> {
    QV_DECLARE_RUNTIME_CLASS
    bool CheckPath(const std::wstring& path, std::wstring& report, std::wstring_view prefix);

protected:
    bool Check(const std::wstring& path, std::wstring& report, std::wstring_view prefix) override {
        return CheckPath(path, report, prefix);
    }
    std::wstring_view TitleText() const override;
};

class XDynSearchFileCtrl : public qv::DynSearchCtrl<XSearchFileCtrl> {
    QV_DECLARE_RUNTIME_CLASS
    bool CheckFile(const std::wstring& path, std::wstring& report, std::wstring_view prefix);

protected:
    bool Check(const std::wstring& path, std::wstring& report, std::wstring_view prefix) override {
        return CheckFile(path, report, prefix);
    }
    std::wstring_view TitleText() const override;
};

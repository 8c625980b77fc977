// XDynColorBtn: the control of a colour item. The value is the colour's number (red + 256 * green + 65536 * blue) in
// plain decimal digits.
#pragma once

#include <string>
#include <string_view>

#include "host/libraries/color_button.h"
#include "qvclient/qvsettingsdialog/controls/special_control.h"

class XDynColorBtn : public SpecialControlBase<XColorBtn> {
    QV_DECLARE_RUNTIME_CLASS

    void SetInitValue(std::wstring_view color) { m_initValue = color; }
    void SetDefaultValue(std::wstring_view color) { m_defaultValue = color; }

    bool CreateOnPage(CWnd& page, UINT id) override;
    void ShowInitValue() override;
    void ShowDefaultValue() override;
    std::wstring GetValue() override;

private:
    std::wstring m_initValue;
    std::wstring m_defaultValue;
};

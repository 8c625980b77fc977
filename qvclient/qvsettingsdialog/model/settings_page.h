// What the model needs of a page that is shown. The page knows windows, the model does not.
#pragma once

#include <string_view>

#include "host/libraries/layout_rows.h"
#include "qvclient/qvsettingsdialog/controls/special_control.h"

class SettingsPage {
public:
    virtual ~SettingsPage() = default;
    // False once the page's window is gone: the host and every message may take it.
    [[nodiscard]] virtual bool IsThere() const = 0;
    // What the rows show.
    [[nodiscard]] virtual qv::LayoutRows& GetLayout() = 0;
    // Brings the page to the front, says why the row's input is refused and puts the user there to correct it. False,
    // with nothing done, when the row has no control that could be corrected.
    [[nodiscard]] virtual bool RefuseInput(const qv::LayoutRows::Column& row, std::wstring_view reason) = 0;
    // The same for a control that has said why itself.
    virtual void RefuseInput(SpecialControl& control) = 0;
    // Says that a value was written and will not last.
    virtual void ReportFailedSave(std::wstring_view text) = 0;
};

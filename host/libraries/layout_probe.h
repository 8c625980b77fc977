// What the platform's own controls measure with a page's font, asked of one control of each class that nobody ever
// sees: rows are measured long before their windows are made. Used by the layout alone.
#pragma once

#include "framework/wnd.h"
#include "host/libraries/layout_metrics.h"

namespace qv {

// Pixels.
struct ControlMeasures {
    int fieldTextTop;  // from a field's top, frame included, to its line of text; it has the height of fields
    int comboHeight;   // of a closed combo box
    int comboTextTop;
    int comboEntryHeight;  // of one entry of its list
    int comboFieldHeight;  // what a combo box has to be told to be as high as that; 0: it is by itself
};

// Of controls on this page. Asked of the platform once for every font and resolution. What the platform refuses to make
// is guessed from the line's height.
[[nodiscard]] ControlMeasures MeasureControls(const CWnd& page, const LayoutMetrics& metrics);

// Asks anew from here on: the user may change the system's fonts and borders between two dialogs.
void ForgetControlMeasures();

}  // namespace qv

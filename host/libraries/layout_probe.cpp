#include "host/libraries/layout_probe.h"

#include <algorithm>
#include <cstring>
#include <iterator>
#include <optional>

#include "framework/controls.h"
#include "host/libraries/layout_window.h"
#include "host/libraries/text_field.h"

namespace qv {
namespace {

struct Key {
    LOGFONTW font;
    int dpi;
};

struct Known {
    Key key;
    ControlMeasures measures;
};

std::optional<Known>& LastKnown() {
    static std::optional<Known> known;
    return known;
}

Key KeyOf(const LayoutMetrics& metrics) {
    Key key{};
    ::GetObjectW(metrics.Font(), sizeof key.font, &key.font);
    // Behind the end of the name stands whatever was there.
    std::fill(std::find(std::begin(key.font.lfFaceName), std::end(key.font.lfFaceName), L'\0'),
              std::end(key.font.lfFaceName), L'\0');
    key.dpi = metrics.Scale(96);
    return key;
}

constexpr UINT kNoId = 0xFFFF;

bool AskField(const CWnd& page, const LayoutMetrics& metrics, ControlMeasures& measures) {
    CEdit edit;
    const CRect place(0, 0, 100, TextFieldHeight(metrics.LineHeight()));
    if (!CreateAttached(edit, L"EDIT", {}, WS_EX_CLIENTEDGE, ES_AUTOHSCROLL, place, page, kNoId)) return false;
    if (metrics.Font() != nullptr) edit.SetFont(metrics.Font(), false);
    measures.fieldTextTop = TextTopInField(edit.m_hWnd);
    return true;
}

bool AskCombo(const CWnd& page, const LayoutMetrics& metrics, ControlMeasures& measures) {
    CComboBox combo;
    const CRect place(0, 0, 100, TextFieldHeight(metrics.LineHeight()));
    if (!CreateAttached(combo, L"COMBOBOX", {}, 0, WS_VSCROLL | CBS_DROPDOWNLIST, place, page, kNoId)) return false;
    if (metrics.Font() != nullptr) combo.SetFont(metrics.Font(), false);
    const LRESULT ownHeight = combo.SendMessage(CB_GETITEMHEIGHT, static_cast<WPARAM>(-1));
    FitComboHeight(combo.m_hWnd, metrics.LineHeight());
    const LRESULT fieldHeight = combo.SendMessage(CB_GETITEMHEIGHT, static_cast<WPARAM>(-1));
    measures.comboFieldHeight = fieldHeight != ownHeight ? static_cast<int>(fieldHeight) : 0;
    measures.comboHeight = combo.GetWindowRect().Height();
    measures.comboTextTop = TextTopInCombo(combo.m_hWnd, metrics.LineHeight());
    measures.comboEntryHeight = static_cast<int>(combo.SendMessage(CB_GETITEMHEIGHT, 0));
    return true;
}

}  // namespace

ControlMeasures MeasureControls(const CWnd& page, const LayoutMetrics& metrics) {
    const Key key = KeyOf(metrics);
    std::optional<Known>& known = LastKnown();
    if (known && std::memcmp(&known->key, &key, sizeof key) == 0) return known->measures;

    const int height = TextFieldHeight(metrics.LineHeight());
    const int textTop = (height - metrics.LineHeight()) / 2;
    ControlMeasures measures{textTop, height, textTop, metrics.LineHeight(), 0};
    const bool isField = AskField(page, metrics, measures);
    const bool isCombo = AskCombo(page, metrics, measures);
    if (isField && isCombo) known = Known{key, measures};
    return measures;
}

void ForgetControlMeasures() {
    LastKnown().reset();
}

}  // namespace qv

#include <array>
#include <nlohmann/json.hpp>

#include "app/dialog_view.h"
#include "base/geometry.h"
#include "base/text.h"

namespace qv {

namespace {

using nlohmann::ordered_json;

ordered_json RectOf(HWND window) {
    CRect rect;
    GetWindowRect(window, &rect);
    return {rect.left, rect.top, rect.right, rect.bottom};
}

struct NamedButton {
    int id;
    const char* name;
};
// The numbers are the dialog's fixed ones; a foreign program sees them with any window inspector.
constexpr std::array kButtons{NamedButton{IDOK, "ok"}, NamedButton{IDCANCEL, "cancel"}, NamedButton{128, "apply"},
                              NamedButton{126, "help"}, NamedButton{127, "default"}};

}  // namespace

std::string DumpDialog(const DialogView& view) {
    const HWND focus = GetFocus();
    ordered_json dump;
    dump["frame"] = {{"title", ToUtf8(TextOfWindow(view.Frame()))}, {"rectangle", RectOf(view.Frame())}};
    for (const NamedButton& button : kButtons) {
        const HWND window = FindButton(view.Frame(), button.id);
        if (window == nullptr) continue;
        dump["buttons"][button.name] = {{"text", ToUtf8(TextOfWindow(window))},
                                        {"enabled", IsWindowEnabled(window) != FALSE},
                                        {"focus", window == focus},
                                        {"rectangle", RectOf(window)}};
    }
    dump["activePage"] = view.ActivePage();
    dump["pages"] = ordered_json::array();
    for (int page = 0; page < view.PageCount(); ++page) {
        ordered_json rows = ordered_json::array();
        for (const DialogRow& row : view.Rows()) {
            if (row.page != page) continue;
            ordered_json entry{{"item", ToUtf8(row.item)},
                               {"prompt", ToUtf8(row.prompt)},
                               {"kind", ToUtf8(NameOf(row.kind))},
                               {"value", ToUtf8(ShownValue(row))}};
            if (row.kind != RowKind::Missing) entry["enabled"] = IsEnabled(row);
            if (row.control != nullptr) {
                entry["focus"] = row.control == focus || IsChild(row.control, focus) != FALSE;
                entry["rectangle"] = RectOf(row.control);
            }
            rows.push_back(std::move(entry));
        }
        dump["pages"].push_back({{"title", ToUtf8(view.PageTitle(page))}, {"rows", std::move(rows)}});
    }
    return dump.dump(2) + "\n";
}

}  // namespace qv

// Dialog templates in memory, so that a test needs no resource file.
#pragma once

#include "base/dialog_template_writer.h"

namespace qvtest {

class DialogTemplateBuilder : public qv::DialogTemplateWriter {
public:
    // The font is 8 points "MS Shell Dlg" when the style has DS_SETFONT.
    DialogTemplateBuilder(DWORD style, std::wstring_view caption, Layout layout = Layout::Extended, SHORT cx = 200,
                          SHORT cy = 150)
        : DialogTemplateWriter(layout, style, caption, {10, 10, cx, cy}, {}) {}
    // In the plain layout, with the font.
    DialogTemplateBuilder(DWORD style, SHORT cx, SHORT cy, std::wstring_view caption = {})
        : DialogTemplateBuilder(style | DS_SETFONT, caption, Layout::Plain, cx, cy) {}

    DialogTemplateBuilder& Add(std::wstring_view windowClass, std::wstring_view text, DWORD style, int id,
                               RECT place = {}, DWORD exStyle = 0) {
        DialogTemplateWriter::Add(
            windowClass, static_cast<DWORD>(id), style, text,
            {static_cast<int>(place.left), static_cast<int>(place.top), static_cast<int>(place.right - place.left),
             static_cast<int>(place.bottom - place.top)},
            exStyle);
        return *this;
    }
    // A visible child.
    DialogTemplateBuilder& Add(Class controlClass, int id, DWORD style, std::wstring_view text, int x, int y,
                               int cx = 50, int cy = 14) {
        DialogTemplateWriter::Add(controlClass, static_cast<DWORD>(id), style | WS_CHILD | WS_VISIBLE, text,
                                  {x, y, cx, cy});
        return *this;
    }

    [[nodiscard]] const DLGTEMPLATE* Get() const { return reinterpret_cast<const DLGTEMPLATE*>(Bytes().data()); }
};

}  // namespace qvtest

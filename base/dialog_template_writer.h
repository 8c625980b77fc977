// DialogTemplateWriter: a dialog template in memory, for dialogs without a resource file. The bytes have the layout
// that the platform documents for DLGTEMPLATE and DLGTEMPLATEEX, with texts in 16-bit units; positions and sizes are
// dialog units.
#pragma once

#include <cstddef>
#include <span>
#include <string_view>
#include <vector>

#include "platform/platform.h"

namespace qv {

class DialogTemplateWriter {
public:
    enum class Layout { Plain, Extended };
    // The platform's numbers for its control classes.
    enum Class : WORD { Button = 0x80, Edit = 0x81, Static = 0x82, ListBox = 0x83, ComboBox = 0x85 };
    struct Font {
        WORD points = 8;
        WORD weight = 400;  // this and the next in the extended layout only
        BYTE charset = DEFAULT_CHARSET;
        std::wstring_view face = L"MS Shell Dlg";
    };
    struct Place {
        int x = 0, y = 0, cx = 0, cy = 0;
    };

    // The font counts when the style has DS_SETFONT.
    DialogTemplateWriter(Layout layout, DWORD style, std::wstring_view caption, Place place, const Font& font);
    // Controls in tab order, of a standard class or one with a name.
    void Add(Class controlClass, DWORD id, DWORD style, std::wstring_view text, Place place, DWORD exStyle = 0);
    void Add(std::wstring_view windowClass, DWORD id, DWORD style, std::wstring_view text, Place place,
             DWORD exStyle = 0);
    // Valid as long as the writer and until the next Add.
    [[nodiscard]] std::span<const std::byte> Bytes() const noexcept { return std::as_bytes(std::span(m_words)); }

private:
    void BeginControl(DWORD id, DWORD style, Place place, DWORD exStyle);
    void EndControl(std::wstring_view text);
    void Word(std::size_t value) { m_words.push_back(static_cast<WORD>(value)); }
    void Dword(DWORD value);
    void Rectangle(Place place);
    void Text(std::wstring_view text);

    Layout m_layout;
    std::size_t m_countAt = 0;
    std::vector<WORD> m_words;
};

}  // namespace qv

// Dialog templates in memory, in the plain layout or the extended one, with 16-bit text units in both builds: a test
// needs no resource file. Positions and sizes are dialog units.
#pragma once

#include <cstddef>
#include <cstdint>
#include <span>
#include <string_view>
#include <vector>

#include "platform/platform.h"

namespace qvtest {

class DialogTemplateBuilder {
public:
    enum class Layout { Plain, Extended };

    // Standard classes by their numbers in templates.
    enum Class : WORD { Button = 0x80, Edit = 0x81, Static = 0x82, ListBox = 0x83, ComboBox = 0x85 };

    // The font is 8 points "MS Shell Dlg" when the style has DS_SETFONT.
    DialogTemplateBuilder(DWORD style, std::wstring_view caption, Layout layout = Layout::Extended, SHORT cx = 200,
                          SHORT cy = 150);
    // In the plain layout, with the font.
    DialogTemplateBuilder(DWORD style, SHORT cx, SHORT cy, std::wstring_view caption = {})
        : DialogTemplateBuilder(style | DS_SETFONT, caption, Layout::Plain, cx, cy) {}

    DialogTemplateBuilder& Add(std::wstring_view windowClass, std::wstring_view text, DWORD style, int id,
                               RECT place = {}, DWORD exStyle = 0);
    // A visible child.
    DialogTemplateBuilder& Add(Class controlClass, int id, DWORD style, std::wstring_view text, int x, int y,
                               int cx = 50, int cy = 14);

    [[nodiscard]] const DLGTEMPLATE* Get() const { return reinterpret_cast<const DLGTEMPLATE*>(m_words.data()); }
    [[nodiscard]] std::span<const std::byte> Bytes() const { return std::as_bytes(std::span(m_words)); }

private:
    void Place(DWORD style, int id, const RECT& place, DWORD exStyle);
    void Name(std::wstring_view text);
    void Word(std::uint16_t word) { m_words.push_back(word); }
    void Dword(DWORD value);
    void Text(std::wstring_view text);

    Layout m_layout;
    std::size_t m_countAt = 0;
    std::vector<std::uint16_t> m_words;
};

}  // namespace qvtest

// Builds binary dialog templates in memory, in the extended layout or the plain one, with 16-bit text units in both
// builds. For tests of the dialog manager.
#pragma once

#include <cstdint>
#include <cstring>
#include <string_view>
#include <vector>

#include "platform/platform.h"

namespace qv::test {

class DialogTemplateBuilder {
public:
    enum class Layout { Plain, Extended };

    // Place in dialog units. The font is 8 points "MS Shell Dlg" when the style has DS_SETFONT.
    DialogTemplateBuilder(DWORD style, std::wstring_view caption, Layout layout = Layout::Extended, SHORT cx = 200,
                          SHORT cy = 150)
        : m_layout(layout) {
        const bool extended = layout == Layout::Extended;
        if (extended) {
            Word(1);
            Word(0xFFFF);
            Dword(0);
            Dword(0);
            Dword(style);
        } else {
            Dword(style);
            Dword(0);
        }
        m_countAt = m_words.size();
        Word(0);
        for (const SHORT number : {SHORT{10}, SHORT{10}, cx, cy})
            Word(static_cast<std::uint16_t>(number));
        Word(0);
        Word(0);
        Text(caption);
        if (style & DS_SETFONT) {
            Word(8);
            if (extended) {
                Word(400);
                Word(0x0100);
            }
            Text(L"MS Shell Dlg");
        }
    }

    DialogTemplateBuilder& Add(std::wstring_view windowClass, std::wstring_view text, DWORD style, int id,
                               RECT place = {}, DWORD exStyle = 0) {
        if (m_words.size() % 2) Word(0);
        const bool extended = m_layout == Layout::Extended;
        if (extended) Dword(0);
        Dword(extended ? exStyle : style);
        Dword(extended ? style : exStyle);
        for (const LONG number : {place.left, place.top, place.right - place.left, place.bottom - place.top}) {
            Word(static_cast<std::uint16_t>(number));
        }
        if (extended) {
            Dword(static_cast<DWORD>(id));
        } else {
            Word(static_cast<std::uint16_t>(id));
        }
        Text(windowClass);
        Text(text);
        Word(0);
        ++m_words[m_countAt];
        return *this;
    }

    [[nodiscard]] const DLGTEMPLATE* Get() const { return reinterpret_cast<const DLGTEMPLATE*>(m_words.data()); }

private:
    void Word(std::uint16_t word) { m_words.push_back(word); }
    void Dword(DWORD value) {
        Word(static_cast<std::uint16_t>(value & 0xFFFF));
        Word(static_cast<std::uint16_t>(value >> 16));
    }
    void Text(std::wstring_view text) {
        for (const wchar_t unit : text)
            Word(static_cast<std::uint16_t>(unit));
        Word(0);
    }

    Layout m_layout;
    std::size_t m_countAt = 0;
    std::vector<std::uint16_t> m_words;
};

}  // namespace qv::test

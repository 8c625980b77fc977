#include "base/dialog_template_writer.h"

namespace qv {

DialogTemplateWriter::DialogTemplateWriter(Layout layout, DWORD style, std::wstring_view caption, Place place,
                                           const Font& font)
    : m_layout(layout) {
    constexpr WORD kExtendedVersion = 1;
    constexpr WORD kExtendedSignature = 0xFFFF;
    if (layout == Layout::Extended) {
        Word(kExtendedVersion);
        Word(kExtendedSignature);
        Dword(0);  // no help number
        Dword(0);  // extended style
        Dword(style);
    } else {
        Dword(style);
        Dword(0);  // extended style
    }
    m_countAt = m_words.size();
    Word(0);  // the number of controls, counted as they come
    Rectangle(place);
    Word(0);  // no menu
    Word(0);  // the platform's own class for dialogs
    Text(caption);
    if ((style & DS_SETFONT) == 0) return;
    Word(font.points);
    if (layout == Layout::Extended) {
        Word(font.weight);
        Word(static_cast<std::size_t>(font.charset) << 8U);  // the low byte: upright
    }
    Text(font.face);
}

void DialogTemplateWriter::Add(Class controlClass, DWORD id, DWORD style, std::wstring_view text, Place place,
                               DWORD exStyle) {
    constexpr WORD kOrdinalFollows = 0xFFFF;
    BeginControl(id, style, place, exStyle);
    Word(kOrdinalFollows);
    Word(controlClass);
    EndControl(text);
}

void DialogTemplateWriter::Add(std::wstring_view windowClass, DWORD id, DWORD style, std::wstring_view text,
                               Place place, DWORD exStyle) {
    BeginControl(id, style, place, exStyle);
    Text(windowClass);
    EndControl(text);
}

void DialogTemplateWriter::BeginControl(DWORD id, DWORD style, Place place, DWORD exStyle) {
    if (m_words.size() % 2 != 0) Word(0);  // every control starts at a double word
    if (m_layout == Layout::Extended) {
        Dword(0);  // no help number
        Dword(exStyle);
        Dword(style);
        Rectangle(place);
        Dword(id);
    } else {
        Dword(style);
        Dword(exStyle);
        Rectangle(place);
        Word(id);
    }
    ++m_words[m_countAt];
}

void DialogTemplateWriter::EndControl(std::wstring_view text) {
    Text(text);
    Word(0);  // no creation data
}

void DialogTemplateWriter::Dword(DWORD value) {
    Word(LOWORD(value));
    Word(HIWORD(value));
}

void DialogTemplateWriter::Rectangle(Place place) {
    for (const int number : {place.x, place.y, place.cx, place.cy})
        Word(static_cast<std::size_t>(number));
}

// Whatever the width of wchar_t; characters beyond the basic plane do not occur in captions.
void DialogTemplateWriter::Text(std::wstring_view text) {
    for (const wchar_t character : text)
        Word(static_cast<std::size_t>(character));
    Word(0);
}

}  // namespace qv

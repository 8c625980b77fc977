#include "tests/support/dialog_template.h"

namespace qvtest {

DialogTemplateBuilder::DialogTemplateBuilder(DWORD style, std::wstring_view caption, Layout layout, SHORT cx, SHORT cy)
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

DialogTemplateBuilder& DialogTemplateBuilder::Add(std::wstring_view windowClass, std::wstring_view text, DWORD style,
                                                  int id, RECT place, DWORD exStyle) {
    Place(style, id, place, exStyle);
    Text(windowClass);
    Name(text);
    return *this;
}

DialogTemplateBuilder& DialogTemplateBuilder::Add(Class controlClass, int id, DWORD style, std::wstring_view text,
                                                  int x, int y, int cx, int cy) {
    Place(style | WS_CHILD | WS_VISIBLE, id, {x, y, x + cx, y + cy}, 0);
    Word(0xFFFF);
    Word(controlClass);
    Name(text);
    return *this;
}

void DialogTemplateBuilder::Place(DWORD style, int id, const RECT& place, DWORD exStyle) {
    if (m_words.size() % 2) Word(0);
    const bool extended = m_layout == Layout::Extended;
    if (extended) Dword(0);
    Dword(extended ? exStyle : style);
    Dword(extended ? style : exStyle);
    for (const LONG number : {place.left, place.top, place.right - place.left, place.bottom - place.top})
        Word(static_cast<std::uint16_t>(number));
    if (extended) {
        Dword(static_cast<DWORD>(id));
    } else {
        Word(static_cast<std::uint16_t>(id));
    }
    ++m_words[m_countAt];
}

void DialogTemplateBuilder::Name(std::wstring_view text) {
    Text(text);
    Word(0);  // no creation data
}

void DialogTemplateBuilder::Dword(DWORD value) {
    Word(static_cast<std::uint16_t>(value & 0xFFFF));
    Word(static_cast<std::uint16_t>(value >> 16));
}

void DialogTemplateBuilder::Text(std::wstring_view text) {
    for (const wchar_t unit : text)
        Word(static_cast<std::uint16_t>(unit));
    Word(0);
}

}  // namespace qvtest

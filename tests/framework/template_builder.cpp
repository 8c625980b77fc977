#include "tests/framework/template_builder.h"

#include <cstdint>
#include <cstring>

TemplateBuilder::TemplateBuilder(DWORD style, int cx, int cy, std::u16string_view caption) {
    Put<DWORD>(style | DS_SETFONT);
    Put<DWORD>(0);
    Put<WORD>(0);  // number of controls, counted up by Add
    for (const int value : {0, 0, cx, cy})
        Put<SHORT>(static_cast<SHORT>(value));
    Put<WORD>(0);  // no menu
    Put<WORD>(0);  // the standard dialog class
    PutText(caption);
    Put<WORD>(8);
    PutText(u"MS Shell Dlg");
}

TemplateBuilder& TemplateBuilder::Add(Class controlClass, WORD id, DWORD style, std::u16string_view text, int x, int y,
                                      int cx, int cy) {
    constexpr std::size_t kCountOffset = 8;
    WORD count = 0;
    std::memcpy(&count, m_bytes.data() + kCountOffset, sizeof count);
    ++count;
    std::memcpy(m_bytes.data() + kCountOffset, &count, sizeof count);
    Align();
    Put<DWORD>(style | WS_CHILD | WS_VISIBLE);
    Put<DWORD>(0);
    for (const int value : {x, y, cx, cy})
        Put<SHORT>(static_cast<SHORT>(value));
    Put<WORD>(id);
    Put<WORD>(0xFFFF);
    Put<WORD>(controlClass);
    PutText(text);
    Put<WORD>(0);  // no creation data
    return *this;
}

template <class T>
void TemplateBuilder::Put(T value) {
    const auto* first = reinterpret_cast<const std::byte*>(&value);
    m_bytes.insert(m_bytes.end(), first, first + sizeof value);
}

void TemplateBuilder::PutText(std::u16string_view text) {
    for (const char16_t unit : text)
        Put<std::uint16_t>(unit);
    Put<std::uint16_t>(0);
}

void TemplateBuilder::Align() {
    while (m_bytes.size() % sizeof(DWORD) != 0)
        m_bytes.push_back(std::byte{0});
}

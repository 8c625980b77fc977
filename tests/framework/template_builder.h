// Dialog templates in memory, laid out as in the resources, so that a test needs no resource file in either build.
// Positions and sizes are dialog units.
#pragma once

#include <cstddef>
#include <string_view>
#include <vector>

#include "platform/platform.h"

class TemplateBuilder {
public:
    TemplateBuilder(DWORD style, int cx, int cy, std::u16string_view caption = u"");

    // Standard classes by their numbers in templates.
    enum Class : WORD { Button = 0x80, Edit = 0x81, Static = 0x82, ListBox = 0x83, ComboBox = 0x85 };
    TemplateBuilder& Add(Class controlClass, WORD id, DWORD style, std::u16string_view text, int x, int y, int cx = 50,
                         int cy = 14);

    [[nodiscard]] const std::vector<std::byte>& Bytes() const { return m_bytes; }

private:
    template <class T>
    void Put(T value);
    void PutText(std::u16string_view text);
    void Align();

    std::vector<std::byte> m_bytes;
};

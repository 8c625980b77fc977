#include "platform/headless/desktop/dialog_template.h"

#include <cstring>

namespace qv::headless {

namespace {

class Reader {
public:
    explicit Reader(const void* bytes) : m_start(static_cast<const std::byte*>(bytes)), m_at(m_start) {}

    template <typename Number>
    Number Take() {
        Number number{};
        std::memcpy(&number, m_at, sizeof number);
        m_at += sizeof number;
        return number;
    }

    // Text has 16-bit units whatever the width of wchar_t; pairs of surrogates become one character.
    std::wstring TakeText() {
        std::wstring text;
        while (const WORD unit = Take<WORD>()) {
            const bool low = (unit & 0xFC00) == 0xDC00;
            if (low && !text.empty() && (static_cast<std::uint32_t>(text.back()) & 0xFFFFFC00) == 0xD800) {
                const auto high = static_cast<std::uint32_t>(text.back());
                text.back() = static_cast<wchar_t>(0x10000 + ((high - 0xD800) << 10) + (unit - 0xDC00u));
            } else {
                text += static_cast<wchar_t>(unit);
            }
        }
        return text;
    }

    TemplateName TakeName() {
        constexpr WORD kOrdinalFollows = 0xFFFF;
        WORD first = 0;
        std::memcpy(&first, m_at, sizeof first);
        if (first != kOrdinalFollows) return {TakeText(), 0};
        Take<WORD>();
        return {{}, Take<WORD>()};
    }

    void AlignToDword() { m_at += (4 - (m_at - m_start) % 4) % 4; }
    void Skip(std::size_t bytes) { m_at += bytes; }
    [[nodiscard]] const std::byte* At() const { return m_at; }

private:
    const std::byte* m_start;
    const std::byte* m_at;
};

TemplateItem ReadItem(Reader& reader, bool extended) {
    TemplateItem item;
    reader.AlignToDword();
    if (extended) {
        reader.Take<DWORD>();  // help identifier
        item.exStyle = reader.Take<DWORD>();
        item.style = reader.Take<DWORD>();
    } else {
        item.style = reader.Take<DWORD>();
        item.exStyle = reader.Take<DWORD>();
    }
    item.x = reader.Take<SHORT>();
    item.y = reader.Take<SHORT>();
    item.cx = reader.Take<SHORT>();
    item.cy = reader.Take<SHORT>();
    item.id = extended ? reader.Take<DWORD>() : reader.Take<WORD>();
    item.windowClass = reader.TakeName();
    item.text = reader.TakeName();
    const std::byte* length = reader.At();
    const WORD size = reader.Take<WORD>();
    if (size == 0) return item;
    item.data = length;
    // The plain layout counts the length word in, the extended one does not.
    reader.Skip(extended ? size : static_cast<std::size_t>(size) - sizeof(WORD));
    return item;
}

}  // namespace

DialogTemplate ReadDialogTemplate(const DLGTEMPLATE* bytes) {
    Reader reader(bytes);
    DialogTemplate dialog;
    const DWORD first = reader.Take<DWORD>();
    constexpr DWORD kExtendedMark = 0xFFFF0001;
    const bool extended = first == kExtendedMark;
    if (extended) {
        reader.Take<DWORD>();  // help identifier
        dialog.exStyle = reader.Take<DWORD>();
        dialog.style = reader.Take<DWORD>();
    } else {
        dialog.style = first;
        dialog.exStyle = reader.Take<DWORD>();
    }
    const WORD items = reader.Take<WORD>();
    dialog.x = reader.Take<SHORT>();
    dialog.y = reader.Take<SHORT>();
    dialog.cx = reader.Take<SHORT>();
    dialog.cy = reader.Take<SHORT>();
    dialog.menu = reader.TakeName();
    dialog.windowClass = reader.TakeName();
    dialog.caption = reader.TakeText();
    if (dialog.style & DS_SETFONT) {
        dialog.pointSize = reader.Take<WORD>();
        constexpr WORD kMessageFont = 0x7FFF;
        dialog.hasFont = dialog.pointSize != kMessageFont;
        if (dialog.hasFont) {
            if (extended) {
                dialog.weight = reader.Take<WORD>();
                dialog.italic = reader.Take<BYTE>() != 0;
                dialog.charSet = reader.Take<BYTE>();
            }
            dialog.face = reader.TakeText();
        }
    }
    dialog.items.reserve(items);
    for (WORD i = 0; i < items; ++i)
        dialog.items.push_back(ReadItem(reader, extended));
    return dialog;
}

}  // namespace qv::headless

// Fonts, brushes and pens as records; stock objects; system colours.
#include "platform/headless/desktop/gdi_objects.h"

#include <algorithm>
#include <cstring>
#include <cwchar>
#include <unordered_map>
#include <variant>

#include "platform/headless/desktop/gdi.h"

namespace qv::headless {
namespace {

struct Brush {
    COLORREF colour = 0;
};
struct Pen {
    int style = PS_SOLID;
    int width = 1;
    COLORREF colour = 0;
};
struct Object {
    std::variant<LOGFONTW, Brush, Pen> what;
    bool permanent = false;  // stock objects and system brushes outlive every deletion
};

struct Table {
    std::unordered_map<HGDIOBJ, Object> objects;
    std::unordered_map<int, HGDIOBJ> stock;
    std::unordered_map<int, HGDIOBJ> systemBrushes;
    std::uintptr_t next = 0x40000010;
    std::size_t fonts = 0;
    std::size_t made = 0;
};

Table& Objects() {
    static Table& table = *new Table;
    return table;
}

HGDIOBJ Add(Object object) {
    Table& table = Objects();
    const HGDIOBJ handle = reinterpret_cast<HGDIOBJ>(table.next);
    table.next += 0x10;
    if (!object.permanent) {
        ++table.made;
        if (std::holds_alternative<LOGFONTW>(object.what)) ++table.fonts;
    }
    table.objects.emplace(handle, std::move(object));
    return handle;
}

const Object* Get(HGDIOBJ handle) {
    const auto& objects = Objects().objects;
    const auto found = objects.find(handle);
    return found == objects.end() ? nullptr : &found->second;
}

LOGFONTW StockFont(const wchar_t* face, LONG height) {
    LOGFONTW font{};
    font.lfHeight = height;
    font.lfWeight = FW_NORMAL;
    font.lfCharSet = DEFAULT_CHARSET;
    std::wcsncpy(font.lfFaceName, face, LF_FACESIZE - 1);
    return font;
}

Object StockObject(int which) {
    constexpr COLORREF kGreys[] = {0xFFFFFF, 0xC0C0C0, 0x808080, 0x404040, 0x000000};
    switch (which) {
        case DEFAULT_GUI_FONT:
            return {StockFont(L"MS Shell Dlg", -11), true};
        case SYSTEM_FONT:
            return {StockFont(L"System", 16), true};
        case ANSI_VAR_FONT:
        case ANSI_FIXED_FONT:
        case OEM_FIXED_FONT:
            return {StockFont(L"MS Sans Serif", 13), true};
        case WHITE_PEN:
            return {Pen{PS_SOLID, 1, 0xFFFFFF}, true};
        case BLACK_PEN:
            return {Pen{PS_SOLID, 1, 0}, true};
        case NULL_PEN:
            return {Pen{PS_NULL, 1, 0}, true};
        default:
            return {Brush{which <= BLACK_BRUSH ? kGreys[which] : 0}, true};
    }
}

// The plain theme's colours by index, red in the low byte.
constexpr COLORREF kSystemColours[] = {
    0xC8C8C8, 0x9C5A3C, 0xD1B499, 0xDBCDBF, 0xF0F0F0, 0xFFFFFF, 0x646464, 0x000000, 0x000000, 0x000000, 0xB4B4B4,
    0xFCF7F4, 0xABABAB, 0xD77800, 0xFFFFFF, 0xF0F0F0, 0xA0A0A0, 0x6D6D6D, 0x000000, 0x000000, 0xFFFFFF, 0x696969,
    0xE3E3E3, 0x000000, 0xE1FFFF, 0x000000, 0xCC6600, 0xEAD1B9, 0xF2E4D7, 0xD77800, 0xF0F0F0,
};

}  // namespace

const LOGFONTW* FontOf(HGDIOBJ object) noexcept {
    const Object* found = Get(object);
    return found ? std::get_if<LOGFONTW>(&found->what) : nullptr;
}

std::size_t LiveFonts() noexcept {
    return Objects().fonts;
}
std::size_t LiveObjects() noexcept {
    return Objects().made;
}

}  // namespace qv::headless

using namespace qv::headless;

HFONT CreateFontIndirectW(const LOGFONTW* font) {
    if (!font) return nullptr;
    return static_cast<HFONT>(Add({*font}));
}

HBRUSH CreateSolidBrush(COLORREF colour) {
    return static_cast<HBRUSH>(Add({Brush{colour}}));
}

HGDIOBJ GetStockObject(int which) {
    if (which < WHITE_BRUSH || which > DEFAULT_GUI_FONT || which == 9 || which == DEFAULT_PALETTE) return nullptr;
    auto& stock = Objects().stock;
    const auto known = stock.find(which);
    if (known != stock.end()) return known->second;
    return stock[which] = Add(StockObject(which));
}

DWORD GetObjectType(HGDIOBJ object) {
    const Object* found = Get(object);
    if (!found) return 0;
    constexpr DWORD kTypes[] = {OBJ_FONT, OBJ_BRUSH, OBJ_PEN};
    return kTypes[found->what.index()];
}

int GetObjectW(HANDLE object, int size, LPVOID buffer) {
    const LOGFONTW* font = FontOf(object);
    if (font == nullptr || size < 0) return 0;
    const int whole = static_cast<int>(sizeof *font);
    if (buffer == nullptr) return whole;
    const int copied = std::min(size, whole);
    std::memcpy(buffer, font, static_cast<std::size_t>(copied));
    return copied;
}

BOOL DeleteObject(HGDIOBJ object) {
    Table& table = Objects();
    const auto found = table.objects.find(object);
    if (found == table.objects.end()) return FALSE;
    if (found->second.permanent) return TRUE;
    --table.made;
    if (std::holds_alternative<LOGFONTW>(found->second.what)) --table.fonts;
    table.objects.erase(found);
    return TRUE;
}

COLORREF GetSysColor(int index) {
    return index >= 0 && index < static_cast<int>(std::size(kSystemColours)) ? kSystemColours[index] : 0;
}

HBRUSH GetSysColorBrush(int index) {
    if (index < 0 || index >= static_cast<int>(std::size(kSystemColours))) return nullptr;
    auto& brushes = Objects().systemBrushes;
    const auto known = brushes.find(index);
    if (known != brushes.end()) return static_cast<HBRUSH>(known->second);
    const HGDIOBJ brush = Add({Brush{GetSysColor(index)}, true});
    brushes[index] = brush;
    return static_cast<HBRUSH>(brush);
}

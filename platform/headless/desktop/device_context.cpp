// Device contexts: whose they are and what is selected into them.
#include "platform/headless/desktop/device_context.h"

#include <unordered_map>
#include <utility>

#include "platform/headless/base/error.h"
#include "platform/headless/desktop/gdi.h"
#include "platform/headless/desktop/gdi_objects.h"
#include "platform/headless/desktop/screen.h"
#include "platform/headless/desktop/text_metrics.h"
#include "platform/headless/desktop/window_table.h"

namespace qv::headless {
namespace {

struct Selection {
    HGDIOBJ font = nullptr;
    HGDIOBJ brush = nullptr;
    HGDIOBJ pen = nullptr;
    int backgroundMode = OPAQUE;
    COLORREF text = 0;
    COLORREF background = 0xFFFFFF;
};

struct Context {
    HWND window = nullptr;
    Selection selected;
};

struct Table {
    std::unordered_map<HDC, Context> contexts;
    std::uintptr_t next = 0x50000001;
};

Table& Contexts() {
    static Table& table = *new Table;
    return table;
}

Context* FindContext(HDC dc) {
    auto& contexts = Contexts().contexts;
    const auto found = contexts.find(dc);
    if (found != contexts.end()) return &found->second;
    SetLastError(ERROR_INVALID_HANDLE);
    return nullptr;
}

HDC NewContext(HWND window) {
    Table& table = Contexts();
    Context context;
    context.window = window;
    context.selected.font = GetStockObject(SYSTEM_FONT);
    context.selected.brush = GetStockObject(WHITE_BRUSH);
    context.selected.pen = GetStockObject(BLACK_PEN);
    const HDC dc = reinterpret_cast<HDC>(table.next++);
    table.contexts.emplace(dc, std::move(context));
    return dc;
}

HGDIOBJ* SlotFor(Context& context, DWORD type) {
    switch (type) {
        case OBJ_FONT:
            return &context.selected.font;
        case OBJ_BRUSH:
            return &context.selected.brush;
        case OBJ_PEN:
            return &context.selected.pen;
        default:
            return nullptr;
    }
}

}  // namespace

std::size_t LiveContexts() noexcept {
    return Contexts().contexts.size();
}

void ReleaseContextsOf(HWND handle) {
    std::erase_if(Contexts().contexts, [&](const auto& entry) { return entry.second.window == handle; });
}

HFONT FontSelectedInto(HDC dc) noexcept {
    const auto& contexts = Contexts().contexts;
    const auto found = contexts.find(dc);
    return found == contexts.end() ? nullptr : static_cast<HFONT>(found->second.selected.font);
}

}  // namespace qv::headless

using namespace qv::headless;

HDC GetDC(HWND window) {
    if (window && !Find(window)) return nullptr;
    return NewContext(window);
}

int ReleaseDC(HWND, HDC dc) {
    if (!FindContext(dc)) return 0;
    Contexts().contexts.erase(dc);
    return 1;
}

int GetDeviceCaps(HDC dc, int index) {
    if (!FindContext(dc)) return 0;
    switch (index) {
        case LOGPIXELSY:
            return static_cast<int>(Screen().dpi);
        default:
            return 0;
    }
}

HGDIOBJ SelectObject(HDC dc, HGDIOBJ object) {
    Context* context = FindContext(dc);
    HGDIOBJ* slot = context ? SlotFor(*context, GetObjectType(object)) : nullptr;
    return slot ? std::exchange(*slot, object) : nullptr;
}

BOOL GetTextMetricsW(HDC dc, TEXTMETRICW* metrics) {
    const Context* context = FindContext(dc);
    const LOGFONTW* font = context ? FontOf(context->selected.font) : nullptr;
    if (!font || !metrics) return FALSE;
    *metrics = MetricsOf(*font);
    return TRUE;
}

namespace {

template <typename Value>
Value Exchange(HDC dc, Value Selection::*member, Value value, Value failure) {
    Context* context = FindContext(dc);
    return context ? std::exchange(context->selected.*member, value) : failure;
}

}  // namespace

int SetBkMode(HDC dc, int mode) {
    return Exchange(dc, &Selection::backgroundMode, mode, 0);
}
COLORREF SetTextColor(HDC dc, COLORREF colour) {
    return Exchange(dc, &Selection::text, colour, COLORREF{CLR_INVALID});
}
COLORREF GetTextColor(HDC dc) {
    const Context* context = FindContext(dc);
    return context ? context->selected.text : CLR_INVALID;
}
COLORREF SetBkColor(HDC dc, COLORREF colour) {
    return Exchange(dc, &Selection::background, colour, COLORREF{CLR_INVALID});
}

#include "platform/snapshot.h"

#include <memory>
// GDI+ needs the property structures of the stream headers first.
#include <objidl.h>
// and the plain minimum and maximum that NOMINMAX took away.
#include <algorithm>
namespace Gdiplus {
using std::max;
using std::min;
}  // namespace Gdiplus
#include <gdiplus.h>

namespace qv {

namespace {

struct BitmapDeleter {
    void operator()(HBITMAP bitmap) const { DeleteObject(bitmap); }
};
using Bitmap = std::unique_ptr<std::remove_pointer_t<HBITMAP>, BitmapDeleter>;

Bitmap CopyScreen(const RECT& rect) {
    const int width = static_cast<int>(rect.right - rect.left);
    const int height = static_cast<int>(rect.bottom - rect.top);
    HDC screen = GetDC(nullptr);
    HDC memory = CreateCompatibleDC(screen);
    Bitmap bitmap(CreateCompatibleBitmap(screen, width, height));
    HGDIOBJ old = SelectObject(memory, bitmap.get());
    const BOOL copied = BitBlt(memory, 0, 0, width, height, screen, static_cast<int>(rect.left),
                               static_cast<int>(rect.top), SRCCOPY | CAPTUREBLT);
    SelectObject(memory, old);
    DeleteDC(memory);
    ReleaseDC(nullptr, screen);
    return copied != FALSE ? std::move(bitmap) : nullptr;
}

bool SavePng(HBITMAP bitmap, const std::wstring& file) {
    // The encoder's identifier as the platform documents it for "image/png".
    static const CLSID kPngEncoder = {0x557cf406, 0x1a04, 0x11d3, {0x9a, 0x73, 0x00, 0x00, 0xf8, 0x1e, 0xf3, 0x2e}};
    ULONG_PTR token = 0;
    Gdiplus::GdiplusStartupInput input;
    if (Gdiplus::GdiplusStartup(&token, &input, nullptr) != Gdiplus::Ok) return false;
    bool saved = false;
    {
        Gdiplus::Bitmap picture(bitmap, nullptr);
        saved = picture.Save(file.c_str(), &kPngEncoder, nullptr) == Gdiplus::Ok;
    }
    Gdiplus::GdiplusShutdown(token);
    return saved;
}

}  // namespace

SnapshotResult SaveSnapshot(HWND window, const std::wstring& file) {
    RECT rect{};
    if (GetWindowRect(window, &rect) == FALSE || rect.right <= rect.left || rect.bottom <= rect.top) {
        return SnapshotResult::CannotRead;
    }
    RedrawWindow(window, nullptr, nullptr, RDW_UPDATENOW | RDW_ALLCHILDREN);
    const Bitmap bitmap = CopyScreen(rect);
    if (bitmap == nullptr) return SnapshotResult::CannotRead;
    return SavePng(bitmap.get(), file) ? SnapshotResult::Saved : SnapshotResult::CannotWrite;
}

}  // namespace qv

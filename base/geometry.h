// Rectangles, points and sizes in pixels with the small operations that layout code needs.
#pragma once

#include "platform/platform.h"

struct CRect : RECT {
    CRect() : RECT{0, 0, 0, 0} {}
    CRect(int l, int t, int r, int b) : RECT{l, t, r, b} {}
    CRect(const RECT& rect) : RECT(rect) {}  // NOLINT(google-explicit-constructor): a CRect is a RECT with operations
    [[nodiscard]] int Width() const { return static_cast<int>(right - left); }
    [[nodiscard]] int Height() const { return static_cast<int>(bottom - top); }
    [[nodiscard]] bool IsEmpty() const { return right <= left || bottom <= top; }
};

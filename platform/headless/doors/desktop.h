// The desktop in memory as a test of the native build sees it: its size, what is alive on it, and the failures that one
// cannot provoke through the platform's own calls. It has no counterpart on Windows; code above the platform never uses
// it.
#pragma once

#include <cstddef>

#include "platform/headless/base/types.h"

namespace qv {

class Desktop {
public:
    // What is alive: for checks that nothing leaks. Windows do not count the desktop's own.
    struct Counters {
        std::size_t windows;
        std::size_t deviceContexts;
        std::size_t fonts;
        std::size_t gdiObjects;  // fonts, brushes and pens that somebody made
        std::size_t menus;
        std::size_t hooks;
        std::size_t timers;
        std::size_t queuedMessages;
        bool operator==(const Counters&) const = default;
    };

    // Destroys every window (with its messages), empties the queue and puts size, resolution, limits, keys and
    // hooks back; registered classes and drawing objects stay.
    static void Reset();

    [[nodiscard]] static Counters Count();

    // Pixels; the work area becomes the whole screen. At first 1920 by 1200 at 96 dpi, or what the environment variable
    // QV_SCREEN says ("1366x768").
    static void SetScreenSize(int width, int height);
    // In screen coordinates; the right and bottom edges lie outside.
    static void SetWorkArea(const RECT& area);
    // Dots an inch of screen and fonts; at first 96, or what the environment variable QV_DPI says (the screen is then
    // that much larger too).
    static void SetDpi(UINT dpi);

    // Creation of the n-th window from now (1 is the next) fails as it does when the system has no handles left.
    static void FailWindowCreation(std::size_t nth);
    // The number of windows that a process may hold; 10,000 at first.
    static void SetWindowLimit(std::size_t limit);

    // What the next MessageBoxW returns; boxes take the answers in the order in which they were given.
    static void AnswerMessageBox(int button);
};

}  // namespace qv

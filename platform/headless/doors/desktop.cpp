#include "platform/headless/doors/desktop.h"

#include "platform/headless/desktop/device_context.h"
#include "platform/headless/desktop/dialog_manager.h"
#include "platform/headless/desktop/focus.h"
#include "platform/headless/desktop/gdi_objects.h"
#include "platform/headless/desktop/hooks.h"
#include "platform/headless/desktop/keyboard.h"
#include "platform/headless/desktop/menu_table.h"
#include "platform/headless/desktop/message_queue.h"
#include "platform/headless/desktop/screen.h"
#include "platform/headless/desktop/update_region.h"
#include "platform/headless/desktop/window_table.h"

namespace qv {

using namespace headless;

void Desktop::Reset() {
    WindowTable& table = Windows();
    for (const Window* root : {table.root, table.messageRoot}) {
        while (root->first)
            DestroyWindow(root->first->handle);
    }
    Queue().posted.clear();
    Queue().quitPosted = false;
    Queue().timers.clear();
    DirtyWindows().clear();
    Input() = {};
    Keys().fill(0);
    Hooks().hooks.clear();
    Hooks().chains.clear();
    MessageBoxAnswers().clear();
    table.windowLimit = WindowTable().windowLimit;
    table.failCreation = 0;
    const ScreenState first;
    SetDpi(first.dpi);
    SetScreenSize(static_cast<int>(first.size.cx), static_cast<int>(first.size.cy));
}

Desktop::Counters Desktop::Count() {
    return {.windows = Windows().liveWindows,
            .deviceContexts = LiveContexts(),
            .fonts = LiveFonts(),
            .gdiObjects = LiveObjects(),
            .menus = LiveMenus(),
            .hooks = Hooks().hooks.size(),
            .timers = Queue().timers.size(),
            .queuedMessages = Queue().posted.size()};
}

void Desktop::SetScreenSize(int width, int height) {
    Screen().size = {width, height};
    Screen().workArea = {0, 0, width, height};
    Windows().root->place = Windows().root->client = Screen().workArea;
}

void Desktop::SetWorkArea(const RECT& area) {
    Screen().workArea = area;
}
void Desktop::SetDpi(UINT dpi) {
    Screen().dpi = dpi;
}
void Desktop::FailWindowCreation(std::size_t nth) {
    Windows().failCreation = nth;
}
void Desktop::SetWindowLimit(std::size_t limit) {
    Windows().windowLimit = limit;
}
void Desktop::AnswerMessageBox(int button) {
    MessageBoxAnswers().push_back(button);
}

}  // namespace qv

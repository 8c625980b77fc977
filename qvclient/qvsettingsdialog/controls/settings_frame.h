// Two small interfaces of the windows around the settings dialog, declared low so that the dialog and the dialog button
// can look for them among their parents without knowing the classes.
#pragma once

#include "framework/wnd.h"

// The top-level frame: ended with IDOK or IDCANCEL, in the way that fits a modal or a modeless frame.
class SettingsFrame {
public:
    virtual ~SettingsFrame() = default;
    [[nodiscard]] virtual bool IsModal() const = 0;
    virtual void EndFrame(int result) = 0;
    // The dialog in the frame is being destroyed, by itself or with the frame. A frame that goes on without it has
    // nothing to show.
    virtual void OnDialogGone() {}
    [[nodiscard]] virtual CWnd& FrameWindow() = 0;
};

// Marks the form view that hosts a settings dialog.
class SettingsHostView {
public:
    virtual ~SettingsHostView() = default;
};

// The nearest T among window's parents, starting with its parent; null when there is none.
template <class T>
[[nodiscard]] T* FindEnclosing(const CWnd& window) {
    for (CWnd* parent = window.GetParent(); parent != nullptr; parent = parent->GetParent()) {
        if (auto* found = dynamic_cast<T*>(parent)) return found;
    }
    return nullptr;
}

// The pickers that the host's base controls open: a folder, a file, a colour. The real ones are the platform's; a sink
// that is set takes their place, so that a test or a scripted host can answer and record them. Every picker is modal to
// its owner and leaves the process's current directory as it was.
#pragma once

#include <functional>
#include <optional>
#include <string>

#include "platform/platform.h"

namespace qv {

struct PathPickerRequest {
    HWND owner = nullptr;  // a top-level window, or null
    std::wstring title;
    std::wstring okText;   // empty: the platform's own
    std::wstring initial;  // the path to start at; one that does not exist is passed over
};
struct ColorPickerRequest {
    HWND owner = nullptr;
    COLORREF initial = 0;
};

// The choice, or nothing when the user cancelled.
[[nodiscard]] std::optional<std::wstring> PickFolder(const PathPickerRequest& request);
[[nodiscard]] std::optional<std::wstring> PickFile(const PathPickerRequest& request);
[[nodiscard]] std::optional<COLORREF> PickColor(const ColorPickerRequest& request);

// A member that is empty leaves that picker to the platform.
struct PickerSink {
    std::function<std::optional<std::wstring>(const PathPickerRequest&)> folder;
    std::function<std::optional<std::wstring>(const PathPickerRequest&)> file;
    std::function<std::optional<COLORREF>(const ColorPickerRequest&)> color;
};
// Returns the sink before.
PickerSink SetPickerSink(PickerSink sink);

}  // namespace qv

// The host's message boxes. The real ones are the platform's; a sink that is set takes their place, so that a test or a
// scripted host can answer and record them.
#pragma once

#include <functional>
#include <string>
#include <string_view>

#include "platform/platform.h"

// owner: null for none. flags: additional platform flags, 0 for a plain OK box. Returns the button's id (IDOK ...).
int CoInfoBox(HWND owner, std::wstring_view caption, std::wstring_view text, UINT flags);
int CoErrorBox(HWND owner, std::wstring_view caption, std::wstring_view text, UINT flags);
// An information box with an OK button, owned by the caller's active window.
int CoActiveInfoBox(std::wstring_view caption, std::wstring_view text);
// A plain box with an OK button, owned by the caller's active window, captioned with the program's name.
int CoPlainBox(std::wstring_view text);

namespace qv {

struct MessageBoxCall {
    enum class Kind { Info, Error, Plain };
    Kind kind;
    HWND owner;
    std::wstring caption;
    std::wstring text;
    UINT flags;
};
// Answers with the button's id.
using MessageBoxSink = std::function<int(const MessageBoxCall&)>;
// Empty: the real boxes. Returns the sink before.
MessageBoxSink SetMessageBoxSink(MessageBoxSink sink);

}  // namespace qv

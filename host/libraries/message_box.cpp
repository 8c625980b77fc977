#include "host/libraries/message_box.h"

#include <utility>

#include "base/module_path.h"

namespace {

using Kind = qv::MessageBoxCall::Kind;

qv::MessageBoxSink& CurrentSink() {
    static qv::MessageBoxSink sink;
    return sink;
}

// A box disables its owner while it runs, and only a top-level window can be disabled to any effect.
HWND TopLevelOf(HWND window) {
    return window != nullptr ? ::GetAncestor(window, GA_ROOT) : nullptr;
}

UINT IconOf(Kind kind) {
    switch (kind) {
        case Kind::Info:
            return MB_ICONINFORMATION;
        case Kind::Error:
            return MB_ICONERROR;
        case Kind::Plain:
            break;
    }
    return 0;
}

int Show(const qv::MessageBoxCall& call) {
    // A copy: the sink may set another one while it answers.
    if (const qv::MessageBoxSink sink = CurrentSink()) return sink(call);
    return ::MessageBoxW(TopLevelOf(call.owner), call.text.c_str(), call.caption.c_str(),
                         IconOf(call.kind) | call.flags);
}

// The program's file name without folder and extension.
std::wstring ProgramName() {
    std::wstring path = qv::ModulePath(nullptr).value_or(std::wstring());
    if (const auto separator = path.find_last_of(L"\\/"); separator != std::wstring::npos) path.erase(0, separator + 1);
    if (const auto dot = path.rfind(L'.'); dot != std::wstring::npos && dot != 0) path.erase(dot);
    return path;
}

}  // namespace

int CoInfoBox(HWND owner, std::wstring_view caption, std::wstring_view text, UINT flags) {
    return Show({Kind::Info, owner, std::wstring(caption), std::wstring(text), flags});
}

int CoErrorBox(HWND owner, std::wstring_view caption, std::wstring_view text, UINT flags) {
    return Show({Kind::Error, owner, std::wstring(caption), std::wstring(text), flags});
}

int CoActiveInfoBox(std::wstring_view caption, std::wstring_view text) {
    return CoInfoBox(::GetActiveWindow(), caption, text, 0);
}

int CoPlainBox(std::wstring_view text) {
    return Show({Kind::Plain, ::GetActiveWindow(), ProgramName(), std::wstring(text), MB_OK});
}

namespace qv {

MessageBoxSink SetMessageBoxSink(MessageBoxSink sink) {
    return std::exchange(CurrentSink(), std::move(sink));
}

}  // namespace qv

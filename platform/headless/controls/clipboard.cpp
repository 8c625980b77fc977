#include "platform/headless/controls/clipboard.h"

namespace qv::headless {

namespace {

std::wstring& Stored() {
    static std::wstring text;
    return text;
}

}  // namespace

void SetClipboardText(std::wstring_view text) {
    Stored() = text;
}

std::wstring ClipboardText() {
    return Stored();
}

}  // namespace qv::headless

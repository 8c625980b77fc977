// The host's error display: numbered errors of a module, shown as an error box of the message-box service.
#pragma once

#include <string_view>

struct XQVError {
    // module captions the box; source (the function that noticed) and number stand below the message, and extra below
    // them when it is not empty. Owned by the caller's active window.
    static void DisplayErrorMessageBox(std::wstring_view module, std::wstring_view source, int number,
                                       std::wstring_view message, std::wstring_view extra);
};

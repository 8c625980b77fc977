#include "host/libraries/error_display.h"

#include "base/text.h"
#include "host/libraries/message_box.h"

void XQVError::DisplayErrorMessageBox(std::wstring_view module, std::wstring_view source, int number,
                                      std::wstring_view message, std::wstring_view extra) {
    std::wstring text = qv::Format(L"%s\n\n%s (%d)", message, source, number);
    if (!extra.empty()) text.append(L"\n").append(extra);
    CoErrorBox(::GetActiveWindow(), module, text, 0);
}

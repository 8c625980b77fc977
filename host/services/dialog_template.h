// DialogTemplate: a dialog template built in memory, for dialogs of a static library, which has no resources of its
// own. The bytes have the documented layout and go to CDialog; positions and sizes are dialog units of the 8-point
// dialog font.
#pragma once

#include <cstddef>
#include <span>
#include <string_view>
#include <vector>

#include "platform/platform.h"

namespace qv {

class DialogTemplate {
public:
    // The platform's numbers for its control classes.
    enum class ControlClass : WORD { Button = 0x0080, Edit = 0x0081, Static = 0x0082, ListBox = 0x0083 };
    struct Control {
        ControlClass controlClass;
        std::wstring_view text;
        WORD id;
        SHORT x, y, cx, cy;
        DWORD style;  // WS_CHILD and WS_VISIBLE are added
        DWORD exStyle = 0;
    };

    // A captioned dialog box with this client size.
    DialogTemplate(std::wstring_view caption, SHORT cx, SHORT cy);
    // Controls in tab order.
    void Add(const Control& control);
    // Valid as long as the template and until the next Add.
    [[nodiscard]] std::span<const std::byte> Bytes() const noexcept;

private:
    void AppendWord(WORD value) { m_words.push_back(value); }
    void AppendLong(DWORD value);
    void AppendText(std::wstring_view text);

    std::vector<WORD> m_words;
};

}  // namespace qv

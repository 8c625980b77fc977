// Reads the documented binary layouts of dialog templates, the plain and the extended one, into one form. Used by the
// dialog manager only; it makes no windows.
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "platform/headless/desktop/dialog.h"

namespace qv::headless {

// A class or text of a template: a string, or a number in its place.
struct TemplateName {
    std::wstring text;
    WORD ordinal = 0;
};

struct TemplateItem {
    DWORD style = 0;
    DWORD exStyle = 0;
    SHORT x = 0;
    SHORT y = 0;
    SHORT cx = 0;
    SHORT cy = 0;
    DWORD id = 0;
    TemplateName windowClass;
    TemplateName text;
    // Null without creation data; points into the template, at the length word.
    const void* data = nullptr;
};

struct DialogTemplate {
    DWORD style = 0;
    DWORD exStyle = 0;
    SHORT x = 0;
    SHORT y = 0;
    SHORT cx = 0;
    SHORT cy = 0;
    TemplateName menu;
    TemplateName windowClass;
    std::wstring caption;
    bool hasFont = false;
    WORD pointSize = 0;
    WORD weight = FW_NORMAL_WEIGHT;
    bool italic = false;
    BYTE charSet = 1;
    std::wstring face;
    std::vector<TemplateItem> items;

    static constexpr WORD FW_NORMAL_WEIGHT = 400;
};

// Dialog units throughout. The bytes belong to the caller and must hold a well-formed template.
[[nodiscard]] DialogTemplate ReadDialogTemplate(const DLGTEMPLATE* bytes);

}  // namespace qv::headless

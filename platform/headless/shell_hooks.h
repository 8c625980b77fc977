// What the shell was asked to open, and answers for the pickers. For tests and scripted runs in the native build.
#pragma once

#include <functional>
#include <optional>
#include <string>
#include <vector>

#include "platform/headless/shell.h"

namespace qv::headless {

struct Execution {
    HWND owner = nullptr;
    std::wstring verb;
    std::wstring file;
    std::wstring parameters;
    std::wstring folder;
    INT show = 0;
};

// In the order of the calls.
[[nodiscard]] std::vector<Execution> Executions();
void ClearExecutions();
// The code that the next calls answer; 33 and above is success, as at the start.
void SetExecutionResult(INT_PTR code);

// Each answers one call: nothing = cancelled. An empty function takes the answers back. The folder picker hears its
// callback's initial selection first, if there is one.
using FolderAnswer = std::function<std::optional<std::wstring>(const BROWSEINFOW& info, const std::wstring& initial)>;
using FileAnswer = std::function<std::optional<std::wstring>(const OPENFILENAMEW& info, bool save)>;
using ColourAnswer = std::function<std::optional<COLORREF>(const CHOOSECOLORW& info)>;
void SetFolderAnswer(FolderAnswer answer);
void SetFileAnswer(FileAnswer answer);
void SetColourAnswer(ColourAnswer answer);

}  // namespace qv::headless

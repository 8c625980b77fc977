#include "platform/headless/base/shell.h"

#include <mutex>

#include "platform/headless/doors/shell_hooks.h"

namespace {

using qv::headless::Execution;

struct ShellState {
    std::mutex mutex;
    std::vector<Execution> executions;
    INT_PTR result = 42;
};

ShellState& State() {
    static ShellState s_state;
    return s_state;
}

thread_local DWORD t_pickerError = 0;

std::wstring Text(LPCWSTR text) {
    return text == nullptr ? std::wstring() : std::wstring(text);
}

// Nobody is there to choose, so a picker that is asked properly is cancelled.
template <typename Info>
BOOL Cancel(const Info* info) {
    t_pickerError = info == nullptr || info->lStructSize != sizeof(Info) ? 1 : 0;
    return FALSE;
}

}  // namespace

namespace qv::headless {

std::vector<Execution> Executions() {
    const std::lock_guard lock(State().mutex);
    return State().executions;
}
void ClearExecutions() {
    const std::lock_guard lock(State().mutex);
    State().executions.clear();
    State().result = 42;
}
void SetExecutionResult(INT_PTR code) {
    const std::lock_guard lock(State().mutex);
    State().result = code;
}

}  // namespace qv::headless

HINSTANCE ShellExecuteW(HWND owner, LPCWSTR verb, LPCWSTR file, LPCWSTR parameters, LPCWSTR folder, INT show) {
    auto& state = State();
    const std::lock_guard lock(state.mutex);
    state.executions.push_back({owner, Text(verb), Text(file), Text(parameters), Text(folder), show});
    return reinterpret_cast<HINSTANCE>(state.result);
}

PIDLIST_ABSOLUTE SHBrowseForFolderW(BROWSEINFOW*) {
    return nullptr;
}
BOOL SHGetPathFromIDListW(PCIDLIST_ABSOLUTE, LPWSTR path) {
    if (path != nullptr) *path = 0;
    return FALSE;
}

BOOL GetOpenFileNameW(OPENFILENAMEW* info) {
    return Cancel(info);
}
DWORD CommDlgExtendedError() {
    return t_pickerError;
}
BOOL ChooseColorW(CHOOSECOLORW* info) {
    return Cancel(info);
}

#include "platform/headless/shell.h"

#include <algorithm>
#include <mutex>
#include <utility>

#include "platform/headless/com.h"
#include "platform/headless/files.h"
#include "platform/headless/shell_hooks.h"
#include "platform/headless/user.h"

// A chosen folder: the path itself, terminated.
struct ITEMIDLIST {
    wchar_t path[1];
};

namespace {

using qv::headless::Execution;

struct ShellState {
    std::mutex mutex;
    std::vector<Execution> executions;
    INT_PTR result = 42;
    qv::headless::FolderAnswer folder;
    qv::headless::FileAnswer file;
    qv::headless::ColourAnswer colour;
};

ShellState& State() {
    static ShellState s_state;
    return s_state;
}

thread_local DWORD t_pickerError = 0;

std::wstring Text(LPCWSTR text) {
    return text == nullptr ? std::wstring() : std::wstring(text);
}

template <typename Answer>
Answer Take(Answer ShellState::*member) {
    const std::lock_guard lock(State().mutex);
    return State().*member;
}

template <typename Answer>
void Put(Answer ShellState::*member, Answer answer) {
    const std::lock_guard lock(State().mutex);
    State().*member = std::move(answer);
}

// The window that a folder picker's callback talks to while the picker starts; it takes the initial selection.
std::wstring AskInitialFolder(const BROWSEINFOW& info) {
    struct Initial {
        std::wstring folder;
    } initial;
    if (info.lpfn == nullptr) return {};
    const auto procedure = [](HWND window, UINT message, WPARAM wParam, LPARAM lParam) -> LRESULT {
        if (message == BFFM_SETSELECTIONW && wParam != FALSE && lParam != 0) {
            auto* target = reinterpret_cast<Initial*>(GetWindowLongPtrW(window, GWLP_USERDATA));
            if (target != nullptr) target->folder = reinterpret_cast<LPCWSTR>(lParam);
            return TRUE;
        }
        return DefWindowProcW(window, message, wParam, lParam);
    };
    WNDCLASSW windowClass{};
    windowClass.lpfnWndProc = procedure;
    windowClass.lpszClassName = L"QvHeadlessFolderPicker";
    RegisterClassW(&windowClass);
    const HWND window = CreateWindowExW(0, windowClass.lpszClassName, L"", WS_POPUP, 0, 0, 100, 100, info.hwndOwner,
                                        nullptr, nullptr, nullptr);
    if (window == nullptr) return {};
    SetWindowLongPtrW(window, GWLP_USERDATA, reinterpret_cast<LONG_PTR>(&initial));
    info.lpfn(window, BFFM_INITIALIZED, 0, info.lParam);
    DestroyWindow(window);
    return initial.folder;
}

BOOL PickFile(OPENFILENAMEW* info, bool save) {
    t_pickerError = 0;
    if (info == nullptr || info->lStructSize != sizeof(OPENFILENAMEW)) {
        t_pickerError = 1;
        return FALSE;
    }
    const auto answer = Take(&ShellState::file);
    const auto path = answer ? answer(*info, save) : std::nullopt;
    if (!path) return FALSE;
    if (info->lpstrFile == nullptr || path->size() + 1 > info->nMaxFile) {
        t_pickerError = FNERR_BUFFERTOOSMALL;
        return FALSE;
    }
    *std::copy(path->begin(), path->end(), info->lpstrFile) = 0;
    const auto name = path->find_last_of(L"\\/") + 1;
    const auto dot = path->find_last_of(L'.');
    info->nFileOffset = static_cast<WORD>(name);
    info->nFileExtension = static_cast<WORD>(dot == std::wstring::npos || dot < name ? 0 : dot + 1);
    if (info->lpstrFileTitle != nullptr && path->size() - name < info->nMaxFileTitle) {
        *std::copy(path->begin() + static_cast<std::ptrdiff_t>(name), path->end(), info->lpstrFileTitle) = 0;
    }
    return TRUE;
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
void SetFolderAnswer(FolderAnswer answer) {
    Put(&ShellState::folder, std::move(answer));
}
void SetFileAnswer(FileAnswer answer) {
    Put(&ShellState::file, std::move(answer));
}
void SetColourAnswer(ColourAnswer answer) {
    Put(&ShellState::colour, std::move(answer));
}

}  // namespace qv::headless

HINSTANCE ShellExecuteW(HWND owner, LPCWSTR verb, LPCWSTR file, LPCWSTR parameters, LPCWSTR folder, INT show) {
    auto& state = State();
    const std::lock_guard lock(state.mutex);
    state.executions.push_back({owner, Text(verb), Text(file), Text(parameters), Text(folder), show});
    return reinterpret_cast<HINSTANCE>(state.result);
}

PIDLIST_ABSOLUTE SHBrowseForFolderW(BROWSEINFOW* info) {
    if (info == nullptr) return nullptr;
    const auto answer = Take(&ShellState::folder);
    if (!answer) return nullptr;
    const auto folder = answer(*info, AskInitialFolder(*info));
    if (!folder) return nullptr;
    auto* item = static_cast<ITEMIDLIST*>(CoTaskMemAlloc((folder->size() + 1) * sizeof(wchar_t)));
    if (item == nullptr) return nullptr;
    std::copy_n(folder->c_str(), folder->size() + 1, item->path);
    if (info->pszDisplayName != nullptr) {
        const auto name = folder->substr(folder->find_last_of(L"\\/") + 1).substr(0, MAX_PATH - 1);
        std::copy_n(name.c_str(), name.size() + 1, info->pszDisplayName);
    }
    return item;
}

BOOL SHGetPathFromIDListW(PCIDLIST_ABSOLUTE item, LPWSTR path) {
    if (path != nullptr) *path = 0;
    if (item == nullptr || path == nullptr) return FALSE;
    const std::wstring_view text(static_cast<const wchar_t*>(item->path));
    if (text.size() >= MAX_PATH) return FALSE;
    *std::copy(text.begin(), text.end(), path) = 0;
    return TRUE;
}

BOOL GetOpenFileNameW(OPENFILENAMEW* info) {
    return PickFile(info, false);
}
BOOL GetSaveFileNameW(OPENFILENAMEW* info) {
    return PickFile(info, true);
}
DWORD CommDlgExtendedError() {
    return t_pickerError;
}

BOOL ChooseColorW(CHOOSECOLORW* info) {
    t_pickerError = 0;
    if (info == nullptr || info->lStructSize != sizeof(CHOOSECOLORW)) {
        t_pickerError = 1;
        return FALSE;
    }
    const auto answer = Take(&ShellState::colour);
    const auto colour = answer ? answer(*info) : std::nullopt;
    if (!colour) return FALSE;
    info->rgbResult = *colour;
    return TRUE;
}

#include "host/libraries/pickers.h"

#include <array>
#include <utility>
#include <vector>

#include "platform/shell_folders.h"

namespace qv {
namespace {

PickerSink& Sink() {
    static PickerSink sink;
    return sink;
}

// The platform's pickers walk through folders with the process's current directory; the host's stays where it is.
class CurrentDirectoryKeeper {
public:
    CurrentDirectoryKeeper() : m_directory(Read()) {}
    ~CurrentDirectoryKeeper() {
        if (!m_directory.empty()) ::SetCurrentDirectoryW(m_directory.c_str());
    }
    CurrentDirectoryKeeper(const CurrentDirectoryKeeper&) = delete;
    CurrentDirectoryKeeper& operator=(const CurrentDirectoryKeeper&) = delete;

private:
    static std::wstring Read() {
        std::wstring text(::GetCurrentDirectoryW(0, nullptr), L'\0');
        if (text.empty()) return text;
        text.resize(::GetCurrentDirectoryW(static_cast<DWORD>(text.size()), text.data()));
        return text;
    }

    std::wstring m_directory;
};

bool IsFolder(const std::wstring& path) {
    const DWORD attributes = ::GetFileAttributesW(path.c_str());
    return attributes != INVALID_FILE_ATTRIBUTES && (attributes & FILE_ATTRIBUTE_DIRECTORY) != 0;
}

int CALLBACK OnFolderDialog(HWND window, UINT message, LPARAM, LPARAM data) {
    if (message != BFFM_INITIALIZED) return 0;
    const auto& request = *reinterpret_cast<const PathPickerRequest*>(data);
    if (!request.title.empty()) ::SetWindowTextW(window, request.title.c_str());
    if (!request.okText.empty()) {
        ::SendMessageW(window, BFFM_SETOKTEXT, 0, reinterpret_cast<LPARAM>(request.okText.c_str()));
    }
    if (!request.initial.empty()) {
        ::SendMessageW(window, BFFM_SETSELECTIONW, TRUE, reinterpret_cast<LPARAM>(request.initial.c_str()));
    }
    return 0;
}

std::optional<std::wstring> PickRealFolder(const PathPickerRequest& request) {
    // The resizable dialog needs OLE on this thread. A thread that is set up otherwise gets the plain one.
    const bool ole = SUCCEEDED(::OleInitialize(nullptr));
    BROWSEINFOW info{};
    std::array<wchar_t, MAX_PATH> displayName{};
    info.hwndOwner = request.owner;
    info.pszDisplayName = displayName.data();
    info.lpszTitle = request.title.c_str();
    info.ulFlags = BIF_RETURNONLYFSDIRS | (ole ? BIF_NEWDIALOGSTYLE : 0U);
    info.lpfn = &OnFolderDialog;
    info.lParam = reinterpret_cast<LPARAM>(&request);

    std::optional<std::wstring> result;
    if (const auto folder = ::SHBrowseForFolderW(&info)) {
        std::array<wchar_t, MAX_PATH> path{};
        if (::SHGetPathFromIDListW(folder, path.data())) result = path.data();
        ::CoTaskMemFree(folder);
    }
    if (ole) ::OleUninitialize();
    return result;
}

// Names the dialog's OK button, once its controls are there.
UINT_PTR CALLBACK OnFileDialog(HWND window, UINT message, WPARAM, LPARAM lParam) {
    if (message == WM_INITDIALOG) {
        ::SetWindowLongPtrW(window, GWLP_USERDATA, reinterpret_cast<const OPENFILENAMEW*>(lParam)->lCustData);
    } else if (message == WM_NOTIFY && reinterpret_cast<const NMHDR*>(lParam)->code == CDN_INITDONE) {
        ::SendMessageW(::GetParent(window), CDM_SETCONTROLTEXT, IDOK, ::GetWindowLongPtrW(window, GWLP_USERDATA));
    }
    return 0;
}

std::optional<std::wstring> PickRealFile(const PathPickerRequest& request) {
    constexpr std::size_t kBufferSize = 32768;  // the longest path of the platform, with its end
    std::vector<wchar_t> path(kBufferSize, L'\0');
    OPENFILENAMEW info{};
    info.lStructSize = sizeof(info);
    info.hwndOwner = request.owner;
    info.lpstrFilter = L"*.*\0*.*\0";
    info.lpstrFile = path.data();
    info.nMaxFile = static_cast<DWORD>(path.size());
    info.lpstrTitle = request.title.empty() ? nullptr : request.title.c_str();
    info.Flags =
        OFN_EXPLORER | OFN_ENABLESIZING | OFN_HIDEREADONLY | OFN_NOCHANGEDIR | OFN_PATHMUSTEXIST | OFN_FILEMUSTEXIST;
    if (!request.okText.empty()) {
        info.Flags |= OFN_ENABLEHOOK;
        info.lpfnHook = &OnFileDialog;
        info.lCustData = reinterpret_cast<LPARAM>(request.okText.c_str());
    }
    if (IsFolder(request.initial)) {
        info.lpstrInitialDir = request.initial.c_str();
    } else if (request.initial.size() < path.size()) {
        request.initial.copy(path.data(), request.initial.size());
    }

    if (::GetOpenFileNameW(&info)) return std::wstring(path.data());
    // A text that is no file name at all keeps the dialog from opening: it starts empty then.
    if (::CommDlgExtendedError() != 0 && path.front() != L'\0') {
        path.assign(kBufferSize, L'\0');
        if (::GetOpenFileNameW(&info)) return std::wstring(path.data());
    }
    return std::nullopt;
}

std::optional<COLORREF> PickRealColor(const ColorPickerRequest& request) {
    static std::array<COLORREF, 16> customColors = [] {
        std::array<COLORREF, 16> white{};
        white.fill(RGB(255, 255, 255));
        return white;
    }();
    CHOOSECOLORW info{};
    info.lStructSize = sizeof(info);
    info.hwndOwner = request.owner;
    info.rgbResult = request.initial;
    info.lpCustColors = customColors.data();
    info.Flags = CC_RGBINIT | CC_FULLOPEN | CC_ANYCOLOR;
    if (!::ChooseColorW(&info)) return std::nullopt;
    return info.rgbResult;
}

}  // namespace

// A sink may set another one while it answers, so a copy is called.
std::optional<std::wstring> PickFolder(const PathPickerRequest& request) {
    const CurrentDirectoryKeeper keeper;
    const auto sink = Sink().folder;
    return sink ? sink(request) : PickRealFolder(request);
}

std::optional<std::wstring> PickFile(const PathPickerRequest& request) {
    const CurrentDirectoryKeeper keeper;
    const auto sink = Sink().file;
    return sink ? sink(request) : PickRealFile(request);
}

std::optional<COLORREF> PickColor(const ColorPickerRequest& request) {
    const CurrentDirectoryKeeper keeper;
    const auto sink = Sink().color;
    return sink ? sink(request) : PickRealColor(request);
}

PickerSink SetPickerSink(PickerSink sink) {
    return std::exchange(Sink(), std::move(sink));
}

}  // namespace qv

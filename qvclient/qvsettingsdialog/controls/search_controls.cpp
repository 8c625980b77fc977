#include "qvclient/qvsettingsdialog/controls/search_controls.h"

#include "host/libraries/message_box.h"
#include "host/libraries/translation.h"

QV_RUNTIME_CLASS(XDynFolderSearchCtrl, XSearchFolderCtrl)
QV_RUNTIME_CLASS(XDynSearchFileCtrl, XSearchFileCtrl)

namespace qv {
namespace {

// The platform's words for an error in the user's language, up to the first line end; empty when it has none.
std::wstring FirstLineOf(DWORD error) {
    wchar_t* text = nullptr;
    const DWORD length = ::FormatMessageW(
        FORMAT_MESSAGE_ALLOCATE_BUFFER | FORMAT_MESSAGE_FROM_SYSTEM | FORMAT_MESSAGE_IGNORE_INSERTS, nullptr, error,
        MAKELANGID(LANG_NEUTRAL, SUBLANG_DEFAULT), reinterpret_cast<LPWSTR>(&text), 0, nullptr);
    if (length == 0 || text == nullptr) return {};
    std::wstring line(text, length);
    ::LocalFree(text);
    return line.substr(0, line.find_first_of(L"\r\n"));
}

}  // namespace

template <class ChooserBase>
void DynSearchCtrl<ChooserBase>::SetCheckPath(bool check) {
    m_checkPath = check;
    this->SetValidation(check);
}

template <class ChooserBase>
void DynSearchCtrl<ChooserBase>::SetInitValue(std::wstring_view path) {
    m_initValue = path;
    if (!m_checkPath) return;
    // A value that fails stays: the user is told and may correct it.
    std::wstring report;
    Check(m_initValue, report, CoTranslateText(L"Checking initvalue:"));
}

template <class ChooserBase>
void DynSearchCtrl<ChooserBase>::SetDefaultValue(std::wstring_view path) {
    m_defaultValue = path;
    if (!m_checkPath) return;
    std::wstring report;
    // Deliberate: the reason takes the place of a default that fails, and Default then shows it in the field.
    if (!Check(m_defaultValue, report, CoTranslateText(L"Checking defaultvalue:"))) m_defaultValue = report;
}

template <class ChooserBase>
bool DynSearchCtrl<ChooserBase>::CreateOnPage(CWnd& page, UINT id) {
    return ChooserBase::Create(L"", id, RECT{0, 0, 0, 0}, page.GetFont(), &page);
}

template <class ChooserBase>
void DynSearchCtrl<ChooserBase>::ShowInitValue() {
    this->SetWindowText(m_initValue);
    if (this->IsReadOnly()) {
        this->MakeReadOnly();
        return;
    }
    this->SetDlgTitle(CoTranslateText(TitleText()));
    this->SetDlgOkBtnText(CoTranslateText(L"Select"));
    this->SetValidation(m_checkPath);
}

template <class ChooserBase>
void DynSearchCtrl<ChooserBase>::ShowDefaultValue() {
    this->SetWindowText(m_defaultValue);
}

template <class ChooserBase>
std::wstring DynSearchCtrl<ChooserBase>::GetValue() {
    m_initValue = this->GetWindowText();
    return m_initValue;
}

template <class ChooserBase>
bool DynSearchCtrl<ChooserBase>::ValidateValue() {
    if (!m_checkPath) return true;
    std::wstring report;
    return Check(GetValue(), report, {});
}

template <class ChooserBase>
void DynSearchCtrl<ChooserBase>::ShowMessage(std::wstring_view text) const {
    CoActiveInfoBox(m_label, text);
}

template <class ChooserBase>
void DynSearchCtrl<ChooserBase>::ShowReport(std::wstring_view prefix, std::wstring_view report) const {
    ShowMessage(std::wstring(prefix) + m_label + L"\n" + std::wstring(report));
}

template class DynSearchCtrl<XSearchFolderCtrl>;
template class DynSearchCtrl<XSearchFileCtrl>;

}  // namespace qv

std::wstring_view XDynFolderSearchCtrl::TitleText() const {
    return L"Select Path";
}

std::wstring_view XDynSearchFileCtrl::TitleText() const {
    return L"Select File";
}

bool XDynFolderSearchCtrl::CheckPath(const std::wstring& path, std::wstring& report, std::wstring_view prefix) {
    report.clear();
    if (path.empty()) {
        report = CoTranslateText(L"Empty path");
        ShowReport(prefix, report);
        return false;
    }
    // Deliberate: the backslash is added to a path that ends with one too; the platform takes the pair as one.
    WIN32_FIND_DATAW found{};
    const HANDLE search = ::FindFirstFileW((path + L"\\*.*").c_str(), &found);
    if (search != INVALID_HANDLE_VALUE) {
        ::FindClose(search);
        report = path;
        return true;
    }
    report = qv::FirstLineOf(::GetLastError());
    if (!report.empty()) ShowReport(prefix, report);
    return false;
}

bool XDynSearchFileCtrl::CheckFile(const std::wstring& path, std::wstring& report, std::wstring_view prefix) {
    report.clear();
    // Shared with nobody: a file that another program holds open counts as missing.
    const HANDLE file =
        ::CreateFileW(path.c_str(), GENERIC_READ, 0, nullptr, OPEN_EXISTING, FILE_ATTRIBUTE_NORMAL, nullptr);
    if (file != INVALID_HANDLE_VALUE) {
        ::CloseHandle(file);
        report = path;
        return true;
    }
    const std::wstring reason = qv::FirstLineOf(::GetLastError());
    if (reason.empty()) return false;
    report = path.empty() ? CoTranslateText(L"Empty filename") : reason;
    // Deliberate: at OK and Apply the file's path alone is shown, where a folder's message has label and reason.
    if (prefix.empty()) {
        ShowMessage(path);
    } else {
        ShowReport(prefix, report);
    }
    return false;
}

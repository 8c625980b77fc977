#include <memory>
#include <optional>
#include <stdexcept>

#include "base/text.h"
#include "framework/gdi.h"
#include "qvclient/qvsettingsdialog/controls/search_controls.h"
#include "qvclient/qvsettingsdialog/controls/special_item.h"
#include "tests/component/controls/controls_fixture.h"
#include "tests/support/temporary_folder.h"

namespace {

std::wstring SystemLine(DWORD error) {
    wchar_t text[512] = {};
    ::FormatMessageW(FORMAT_MESSAGE_FROM_SYSTEM | FORMAT_MESSAGE_IGNORE_INSERTS, nullptr, error,
                     MAKELANGID(LANG_NEUTRAL, SUBLANG_DEFAULT), text, 512, nullptr);
    const std::wstring whole = text;
    EXPECT_FALSE(whole.empty());
    return whole.substr(0, whole.find_first_of(L"\r\n"));
}

std::wstring FolderReason(const std::wstring& path) {
    WIN32_FIND_DATAW found{};
    EXPECT_EQ(::FindFirstFileW((path + L"\\*.*").c_str(), &found), INVALID_HANDLE_VALUE);
    return SystemLine(::GetLastError());
}

std::wstring FileReason(const std::wstring& path) {
    EXPECT_EQ(::CreateFileW(path.c_str(), GENERIC_READ, 0, nullptr, OPEN_EXISTING, 0, nullptr), INVALID_HANDLE_VALUE);
    return SystemLine(::GetLastError());
}

class Choosers : public ControlsTest {
protected:
    Choosers() { folder.Write(L"file.txt", ""); }

    template <class Chooser>
    static void Prepare(Chooser& chooser, const std::wstring& path, bool check = true) {
        chooser.SetCheckPath(check);
        chooser.SetLabel(L"Label");
        chooser.SetInitValue(path);
    }
    // The box that the last step showed, if any; forgotten afterwards.
    std::optional<std::wstring> TakeBox() {
        if (boxes.empty()) return std::nullopt;
        EXPECT_EQ(boxes.size(), 1U);
        EXPECT_EQ(boxes[0].kind, qv::MessageBoxCall::Kind::Info);
        EXPECT_EQ(boxes[0].caption, L"Label");
        EXPECT_EQ(boxes[0].owner, ::GetActiveWindow());
        EXPECT_EQ(boxes[0].flags, 0U);
        const std::wstring text = boxes[0].text;
        boxes.clear();
        return text;
    }
    static CWnd* Field(const CWnd& chooser) { return CWnd::FromHandlePermanent(::GetWindow(chooser.m_hWnd, GW_CHILD)); }
    static CWnd* Button(const CWnd& chooser) {
        return CWnd::FromHandlePermanent(::GetWindow(::GetWindow(chooser.m_hWnd, GW_CHILD), GW_HWNDNEXT));
    }

    // Hands each path in as the value, as the default and as the user's input: which boxes come, what Default shows.
    template <class Chooser, class OkBox>
    void ExpectChecks(std::initializer_list<std::pair<std::wstring, std::wstring>> pathsAndReports,
                      const OkBox& okBox) {
        for (const auto& [path, report] : pathsAndReports) {
            SCOPED_TRACE(qv::ToUtf8(path));
            const bool passes = report.empty();
            const auto unlessPassed = [&](const std::wstring& text) {
                return passes ? std::nullopt : std::optional(text);
            };
            Chooser chooser;
            Prepare(chooser, path);
            EXPECT_EQ(TakeBox(), unlessPassed(L"Checking initvalue:Label\n" + report));
            chooser.SetDefaultValue(path);
            EXPECT_EQ(TakeBox(), unlessPassed(L"Checking defaultvalue:Label\n" + report));
            Show(chooser);
            EXPECT_EQ(chooser.ValidateValue(), passes);
            EXPECT_EQ(TakeBox(), unlessPassed(okBox(path, report)));
            EXPECT_EQ(chooser.GetValue(), path) << "a value that fails stays";
            chooser.ShowDefaultValue();
            EXPECT_EQ(chooser.GetValue(), passes ? path : report);
        }
    }

    const qvtest::TemporaryFolder folder;
    const std::wstring file = folder.Path() + L"\\file.txt";
    const std::wstring missing = folder.Path() + L"\\missing";
    qvtest::PickerRecorder pickers;
    std::vector<qv::PathPickerRequest>& requests = pickers.paths;
};

TEST_F(Choosers, CheckFoldersAtEachPhaseInTheirOwnWords) {
    ExpectChecks<XDynFolderSearchCtrl>({{folder.Path(), L""},
                                        {folder.Path() + L"\\", L""},
                                        {missing, FolderReason(missing)},
                                        {file, FolderReason(file)},
                                        {L"", L"Empty path"}},
                                       [](const auto&, const auto& report) { return L"Label\n" + report; });
}

// Deliberate: the user's input is reported as the path alone, even when that is an empty box.
TEST_F(Choosers, CheckFilesAtEachPhaseInTheirOwnWords) {
    ExpectChecks<XDynSearchFileCtrl>({{file, L""},
                                      {missing, FileReason(missing)},
                                      {folder.Path(), FileReason(folder.Path())},
                                      {L"", L"Empty filename"}},
                                     [](const auto& path, const auto&) { return path; });
}

TEST_F(Choosers, AFileHeldOpenByAnotherFailsAndTheCheckItselfHoldsNothing) {
    XDynSearchFileCtrl chooser;
    Prepare(chooser, file);
    Show(chooser);
    const HANDLE other = ::CreateFileW(file.c_str(), GENERIC_READ, 0, nullptr, OPEN_EXISTING, 0, nullptr);
    ASSERT_NE(other, INVALID_HANDLE_VALUE) << "the check left the file open";
    EXPECT_FALSE(chooser.ValidateValue());
    EXPECT_EQ(TakeBox(), file);
    ::CloseHandle(other);
    EXPECT_TRUE(chooser.ValidateValue());
}

TEST_F(Choosers, WithoutTheCheckNothingIsSaid) {
    XDynFolderSearchCtrl folderChooser;
    Prepare(folderChooser, missing, false);
    folderChooser.SetDefaultValue(L"");
    Show(folderChooser);
    EXPECT_TRUE(folderChooser.ValidateValue());
    EXPECT_FALSE(folderChooser.ShowsWarning());
    XDynSearchFileCtrl fileChooser;
    Prepare(fileChooser, missing, false);
    fileChooser.SetDefaultValue(missing);
    Show(fileChooser);
    EXPECT_TRUE(fileChooser.ValidateValue());
    fileChooser.ShowDefaultValue();
    EXPECT_EQ(fileChooser.GetValue(), missing);
    EXPECT_TRUE(boxes.empty());
}

TEST_F(Choosers, TranslateTheirTextsButNotThePlatforms) {
    const qvtest::ScopedDictionary dictionary(qv::Dictionary{{L"Checking initvalue:", L"Wert:"},
                                                             {L"Checking defaultvalue:", L"Vorgabe:"},
                                                             {L"Empty path", L"Leer"},
                                                             {L"Select Path", L"Ordner"},
                                                             {L"Select", L"Nehmen"}});
    XDynFolderSearchCtrl chooser;
    Prepare(chooser, L"");
    EXPECT_EQ(TakeBox(), L"Wert:Label\nLeer");
    chooser.SetDefaultValue(missing);
    EXPECT_EQ(TakeBox(), L"Vorgabe:Label\n" + FolderReason(missing));
    Show(chooser);
    Button(chooser)->SendMessage(BM_CLICK);
    ASSERT_EQ(requests.size(), 1U);
    EXPECT_EQ(requests[0].title, L"Ordner");
    EXPECT_EQ(requests[0].okText, L"Nehmen");
}

TEST_F(Choosers, ReportUnderTheLabelOfTheirItem) {
    SpecialItem item;
    item.kind = SpecialControlKind::File;
    item.value = missing;
    item.label = L"Label";
    item.checkPath = true;
    const auto chooser = qv::MakeSpecialControl(std::move(item));
    EXPECT_EQ(TakeBox(), L"Checking initvalue:Label\n" + FileReason(missing));
}

TEST_F(Choosers, BrowsingStartsAtTheFieldsTextAndReportsAChoice) {
    XDynSearchFileCtrl chooser;
    Prepare(chooser, L"old", false);
    Show(chooser);
    pickers.path = file;
    Button(chooser)->SendMessage(BM_CLICK);
    ASSERT_EQ(requests.size(), 1U);
    EXPECT_EQ(requests[0].owner, page.m_hWnd);
    EXPECT_EQ(requests[0].title, L"Select File");
    EXPECT_EQ(requests[0].okText, L"Select");
    EXPECT_EQ(requests[0].initial, L"old");
    EXPECT_EQ(chooser.GetValue(), file);
    ASSERT_FALSE(page.Taken(EN_CHANGE).empty());
    const PageNotification change = page.Taken(EN_CHANGE).front();
    EXPECT_EQ(change.id, kControlId);
    EXPECT_NE(DynamicDownCast<CEdit>(CWnd::FromHandlePermanent(change.control)), nullptr);
}

TEST_F(Choosers, ACancelledPickerChangesAndReportsNothing) {
    wchar_t before[MAX_PATH] = {};
    ::GetCurrentDirectoryW(MAX_PATH, before);
    const qvtest::ScopedPickerSink silent({[&](const qv::PathPickerRequest&) {
                                               ::SetCurrentDirectoryW(folder.Path().c_str());
                                               return std::optional<std::wstring>();
                                           },
                                           {},
                                           {}});
    XDynFolderSearchCtrl chooser;
    Prepare(chooser, L"old", false);
    Show(chooser);
    chooser.SetFocus();
    Button(chooser)->SendMessage(BM_CLICK);
    EXPECT_EQ(chooser.GetValue(), L"old");
    EXPECT_TRUE(page.Taken(EN_CHANGE).empty());
    EXPECT_TRUE(page.Taken(BN_CLICKED).empty());
    EXPECT_EQ(::GetFocus(), Button(chooser)->m_hWnd);
    wchar_t after[MAX_PATH] = {};
    ::GetCurrentDirectoryW(MAX_PATH, after);
    EXPECT_STREQ(after, before);
}

TEST_F(Choosers, BrowseAgainAfterAPickerThatThrew) {
    XDynFolderSearchCtrl forFolders;
    XDynSearchFileCtrl forFiles;
    const qvtest::ScopedExceptionHandler handler([](const std::exception_ptr&) {});
    for (XBaseSearchCtrl* chooser :
         {static_cast<XBaseSearchCtrl*>(&forFolders), static_cast<XBaseSearchCtrl*>(&forFiles)}) {
        requests.clear();
        ASSERT_TRUE(chooser->Create(L"", kControlId, RECT{0, 0, 200, 24}, nullptr, &page));
        const auto fail = [](const qv::PathPickerRequest&) -> std::optional<std::wstring> {
            throw std::runtime_error("picker");
        };
        {
            const qvtest::ScopedPickerSink failing({fail, fail, {}});
            Button(*chooser)->SendMessage(BM_CLICK);
        }
        EXPECT_TRUE(requests.empty());
        Button(*chooser)->SendMessage(BM_CLICK);
        EXPECT_EQ(requests.size(), 1U);
    }
}

TEST_F(Choosers, FocusTextAndTabOrderAreTheFields) {
    XDynFolderSearchCtrl chooser;
    Prepare(chooser, L"text", false);
    Show(chooser);
    chooser.SetFocus();
    EXPECT_EQ(::GetFocus(), Field(chooser)->m_hWnd);
    EXPECT_EQ(Field(chooser)->GetWindowText(), L"text");
    EXPECT_EQ(chooser.GetWindowTextLength(), 4);
    EXPECT_EQ(::GetNextDlgTabItem(page.m_hWnd, Field(chooser)->m_hWnd, FALSE), Button(chooser)->m_hWnd);
    chooser.SelectDataInEditCtrl();
    int start = -1;
    int end = -1;
    DynamicDownCast<CEdit>(Field(chooser))->GetSel(start, end);
    EXPECT_EQ(start, 0);
    EXPECT_EQ(end, 4);
}

TEST_F(Choosers, FieldAndButtonFillTheControlAndFollowItsFont) {
    XDynFolderSearchCtrl chooser;
    Show(chooser);
    const auto expectFilled = [&](int cx, int cy) {
        chooser.MoveWindow(0, 0, cx, cy);
        const CRect whole = chooser.GetWindowRect();
        const CRect field = Field(chooser)->GetWindowRect();
        const CRect button = Button(chooser)->GetWindowRect();
        EXPECT_EQ(field.left, whole.left);
        EXPECT_EQ(button.right, whole.right);
        EXPECT_LE(field.right, button.left);
        EXPECT_EQ(field.Height(), cy);
        EXPECT_EQ(button.Height(), cy);
        return button.Width();
    };
    const int usual = expectFilled(300, 24);
    EXPECT_GT(usual, 0);
    EXPECT_LT(usual, 150);
    LOGFONTW description{};
    description.lfHeight = -60;
    const HFONT large = ::CreateFontIndirectW(&description);
    chooser.SetFont(large, true);
    EXPECT_EQ(Field(chooser)->GetFont(), large);
    EXPECT_EQ(chooser.GetFont(), large);
    EXPECT_GT(expectFilled(300, 24), usual);
    expectFilled(10, 24);
    expectFilled(0, 24);
    chooser.DestroyWindow();
    ::DeleteObject(large);
}

TEST_F(Choosers, AFieldThatNamesNothingIsDrawnInAWarningColor) {
    XDynFolderSearchCtrl chooser;
    Prepare(chooser, folder.Path());
    Show(chooser);
    CClientDC dc(*Field(chooser));
    const auto drawnColor = [&] {
        ::SetTextColor(dc.Get(), ::GetSysColor(COLOR_WINDOWTEXT));
        chooser.SendMessage(WM_CTLCOLOREDIT, reinterpret_cast<WPARAM>(dc.Get()),
                            reinterpret_cast<LPARAM>(Field(chooser)->m_hWnd));
        return ::GetTextColor(dc.Get());
    };
    const COLORREF usual = drawnColor();
    EXPECT_FALSE(chooser.ShowsWarning());
    Field(chooser)->SetWindowText(missing);
    EXPECT_TRUE(chooser.ShowsWarning());
    EXPECT_NE(drawnColor(), usual);
    Field(chooser)->SetWindowText(folder.Path());
    EXPECT_FALSE(chooser.ShowsWarning());
    EXPECT_EQ(drawnColor(), usual);
    Field(chooser)->SetWindowText(file);
    EXPECT_TRUE(chooser.ShowsWarning()) << "a file is no folder";
    EXPECT_TRUE(boxes.empty());
}

TEST_F(Choosers, ReadOnlyShowsItsValueAndDoesNotBrowse) {
    XDynFolderSearchCtrl chooser;
    Prepare(chooser, L"value", false);
    chooser.SetReadOnly(true);
    Show(chooser);
    EXPECT_EQ(chooser.GetValue(), L"value");
    EXPECT_NE(Field(chooser)->GetStyle() & ES_READONLY, 0U);
    EXPECT_FALSE(Button(chooser)->IsWindowEnabled());
    Button(chooser)->SendMessage(BM_CLICK);
    EXPECT_TRUE(requests.empty());
    chooser.EnableWindow(false);
    chooser.EnableWindow(true);
    EXPECT_FALSE(Button(chooser)->IsWindowEnabled());
    EXPECT_TRUE(Field(chooser)->IsWindowEnabled());
}

}  // namespace

// A frame whose content is nested as the settings dialog's is: a frame without buttons, a form view in it, in that a
// child dialog with the buttons, and in that a property sheet whose pages hold the controls.
#pragma once

#include <memory>
#include <string>

#include "framework/controls.h"
#include "framework/property_sheet.h"
#include "framework/view.h"
#include "tests/framework/test_windows.h"

namespace nested {

inline constexpr int kHelp = 126;
inline constexpr int kApply = 128;
inline constexpr int kEdit = 201;
inline constexpr int kCombo = 202;
inline constexpr int kPush = 203;
inline constexpr int kMultiLine = 204;
inline constexpr int kRadioA = 205;
inline constexpr int kRadioB = 206;
inline constexpr int kEditableCombo = 207;

inline const Builder& FrameLayout() {
    static const Builder layout(WS_POPUP | WS_CAPTION | WS_SYSMENU | WS_THICKFRAME, 306, 174);
    return layout;
}
inline const Builder& ViewLayout() {
    static const Builder layout(WS_CHILD, 300, 170);
    return layout;
}
// As in the settings dialog, three buttons carry the default style.
inline const Builder& InnerLayout() {
    static const Builder layout = Builder(WS_CHILD | DS_CONTROL, 300, 160)
                                      .Add(Builder::Button, kHelp, WS_TABSTOP | BS_DEFPUSHBUTTON, L"&Help", 195, 140)
                                      .Add(Builder::Button, IDOK, WS_TABSTOP | BS_DEFPUSHBUTTON, L"OK", 10, 140)
                                      .Add(Builder::Button, IDCANCEL, WS_TABSTOP, L"Cancel", 70, 140)
                                      .Add(Builder::Button, kApply, WS_TABSTOP | BS_DEFPUSHBUTTON, L"&Apply", 130, 140);
    return layout;
}
inline const Builder& PageLayout() {
    static const Builder layout =
        Builder(WS_CHILD | WS_DISABLED | WS_BORDER, 186, 95)
            .Add(Builder::Static, 0xFFFF, WS_GROUP, L"&Name", 5, 5)
            .Add(Builder::Edit, kEdit, WS_TABSTOP, L"", 60, 5)
            .Add(Builder::ComboBox, kCombo, WS_TABSTOP | CBS_DROPDOWNLIST, L"", 60, 20, 50, 60)
            .Add(Builder::Button, kPush, WS_TABSTOP, L"&Push", 60, 35)
            .Add(Builder::Edit, kMultiLine, WS_TABSTOP | ES_MULTILINE | ES_WANTRETURN | ES_AUTOVSCROLL, L"", 60, 50)
            .Add(Builder::Button, kRadioA, WS_TABSTOP | WS_GROUP | BS_AUTORADIOBUTTON, L"a", 60, 65, 20)
            .Add(Builder::Button, kRadioB, BS_AUTORADIOBUTTON, L"b", 85, 65, 20)
            .Add(Builder::ComboBox, kEditableCombo, WS_TABSTOP | WS_GROUP | CBS_DROPDOWN, L"", 60, 80, 50, 60);
    return layout;
}

struct Log {
    std::vector<std::string> lines;
    HWND strayFrame = nullptr;  // a button that is framed when the page's field loses the focus or a radio is chosen
    std::string Take() {
        std::string all;
        for (const auto& line : lines)
            all += line + ";";
        lines.clear();
        return all;
    }
};

class Page : public CPropertyPage {
public:
    explicit Page(Log& log) : CPropertyPage(PageLayout().Bytes()), m_log(log) {}
    const MessageMap* GetMessageMap() const override {
        static const MessageMap map{CPropertyPage::GetThisMessageMap(), {on::Command<&Page::OnPush>(kPush)}};
        return &map;
    }
    bool OnCommand(WPARAM wParam, LPARAM lParam) override {
        const bool leaves = HIWORD(wParam) == EN_KILLFOCUS || LOWORD(wParam) == kRadioB;
        if (leaves && m_log.strayFrame != nullptr) {
            ::SendMessageW(m_log.strayFrame, BM_SETSTYLE, BS_DEFPUSHBUTTON, TRUE);
        }
        return CPropertyPage::OnCommand(wParam, lParam);
    }
    void OnPush() { m_log.lines.emplace_back("push"); }
    bool OnInitDialog() override {
        for (const int combo : {kCombo, kEditableCombo}) {
            for (const wchar_t* text : {L"one", L"two"}) {
                ::SendDlgItemMessageW(m_hWnd, combo, CB_ADDSTRING, 0, reinterpret_cast<LPARAM>(text));
            }
        }
        ::SetDlgItemTextW(m_hWnd, kEdit, L"text");
        return CPropertyPage::OnInitDialog();
    }

private:
    Log& m_log;
};

class Inner : public CDialog {
public:
    explicit Inner(Log& log) : m_log(log) {}
    const MessageMap* GetMessageMap() const override {
        static const MessageMap map{CDialog::GetThisMessageMap(),
                                    {on::Command<&Inner::OnHelp>(kHelp), on::Command<&Inner::OnApply>(kApply)}};
        return &map;
    }
    bool OnInitDialog() override {
        m_sheet = std::make_unique<CPropertySheet>(L"sheet", this, 0);
        for (int i = 0; i < 2; ++i) {
            pages.push_back(std::make_unique<Page>(m_log));
            m_sheet->AddPage(pages.back().get());
        }
        if (!m_sheet->Create(this, WS_CHILD | WS_VISIBLE | WS_TABSTOP)) return false;
        m_sheet->ModifyStyleEx(0, WS_EX_CONTROLPARENT);
        return CDialog::OnInitDialog();
    }
    void OnOK() override { m_log.lines.emplace_back("inner ok"); }
    void OnCancel() override { m_log.lines.emplace_back("inner cancel"); }
    void OnHelp() { m_log.lines.emplace_back("help"); }
    void OnApply() { m_log.lines.emplace_back("apply"); }
    CPropertySheet& Sheet() { return *m_sheet; }
    std::vector<std::unique_ptr<Page>> pages;

private:
    Log& m_log;
    std::unique_ptr<CPropertySheet> m_sheet;
};

class Frame : public CDialog {
public:
    explicit Frame(Log& log, CWnd* parent) : inner(log), m_log(log) {
        InitModalIndirect(FrameLayout().Bytes(), parent);
    }
    bool OnInitDialog() override {
        auto* view = new CFormView(ViewLayout().Bytes());
        if (!view->Create(nullptr, L"", WS_CHILD | WS_VISIBLE, GetClientRect(), this, 134)) return false;
        view->ModifyStyleEx(0, WS_EX_CONTROLPARENT);
        view->OnInitialUpdate();
        if (!inner.CreateIndirect(InnerLayout().Bytes(), view)) return false;
        inner.ShowWindow(SW_SHOW);
        return CDialog::OnInitDialog();
    }
    void OnOK() override { m_log.lines.emplace_back("frame ok"); }
    void OnCancel() override { m_log.lines.emplace_back("frame cancel"); }
    [[nodiscard]] HWND Item(int id) {
        HWND page = inner.Sheet().GetActivePage()->m_hWnd;
        HWND item = ::GetDlgItem(page, id);
        return item != nullptr ? item : ::GetDlgItem(inner.m_hWnd, id);
    }
    Inner inner;

private:
    Log& m_log;
};

// Runs the frame and lets the test act in it.
inline void InFrame(const std::function<void(Frame&, Log&, qv::User&)>& act) {
    TopWindow top;
    Log log;
    Frame frame(log, &top);
    qv::User user = MakeUser();
    const Script script({[&] {
        act(frame, log, user);
        frame.EndDialog(1);
    }});
    ASSERT_EQ(frame.DoModal(), 1);
}

inline int FocusId() {
    return ::GetDlgCtrlID(::GetFocus());
}

}  // namespace nested

#include "tests/support/settings_driver.h"

#include <gtest/gtest.h>

#include <cstdlib>

#include "qvclient/qvsettingsdialog/controls/settings_frame.h"

namespace qvtest {
namespace {

// A page that is shown: a layout whose window exists.
CWnd* AnyPage() {
    for (const XLayout* layout : qv::LiveLayouts()) {
        if (layout->GetParent() != nullptr && layout->GetParent()->IsLive()) return layout->GetParent();
    }
    return nullptr;
}

CPropertySheet* FindSheet() {
    CWnd* page = AnyPage();
    return page != nullptr ? DynamicDownCast<CPropertySheet>(page->GetParent()) : nullptr;
}

SettingsFrame* FindFrame() {
    const CWnd* page = AnyPage();
    return page != nullptr ? FindEnclosing<SettingsFrame>(*page) : nullptr;
}

}  // namespace

bool IsWhollySeen(HWND window) {
    RECT place{};
    ::GetWindowRect(window, &place);
    if (::IsWindowVisible(window) == FALSE || ::IsRectEmpty(&place) != FALSE) return false;
    for (HWND around = ::GetAncestor(window, GA_PARENT); around != nullptr && around != ::GetDesktopWindow();
         around = ::GetAncestor(around, GA_PARENT)) {
        RECT room{}, seen{};
        ::GetClientRect(around, &room);
        ::MapWindowPoints(around, nullptr, reinterpret_cast<POINT*>(&room), 2);
        if (::IntersectRect(&seen, &room, &place) == FALSE || ::EqualRect(&seen, &place) == FALSE) return false;
    }
    return true;
}

int SettingsDriver::Run(const std::function<int()>& show, Steps steps) {
    m_next = 0;
    m_leftOpen = 0;
    const int result = [&] {
        const ScopedIdleHandler handler([this, &steps](int) { return OnIdle(steps); });
        return show();
    }();
    EXPECT_EQ(m_next, steps.size()) << "the dialog ended before its steps";
    return result;
}

bool SettingsDriver::OnIdle(Steps& steps) {
    if (m_inStep) return false;  // a loop inside a step
    if (m_next < steps.size()) {
        m_inStep = true;
        steps[m_next++]();
        m_inStep = false;
        return true;
    }
    ADD_FAILURE() << "the dialog is still open after the last step";
    constexpr int kGiveUp = 3;
    if (++m_leftOpen == kGiveUp) std::abort();  // rather than wait for ever
    if (SettingsFrame* frame = FindFrame()) frame->EndFrame(IDABORT);
    return true;
}

CWnd& SettingsDriver::Frame() const {
    return FindFrame()->FrameWindow();
}

CPropertySheet& SettingsDriver::Sheet() const {
    return *FindSheet();
}

CWnd& SettingsDriver::Dialog() const {
    return *Sheet().GetParent();
}

std::vector<std::wstring> SettingsDriver::TabTitles() const {
    std::vector<std::wstring> titles;
    const CTabCtrl* tab = Sheet().GetTabControl();
    for (int i = 0; i < tab->GetItemCount(); ++i)
        titles.push_back(tab->GetItemText(i));
    return titles;
}

CWnd* SettingsDriver::Control(std::wstring_view itemKey) const {
    for (XLayout* layout : qv::LiveLayouts()) {
        if (CWnd* control = layout->GetColumnControl(itemKey)) return control;
    }
    return nullptr;
}

std::wstring SettingsDriver::Shown(std::wstring_view itemKey) const {
    for (const XLayout* layout : qv::LiveLayouts()) {
        for (const XLayout::RowView& row : layout->GetRows()) {
            if (row.column.name == itemKey && row.willShow) return *row.willShow;
        }
    }
    CWnd* control = Control(itemKey);
    if (control == nullptr) return L"(no control)";
    if (const auto* combo = DynamicDownCast<CComboBox>(control)) {
        return combo->GetCurSel() >= 0 ? combo->GetLBText(combo->GetCurSel()) : std::wstring();
    }
    if (const auto* button = DynamicDownCast<CButton>(control)) return button->GetCheck() != 0 ? L"1" : L"0";
    return control->GetWindowText();
}

bool SettingsDriver::IsEnabled(int buttonId) const {
    const CWnd* button = Dialog().GetDlgItem(buttonId);
    return button != nullptr && button->IsWindowEnabled();
}

bool SettingsDriver::HasFocus(const CWnd* window) const {
    return window != nullptr && ::GetFocus() == window->GetSafeHwnd();
}

bool SettingsDriver::Press(int buttonId) {
    const CWnd* button = Dialog().GetDlgItem(buttonId);
    return button != nullptr && m_user.Click(button->GetSafeHwnd());
}

bool SettingsDriver::PressKey(int virtualKey) {
    return m_user.Press(virtualKey);
}

bool SettingsDriver::SwitchPage(int index) {
    return m_user.ChooseTab(Sheet().GetTabControl()->GetSafeHwnd(), index);
}

bool SettingsDriver::FocusRow(std::wstring_view itemKey) {
    const CWnd* control = Control(itemKey);
    return control != nullptr && m_user.Focus(control->GetSafeHwnd());
}

bool SettingsDriver::Type(std::wstring_view itemKey, std::wstring_view text) {
    if (!FocusRow(itemKey)) return false;
    const CWnd* control = Control(itemKey);  // once it has the focus, unless something has taken it away then
    if (control == nullptr) return false;
    control->SendMessage(EM_SETSEL, 0, -1);
    return text.empty() ? m_user.Press(VK_DELETE) : m_user.Type(text);
}

bool SettingsDriver::Toggle(std::wstring_view itemKey) {
    const CWnd* control = Control(itemKey);
    return control != nullptr && m_user.Click(control->GetSafeHwnd());
}

bool SettingsDriver::Choose(std::wstring_view itemKey, int index) {
    const CWnd* control = Control(itemKey);
    return control != nullptr && m_user.Choose(control->GetSafeHwnd(), index);
}

}  // namespace qvtest

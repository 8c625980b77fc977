// A page of the model that is shown: window, sheet and top-level window around it, the special controls' windows and a
// live layout, as the dialog makes them.
#pragma once

#include <memory>

#include "host/libraries/layout.h"
#include "tests/component/model/model_fixture.h"

class ShownPage : public SettingsPage {
public:
    explicit ShownPage(PageRecord& record);
    ~ShownPage() override;

    CWnd& PageWindow() override { return m_page; }
    XLayout& GetLayout() override { return *m_layout; }
    void MakeActivePage() override { ++m_activations; }

    [[nodiscard]] HWND Top() const { return m_top.m_hWnd; }
    [[nodiscard]] CWnd& Sheet() { return m_sheet; }
    [[nodiscard]] int Activations() const { return m_activations; }
    // What the row's control shows; what a person would leave in it.
    [[nodiscard]] std::wstring Shown(std::wstring_view itemKey) const;
    void Enter(std::wstring_view itemKey, std::wstring_view text);
    // Makes the page a window without a window above its parent.
    void MoveSheetToTop();

private:
    CWnd m_top;
    CWnd m_sheet;
    CWnd m_page;
    std::unique_ptr<XLayout> m_layout;
    int m_activations = 0;
};

class PageTest : public ModelTest {
protected:
    // Page 1, shown at the first call.
    ShownPage& Shown();
    [[nodiscard]] bool Store() { return Model().StoreSettings(Shown(), *Page()); }
    [[nodiscard]] bool Validate() { return Model().ValidateInputs(Shown(), *Page()); }
    void Reset() { Model().SetDefaults(Shown().GetLayout(), *Page()); }
    // The only control of the kind.
    SpecialControl& Control(SpecialControlKind kind) { return *Page()->Controls(kind).at(0); }
    // "scope key/name=text" of every write, in order.
    [[nodiscard]] std::vector<std::wstring> Written() const;

private:
    std::unique_ptr<ShownPage> m_shown;
};

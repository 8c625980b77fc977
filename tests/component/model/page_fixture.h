// A page of the model that is shown, as far as the model can see: rows with texts, controls without windows, and notes
// of what the page was asked to do.
#pragma once

#include <string>
#include <vector>

#include "qvclient/qvsettingsdialog/model/settings_page.h"
#include "tests/component/fake_control.h"
#include "tests/component/model/model_fixture.h"

class FakePage final : public SettingsPage, public qv::LayoutRows {
public:
    explicit FakePage(const PageRecord& record);

    bool IsThere() const override { return true; }
    qv::LayoutRows& GetLayout() override { return *this; }
    bool RefuseInput(const Column& row, std::wstring_view reason) override;
    void RefuseInput(SpecialControl& control) override { refusedControls.push_back(&control); }
    void ReportFailedSave(std::wstring_view text) override;

    std::vector<ColumnReference> GetReferenceList() const override;
    Column* GetColumn(std::wstring_view name) const override;
    void UpdateControl(std::wstring_view name, std::wstring_view text, void* data, std::wstring_view extra) override;

    // What the row's control shows; what a person would leave in it.
    [[nodiscard]] std::wstring Shown(std::wstring_view itemKey) const;
    void Enter(std::wstring_view itemKey, std::wstring_view text) { UpdateControl(itemKey, text, nullptr, {}); }
    // As a row whose control the platform refused.
    void TakeControlOf(std::wstring_view itemKey);

    std::vector<std::wstring> refusals;  // item key, then the reason in the next line
    std::vector<SpecialControl*> refusedControls;
    std::vector<std::wstring> failedSaves;

private:
    struct Row {
        Column* column;
        std::wstring text;
        bool isPlaceholder;
        bool hasControl = true;
    };
    std::vector<Row> m_rows;  // in display order
};

class PageTest : public ModelTest {
protected:
    PageTest() { m_makeControl = FakeControl::Make; }
    // Page 1, shown at the first call.
    FakePage& Shown();
    [[nodiscard]] bool Store() { return Model().StoreSettings(Shown(), *Page()); }
    [[nodiscard]] bool Validate() { return Model().ValidateInputs(Shown(), *Page()); }
    void Reset() { Model().SetDefaults(Shown(), *Page()); }
    // The first control of the kind.
    FakeControl& Control(SpecialControlKind kind) { return dynamic_cast<FakeControl&>(*Page()->Controls(kind).at(0)); }
    // "scope key/name=text" of every write, in order.
    [[nodiscard]] std::vector<std::wstring> Written() const;

private:
    std::unique_ptr<FakePage> m_shown;
};

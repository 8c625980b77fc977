// A special control without a window: it keeps what it was made from and shows a text.
#pragma once

#include <memory>
#include <string>
#include <utility>

#include "framework/wnd.h"
#include "qvclient/qvsettingsdialog/controls/special_item.h"

class FakeControl : public SpecialControl, public ValidatedControl {
public:
    explicit FakeControl(SpecialItem made) : item(std::move(made)), text(item.value) {
        for (const std::wstring& key : item.keys)
            text += (text.empty() ? L"" : L"|") + key;
    }
    // As a qv::ControlFactory.
    static std::unique_ptr<SpecialControl> Make(SpecialItem&& item) {
        return std::make_unique<FakeControl>(std::move(item));
    }

    bool CreateOnPage(CWnd&, UINT) override { return false; }
    CWnd& Window() override { return m_window; }
    bool HasWindow() const override { return hasWindow; }
    void ShowInitValue() override {}
    void ShowDefaultValue() override { text = item.defaultText; }
    std::wstring GetValue() override { return text; }
    void SetReadOnly(bool readOnly) override { item.readOnly = readOnly; }
    bool IsReadOnly() const override { return item.readOnly; }
    void ClearHasDefault() override { item.hasDefault = false; }
    bool HasDefault() const override { return item.hasDefault; }
    void SetStorageKey(std::wstring_view key, std::wstring_view name) override {
        item.key = key;
        item.name = name;
    }
    bool GetStorageKey(std::wstring& key, std::wstring& name) const override {
        key = item.key;
        name = item.name;
        return !key.empty() && !name.empty();
    }
    void SetLayoutCells(LayoutCells cells) override { m_cells = std::move(cells); }
    const LayoutCells& GetLayoutCells() const override { return m_cells; }
    bool ValidateValue() override { return accepts; }
    void SelectDataInEditCtrl() override {}

    SpecialItem item;
    std::wstring text;
    bool hasWindow = true;
    bool accepts = true;

private:
    CWnd m_window;
    LayoutCells m_cells;
};

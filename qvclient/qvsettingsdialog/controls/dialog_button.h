// XDialogButton: the control of a button item. A click hands the item's text to a dialog of the host (the dialog
// service that the module host creates) and takes back what that dialog returns, in the way of the button's type.
#pragma once

#include <string>
#include <string_view>

#include "framework/controls.h"
#include "host/interfaces/dialog_service.h"
#include "qvclient/qvsettingsdialog/controls/special_control.h"

class XDialogButton : public CButton, public SpecialControl {
    QV_DECLARE_RUNTIME_CLASS
    // type: the item's type code, 10 to 13; a click with any other empties the value.
    explicit XDialogButton(unsigned type) : m_type(type) {}

    // The operations that the class offers to derived buttons, in their fixed order.
    void SetReadOnly(bool readOnly) override { m_readOnly = readOnly; }
    bool IsReadOnly() const override { return m_readOnly; }
    void ClearHasDefault() override { m_hasDefault = false; }
    bool HasDefault() const override { return m_hasDefault; }
    virtual void SetDefaultValue(std::wstring_view text) { m_defaultValue = text; }
    void ShowDefaultValue() override;
    virtual void SetInitValue(std::wstring_view text) { m_value = text; }
    std::wstring GetValue() override { return m_value; }
    void ShowInitValue() override;
    const LayoutCells& GetLayoutCells() const override { return m_cells; }
    void SetLayoutCells(LayoutCells cells) override { m_cells = std::move(cells); }
    void SetStorageKey(std::wstring_view keyName, std::wstring_view valueName) override;
    bool GetStorageKey(std::wstring& keyName, std::wstring& valueName) const override;

    // The label as the definition has it; the button translates it.
    void SetCaption(std::wstring_view label);
    bool CreateOnPage(CWnd& page, UINT id) override;
    CWnd& Window() override { return *this; }
    bool HasWindow() const override { return GetSafeHwnd() != nullptr; }

    const MessageMap* GetMessageMap() const override;
    static const MessageMap* GetThisMessageMap();

private:
    void OnClicked();

    unsigned m_type;
    std::wstring m_value;
    std::wstring m_defaultValue;
    LayoutCells m_cells;
    bool m_readOnly = false;
    std::wstring m_storageKey;
    std::wstring m_storageName;
    bool m_hasDefault = true;
    std::wstring m_caption;
};

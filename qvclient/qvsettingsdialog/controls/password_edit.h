// XDynPasswordEdit: the control of a password item. It masks what is typed, takes a fixed range of characters only, is
// filled with enciphered texts and gives enciphered texts back; the plain one exists in the field alone.
#pragma once

#include <string>
#include <string_view>

#include "framework/controls.h"
#include "qvclient/qvsettingsdialog/controls/special_control.h"

class XDynPasswordEdit : public SpecialControlBase<CEdit> {
    QV_DECLARE_RUNTIME_CLASS
    XDynPasswordEdit() = default;
    ~XDynPasswordEdit() override;

    // Characters that the field takes and to which the setters cut; 0 leaves the platform's limit. Before the setters.
    void SetMaxLength(unsigned length) noexcept { m_maxLength = length; }
    // Enciphered texts. One that cannot be deciphered is reported and becomes empty.
    void SetInitValue(std::wstring_view enciphered);
    void SetDefaultValue(std::wstring_view enciphered);

    bool CreateOnPage(CWnd& page, UINT id) override;
    void ShowInitValue() override;
    void ShowDefaultValue() override;
    std::wstring GetValue() override;  // enciphered

    bool PreCreateWindow(CREATESTRUCTW& cs) override;
    const MessageMap* GetMessageMap() const override;
    static const MessageMap* GetThisMessageMap();

private:
    int OnCreate(CREATESTRUCTW* cs);
    void OnChange();
    void Decipher(std::wstring& value);

    std::wstring m_initValue;
    std::wstring m_defaultValue;
    unsigned m_maxLength = 0;
};

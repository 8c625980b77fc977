// XDynCheckedListBox: the control of a checked-list item. Every entry has a key and a display text; the user sees and
// ticks texts, the value is the ticked entries' keys joined by "|", in the order in which the sorted list shows them.
#pragma once

#include <map>
#include <string>
#include <string_view>
#include <vector>

#include "framework/check_list_box.h"
#include "qvclient/qvsettingsdialog/controls/special_control.h"

class XDynCheckedListBox : public SpecialControlBase<CCheckListBox> {
    QV_DECLARE_RUNTIME_CLASS

    // Key to display text, already translated. Before the window exists, like the two lists of keys.
    void SetEntries(std::map<std::wstring, std::wstring> entries);
    void SetInitValue(std::vector<std::wstring> keys);
    void SetDefaultValue(std::vector<std::wstring> keys);

    bool CreateOnPage(CWnd& page, UINT id) override;
    void ShowInitValue() override;
    void ShowDefaultValue() override;
    std::wstring GetValue() override;

private:
    // Unknown keys are passed over.
    void Tick(const std::vector<std::wstring>& keys);

    std::map<std::wstring, std::wstring> m_entries;
    std::vector<std::wstring> m_initKeys;
    std::vector<std::wstring> m_defaultKeys;
};

#include "qvclient/qvsettingsdialog/controls/checked_list_box.h"

#include <algorithm>
#include <utility>

namespace {

constexpr DWORD kStyle = WS_VISIBLE | WS_BORDER | WS_VSCROLL | WS_TABSTOP | LBS_NOTIFY | LBS_SORT | LBS_MULTIPLESEL |
                         LBS_EXTENDEDSEL | LBS_OWNERDRAWFIXED | LBS_HASSTRINGS | LBS_NOINTEGRALHEIGHT;
constexpr int kUnticked = 0;
constexpr int kTicked = 1;
constexpr int kFromTop = -1;
constexpr wchar_t kSeparator = L'|';

}  // namespace

QV_RUNTIME_CLASS(XDynCheckedListBox, CCheckListBox)

void XDynCheckedListBox::SetEntries(std::map<std::wstring, std::wstring> entries) {
    m_entries = std::move(entries);
}

void XDynCheckedListBox::SetInitValue(std::vector<std::wstring> keys) {
    m_initKeys = std::move(keys);
}

void XDynCheckedListBox::SetDefaultValue(std::vector<std::wstring> keys) {
    m_defaultKeys = std::move(keys);
}

bool XDynCheckedListBox::CreateOnPage(CWnd& page, UINT id) {
    if (!CCheckListBox::Create(kStyle, RECT{0, 0, 0, 0}, &page, id)) return false;
    ModifyStyleEx(0, WS_EX_CLIENTEDGE, SWP_FRAMECHANGED);
    return true;
}

void XDynCheckedListBox::ShowInitValue() {
    for (const auto& [key, text] : m_entries)
        AddString(text);
    Tick(m_initKeys);
    if (!IsReadOnly()) return;
    for (int index = 0; index < GetCount(); ++index)
        Enable(index, false);
}

void XDynCheckedListBox::ShowDefaultValue() {
    for (int index = 0; index < GetCount(); ++index)
        SetCheck(index, kUnticked);
    Tick(m_defaultKeys);
}

// Deliberate: ticking ignores case and takes the first line with the text, reading back (GetValue) respects case and
// takes the first entry by key. Entries with one text cannot be told apart either way.
void XDynCheckedListBox::Tick(const std::vector<std::wstring>& keys) {
    for (const std::wstring& key : keys) {
        const auto entry = m_entries.find(key);
        if (entry == m_entries.end()) continue;
        const int index = FindStringExact(kFromTop, entry->second);
        if (index != LB_ERR) SetCheck(index, kTicked);
    }
}

std::wstring XDynCheckedListBox::GetValue() {
    std::wstring value;
    const int count = GetCount();
    for (int index = 0; index < count; ++index) {
        if (GetCheck(index) != kTicked) continue;
        const std::wstring text = GetText(index);
        const auto entry =
            std::find_if(m_entries.begin(), m_entries.end(), [&](const auto& each) { return each.second == text; });
        if (entry != m_entries.end()) value += entry->first + kSeparator;
    }
    if (!value.empty()) value.pop_back();
    return value;
}

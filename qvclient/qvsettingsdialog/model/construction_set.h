// XConstructionSet: the settings model of one dialog. Reads the definition tree under an option key and the items'
// values, turns items into layout rows and page records, and validates, stores and resets them. Built by the manager
// for one dialog; everything it hands out stays its own.
#pragma once

#include <cstdint>
#include <functional>
#include <list>
#include <map>
#include <memory>
#include <string>
#include <string_view>

#include "qvclient/qvsettingsdialog/model/item_attributes.h"
#include "qvclient/qvsettingsdialog/model/item_source.h"
#include "qvclient/qvsettingsdialog/model/page_record.h"
#include "qvclient/qvsettingsdialog/model/settings_page.h"
#include "qvclient/qvsettingsdialog/model/settings_path.h"
#include "qvclient/qvsettingsdialog/resources/settings_interfaces.h"

struct PageEntry {
    std::int32_t number;
    std::wstring title;  // translated
};

class XConstructionSet : public qv::ItemSource {
public:
    // dataIO may be null and is not counted: the caller keeps it alive for the dialog's duration. Asks sessionData to
    // load the control path's scope and the user data; when either fails the construction set has no session data.
    // makeControl makes the controls of the items that have one of their own.
    XConstructionSet(std::wstring optionKey, std::int32_t controlPath, IQVSettingsDialogDataIO* dataIO,
                     qv::ComPtr<ISessionDataManager> sessionData, qv::ComPtr<IMultiUserManager> multiUser,
                     qv::ControlFactory makeControl = qv::MakeSpecialControl);
    virtual ~XConstructionSet();

    // Anything to show.
    [[nodiscard]] bool HasSettings();
    // Ascending by number; entries with one number keep their order.
    bool LoadPages(std::list<PageEntry>& pages);
    // Once a dialog: a second call loads every item again. The records stay owned by this object. Loading asks the host
    // and shows boxes; when goesOn is given and is false after an item, loading ends with false.
    bool LoadItems(std::map<std::int32_t, PageRecord*>& items, const std::function<bool()>& goesOn = {});

    // False after reporting the first input of the page that is not acceptable and putting the focus there.
    [[nodiscard]] bool ValidateInputs(SettingsPage& page, PageRecord& record);
    // False only without session data; single values that cannot be stored are reported and passed over. When the
    // page's window goes meanwhile, in the host or behind a box, nothing more is written; a value that was written is
    // still saved.
    bool StoreSettings(SettingsPage& page, PageRecord& record);
    // Shows every default of the page; stores nothing.
    void SetDefaults(qv::LayoutRows& layout, PageRecord& record);

    // key "/" value name of an item's definition name; empty for a name of any other shape.
    [[nodiscard]] static std::wstring MakeItemKey(std::wstring_view definitionName) {
        return qv::MakeItemKey(definitionName);
    }

    // For the dialog's placement and help, which use the session data directly.
    [[nodiscard]] ISessionDataManager* SessionData() const noexcept { return m_sessionData.Get(); }
    [[nodiscard]] const std::wstring& OptionKey() const noexcept { return m_optionKey; }
    [[nodiscard]] SESSIONDATATYPE ControlPath() const noexcept { return m_controlPath; }

    // Loads one definition as an item of the type with this code and appends it to its page. A bad item is corrected
    // with a message, dropped silently, or dropped with an error box, as its type says; a code that no type has is no
    // item.
    void DrawItem(std::int32_t typeCode, std::wstring_view name, const AttributeMap& attributes);
    // The same, by type.
    void DrawCheckBox(std::wstring_view name, const AttributeMap& attributes) { DrawItem(0, name, attributes); }
    void DrawIntegerEdit(std::wstring_view name, const AttributeMap& attributes) { DrawItem(1, name, attributes); }
    void DrawDoubleEdit(std::wstring_view name, const AttributeMap& attributes) { DrawItem(2, name, attributes); }
    void DrawStringEdit(std::wstring_view name, const AttributeMap& attributes) { DrawItem(3, name, attributes); }
    void DrawListComboBox(std::wstring_view name, const AttributeMap& attributes) { DrawItem(4, name, attributes); }
    void DrawCheckedListBox(std::wstring_view name, const AttributeMap& attributes) { DrawItem(5, name, attributes); }
    void DrawPasswordEdit(std::wstring_view name, const AttributeMap& attributes) { DrawItem(6, name, attributes); }
    void DrawPathCtrl(std::wstring_view name, const AttributeMap& attributes) { DrawItem(7, name, attributes); }
    void DrawColorButton(std::wstring_view name, const AttributeMap& attributes) { DrawItem(8, name, attributes); }
    void DrawFileCtrl(std::wstring_view name, const AttributeMap& attributes) { DrawItem(9, name, attributes); }
    void DrawDialogButton(std::wstring_view name, const AttributeMap& attributes, std::int32_t typeCode) {
        DrawItem(typeCode, name, attributes);
    }
    void DrawUnitComboBox(std::wstring_view name, const AttributeMap& attributes) { DrawItem(14, name, attributes); }

private:
    // Writes a value and saves it; a failed save is reported above the page. Nothing is said of a failed write.
    void WriteAndSave(std::wstring_view key, std::wstring_view valueName, std::wstring_view text, SESSIONDATATYPE scope,
                      SettingsPage& page);

    std::map<std::int32_t, std::unique_ptr<PageRecord>> m_pages;
    std::wstring m_optionKey;
    SESSIONDATATYPE m_controlPath;
    qv::ComPtr<ISessionDataManager> m_sessionData;
    qv::ControlFactory m_makeControl;
};

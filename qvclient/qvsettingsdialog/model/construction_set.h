// XConstructionSet: the settings model of one dialog. Reads the definition tree under an option key and the items'
// values, turns items into layout rows and page records, and validates, stores and resets them. Built by the manager
// for one dialog; everything it hands out stays its own.
#pragma once

#include <cstdint>
#include <list>
#include <map>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "framework/com.h"
#include "host/interfaces/multi_user.h"
#include "host/interfaces/session_data.h"
#include "qvclient/qvsettingsdialog/model/page_record.h"
#include "qvclient/qvsettingsdialog/model/settings_page.h"
#include "qvclient/qvsettingsdialog/resources/settings_interfaces.h"

// Attribute name to text, in ascending order of the names as the definition writes them.
using AttributeMap = std::map<std::wstring, std::wstring>;

struct PageEntry {
    std::int32_t number;
    std::wstring title;  // translated
};

class XConstructionSet {
public:
    // dataIO may be null and is not counted: the caller keeps it alive for the dialog's duration. Asks sessionData to
    // load the control path's scope and the user data; when either fails the construction set has no session data.
    XConstructionSet(std::wstring optionKey, std::int32_t controlPath, IQVSettingsDialogDataIO* dataIO,
                     qv::ComPtr<ISessionDataManager> sessionData, qv::ComPtr<IMultiUserManager> multiUser);
    virtual ~XConstructionSet();
    XConstructionSet(const XConstructionSet&) = delete;
    XConstructionSet& operator=(const XConstructionSet&) = delete;

    // Anything to show.
    [[nodiscard]] bool HasSettings();
    // Ascending by number; entries with one number keep their order.
    bool LoadPages(std::list<PageEntry>& pages);
    // Once a dialog. The records stay owned by this object.
    bool LoadItems(std::map<std::int32_t, PageRecord*>& items);

    [[nodiscard]] bool ValidateInputs(SettingsPage& page, PageRecord& record);
    // False only without session data; single values that cannot be stored are reported and passed over.
    bool StoreSettings(SettingsPage& page, PageRecord& record);
    void SetDefaults(XLayout& layout, PageRecord& record);

    [[nodiscard]] bool HasRight(std::wstring_view rightName);
    // key "/" value name of an item's definition name; empty for a name of any other shape.
    [[nodiscard]] static std::wstring MakeItemKey(std::wstring_view definitionName);

    // Readers: false when there is nothing to read; the value is then untouched (ReadString's is empty).
    bool ReadString(std::wstring_view definitionName, SESSIONDATATYPE scope, std::wstring& value);
    bool ReadInteger(std::wstring_view definitionName, SESSIONDATATYPE scope, std::int32_t& value);
    bool ReadDouble(std::wstring_view definitionName, SESSIONDATATYPE scope, double& value);
    bool ReadBoolean(std::wstring_view definitionName, SESSIONDATATYPE scope, bool& value);
    bool ReadStringList(std::wstring_view definitionName, SESSIONDATATYPE scope, std::list<std::wstring>& value);

    // For the dialog's placement and help, which use the session data directly.
    [[nodiscard]] ISessionDataManager* SessionData() const noexcept { return m_sessionData.Get(); }
    [[nodiscard]] const std::wstring& OptionKey() const noexcept { return m_optionKey; }
    [[nodiscard]] SESSIONDATATYPE ControlPath() const noexcept { return m_controlPath; }

    // Typed loaders, one a kind of item; called by LoadItems for each definition. A bad item is corrected with a
    // message, dropped silently, or dropped with an error box, as its kind says.
    void DrawCheckBox(const std::wstring& name, const AttributeMap& attributes);
    void DrawIntegerEdit(const std::wstring& name, const AttributeMap& attributes);
    void DrawDoubleEdit(const std::wstring& name, const AttributeMap& attributes);
    void DrawStringEdit(const std::wstring& name, const AttributeMap& attributes);
    void DrawListComboBox(const std::wstring& name, const AttributeMap& attributes);
    void DrawCheckedListBox(const std::wstring& name, const AttributeMap& attributes);
    void DrawPasswordEdit(const std::wstring& name, const AttributeMap& attributes);
    void DrawPathCtrl(const std::wstring& name, const AttributeMap& attributes);
    void DrawColorButton(const std::wstring& name, const AttributeMap& attributes);
    void DrawFileCtrl(const std::wstring& name, const AttributeMap& attributes);
    void DrawDialogButton(const std::wstring& name, const AttributeMap& attributes, int typeCode);
    void DrawUnitComboBox(const std::wstring& name, const AttributeMap& attributes);

private:
    std::map<std::int32_t, std::unique_ptr<PageRecord>> m_pages;
    std::wstring m_optionKey;
    std::map<std::int32_t, std::wstring> m_rightNames;
    std::map<std::int32_t, SESSIONDATATYPE> m_scopes;
    SESSIONDATATYPE m_controlPath;
    qv::ComPtr<ISessionDataManager> m_sessionData;
    qv::ComPtr<IMultiUserManager> m_multiUser;
    IQVSettingsDialogDataIO* m_dataIO;
};

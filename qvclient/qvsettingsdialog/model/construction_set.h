// XConstructionSet: the settings model of one dialog. Reads the definition tree under an option key and the items'
// values, turns items into layout rows and page records, and validates, stores and resets them. Built by the manager
// for one dialog; everything it hands out stays its own.
#pragma once

#include <array>
#include <cstdint>
#include <list>
#include <map>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "framework/com.h"
#include "host/interfaces/multi_user.h"
#include "host/interfaces/session_data.h"
#include "qvclient/qvsettingsdialog/model/item_attributes.h"
#include "qvclient/qvsettingsdialog/model/page_record.h"
#include "qvclient/qvsettingsdialog/model/settings_page.h"
#include "qvclient/qvsettingsdialog/resources/settings_interfaces.h"

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
    // Once a dialog: a second call loads every item again. The records stay owned by this object. Loading asks the host
    // and shows boxes; it ends with false when the window of the dialog that it is for (null: none) goes meanwhile.
    bool LoadItems(std::map<std::int32_t, PageRecord*>& items, const CWnd* dialog = nullptr);

    // False after reporting the first input of the page that is not acceptable and putting the focus there.
    [[nodiscard]] bool ValidateInputs(SettingsPage& page, PageRecord& record);
    // False only without session data; single values that cannot be stored are reported and passed over. When the
    // page's window goes meanwhile, in the host or behind a box, nothing more is written; a value that was written is
    // still saved.
    bool StoreSettings(SettingsPage& page, PageRecord& record);
    // Shows every default of the page; stores nothing.
    void SetDefaults(XLayout& layout, PageRecord& record);

    [[nodiscard]] bool HasRight(std::wstring_view rightName);
    // key "/" value name of an item's definition name; empty for a name of any other shape.
    [[nodiscard]] static std::wstring MakeItemKey(std::wstring_view definitionName);

    // What the scope code (0 to 3) of an item means: the data scope of its value, and whether the user holds the right
    // to change it (asked anew each time). Nothing for an unknown code.
    [[nodiscard]] static std::optional<SESSIONDATATYPE> FindScope(std::int32_t scopeCode);
    [[nodiscard]] std::optional<bool> IsGroupGranted(std::int32_t scopeCode);

    // Readers: false when there is nothing to read; the value is then untouched (ReadString's is empty).
    bool ReadString(std::wstring_view definitionName, SESSIONDATATYPE scope, std::wstring& value);
    // Text that is no number reads as 0.
    bool ReadInteger(std::wstring_view definitionName, SESSIONDATATYPE scope, std::int32_t& value);
    bool ReadDouble(std::wstring_view definitionName, SESSIONDATATYPE scope, double& value);
    bool ReadBoolean(std::wstring_view definitionName, SESSIONDATATYPE scope, bool& value);
    bool ReadStringList(std::wstring_view definitionName, SESSIONDATATYPE scope, std::vector<std::wstring>& value);
    // Appends the "|"-separated pieces of text, each trimmed; the last one also when it is empty.
    static void SplitStringList(std::wstring_view text, std::vector<std::wstring>& list);

    // For the dialog's placement and help, which use the session data directly.
    [[nodiscard]] ISessionDataManager* SessionData() const noexcept { return m_sessionData.Get(); }
    [[nodiscard]] const std::wstring& OptionKey() const noexcept { return m_optionKey; }
    [[nodiscard]] SESSIONDATATYPE ControlPath() const noexcept { return m_controlPath; }

    // Typed loaders, one a kind of item; called by LoadItems for each definition. A bad item is corrected with a
    // message, dropped silently, or dropped with an error box, as its kind says.
    void DrawCheckBox(std::wstring_view name, const AttributeMap& attributes);
    void DrawIntegerEdit(std::wstring_view name, const AttributeMap& attributes);
    void DrawDoubleEdit(std::wstring_view name, const AttributeMap& attributes);
    void DrawStringEdit(std::wstring_view name, const AttributeMap& attributes);
    void DrawListComboBox(std::wstring_view name, const AttributeMap& attributes);
    void DrawCheckedListBox(std::wstring_view name, const AttributeMap& attributes);
    void DrawPasswordEdit(std::wstring_view name, const AttributeMap& attributes);
    void DrawPathCtrl(std::wstring_view name, const AttributeMap& attributes);
    void DrawColorButton(std::wstring_view name, const AttributeMap& attributes);
    void DrawFileCtrl(std::wstring_view name, const AttributeMap& attributes);
    void DrawDialogButton(std::wstring_view name, const AttributeMap& attributes, std::int32_t typeCode);
    void DrawUnitComboBox(std::wstring_view name, const AttributeMap& attributes);

private:
    static constexpr std::size_t kScopeCodes = 4;

    void DrawItem(std::wstring_view name, std::int32_t typeCode, const AttributeMap& attributes);
    // The record of the page, made when it is not there yet.
    PageRecord& PageOf(std::int32_t pageNumber);
    // A row whose value the layout's own control holds: the page keeps its default and, of a number, its range.
    void AddPlainRow(std::unique_ptr<XLayout::Column> row, ItemDraft& draft, std::optional<RangePair> range = {});
    // A placeholder row for a control that keeps value and default itself.
    void AddSpecialRow(SpecialControlKind kind, std::unique_ptr<SpecialControl> control, std::wstring itemKey,
                       ItemDraft& draft);
    // Folder and file choosers.
    template <class Chooser>
    void DrawChooser(SpecialControlKind kind, std::wstring_view name, const AttributeMap& attributes);

    // The stored value of an item; without a text when there is none, or none that is a text.
    [[nodiscard]] qv::Variant ReadText(std::wstring_view definitionName, SESSIONDATATYPE scope);
    // Writes a value and saves it; a failed save is reported above the page. Nothing is said of a failed write.
    void WriteAndSave(std::wstring_view key, std::wstring_view valueName, std::wstring_view text, SESSIONDATATYPE scope,
                      CWnd& page);

    std::map<std::int32_t, std::unique_ptr<PageRecord>> m_pages;
    std::wstring m_optionKey;
    std::array<qv::Bstr, kScopeCodes> m_rightNames;  // by scope code, ready to be asked with
    SESSIONDATATYPE m_controlPath;
    qv::ComPtr<ISessionDataManager> m_sessionData;
    qv::ComPtr<IMultiUserManager> m_multiUser;
    IQVSettingsDialogDataIO* m_dataIO;
};

#include "qvclient/qvsettingsdialog/model/construction_set.h"

#include "framework/text.h"
#include "host/libraries/translation.h"
#include "qvclient/qvsettingsdialog/model/settings_path.h"

namespace {

struct ScopeRow {
    SESSIONDATATYPE scope;
    std::wstring_view right;
};
constexpr ScopeRow kScopeTable[] = {
    {SDT_userData, L"Change settings/User data"},
    {SDT_machineData, L"Change settings/Machine data"},
    {SDT_userDataDB, L"Change settings/User DB data"},
    {SDT_globalData, L"Change settings/Global data"},
};

constexpr std::int32_t kFirstButtonType = 10;
constexpr std::int32_t kLastButtonType = 13;

constexpr LONG kDirectChildren = 0;
constexpr LONG kDefinitions = 1;

// The names below the key; none when the call fails.
qv::StringBlock EnumerateNames(ISessionDataManager& manager, const std::wstring& key, LONG flag,
                               SESSIONDATATYPE scope) {
    const qv::Bstr keyText(key);
    return qv::ReceiveStrings(1,
                              [&](ULONG* count, BSTR** names) {
                                  return manager.EnumSubKeys(keyText.Get(), flag, count, names, scope);
                              })
        .value;
}

qv::Received<qv::StringBlock> EnumeratePairs(ISessionDataManager& manager, BSTR key, SESSIONDATATYPE scope) {
    constexpr ULONG kNameAndText = 2;
    return qv::ReceiveStrings(kNameAndText,
                              [&](ULONG* count, BSTR** pairs) { return manager.EnumValues(key, count, pairs, scope); });
}

// The right names of the table above, made once: an item asks for one of them.
template <std::size_t N>
std::array<qv::Bstr, N> MakeRightNames() {
    static_assert(N == std::size(kScopeTable));
    std::array<qv::Bstr, N> names;
    for (std::size_t code = 0; code < N; ++code)
        names[code] = qv::Bstr(kScopeTable[code].right);
    return names;
}

}  // namespace

XConstructionSet::XConstructionSet(std::wstring optionKey, std::int32_t controlPath, IQVSettingsDialogDataIO* dataIO,
                                   qv::ComPtr<ISessionDataManager> sessionData, qv::ComPtr<IMultiUserManager> multiUser)
    : m_optionKey(std::move(optionKey)),
      m_rightNames(MakeRightNames<kScopeCodes>()),
      m_controlPath(static_cast<SESSIONDATATYPE>(controlPath)),
      m_sessionData(std::move(sessionData)),
      m_multiUser(std::move(multiUser)),
      m_dataIO(dataIO) {
    // deliberate: the answers are discarded; hosts prepare the rights here, and every item asks again for its own.
    for (std::int32_t code = 0; code < static_cast<std::int32_t>(kScopeCodes); ++code)
        (void)IsGroupGranted(code);

    // deliberate: the user data are asked for even when the first scope could not be loaded.
    const qv::ComPtr<ISessionDataManager> manager = m_sessionData;
    if (!manager) return;
    for (const SESSIONDATATYPE scope : {m_controlPath, SDT_userData}) {
        if (manager->LoadData(scope) != S_OK) m_sessionData.Reset();
    }
}

XConstructionSet::~XConstructionSet() {
    m_pages.clear();
    m_sessionData.Reset();
    m_multiUser.Reset();
}

bool XConstructionSet::HasSettings() {
    if (!m_sessionData) return false;
    if (EnumerateNames(*m_sessionData.Get(), m_optionKey, kDirectChildren, m_controlPath).Count() == 0) return false;
    std::list<PageEntry> pages;
    return LoadPages(pages);
}

bool XConstructionSet::LoadPages(std::list<PageEntry>& pages) {
    if (!m_sessionData) return false;
    const qv::StringBlock names = EnumerateNames(*m_sessionData.Get(), m_optionKey, kDirectChildren, m_controlPath);

    // deliberate: only the names are lower-cased, so that an option key with capitals never finds its pages.
    const std::wstring wanted = m_optionKey + L"/pages";
    std::wstring pagesKey;
    for (std::size_t i = 0; i < names.Count() && pagesKey.empty(); ++i) {
        std::wstring name = qv::ToLower(qv::TextOf(names.At(i)));
        if (name == wanted) pagesKey = std::move(name);
    }
    if (pagesKey.empty()) return false;

    const qv::Bstr key(pagesKey);
    const auto pairs = EnumeratePairs(*m_sessionData.Get(), key.Get(), m_controlPath);
    // deliberate: pages that cannot be read are no reason to say that nothing is defined.
    if (pairs.status != S_OK) return true;
    AttributeMap titles;
    titles.Assign(pairs.value);
    if (titles.Empty()) return false;
    for (const Attribute& page : titles)
        pages.push_back({qv::LeadingInteger(page.name), CoTranslateText(page.text)});
    pages.sort([](const PageEntry& a, const PageEntry& b) { return a.number < b.number; });
    return true;
}

bool XConstructionSet::LoadItems(std::map<std::int32_t, PageRecord*>& items, const CWnd* dialog) {
    if (!m_sessionData) return false;
    const bool isForWindow = dialog != nullptr && dialog->IsLive();
    const qv::StringBlock names = EnumerateNames(*m_sessionData.Get(), m_optionKey, kDefinitions, m_controlPath);
    if (names.Count() == 0) return false;

    const qv::Bstr noName(L"");
    AttributeMap attributes;
    for (std::size_t i = 0; i < names.Count(); ++i) {
        const BSTR name = names.At(i) != nullptr ? names.At(i) : noName.Get();
        const auto pairs = EnumeratePairs(*m_sessionData.Get(), name, m_controlPath);
        if (pairs.status != S_OK) continue;
        attributes.Assign(pairs.value);
        // deliberate: a definition without any values ends the loading; what is there already stays.
        if (attributes.Empty()) return false;
        for (const Attribute& attribute : attributes) {
            if (attribute.name != L"type") continue;  // as it stands: a blank makes it another name
            DrawItem({name, SysStringLen(name)}, qv::LeadingInteger(attribute.text), attributes);
        }
        if (isForWindow && !dialog->IsLive()) return false;
    }
    for (const auto& [number, record] : m_pages)
        items[number] = record.get();
    return true;
}

void XConstructionSet::DrawItem(std::wstring_view name, std::int32_t typeCode, const AttributeMap& attributes) {
    using Loader = void (XConstructionSet::*)(std::wstring_view, const AttributeMap&);
    struct LoaderRow {
        std::int32_t typeCode;
        Loader loader;
    };
    static constexpr LoaderRow kLoaders[] = {
        {0, &XConstructionSet::DrawCheckBox},      {1, &XConstructionSet::DrawIntegerEdit},
        {2, &XConstructionSet::DrawDoubleEdit},    {3, &XConstructionSet::DrawStringEdit},
        {4, &XConstructionSet::DrawListComboBox},  {5, &XConstructionSet::DrawCheckedListBox},
        {6, &XConstructionSet::DrawPasswordEdit},  {7, &XConstructionSet::DrawPathCtrl},
        {8, &XConstructionSet::DrawColorButton},   {9, &XConstructionSet::DrawFileCtrl},
        {14, &XConstructionSet::DrawUnitComboBox},
    };
    for (const LoaderRow& row : kLoaders) {
        if (row.typeCode == typeCode) return (this->*row.loader)(name, attributes);
    }
    // Four variants of one item; the button tells them apart.
    if (typeCode >= kFirstButtonType && typeCode <= kLastButtonType) DrawDialogButton(name, attributes, typeCode);
}

bool XConstructionSet::HasRight(std::wstring_view rightName) {
    const qv::Bstr name(rightName);
    return m_multiUser && m_multiUser->CheckRight(name.Get()) == S_OK;
}

std::optional<bool> XConstructionSet::IsGroupGranted(std::int32_t scopeCode) {
    if (scopeCode < 0 || scopeCode >= static_cast<std::int32_t>(kScopeCodes)) return std::nullopt;
    return m_multiUser && m_multiUser->CheckRight(m_rightNames[static_cast<std::size_t>(scopeCode)].Get()) == S_OK;
}

std::optional<SESSIONDATATYPE> XConstructionSet::FindScope(std::int32_t scopeCode) {
    if (scopeCode < 0 || scopeCode >= static_cast<std::int32_t>(kScopeCodes)) return std::nullopt;
    return kScopeTable[scopeCode].scope;
}

std::wstring XConstructionSet::MakeItemKey(std::wstring_view definitionName) {
    const auto parts = qv::SplitPath(definitionName);
    if (!parts) return {};
    // Both parts are views into the name, with just the separator between them.
    return std::wstring(parts->key.data(), parts->key.size() + 1 + parts->name.size());
}

PageRecord& XConstructionSet::PageOf(std::int32_t pageNumber) {
    auto& record = m_pages[pageNumber];
    if (!record) record = std::make_unique<PageRecord>();
    return *record;
}

void XConstructionSet::AddPlainRow(std::unique_ptr<XLayout::Column> row, ItemDraft& draft,
                                   std::optional<RangePair> range) {
    ItemFacts facts{.scope = draft.scope, .range = range, .defaultText = {}};
    if (draft.hasDefault) facts.defaultText = std::move(draft.defaultText);
    PageOf(draft.page).AddItem(std::move(row), std::move(facts));
}

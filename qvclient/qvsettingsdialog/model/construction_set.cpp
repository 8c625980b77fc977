#include "qvclient/qvsettingsdialog/model/construction_set.h"

#include "base/text.h"
#include "host/libraries/translation.h"
#include "qvclient/qvsettingsdialog/model/item_types.h"

namespace {

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

}  // namespace

XConstructionSet::XConstructionSet(std::wstring optionKey, std::int32_t controlPath, IQVSettingsDialogDataIO* dataIO,
                                   qv::ComPtr<ISessionDataManager> sessionData, qv::ComPtr<IMultiUserManager> multiUser,
                                   qv::ControlFactory makeControl)
    : ItemSource(std::move(multiUser)),
      m_optionKey(std::move(optionKey)),
      m_controlPath(static_cast<SESSIONDATATYPE>(controlPath)),
      m_sessionData(std::move(sessionData)),
      m_makeControl(makeControl) {
    // deliberate: the answers are discarded; hosts prepare the rights here, and every item asks again for its own.
    for (std::int32_t code = 0; code < kScopeCodes; ++code)
        (void)IsGroupGranted(code);

    // deliberate: the user data are asked for even when the first scope could not be loaded.
    const qv::ComPtr<ISessionDataManager> manager = m_sessionData;
    if (!manager) return;
    for (const SESSIONDATATYPE scope : {m_controlPath, SDT_userData}) {
        if (manager->LoadData(scope) != S_OK) m_sessionData.Reset();
    }
    // Without session data the caller's own store is not asked either.
    if (!m_sessionData) return;
    if (dataIO != nullptr) {
        m_values =
            std::make_unique<qv::HostValueStore<IQVSettingsDialogDataIO, &IQVSettingsDialogDataIO::GetData>>(*dataIO);
    } else {
        m_values = std::make_unique<qv::HostValueStore<ISessionDataManager, &ISessionDataManager::ReadData>>(
            *m_sessionData.Get());
    }
}

XConstructionSet::~XConstructionSet() {
    m_pages.clear();
    m_values.reset();
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
    for (const Attribute& page : titles.All())
        pages.push_back({qv::LeadingInteger(page.name), CoTranslateText(page.text)});
    pages.sort([](const PageEntry& a, const PageEntry& b) { return a.number < b.number; });
    return true;
}

bool XConstructionSet::LoadItems(std::map<std::int32_t, PageRecord*>& items, const std::function<bool()>& goesOn) {
    if (!m_sessionData) return false;
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
        for (const Attribute& attribute : attributes.All()) {
            if (attribute.name != L"type") continue;  // as it stands: a blank makes it another name
            DrawItem(qv::LeadingInteger(attribute.text), {name, SysStringLen(name)}, attributes);
        }
        if (goesOn && !goesOn()) return false;
    }
    for (const auto& [number, record] : m_pages)
        items[number] = record.get();
    return true;
}

void XConstructionSet::DrawItem(std::int32_t typeCode, std::wstring_view name, const AttributeMap& attributes) {
    const qv::ItemType* type = qv::FindItemType(typeCode);
    if (type == nullptr) return;
    qv::LoadedItem item;
    if (!type->load({.source = *this, .name = name, .attributes = attributes, .type = *type}, item)) return;

    // A control may have something to say about its value; its page is there once that is done.
    std::unique_ptr<SpecialControl> control = item.control ? m_makeControl(*std::move(item.control)) : nullptr;
    auto& record = m_pages[item.page];
    if (!record) record = std::make_unique<PageRecord>();
    if (control != nullptr) {
        record->AddItem(std::move(item.row), std::move(item.facts), type->kind.value(), std::move(control));
    } else {
        record->AddItem(std::move(item.row), std::move(item.facts));
    }
}

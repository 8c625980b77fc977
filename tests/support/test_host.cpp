#include "tests/support/test_host.h"

namespace qvtest {
namespace {

std::wstring UnderOptionKey(std::wstring_view path) {
    return std::wstring(kOptionKey) + L"/" + std::wstring(path);
}

}  // namespace

TestHost::TestHost() : session(qv::MemorySessionData::Create()), users(qv::MultiUserManager::CreateWithAllRights()) {}

void TestHost::DefinePage(std::wstring_view number, std::wstring_view title) {
    session->Define(UnderOptionKey(L"pages"), number, title);
}

void TestHost::DefineItem(std::wstring_view itemKey, Attributes attributes) {
    const std::wstring key = UnderOptionKey(itemKey);
    session->Define(key, L"globaldata", L"0");
    for (const auto& [name, text] : attributes)
        session->Define(key, name, text);
}

void TestHost::DefineItem(std::wstring_view itemKey, int type, int page, Attributes attributes) {
    DefineItem(itemKey, {{L"type", std::to_wstring(type)},
                         {L"label", itemKey.substr(itemKey.rfind(L'/') + 1)},
                         {L"pagenumber", std::to_wstring(page)}});
    DefineItem(itemKey, attributes);
}

void TestHost::DefinePlainPage() {
    DefinePage(L"1", L"General");
    const auto define = [this](const wchar_t* name, const wchar_t* label, int type, const wchar_t* stored,
                               Attributes own = {}) {
        const std::wstring itemKey = std::wstring(L"common/") + name;
        DefineItem(itemKey, type, 1, {{L"label", label}, {L"ordernumber", std::to_wstring(type)}});
        DefineItem(itemKey, own);
        session->Put(SDT_userData, L"common", name, stored);
    };
    define(L"flag", L"Flag", 0, L"0");
    define(L"count", L"Count", 1, L"7", {{L"default", L"4"}, {L"lowerbound", L"0"}, {L"upperbound", L"10"}});
    define(L"ratio", L"Ratio", 2, L"1.5", {{L"default", L"2"}, {L"lowerbound", L"0.5"}, {L"upperbound", L"2.5"}});
    define(L"name", L"Name", 3, L"Anna");
    define(L"unit", L"Unit", 4, L"mm", {{L"value1", L"mm|Millimetre"}, {L"value2", L"cm|Centimetre"}});
}

std::wstring TestHost::Stored(std::wstring_view itemKey) const {
    const std::size_t slash = itemKey.rfind(L'/');
    const std::wstring* text = session->GetSaved(SDT_userData, itemKey.substr(0, slash), itemKey.substr(slash + 1));
    return text != nullptr ? *text : L"(none)";
}

}  // namespace qvtest

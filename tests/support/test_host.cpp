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

void TestHost::DefinePlainPage() {
    DefinePage(L"1", L"General");
    int order = 0;
    const auto define = [&](std::wstring_view name, std::wstring_view label, std::wstring_view type,
                            std::wstring_view stored, Attributes own = {}) {
        const std::wstring itemKey = L"common/" + std::wstring(name);
        DefineItem(
            itemKey,
            {{L"type", type}, {L"label", label}, {L"pagenumber", L"1"}, {L"ordernumber", std::to_wstring(++order)}});
        DefineItem(itemKey, own);
        session->Put(SDT_userData, L"common", name, stored);
    };
    define(L"flag", L"Flag", L"0", L"0");
    define(L"count", L"Count", L"1", L"7", {{L"default", L"4"}, {L"lowerbound", L"0"}, {L"upperbound", L"10"}});
    define(L"ratio", L"Ratio", L"2", L"1.5", {{L"default", L"2"}, {L"lowerbound", L"0.5"}, {L"upperbound", L"2.5"}});
    define(L"name", L"Name", L"3", L"Anna");
    define(L"unit", L"Unit", L"4", L"mm", {{L"value1", L"mm|Millimetre"}, {L"value2", L"cm|Centimetre"}});
}

std::wstring TestHost::Stored(std::wstring_view itemKey) const {
    const std::size_t slash = itemKey.rfind(L'/');
    const std::wstring* text = session->GetSaved(SDT_userData, itemKey.substr(0, slash), itemKey.substr(slash + 1));
    return text != nullptr ? *text : L"(none)";
}

}  // namespace qvtest

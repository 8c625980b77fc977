#include "qvclient/qvsettingsdialog/dialogs/placement_record.h"

#include <algorithm>
#include <array>
#include <cstdint>
#include <string>

#include "base/text.h"

namespace {

constexpr std::wstring_view kRecordKey = L"SizeConfigDialog";
constexpr int kDefaultWidth = 470;
constexpr int kDefaultHeight = 360;
constexpr LONG kNearest = -32768;  // coordinates of windows are told in 16 bits
constexpr LONG kFarthest = 32767;

// One value of the record. Names are in lower case, as the record holds them.
struct Field {
    std::wstring_view name;
    int (*get)(const WINDOWPLACEMENT&);
    void (*set)(WINDOWPLACEMENT&, int);
};

// In writing order.
constexpr std::array kFields{
    Field{L"flags", [](const WINDOWPLACEMENT& p) { return static_cast<int>(p.flags); },
          [](WINDOWPLACEMENT& p, int value) { p.flags = static_cast<UINT>(value); }},
    Field{L"state", [](const WINDOWPLACEMENT& p) { return static_cast<int>(p.showCmd); },
          [](WINDOWPLACEMENT& p, int value) { p.showCmd = static_cast<UINT>(value); }},
    Field{L"max.x", [](const WINDOWPLACEMENT& p) { return static_cast<int>(p.ptMaxPosition.x); },
          [](WINDOWPLACEMENT& p, int value) { p.ptMaxPosition.x = value; }},
    Field{L"max.y", [](const WINDOWPLACEMENT& p) { return static_cast<int>(p.ptMaxPosition.y); },
          [](WINDOWPLACEMENT& p, int value) { p.ptMaxPosition.y = value; }},
    Field{L"min.x", [](const WINDOWPLACEMENT& p) { return static_cast<int>(p.ptMinPosition.x); },
          [](WINDOWPLACEMENT& p, int value) { p.ptMinPosition.x = value; }},
    Field{L"min.y", [](const WINDOWPLACEMENT& p) { return static_cast<int>(p.ptMinPosition.y); },
          [](WINDOWPLACEMENT& p, int value) { p.ptMinPosition.y = value; }},
    Field{L"top.x", [](const WINDOWPLACEMENT& p) { return static_cast<int>(p.rcNormalPosition.left); },
          [](WINDOWPLACEMENT& p, int value) { p.rcNormalPosition.left = value; }},
    Field{L"top.y", [](const WINDOWPLACEMENT& p) { return static_cast<int>(p.rcNormalPosition.top); },
          [](WINDOWPLACEMENT& p, int value) { p.rcNormalPosition.top = value; }},
    Field{L"bottom.x", [](const WINDOWPLACEMENT& p) { return static_cast<int>(p.rcNormalPosition.right); },
          [](WINDOWPLACEMENT& p, int value) { p.rcNormalPosition.right = value; }},
    Field{L"bottom.y", [](const WINDOWPLACEMENT& p) { return static_cast<int>(p.rcNormalPosition.bottom); },
          [](WINDOWPLACEMENT& p, int value) { p.rcNormalPosition.bottom = value; }},
};

enum class Switch { Unknown, Off, On };

Switch ReadSwitch(ISessionDataManager& sessionData, std::wstring_view key, std::wstring_view valueName,
                  SESSIONDATATYPE scope) {
    const qv::Bstr keyText(key);
    const qv::Bstr nameText(valueName);
    qv::Variant value = qv::Receive<qv::Variant>([&](VARIANT* out) {
                            return sessionData.ReadData(keyText.Get(), nameText.Get(), VT_BSTR, out, scope);
                        }).value;
    if (!value.Text()) return Switch::Unknown;
    // The platform's conversion to a 16-bit number decides: a text beyond that range is no 1.
    if (FAILED(value.ChangeType(VT_I2))) return Switch::Off;
    return value.Get().iVal == 1 ? Switch::On : Switch::Off;
}

}  // namespace

WINDOWPLACEMENT InitialPlacement() noexcept {
    WINDOWPLACEMENT placement{};
    placement.length = sizeof placement;
    placement.showCmd = SW_SHOWNORMAL;
    placement.rcNormalPosition = {0, 0, kDefaultWidth, kDefaultHeight};
    return placement;
}

bool IsPlacementSwitchedOn(const XConstructionSet& constructionSet) {
    ISessionDataManager* sessionData = constructionSet.SessionData();
    if (sessionData == nullptr) return false;
    Switch state = ReadSwitch(*sessionData, L"common", L"configdialoginit", SDT_allData);
    if (state == Switch::Unknown) {
        state = ReadSwitch(*sessionData, constructionSet.OptionKey() + L"/common/configdialoginit", L"default",
                           constructionSet.ControlPath());
    }
    return state == Switch::On;
}

WINDOWPLACEMENT WithinWindowSpace(WINDOWPLACEMENT placement) noexcept {
    const auto clip = [](LONG& coordinate) { coordinate = std::clamp(coordinate, kNearest, kFarthest); };
    // The start is clipped and the size kept, as far as a window can be that big.
    const auto clipSpan = [&](LONG& start, LONG& end) {
        const auto size = std::clamp<std::int64_t>(std::int64_t{end} - start, kNearest, kFarthest);
        clip(start);
        end = start + static_cast<LONG>(size);
    };
    clip(placement.ptMinPosition.x);
    clip(placement.ptMinPosition.y);
    clip(placement.ptMaxPosition.x);
    clip(placement.ptMaxPosition.y);
    clipSpan(placement.rcNormalPosition.left, placement.rcNormalPosition.right);
    clipSpan(placement.rcNormalPosition.top, placement.rcNormalPosition.bottom);
    return placement;
}

void ReadPlacementRecord(ISessionDataManager& sessionData, WINDOWPLACEMENT& placement) {
    constexpr ULONG kNameAndText = 2;
    const qv::Bstr key(kRecordKey);
    const qv::StringBlock values = qv::ReceiveStrings(kNameAndText, [&](ULONG* count, BSTR** pairs) {
                                       return sessionData.EnumValues(key.Get(), count, pairs, SDT_allData);
                                   }).value;
    for (std::size_t i = 0; i < values.Count(); ++i) {
        const std::wstring name = qv::ToLower(qv::TextOf(values.At(kNameAndText * i)));
        const int value = qv::LeadingInteger(qv::TextOf(values.At(kNameAndText * i + 1)));
        for (const Field& field : kFields) {
            if (field.name == name) field.set(placement, value);
        }
    }
}

void WritePlacementRecord(ISessionDataManager& sessionData, const WINDOWPLACEMENT& placement, int flags) {
    const qv::Bstr key(kRecordKey);
    WINDOWPLACEMENT stored = placement;
    stored.flags = static_cast<UINT>(flags);
    for (const Field& field : kFields) {
        const qv::Bstr name(field.name);
        const qv::Variant value(qv::Format(L"%d", field.get(stored)));
        if (sessionData.WriteData(key.Get(), name.Get(), value.Get(), SDT_userData) != S_OK) return;
    }
    for (const Field& field : kFields) {
        const qv::Bstr name(field.name);
        sessionData.SaveData(SDT_userData, key.Get(), name.Get());
    }
}

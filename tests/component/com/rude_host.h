// A host that behaves until its turn comes: at one call of a whole run, whichever the test names, it leaves in the out
// parameters what no caller can use. Everything else goes to the well-behaved session that it stands in front of.
#pragma once

#include "qvclient/qvsettingsdialog/resources/settings_interfaces.h"
#include "tests/support/host_stubs.h"

enum class Rudeness {
    FailsWithPoison,   // a failing status, pointers that lead nowhere
    FalseWithPoison,   // S_FALSE, which is a failure of session data, and the same pointers
    NothingDelivered,  // S_OK and null pointers, a null block with a count, a null text
    SomethingElse,     // S_OK and a number for a text, an empty block with memory behind it
};

// Counts the calls that hand something out.
struct RudeTurn {
    [[nodiscard]] bool Comes() noexcept { return ++calls == rudeCall; }
    int rudeCall = 0;  // from 1; 0: none
    Rudeness how = Rudeness::FailsWithPoison;
    int calls = 0;
};

// Hands itself out rudely, too.
template <class Stub>
class Rude : public Stub {
public:
    template <class... Arguments>
    explicit Rude(RudeTurn& turn, Arguments... arguments) : Stub(arguments...), m_turn(turn) {}
    HRESULT STDMETHODCALLTYPE QueryInterface(REFIID iid, void** object) override;

protected:
    RudeTurn& m_turn;
};

class RudeSession final : public Rude<qvtest::SessionStub> {
public:
    using Rude::Rude;
    HRESULT STDMETHODCALLTYPE EnumSubKeys(BSTR key, LONG flag, ULONG* count, BSTR** names,
                                          SESSIONDATATYPE scope) override;
    HRESULT STDMETHODCALLTYPE ReadData(BSTR key, BSTR name, USHORT type, VARIANT* value,
                                       SESSIONDATATYPE scope) override;
    HRESULT STDMETHODCALLTYPE EnumValues(BSTR key, ULONG* count, BSTR** pairs, SESSIONDATATYPE scope) override;
};

// Its turn to be good: every text becomes "edited".
class RudeDialogs final : public Rude<qvtest::DialogsStub> {
public:
    using Rude::Rude;

private:
    HRESULT Open(const wchar_t* dialog, BSTR argument, BSTR* value, LONG number) override;
};

class RudeHost final : public Rude<qvtest::HostStub> {
public:
    using Rude::Rude;
    HRESULT STDMETHODCALLTYPE CreateObject(REFGUID id, DWORD number, IUnknown** object) override;
};

// A caller's own store in front of the same session data.
class RudeStore final : public Rude<qvtest::StackObject<IQVSettingsDialogDataIO>> {
public:
    RudeStore(RudeTurn& turn, ISessionDataManager& behind)
        : Rude(turn, IID_IQVSettingsDialogDataIO), m_behind(behind) {}
    HRESULT STDMETHODCALLTYPE GetData(BSTR key, BSTR name, USHORT type, VARIANT* value, SESSIONDATATYPE scope) override;
    HRESULT STDMETHODCALLTYPE WriteData(BSTR key, BSTR name, VARIANT value, SESSIONDATATYPE scope) override {
        return m_behind.WriteData(key, name, value, scope);
    }
    HRESULT STDMETHODCALLTYPE SaveData(SESSIONDATATYPE scope, BSTR key, BSTR name) override {
        return m_behind.SaveData(scope, key, name);
    }

private:
    ISessionDataManager& m_behind;
};

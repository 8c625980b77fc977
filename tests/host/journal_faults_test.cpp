// Saving on a disk that is full. Native only: such a disk is made by a door of the desktop in memory.
#include "platform/headless/doors/faults.h"
#include "tests/host/session_files.h"

namespace {

class FullDisk : public qvtest::SessionFiles {
protected:
    FullDisk() {
        EXPECT_TRUE(m_caller.Store(SDT_userData, L"k", L"old", L"1"));
        m_before = Peek(m_folder, kJournal);
        EXPECT_EQ(m_caller.Write(SDT_userData, L"k", L"new", L"2"), S_OK);
    }
    ~FullDisk() override {
        qv::headless::LimitDisk(std::nullopt);
        qv::headless::FailSetEndOfFile(0, 0);
    }
    HRESULT SaveWithRoomFor(std::optional<std::size_t> bytes) {
        qv::headless::LimitDisk(bytes);
        const HRESULT saved = m_caller.Save(SDT_userData, L"k", L"new");
        qv::headless::LimitDisk(std::nullopt);
        return saved;
    }
    // The values of a program that starts now, all others being killed.
    std::optional<Texts> Survivors() {
        const qvtest::TemporaryFolder copy;
        KillInto(copy);
        const auto next = StartIn(copy);
        return SessionCaller(*next.Get()).Values(L"k", SDT_userData);
    }
    static constexpr const wchar_t* kJournal = L"user.json.journal";
    qv::ComPtr<qv::FileSessionData> m_data = Start();
    SessionCaller m_caller{*m_data.Get()};
    std::string m_before;
};

TEST_F(FullDisk, SaveThatDoesNotFitFailsAndLeavesTheJournalAsItWas) {
    for (std::size_t room = 0; room < m_before.size(); ++room) {
        EXPECT_NE(SaveWithRoomFor(room), S_OK) << room;
        EXPECT_EQ(Peek(m_folder, kJournal), m_before) << room;
    }
    EXPECT_EQ(SaveWithRoomFor(m_before.size()), S_OK) << "the record is as long as the first";
    EXPECT_EQ(Survivors(), (Texts{L"old", L"1", L"new", L"2"}));
}

TEST_F(FullDisk, RestThatCannotBeCutOffIsNotBuiltUpon) {
    qv::headless::FailSetEndOfFile(1, ERROR_ACCESS_DENIED);
    EXPECT_NE(SaveWithRoomFor(10), S_OK);
    EXPECT_EQ(Peek(m_folder, kJournal).size(), m_before.size() + 10);
    EXPECT_EQ(Survivors(), (Texts{L"old", L"1"}));
    qv::headless::FailSetEndOfFile(1, ERROR_ACCESS_DENIED);
    EXPECT_NE(SaveWithRoomFor(std::nullopt), S_OK) << "the rest is still there";
    EXPECT_EQ(SaveWithRoomFor(std::nullopt), S_OK);
    EXPECT_EQ(Survivors(), (Texts{L"old", L"1", L"new", L"2"}));
    EXPECT_EQ(m_problems, Texts{});
}

TEST_F(FullDisk, FoldingLeavesDocumentAndJournal) {
    m_folder.Write(L"user.json", R"({"k": {"x": "0"}})");
    qv::headless::LimitDisk(20);
    EXPECT_FALSE(m_data->Fold());
    EXPECT_EQ(m_folder.Files(), (Texts{L"user.json", kJournal}));
    EXPECT_EQ(Peek(m_folder, kJournal), m_before);
    EXPECT_EQ(m_folder.Read(L"user.json"), R"({"k": {"x": "0"}})");
    EXPECT_EQ(SaveWithRoomFor(std::nullopt), S_OK);
    EXPECT_EQ(Survivors(), (Texts{L"x", L"0", L"old", L"1", L"new", L"2"}));
}

}  // namespace

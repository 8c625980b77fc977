// What is saved and not yet folded: none of it may be lost, whoever ends or reads when.
#include "tests/host/session_files.h"

namespace {

class JournalFiles : public qvtest::SessionFiles {
protected:
    static constexpr const wchar_t* kJournal = L"user.json.journal";

    static bool Store(qv::FileSessionData& data, std::wstring_view name, std::wstring_view text) {
        return SessionCaller(data).Store(SDT_userData, L"k", name, text);
    }
    static std::optional<std::wstring> Read(qv::FileSessionData& data, std::wstring_view name) {
        return SessionCaller(data).Read(SDT_userData, L"k", name);
    }
    // The journal of a program that stored a, b and c, one letter each, and was killed.
    std::string LeftBehind() {
        const auto data = Start();
        for (const wchar_t* name : {L"a", L"b", L"c"})
            EXPECT_TRUE(Store(*data.Get(), name, name));
        return Peek(m_folder, kJournal);
    }
    qvtest::TemporaryFolder m_copy;
};

TEST_F(JournalFiles, SavedTextOfAnyKindOutlivesAKill) {
    const std::pair<std::wstring, std::wstring> texts[] = {
        {L"empty", L""},
        {L"lines", L"\r\n\"\\\t] [\u2028\x01"},
        {std::wstring(L"n\0l", 3), std::wstring(L"\0a\0", 3)},
        {L"\"name\n", L"\U0001F600 ä"},
        {L"long", std::wstring(3'000'000, L'x')},
    };
    const auto data = Start();
    SessionCaller caller(*data.Get());
    ASSERT_EQ(caller.Write(SDT_userData, L"k", L"unsaved", L"x"), S_OK);
    for (const auto& [name, text] : texts)
        ASSERT_TRUE(Store(*data.Get(), name, L"earlier") && Store(*data.Get(), name, text));
    ASSERT_TRUE(Store(*data.Get(), L"half", std::wstring(1, wchar_t{0xD800})));
    EXPECT_EQ(m_folder.Files(), Texts{kJournal});
    KillInto(m_copy);

    for (const char* reader : {"of the journal", "of the document that it was folded into"}) {
        const auto next = StartIn(m_copy);
        for (const auto& [name, text] : texts)
            EXPECT_EQ(Read(*next.Get(), name), text) << reader;
        EXPECT_EQ(Read(*next.Get(), L"half"), L"\uFFFD") << reader << ": half a character is none";
        EXPECT_EQ(Read(*next.Get(), L"unsaved"), std::nullopt) << reader;
        EXPECT_EQ(m_copy.Files(), Texts{L"user.json"}) << reader;
    }
    EXPECT_EQ(m_problems, Texts{});
}

TEST_F(JournalFiles, SavingWritesTheRecordAndNothingElse) {
    m_folder.Write(L"user.json", "{ \"k\": { \"x\": \"1\" } }\n\n");
    const auto data = Start();
    ASSERT_TRUE(Store(*data.Get(), L"1000", L"text"));
    const std::size_t record = Peek(m_folder, kJournal).size();
    for (int i = 1001; i < 2000; ++i)
        ASSERT_TRUE(Store(*data.Get(), std::to_wstring(i), L"text"));
    ASSERT_TRUE(Store(*data.Get(), L"1000", L"text")) << "what is there already needs no record";
    EXPECT_EQ(Peek(m_folder, kJournal).size(), 1000 * record);
    EXPECT_EQ(m_folder.Read(L"user.json"), "{ \"k\": { \"x\": \"1\" } }\n\n");
    EXPECT_TRUE(data->Fold());
    EXPECT_EQ(m_folder.Files(), Texts{L"user.json"});
    EXPECT_EQ(ReadAfresh(SDT_userData, L"k", L"1999"), L"text");
}

TEST_F(JournalFiles, RecordCutOffAtAnyByteIsDroppedAndTheOthersAreKept) {
    const std::string whole = LeftBehind();
    const std::size_t last = whole.rfind('\n', whole.size() - 2) + 1;
    for (std::size_t size = last; size < whole.size(); ++size) {
        const qvtest::TemporaryFolder folder;
        folder.Write(kJournal, whole.substr(0, size));
        {
            const auto data = StartIn(folder);
            EXPECT_EQ(Read(*data.Get(), L"b"), L"b") << size;
            EXPECT_EQ(Read(*data.Get(), L"c"), std::nullopt) << size;
            EXPECT_TRUE(Store(*data.Get(), L"d", L"d"));
        }
        const auto next = StartIn(folder);
        EXPECT_EQ(Read(*next.Get(), L"a"), L"a") << size;
        EXPECT_EQ(Read(*next.Get(), L"d"), L"d") << size;
        EXPECT_EQ(folder.Files(), Texts{L"user.json"});
    }
    EXPECT_EQ(m_problems, Texts{});
}

TEST_F(JournalFiles, DamagedByteCostsItsRecordIsReportedAndKeptAside) {
    const std::string whole = LeftBehind();
    const std::size_t record = whole.size() / 3;
    for (std::size_t i = record; i < 2 * record; ++i) {
        const qvtest::TemporaryFolder folder;
        std::string damaged = whole;
        damaged[i] ^= 1;
        folder.Write(kJournal, damaged);
        m_problems.clear();
        for (const char* load : {"first", "second"}) {
            const auto data = StartIn(folder);
            const bool isLineEnd = i == 2 * record - 1;
            EXPECT_EQ(Read(*data.Get(), L"a"), L"a") << i << load;
            EXPECT_EQ(Read(*data.Get(), L"b"), std::nullopt) << i << load;
            EXPECT_EQ(Read(*data.Get(), L"c").has_value(), !isLineEnd) << i << load;
        }
        ASSERT_EQ(m_problems.size(), 1u) << i;
        EXPECT_NE(m_problems[0].find(L"user.json.journal.damaged"), std::wstring::npos) << m_problems[0];
        EXPECT_EQ(folder.Files(), (Texts{L"user.json", L"user.json.journal.damaged"}));
        EXPECT_EQ(folder.Read(L"user.json.journal.damaged"), damaged);
    }
    // The sum is right and the record is none.
    m_folder.Write(kJournal, "89fe915c8ce0a11f [\"k\",\"a\"]\n");
    EXPECT_EQ(ReadAfresh(SDT_userData, L"k", L"a"), L"a");
    EXPECT_EQ(m_problems.size(), 2u);
}

TEST_F(JournalFiles, FoldingKeepsWhatOthersPutIntoTheDocumentAndIsTheSameWhenRepeated) {
    const auto data = Start();
    ASSERT_TRUE(Store(*data.Get(), L"a", L"mine"));
    const std::string journal = Peek(m_folder, kJournal);
    m_folder.Write(L"user.json", R"({"other": {"b": "theirs"}, "k": {"a": "old", "c": "theirs"}})");
    EXPECT_TRUE(data->Fold());
    const std::string folded = m_folder.Read(L"user.json");
    EXPECT_EQ(m_folder.Files(), Texts{L"user.json"});
    // As when the program was killed between replacing the document and deleting the journal.
    m_folder.Write(kJournal, journal);
    const auto next = Start();
    EXPECT_EQ(SessionCaller(*next.Get()).Values(L"k", SDT_userData), (Texts{L"a", L"mine", L"c", L"theirs"}));
    EXPECT_EQ(SessionCaller(*next.Get()).Read(SDT_userData, L"other", L"b"), L"theirs");
    EXPECT_EQ(m_folder.Read(L"user.json"), folded);
    EXPECT_EQ(m_folder.Files(), Texts{L"user.json"});
}

TEST_F(JournalFiles, FoldingThatFailsLeavesDocumentAndJournal) {
    m_folder.Write(L"user.json", R"({"k": {"x": "1"}})");
    // A folder stands where the new document has to be written.
    ASSERT_NE(::CreateDirectoryW(m_folder.At(L"user.json.new").c_str(), nullptr), FALSE);
    const auto data = Start();
    ASSERT_TRUE(Store(*data.Get(), L"a", L"1"));
    EXPECT_FALSE(data->Fold());
    ASSERT_EQ(m_problems.size(), 1u);
    EXPECT_NE(m_problems[0].find(kJournal), std::wstring::npos) << m_problems[0];
    EXPECT_EQ(m_folder.Read(L"user.json"), R"({"k": {"x": "1"}})");
    ASSERT_TRUE(Store(*data.Get(), L"b", L"2"));
    ASSERT_EQ(data->LoadData(SDT_userData), S_OK);
    EXPECT_EQ(Read(*data.Get(), L"a"), L"1") << "seen although it cannot be folded";
    KillInto(m_copy);
    const auto next = StartIn(m_copy);
    EXPECT_EQ(SessionCaller(*next.Get()).Values(L"k", SDT_userData), (Texts{L"x", L"1", L"a", L"1", L"b", L"2"}));

    ::RemoveDirectoryW(m_folder.At(L"user.json.new").c_str());
    EXPECT_TRUE(data->Fold());
    EXPECT_EQ(m_folder.Files(), Texts{L"user.json"});
    EXPECT_EQ(ReadAfresh(SDT_userData, L"k", L"b"), L"2");
}

TEST_F(JournalFiles, ProgramsThatShareAFolderLoseNothingOfEachOther) {
    {
        const auto mine = Start();
        const auto other = Start();
        ASSERT_TRUE(Store(*mine.Get(), L"a", L"1") && Store(*other.Get(), L"b", L"2"));
        EXPECT_EQ(m_folder.Files(), (Texts{kJournal, L"user.json.journal.2"}));
        ASSERT_EQ(mine->LoadData(SDT_userData), S_OK);
        EXPECT_EQ(Read(*mine.Get(), L"b"), L"2") << "seen before it is folded";
        ASSERT_TRUE(Store(*mine.Get(), L"c", L"3") && Store(*other.Get(), L"d", L"4"));
        KillInto(m_copy);

        const HANDLE folding = ::CreateFileW(m_folder.At(L"user.json.folding").c_str(), GENERIC_WRITE, 0, nullptr,
                                             OPEN_ALWAYS, FILE_FLAG_DELETE_ON_CLOSE, nullptr);
        const std::string before = m_folder.Read(L"user.json");
        m_folder.Write(L"user.json.journal.9", Peek(m_folder, kJournal));
        EXPECT_FALSE(mine->Fold()) << "while a third one folds";
        EXPECT_EQ(ReadAfresh(SDT_userData, L"k", L"c"), L"3");
        EXPECT_EQ(m_folder.Read(L"user.json"), before);
        ::CloseHandle(folding);
    }
    for (const qvtest::TemporaryFolder* folder : {&m_folder, &m_copy}) {
        const auto next = StartIn(*folder);
        for (const auto& [name, text] : {std::pair(L"a", L"1"), {L"b", L"2"}, {L"c", L"3"}, {L"d", L"4"}})
            EXPECT_EQ(Read(*next.Get(), name), text);
        EXPECT_EQ(folder->Files(), Texts{L"user.json"});
    }
    EXPECT_EQ(m_problems, Texts{});
}

TEST_F(JournalFiles, JournalThatSomebodyHasOpenIsReadAndLeftAlone) {
    m_folder.Write(kJournal, LeftBehind());
    const HANDLE open =
        ::CreateFileW(m_folder.At(kJournal).c_str(), GENERIC_READ,
                      FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE, nullptr, OPEN_EXISTING, 0, nullptr);
    ::DeleteFileW(m_folder.At(L"user.json").c_str());
    EXPECT_EQ(ReadAfresh(SDT_userData, L"k", L"c"), L"c");
    EXPECT_EQ(m_folder.Files(), Texts{kJournal});
    ::CloseHandle(open);
}

TEST_F(JournalFiles, FoldedJournalThatCannotBeDeletedBringsNothingBack) {
    const auto data = Start();
    ASSERT_TRUE(Store(*data.Get(), L"a", L"old"));
    const HANDLE reader = ::CreateFileW(m_folder.At(kJournal).c_str(), GENERIC_READ, FILE_SHARE_READ | FILE_SHARE_WRITE,
                                        nullptr, OPEN_EXISTING, 0, nullptr);
    ASSERT_NE(reader, INVALID_HANDLE_VALUE);
    EXPECT_TRUE(data->Fold());
    ASSERT_TRUE(Store(*data.Get(), L"a", L"new") && data->Fold());
    ::CloseHandle(reader);
    EXPECT_EQ(ReadAfresh(SDT_userData, L"k", L"a"), L"new");
    EXPECT_EQ(m_folder.Files(), Texts{L"user.json"});
}

TEST_F(JournalFiles, SaveThatCannotBeWrittenIsAnsweredAsAFailure) {
    m_folder.Write(L"file", "");
    const auto data = qv::FileSessionData::Create(m_folder.At(L"file"), {});
    SessionCaller caller(*data.Get());
    EXPECT_EQ(caller.Write(SDT_userData, L"k", L"a", L"1"), S_OK);
    EXPECT_NE(caller.Save(SDT_userData, L"k", L"a"), S_OK);
    EXPECT_NE(caller.Save(SDT_userData, L"k", L"a"), S_OK) << "nor is it saved by asking twice";
}

}  // namespace

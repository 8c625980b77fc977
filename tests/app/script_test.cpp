#include "app/script.h"

#include <gtest/gtest.h>

#include "platform/platform.h"

namespace {

using Kind = qv::ScriptAction::Kind;

TEST(Script, EveryActionIsRead) {
    const struct {
        const wchar_t* line;
        Kind kind;
        std::wstring target;
        std::wstring text;
        int first = 0;
        int second = 0;
    } cases[] = {
        {L"page Two words", Kind::Page, L"Two words", L""},
        {L"  page\t3\r", Kind::Page, L"3", L""},
        {L"set a/b  several words ", Kind::Set, L"a/b", L"several words"},
        {L"set a/b", Kind::Set, L"a/b", L""},
        {L"press a/b", Kind::Press, L"a/b", L""},
        {L"key SHIFT+TAB", Kind::Key, L"SHIFT+TAB", L""},
        {L"type # is no remark here", Kind::Type, L"", L"# is no remark here"},
        {L"resize 640  480", Kind::Resize, L"", L"", 640, 480},
        {L"snapshot a b.png", Kind::Snapshot, L"a b.png", L""},
        {L"dump x.json", Kind::Dump, L"x.json", L""},
        {L"answer cancel", Kind::Answer, L"cancel", L"", IDCANCEL},
        {L"answer path C:\\a b", Kind::AnswerPath, L"path", L"C:\\a b"},
        {L"answer colour 255", Kind::AnswerColour, L"colour", L"", 255},
    };
    for (const auto& each : cases) {
        std::vector<qv::ScriptAction> actions;
        std::wstring problem;
        ASSERT_TRUE(qv::ParseScript(L"# remark\n\n" + std::wstring(each.line), actions, problem)) << each.line;
        ASSERT_EQ(actions.size(), 1u) << each.line;
        EXPECT_EQ(actions[0].kind, each.kind) << each.line;
        EXPECT_EQ(actions[0].line, 3) << each.line;
        EXPECT_EQ(actions[0].target, each.target);
        EXPECT_EQ(actions[0].text, each.text);
        EXPECT_EQ(actions[0].first, each.first) << each.line;
        EXPECT_EQ(actions[0].second, each.second) << each.line;
    }
}

TEST(Script, WrongLineIsNamed) {
    const std::pair<const wchar_t*, const wchar_t*> cases[] = {
        {L"page 1\n\ndance", L"line 3: unknown action \"dance\""},
        {L"PAGE 1", L"line 1: unknown action \"PAGE\""},
        {L"page", L"line 1: page needs to know what"},
        {L"set", L"line 1: set needs KEY/NAME and a text"},
        {L"type", L"line 1: type needs a text"},
        {L"resize 640", L"line 1: resize needs a width and a height in pixels"},
        {L"resize 640 -1", L"line 1: resize needs a width and a height in pixels"},
        {L"resize 9999999999 1", L"line 1: resize needs a width and a height in pixels"},
        {L"answer", L"line 1: answer needs ok, cancel, yes, no, retry, path or colour"},
        {L"answer maybe", L"line 1: answer needs ok, cancel, yes, no, retry, path or colour"},
        {L"answer ok ok", L"line 1: answer needs ok, cancel, yes, no, retry, path or colour"},
        {L"answer path", L"line 1: answer needs a path"},
        {L"answer colour red", L"line 1: answer needs a colour number"},
    };
    for (const auto& [script, expected] : cases) {
        std::vector<qv::ScriptAction> actions;
        std::wstring problem;
        EXPECT_FALSE(qv::ParseScript(script, actions, problem)) << script;
        EXPECT_EQ(problem, expected);
    }
}

}  // namespace

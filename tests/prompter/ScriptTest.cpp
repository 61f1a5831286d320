#include "model/Script.h"
#include "tests/support/CaseRows.h"

#include <gtest/gtest.h>

#include <map>
#include <string>
#include <vector>

using namespace prompter;

namespace {

std::vector<std::u16string> Titles(const Script& script)
{
    std::vector<std::u16string> titles;
    for (int i = 0; i < script.Count(); ++i) titles.push_back(script.At(i).Title());
    return titles;
}

TEST(Script, IsPartedAtDashesAndEmptyHeadingsAndWrittenAsItWasRead)
{
    const struct {
        const char16_t* text;
        std::vector<std::u16string> titles;
    } cases[] = {
        {u"", {u""}},
        {u"One\nline\n", {u"One"}},
        {u"One\n---\nTwo", {u"One", u"Two"}},
        {u"One\n  ---  \nTwo\n", {u"One", u"Two"}},
        {u"---\nOne\n---\nTwo\n", {u"One", u"Two"}},
        {u"One\n#\nTwo\n##\n# Three\n", {u"One", u"Two", u"Three"}},
        {u"One\n---", {u"One", u""}},
        {u"One\n----\n--\n- - -\n# x\n", {u"One"}},
        {u"\n\n  \u0633\u0644\u0627\u0645\n---\n\n", {u"\u0633\u0644\u0627\u0645", u""}},
    };
    for (const auto& c : cases) {
        Script script;
        script.SetText(c.text);
        EXPECT_EQ(Titles(script), c.titles) << testing::PrintToString(std::u16string(c.text));
        EXPECT_EQ(script.Text(), c.text);
        EXPECT_FALSE(script.IsModified());
    }
}

TEST(Script, StoriesKeepTheirKeysWhileTheyMove)
{
    Script script;
    script.SetText(u"---\nA\n#\nB\n---\nC");
    const auto key = script.At(2).key;
    script.Move(2, 0);
    EXPECT_EQ(Titles(script), (std::vector<std::u16string>{u"C", u"A", u"B"}));
    EXPECT_EQ(script.IndexOf(key), 0);
    EXPECT_EQ(script.Text(), u"---\nC\n---\nA\n#\nB\n");
    EXPECT_TRUE(script.IsModified());
    script.Move(0, 2);
    EXPECT_EQ(Titles(script), (std::vector<std::u16string>{u"A", u"B", u"C"}));
    const int added = script.Insert(1, u"New\n", "new.txt");
    EXPECT_EQ(added, 1);
    script.Remove(0);
    EXPECT_EQ(Titles(script), (std::vector<std::u16string>{u"New", u"B", u"C"}));
    while (script.Count() > 1) script.Remove(0);
    script.Remove(0);
    EXPECT_EQ(script.Count(), 1);
    EXPECT_EQ(script.Text(), u"---\n");
}

TEST(Script, OnlyARealChangeModifiesIt)
{
    Script script;
    script.SetText(u"A");
    script.SetStoryText(0, u"A");
    EXPECT_FALSE(script.IsModified());
    script.SetStoryText(0, u"B");
    EXPECT_TRUE(script.IsModified());
    script.MarkSaved();
    EXPECT_FALSE(script.IsModified());
}

TEST(Script, NewsNeverOverwriteWhatTheUserEdits)
{
    using News = Script::News;
    Script script;
    script.SetText(u"Own");
    EXPECT_EQ(script.TakeNews("a.txt", u"first", 0), News::added);
    EXPECT_EQ(script.TakeNews("a.txt", u"first", 0), News::unchanged);
    EXPECT_EQ(script.TakeNews("a.txt", u"second", 0), News::replaced);
    const auto key = script.At(1).key;
    EXPECT_EQ(script.TakeNews("a.txt", u"third", key), News::beside) << "the cursor stands in it";
    EXPECT_EQ(script.TakeNews("a.txt", u"fourth", key), News::replaced) << "the one beside is nobody's yet";
    EXPECT_EQ(Titles(script), (std::vector<std::u16string>{u"Own", u"second", u"fourth"}));
    script.SetStoryText(2, u"fourth, edited");
    EXPECT_EQ(script.TakeNews("a.txt", u"fifth", 0), News::beside);
    script.KeepOnly(script.At(3).key);
    EXPECT_EQ(Titles(script), (std::vector<std::u16string>{u"Own", u"fifth"}));
    script.KeepOnly(script.At(0).key);
    EXPECT_EQ(script.Count(), 2) << "stories of the script itself stay";
}

TEST(ScriptText, EveryFormIsWrittenBackByteForByte)
{
    const std::map<std::string, Encoding> encodings = {{"utf8", Encoding::utf8},
                                                       {"utf8 with mark", Encoding::utf8WithMark},
                                                       {"utf16 little", Encoding::utf16Little},
                                                       {"utf16 big", Encoding::utf16Big},
                                                       {"code page", Encoding::codePage}};
    for (CaseRow row : CaseRows(TEST_DATA "/script_files.tsv")) {
        const std::string bytes = row.Bytes();
        const ScriptText read = DecodeScript(bytes, row.Number<unsigned>());
        EXPECT_EQ(read.form.encoding, encodings.at(row.Word())) << row.Line();
        EXPECT_EQ(read.text, row.Units()) << row.Line();
        EXPECT_TRUE(read.isExact);
        EXPECT_EQ(EncodeScript(read.text, read.form), bytes) << row.Line();
    }
}

TEST(ScriptText, WhatCannotComeBackIsKnownBeforeASave)
{
    EXPECT_FALSE(DecodeScript("a\xFF"
                              "b")
                     .isExact);
    EXPECT_FALSE(DecodeScript(std::string_view("\xFF\xFE\x41", 3)).isExact) << "half a unit at the end";
    EXPECT_FALSE(EncodeScript(u"\u0633", {Encoding::codePage, 1252}));
    EXPECT_FALSE(EncodeScript(u"\xD800", {}));
}

} // namespace

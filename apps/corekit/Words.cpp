// corekit words: word lists from the command line.
#include "Commands.h"
#include "Output.h"
#include "Table.h"
#include "Terminal.h"
#include "TextFile.h"

#include "corekit/foundation/StringW.h"
#include "corekit/framework/Exception.h"
#include "corekit/stores/WordListFile.h"

#include <CLI/CLI.hpp>

#include <cstdio>
#include <memory>
#include <stdexcept>

namespace {

struct Options {
    std::string file, word, source;
    DWORD id = 0;
};

class WordList {
public:
    explicit WordList(const std::string& name) : m_name(name)
    {
        if (!m_list.Open(name.c_str())) FailFor(name + " cannot be opened as a word list");
    }
    CWordListFile* operator->() { return &m_list; }
    DWORD AddWord(const WCHAR* word, DWORD id)
    {
        try {
            return m_list.AddWord(word, id);
        } catch (CNotSupportedException* e) { // the file cannot grow
            e->Delete();
            FailFor(m_name);
        }
    }
    void Flush()
    {
        if (!m_list.Flush()) FailFor(m_name);
    }

private:
    std::string m_name;
    CWordListFile m_list;
};

void Create(const Options& o)
{
    CWordListFile list;
    if (!list.Create(o.file.c_str())) FailFor(o.file);
}

void Add(const Options& o)
{
    WordList list(o.file);
    const DWORD kept = list.AddWord(Utf16(o.word).c_str(), o.id);
    if (kept == 0) throw std::runtime_error("'" + o.word + "' is not stored: it has more than 29 characters");
    list.Flush();
    Print("%u\n", kept);
}

void Find(const Options& o)
{
    WordList list(o.file);
    const DWORD id = list->FindWord(Utf16(o.word).c_str());
    if (id == 0) throw std::runtime_error("there is no word '" + o.word + "'");
    Print("%u\n", id);
}

void Match(const Options& o)
{
    WordList list(o.file);
    CDWordArray ids;
    list->FindPattern(Utf16(o.word).c_str(), ids);
    if (!IsJsonWanted()) {
        for (int i = 0; i < ids.GetSize(); ++i) Print("%u\n", ids[i]);
        return;
    }
    TableRows rows = {{"number"}};
    for (int i = 0; i < ids.GetSize(); ++i) rows.push_back({std::to_string(ids[i])});
    PrintTable(rows, {"number"});
}

// Every word of a text, under the number of the line where it first stands.
void Index(const Options& o)
{
    WordList list(o.file);
    const auto lines = ReadLines(o.source);
    ProgressBar bar("indexing", lines.size());
    CArray<StringW, const WCHAR*> words;
    std::size_t added = 0, known = 0, tooLong = 0;
    for (std::size_t line = 0; line < lines.size(); ++line, bar.Advance()) {
        CWordListFile::ConvertStringToWords(lines[line].c_str(), words, 0);
        for (int i = 0; i < words.GetSize(); ++i) {
            if (list->FindWord(words[i]))
                ++known;
            else
                ++(list.AddWord(words[i], static_cast<DWORD>(line + 1)) ? added : tooLong);
        }
    }
    list.Flush();
    Print("%zu words added, %zu found again, %zu too long\n", added, known, tooLong);
}

template <class Act>
CLI::App* AddAction(CLI::App& words, const std::shared_ptr<Options>& options, const char* name,
                    const char* what, Act act)
{
    auto* action = words.add_subcommand(name, what);
    action->add_option("LIST", options->file, "The word list")->required();
    action->callback([options, act] { act(*options); });
    return action;
}

} // namespace

void AddWordsCommand(CLI::App& app)
{
    auto* words = app.add_subcommand("words", "Make, fill and search word lists");
    words->require_subcommand(1);
    const auto options = std::make_shared<Options>();
    AddAction(*words, options, "create", "Make an empty list", Create);

    auto* add = AddAction(*words, options, "add", "Add a word and print the number that it has then", Add);
    add->add_option("WORD", options->word, "At most 29 characters; case does not count")->required();
    add->add_option("NUMBER", options->id, "A word that is there already keeps its own")
        ->required()
        ->check(CLI::Range(1u, 0xFFFFFFFFu));

    auto* find = AddAction(*words, options, "find", "Print the number of a word", Find);
    find->add_option("WORD", options->word)->required();

    auto* match =
        AddAction(*words, options, "match", "Print the numbers of the words that match a pattern", Match);
    match->add_option("PATTERN", options->word, "* stands for any text, ? for one character")->required();
    OfferJson(*match);
    match->footer("A pattern that begins with * or ? looks at every word; any other begins where its first "
                  "letters lead.");

    auto* index = AddAction(*words, options, "index",
                            "Add the words of a text, each with the number of its first line", Index);
    index->add_option("TEXT", options->source, "A text file, UTF-8 or UTF-16; - is standard input")
        ->required();
}

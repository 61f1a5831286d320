// Two hundred thousand words in a file: one of them, those with a prefix, those that a pattern tells.
#include "corekit/platform/Files.h"
#include "corekit/stores/WordListFile.h"

#include "workload.h"

#include <benchmark/benchmark.h>
#include <cstring>
#include <fnmatch.h>
#include <lmdb.h>
#include <marisa.h>
#include <unordered_map>

namespace {

using Words = std::vector<std::string>;

const Words& AllWords()
{
    static const Words words = workload::words();
    return words;
}

std::uint32_t IdOf(std::size_t index) { return workload::wordId(index + 1); } // never 0

std::vector<std::u16string> Wide(const Words& words)
{
    std::vector<std::u16string> wide;
    for (const std::string& word : words) wide.push_back(workload::wide(word));
    return wide;
}

CWordListFile& List()
{
    static CWordListFile& list = *[] {
        const std::string name = workload::scratch("words.wl");
        DeleteFileA(name.c_str());
        auto* made = new CWordListFile;
        if (!made->Create(name.c_str())) std::abort();
        for (std::size_t i = 0; i < AllWords().size(); ++i)
            made->AddWord(workload::wide(AllWords()[i]).c_str(), IdOf(i));
        return made;
    }();
    return list;
}

// Each peer has Find, and a walk over the words with a prefix where it can.
struct SortedArray {
    std::vector<std::pair<std::string, std::uint32_t>> words;

    SortedArray()
    {
        for (std::size_t i = 0; i < AllWords().size(); ++i) words.emplace_back(AllWords()[i], IdOf(i));
    }
    auto From(const std::string& key) const
    {
        return std::lower_bound(words.begin(), words.end(), key,
                                [](const auto& word, const std::string& k) { return word.first < k; });
    }
    std::uint32_t Find(const std::string& key) const
    {
        const auto at = From(key);
        return at != words.end() && at->first == key ? at->second : 0;
    }
    template <class Act>
    void WithPrefix(const std::string& prefix, Act act) const
    {
        for (auto at = From(prefix); at != words.end() && at->first.starts_with(prefix); ++at)
            act(at->first, at->second);
    }
};

struct HashMap {
    std::unordered_map<std::string, std::uint32_t> words;

    HashMap()
    {
        for (std::size_t i = 0; i < AllWords().size(); ++i) words.emplace(AllWords()[i], IdOf(i));
    }
    std::uint32_t Find(const std::string& key) const
    {
        const auto at = words.find(key);
        return at == words.end() ? 0 : at->second;
    }
};

struct Marisa {
    marisa::Trie trie;
    std::vector<std::uint32_t> ids;

    Marisa() : ids(AllWords().size())
    {
        marisa::Keyset keys;
        for (const std::string& word : AllWords()) keys.push_back(word.c_str(), word.size());
        marisa::Trie built;
        built.build(keys);
        const std::string name = workload::scratch("words.marisa");
        built.save(name.c_str());
        trie.mmap(name.c_str());
        for (std::size_t i = 0; i < keys.size(); ++i) ids[keys[i].id()] = IdOf(i);
    }
    std::uint32_t Find(const std::string& key) const
    {
        marisa::Agent agent;
        agent.set_query(key.c_str(), key.size());
        return trie.lookup(agent) ? ids[agent.key().id()] : 0;
    }
    template <class Act>
    void WithPrefix(const std::string& prefix, Act act) const
    {
        marisa::Agent agent;
        agent.set_query(prefix.c_str(), prefix.size());
        for (std::string word; trie.predictive_search(agent);) {
            word.assign(agent.key().ptr(), agent.key().length());
            act(word, ids[agent.key().id()]);
        }
    }
};

struct Lmdb {
    MDB_env* environment;
    MDB_dbi table;
    MDB_txn* reading;
    MDB_cursor* cursor;

    static MDB_val Value(const std::string& text) { return {text.size(), const_cast<char*>(text.data())}; }
    static std::uint32_t Id(const MDB_val& value)
    {
        std::uint32_t id;
        std::memcpy(&id, value.mv_data, sizeof id);
        return id;
    }

    Lmdb()
    {
        const std::string name = workload::scratch("words.lmdb");
        DeleteFileA(name.c_str());
        mdb_env_create(&environment);
        mdb_env_set_mapsize(environment, 256u << 20);
        mdb_env_open(environment, name.c_str(), MDB_NOSUBDIR | MDB_NOSYNC, 0600);
        MDB_txn* writing;
        mdb_txn_begin(environment, nullptr, 0, &writing);
        mdb_dbi_open(writing, nullptr, MDB_CREATE, &table);
        for (std::size_t i = 0; i < AllWords().size(); ++i) {
            std::uint32_t id = IdOf(i);
            MDB_val key = Value(AllWords()[i]), value{sizeof id, &id};
            mdb_put(writing, table, &key, &value, MDB_APPEND);
        }
        mdb_txn_commit(writing);
        mdb_txn_begin(environment, nullptr, MDB_RDONLY, &reading);
        mdb_cursor_open(reading, table, &cursor);
    }
    std::uint32_t Find(const std::string& word) const
    {
        MDB_val key = Value(word), value;
        return mdb_get(reading, table, &key, &value) ? 0 : Id(value);
    }
    template <class Act>
    void WithPrefix(const std::string& prefix, Act act) const
    {
        MDB_val key = Value(prefix), value;
        std::string word;
        for (int end = mdb_cursor_get(cursor, &key, &value, prefix.empty() ? MDB_FIRST : MDB_SET_RANGE); !end;
             end = mdb_cursor_get(cursor, &key, &value, MDB_NEXT)) {
            word.assign(static_cast<const char*>(key.mv_data), key.mv_size);
            if (!word.starts_with(prefix)) break;
            act(word, Id(value));
        }
    }
};

template <class Peer>
const Peer& Get()
{
    static const Peer& peer = *new Peer;
    return peer;
}

template <class Queries, class Find>
void CountFound(benchmark::State& state, const Queries& queries, Find find)
{
    // The stores are made, and have learnt what they learn, before the first measure.
    for (const auto& word : queries) benchmark::DoNotOptimize(find(word));
    for (auto _ : state) {
        std::uint64_t sum = 0;
        for (const auto& word : queries) sum += find(word);
        benchmark::DoNotOptimize(sum);
    }
    state.SetItemsProcessed(static_cast<std::int64_t>(state.iterations() * queries.size()));
}

template <class Peer>
void Lookup(const char* peer)
{
    for (const bool hit : {true, false})
        benchmark::RegisterBenchmark(
            (std::string(hit ? "words/lookup_hit/" : "words/lookup_miss/") + peer).c_str(),
            [hit](benchmark::State& state) {
                const Words queries = hit ? workload::wordHits(AllWords()) : workload::wordMisses(AllWords());
                CountFound(state, queries, [](const std::string& word) { return Get<Peer>().Find(word); });
            });
}

void OurLookup()
{
    for (const bool hit : {true, false})
        benchmark::RegisterBenchmark(
            hit ? "words/lookup_hit/corekit" : "words/lookup_miss/corekit", [hit](benchmark::State& state) {
                const auto queries =
                    Wide(hit ? workload::wordHits(AllWords()) : workload::wordMisses(AllWords()));
                CountFound(state, queries,
                           [](const std::u16string& word) { return List().FindWord(word.c_str()); });
            });
}

std::string Head(const std::string& pattern) { return pattern.substr(0, pattern.find_first_of("*?")); }

// `perWord`: rates are words found, otherwise queries answered.
void Report(benchmark::State& state, bool perWord, std::size_t queries, std::int64_t found)
{
    state.SetItemsProcessed(perWord ? found : static_cast<std::int64_t>(state.iterations() * queries));
    state.counters["found"] = static_cast<double>(found) / static_cast<double>(state.iterations());
}

template <class Peer>
void Patterns(const char* peer)
{
    benchmark::RegisterBenchmark(
        (std::string("words/prefix_found/") + peer).c_str(), [](benchmark::State& state) {
            const Words prefixes = workload::wordPrefixes(AllWords());
            std::int64_t found = 0;
            std::uint64_t sum = 0;
            for (auto _ : state)
                for (const std::string& prefix : prefixes)
                    Get<Peer>().WithPrefix(prefix, [&](const std::string& word, std::uint32_t id) {
                        sum += id + word.size(), ++found;
                    });
            benchmark::DoNotOptimize(sum);
            Report(state, true, prefixes.size(), found);
        });
    benchmark::RegisterBenchmark(
        (std::string("words/wildcard_queries/") + peer + "_fnmatch").c_str(), [](benchmark::State& state) {
            const Words patterns = workload::wordPatterns(AllWords());
            std::int64_t found = 0;
            std::uint64_t sum = 0;
            for (auto _ : state)
                for (const std::string& pattern : patterns)
                    Get<Peer>().WithPrefix(Head(pattern), [&](const std::string& word, std::uint32_t id) {
                        if (::fnmatch(pattern.c_str(), word.c_str(), 0) == 0) sum += id, ++found;
                    });
            benchmark::DoNotOptimize(sum);
            Report(state, false, patterns.size(), found);
        });
}

void OurPatterns(benchmark::State& state, const Words& narrow, bool perWord)
{
    const auto patterns = Wide(narrow);
    std::int64_t found = 0;
    CDWordArray ids;
    for (auto _ : state)
        for (const auto& pattern : patterns) {
            List().FindPattern(pattern.c_str(), ids);
            found += ids.GetSize();
        }
    Report(state, perWord, patterns.size(), found);
}

void PrefixFound(benchmark::State& state)
{
    Words patterns = workload::wordPrefixes(AllWords());
    for (std::string& prefix : patterns) prefix += '*';
    OurPatterns(state, patterns, true);
}

void WildcardQueries(benchmark::State& state)
{
    OurPatterns(state, workload::wordPatterns(AllWords()), false);
}

} // namespace

int main(int argc, char** argv)
{
    OurLookup();
    Lookup<Lmdb>("lmdb");
    Lookup<Marisa>("marisa");
    Lookup<HashMap>("limit_unordered_map"); // in memory only
    Lookup<SortedArray>("limit_lower_bound");
    benchmark::RegisterBenchmark("words/prefix_found/corekit", PrefixFound);
    benchmark::RegisterBenchmark("words/wildcard_queries/corekit", WildcardQueries);
    Patterns<SortedArray>("sorted");
    Patterns<Lmdb>("lmdb");
    Patterns<Marisa>("marisa");
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
}

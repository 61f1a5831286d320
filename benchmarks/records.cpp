// A record file beside the stores that would be taken instead: 5,000 records of 2.6 KB on average. Nobody
// syncs to the device except in the rows named so, where everybody does, once at the end.
#include "workload.h"

#include "corekit/foundation/SafeAlloc.h"
#include "corekit/stores/VariableLengthRecordFile.h"

#include <benchmark/benchmark.h>
#include <cstdlib>
#include <cstring>
#include <db.h>
#include <fcntl.h>
#include <filesystem>
#include <kchashdb.h>
#include <lmdb.h>
#include <memory>
#include <sqlite3.h>
#include <unistd.h>

namespace {

namespace fs = std::filesystem;

constexpr std::uint32_t records = 5000;

const auto sizes = workload::recordSizes(records);
const auto newSizes = workload::recordSizes(records, 0x2ED);
const auto order = workload::permutation(records, 0x0D3);
const auto pool = workload::textBytes(1 << 20);

const auto places = [] {
    std::vector<off_t> made;
    off_t end = 0;
    for (std::uint32_t i = 0; i < records; ++i) {
        made.push_back(end);
        end += (std::max(sizes[i], newSizes[i]) + 511) / 512 * 512;
    }
    return made;
}();

const void* content(std::uint32_t id) { return pool.data() + (id * 97u) % (1u << 19); }

std::string fresh(const char* leaf)
{
    const std::string path = workload::scratch(leaf);
    for (const char* tail : {"", "-lock", "-wal", "-shm"}) fs::remove_all(path + tail);
    return path;
}

void must(bool done)
{
    if (!done) std::abort();
}

// Numbers run from 0. A store that has transactions does a run of work in one where that is its fast road.
struct Store {
    virtual ~Store() = default;
    virtual void put(std::uint32_t id, const void* data, std::size_t size) = 0;
    virtual void replace(std::uint32_t id, const void* data, std::size_t size) { put(id, data, size); }
    virtual std::size_t get(std::uint32_t id, void* to) = 0;
    virtual void del(std::uint32_t id) = 0;
    virtual void begin() {}
    virtual void end() {}
    virtual void sync() {}
};

// The steps of Flush without the wait for the device, like the peers.
struct OpenRecordFile : CVariableLengthRecordFile {
    void WriteAll()
    {
        WriteIndex();
        WriteFreeSpaceMap();
        WriteHeader();
    }
};

struct CoreKit : Store {
    OpenRecordFile file;
    CoreKit() { must(file.CreateFileA(fresh("corekit").c_str(), 512, 32 * 512)); }
    ~CoreKit() override { file.Close(0); }
    void put(std::uint32_t, const void* data, std::size_t size) override
    {
        file.AddRecord(data, static_cast<DWORD>(size), 0);
    }
    void replace(std::uint32_t id, const void* data, std::size_t size) override
    {
        file.ReplaceRecord(static_cast<int>(id), data, static_cast<DWORD>(size), 0);
    }
    std::size_t get(std::uint32_t id, void*) override
    {
        void* block = nullptr; // the copy that the peers make into the caller's buffer
        DWORD size = 0;
        file.GetRecord(static_cast<int>(id), block, size);
        benchmark::DoNotOptimize(block);
        safe_free(block);
        return size;
    }
    void del(std::uint32_t id) override { file.DeleteRecord(static_cast<int>(id), 0); }
    void end() override { file.WriteAll(); }
    void sync() override { file.Flush(); }
};

struct Lmdb : Store {
    MDB_env* env;
    MDB_dbi dbi;
    MDB_txn* batch = nullptr;
    const bool oneTransaction;
    explicit Lmdb(bool one) : oneTransaction(one)
    {
        mdb_env_create(&env);
        mdb_env_set_mapsize(env, std::size_t(1) << 30);
        must(!mdb_env_open(env, fresh("lmdb").c_str(), unsigned(MDB_NOSUBDIR | MDB_NOSYNC | MDB_WRITEMAP),
                           0600));
        MDB_txn* t;
        mdb_txn_begin(env, nullptr, 0, &t);
        mdb_dbi_open(t, nullptr, MDB_CREATE | MDB_INTEGERKEY, &dbi);
        mdb_txn_commit(t);
    }
    ~Lmdb() override { mdb_env_close(env); }
    void begin() override
    {
        if (oneTransaction) mdb_txn_begin(env, nullptr, 0, &batch);
    }
    void end() override
    {
        if (batch) mdb_txn_commit(batch);
        batch = nullptr;
    }
    void sync() override { mdb_env_sync(env, 1); }
    template <class F>
    void with(unsigned flags, F f)
    {
        MDB_txn* t = batch;
        if (!t) mdb_txn_begin(env, nullptr, flags, &t);
        f(t);
        if (!batch) mdb_txn_commit(t);
    }
    void put(std::uint32_t id, const void* data, std::size_t size) override
    {
        with(0, [&](MDB_txn* t) {
            MDB_val k{4, &id}, v{size, const_cast<void*>(data)};
            must(!mdb_put(t, dbi, &k, &v, 0));
        });
    }
    std::size_t get(std::uint32_t id, void* to) override
    {
        MDB_val k{4, &id}, v{};
        with(MDB_RDONLY, [&](MDB_txn* t) {
            must(!mdb_get(t, dbi, &k, &v));
            std::memcpy(to, v.mv_data, v.mv_size);
        });
        return v.mv_size;
    }
    void del(std::uint32_t id) override
    {
        with(0, [&](MDB_txn* t) {
            MDB_val k{4, &id};
            must(!mdb_del(t, dbi, &k, nullptr));
        });
    }
};

struct Sqlite : Store {
    sqlite3* db;
    sqlite3_stmt *ins, *sel, *rem;
    Sqlite()
    {
        sqlite3_open(fresh("sqlite").c_str(), &db);
        for (const char* q :
             {"pragma journal_mode=wal", "pragma synchronous=off", "pragma locking_mode=exclusive",
              "create table r(id integer primary key, b blob)"})
            sqlite3_exec(db, q, nullptr, nullptr, nullptr);
        sqlite3_prepare_v2(db, "insert or replace into r values(?,?)", -1, &ins, nullptr);
        sqlite3_prepare_v2(db, "select b from r where id=?", -1, &sel, nullptr);
        sqlite3_prepare_v2(db, "delete from r where id=?", -1, &rem, nullptr);
    }
    ~Sqlite() override
    {
        for (auto* s : {ins, sel, rem}) sqlite3_finalize(s);
        sqlite3_close(db);
    }
    void begin() override { sqlite3_exec(db, "begin", nullptr, nullptr, nullptr); }
    void end() override { sqlite3_exec(db, "commit", nullptr, nullptr, nullptr); }
    void put(std::uint32_t id, const void* data, std::size_t size) override
    {
        sqlite3_bind_int64(ins, 1, id);
        sqlite3_bind_blob(ins, 2, data, int(size), SQLITE_STATIC);
        must(sqlite3_step(ins) == SQLITE_DONE);
        sqlite3_reset(ins);
    }
    std::size_t get(std::uint32_t id, void* to) override
    {
        sqlite3_bind_int64(sel, 1, id);
        must(sqlite3_step(sel) == SQLITE_ROW);
        const auto size = std::size_t(sqlite3_column_bytes(sel, 0));
        std::memcpy(to, sqlite3_column_blob(sel, 0), size);
        sqlite3_reset(sel);
        return size;
    }
    void del(std::uint32_t id) override
    {
        sqlite3_bind_int64(rem, 1, id);
        must(sqlite3_step(rem) == SQLITE_DONE);
        sqlite3_reset(rem);
    }
};

struct Bdb : Store {
    DB* db;
    Bdb()
    {
        db_env_set_func_fsync([](int) { return 0; });
        db_create(&db, nullptr, 0);
        db->set_cachesize(db, 0, 64 << 20, 1);
        must(!db->open(db, nullptr, fresh("bdb").c_str(), nullptr, DB_RECNO, DB_CREATE, 0600));
    }
    ~Bdb() override { db->close(db, DB_NOSYNC); }
    void end() override { db->sync(db, 0); }
    static DBT val(void* data, std::size_t size)
    {
        DBT d;
        std::memset(&d, 0, sizeof d);
        d.data = data;
        d.size = std::uint32_t(size);
        return d;
    }
    void put(std::uint32_t id, const void* data, std::size_t size) override
    {
        DBT k = val(&++id, 4), v = val(const_cast<void*>(data), size);
        must(!db->put(db, nullptr, &k, &v, 0));
    }
    std::size_t get(std::uint32_t id, void* to) override
    {
        DBT k = val(&++id, 4), v = val(to, 0);
        v.ulen = 65536;
        v.flags = DB_DBT_USERMEM;
        must(!db->get(db, nullptr, &k, &v, 0));
        return v.size;
    }
    void del(std::uint32_t id) override
    {
        DBT k = val(&++id, 4);
        must(!db->del(db, nullptr, &k, 0));
    }
};

struct Kyoto : Store {
    kyotocabinet::HashDB db;
    Kyoto()
    {
        db.tune_map(64 << 20);
        must(db.open(fresh("kyoto.kch"), kyotocabinet::HashDB::OWRITER | kyotocabinet::HashDB::OCREATE |
                                             kyotocabinet::HashDB::OTRUNCATE));
    }
    ~Kyoto() override { db.close(); }
    void sync() override { db.synchronize(true); }
    static const char* key(const std::uint32_t& id) { return reinterpret_cast<const char*>(&id); }
    void put(std::uint32_t id, const void* data, std::size_t size) override
    {
        must(db.set(key(id), 4, static_cast<const char*>(data), size));
    }
    std::size_t get(std::uint32_t id, void* to) override
    {
        const std::int32_t size = db.get(key(id), 4, static_cast<char*>(to), 65536);
        must(size >= 0);
        return std::size_t(size);
    }
    void del(std::uint32_t id) override { must(db.remove(key(id), 4)); }
};

// What the system takes for moving the bytes of each record by a call of its own: every record has a
// place of its own with room for both of its sizes, and there is no index.
struct Calls : Store {
    const int file = ::open(fresh("calls").c_str(), O_RDWR | O_CREAT, 0600);
    ~Calls() override { ::close(file); }
    void put(std::uint32_t id, const void* data, std::size_t size) override
    {
        must(::pwrite(file, data, size, places[id]) == ssize_t(size));
    }
    std::size_t get(std::uint32_t id, void* to) override
    {
        return std::size_t(::pread(file, to, sizes[id], places[id]));
    }
    void del(std::uint32_t) override {}
};

enum class Op { Add, Get, Replace, Delete };

void run(Op op, Store& store, char* to, std::int64_t& bytes)
{
    store.begin();
    switch (op) {
    case Op::Add:
        for (std::uint32_t i = 0; i < records; ++i) store.put(i, content(i), sizes[i]), bytes += sizes[i];
        break;
    case Op::Get:
        for (const std::uint32_t i : order) bytes += std::int64_t(store.get(i, to));
        break;
    case Op::Replace:
        for (const std::uint32_t i : order)
            store.replace(i, content(i + 1), newSizes[i]), bytes += newSizes[i];
        break;
    case Op::Delete:
        for (const std::uint32_t i : order) store.del(i);
        break;
    }
    store.end();
}

template <class Make>
void add(const char* peer, bool synced, Make make)
{
    static const char* const names[] = {"add", "get", "replace", "delete"};
    for (const Op op : {Op::Add, Op::Get, Op::Replace, Op::Delete}) {
        if (synced && op == Op::Get) continue;
        if (op == Op::Delete && std::strcmp(peer, "limit_calls") == 0) continue; // nothing to do there
        const std::string name =
            std::string("records/") + names[int(op)] + (synced ? "_and_sync/" : "/") + peer;
        auto* const row = benchmark::RegisterBenchmark(name.c_str(), [=](benchmark::State& state) {
            std::vector<char> to(65536);
            std::int64_t bytes = 0, ignored = 0;
            std::unique_ptr<Store> store;
            for (auto _ : state) {
                state.PauseTiming();
                if (op != Op::Get || !store) {
                    store.reset();
                    store = make();
                    if (op != Op::Add) run(Op::Add, *store, to.data(), ignored);
                    if (synced) store->sync();
                }
                state.ResumeTiming();
                run(op, *store, to.data(), bytes);
                if (synced) store->sync();
            }
            store.reset();
            state.SetItemsProcessed(std::int64_t(state.iterations()) * records);
            if (op != Op::Delete) state.SetBytesProcessed(bytes);
        });
        row->Unit(benchmark::kMillisecond);
        if (synced) row->UseRealTime(); // waiting for the device costs no processor time
    }
}

} // namespace

int main(int argc, char** argv)
{
    for (const bool synced : {false, true}) {
        add("corekit", synced, [] { return std::make_unique<CoreKit>(); });
        add("lmdb", synced, [] { return std::make_unique<Lmdb>(false); });
    }
    add("sqlite_one_transaction", false, [] { return std::make_unique<Sqlite>(); });
    add("berkeley", false, [] { return std::make_unique<Bdb>(); });
    add("kyoto", false, [] { return std::make_unique<Kyoto>(); });
    add("lmdb_one_transaction", false, [] { return std::make_unique<Lmdb>(true); });
    add("limit_calls", false, [] { return std::make_unique<Calls>(); });
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
}

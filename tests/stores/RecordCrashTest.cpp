// A writer is killed at a random moment. What is asserted, with "covered" for a record that the last finished
// Flush has covered and no operation begun since has touched:
//
// 1. Where CheckFile calls the file sound, the file opens and every covered record is there with its bytes.
// 2. Whatever CheckFile says, two repairs in a row leave the bytes of every covered record whose entry was
//    intact and on sectors of its own.
// 3. Salvage gives a sound file that holds each of the records of 2.
#include "RecordFiles.h"

#include "corekit/stores/RecordFileSalvage.h"

#include <atomic>
#include <chrono>
#include <csignal>
#include <cstdlib>
#include <map>
#include <new>
#include <random>
#include <set>
#include <sys/mman.h>
#include <sys/wait.h>
#include <unistd.h>

using namespace records;

namespace {

struct Operation {
    enum Kind { add, set, remove, flush } kind;
    int record = 0; // of add: the number that it must get
    DWORD size = 0;
    int seed = 0; // of the content
};

// The same endless random work for the writer and for whoever looks at what it left.
class Work {
public:
    explicit Work(unsigned seed) : m_random(seed) {}

    Operation Next()
    {
        ++m_count;
        const unsigned act = Below(20);
        if (act == 0) return {Operation::flush};
        if (act < 8 || m_used.empty()) {
            int lowest = 0;
            while (m_used.contains(lowest)) ++lowest;
            m_used.insert(lowest);
            return {Operation::add, lowest, Size(), m_count};
        }
        const int record = static_cast<int>(Below(700));
        if (act < 14) {
            m_used.insert(record);
            return {Operation::set, record, Size(), m_count};
        }
        m_used.erase(record);
        return {Operation::remove, record};
    }

private:
    unsigned Below(unsigned n) { return m_random() % n; }
    DWORD Size() { return 1 + Below(Below(4) ? 3000 : 40000); }

    std::mt19937 m_random;
    std::set<int> m_used;
    int m_count = 0;
};

// Seen by both processes.
struct Progress {
    std::atomic<int> begun{0};   // operations
    std::atomic<int> covered{0}; // operations that the last finished Flush has covered
    std::atomic<bool> flushing{false};
};

[[noreturn]] void Write(const std::string& name, unsigned seed, Progress& progress)
{
    CVariableLengthRecordFile file;
    // Small sectors make index and map move often.
    const DWORD sectorSize = seed % 2 ? 64 : 512;
    if (!file.CreateFileA(name.c_str(), sectorSize, 32 * sectorSize)) std::_Exit(1);
    Work work(seed);
    for (;;) {
        const Operation operation = work.Next();
        const Bytes bytes = Content(operation.seed, operation.size);
        const int done = ++progress.begun;
        switch (operation.kind) {
        case Operation::add:
            if (Add(file, bytes) != operation.record) std::_Exit(2);
            break;
        case Operation::set:
            Set(file, operation.record, bytes);
            break;
        case Operation::remove:
            file.DeleteRecord(operation.record, 0);
            break;
        case Operation::flush:
            progress.flushing = true;
            file.Flush();
            progress.covered = done;
            progress.flushing = false;
            break;
        }
    }
}

// The covered records.
std::map<int, Bytes> Covered(unsigned seed, const Progress& progress)
{
    std::map<int, Bytes> held;
    Work work(seed);
    for (int i = 0; i < progress.begun; ++i) {
        const Operation operation = work.Next();
        if (operation.kind == Operation::flush) continue;
        held.erase(operation.record);
        if (i < progress.covered && operation.kind != Operation::remove)
            held[operation.record] = Content(operation.seed, operation.size);
    }
    return held;
}

// The numbers of records whose sectors nothing else has: no other record, and none of the file's own areas.
std::set<int> Alone(const Bytes& file)
{
    const Header h = HeaderOf(file);
    std::map<DWORD, int> owners;
    const auto claim = [&owners, &h](DWORD offset, DWORD size) {
        for (DWORD at = 0; at < size; at += h.sectorSize) ++owners[(offset + at) / h.sectorSize];
    };
    claim(0, h.sectorSize);
    claim(h.indexOffset, h.indexSectors * h.sectorSize);
    claim(h.mapOffset, h.mapSectors * h.sectorSize);
    const Extents index = IndexOf(file);
    for (const VLRExtent& e : index)
        if (e.nOffset + std::uint64_t{e.nSize} <= h.fileSize) claim(e.nOffset, e.nSize);
    std::set<int> alone;
    for (std::size_t i = 0; i < index.size(); ++i) {
        bool own = index[i].nOffset + std::uint64_t{index[i].nSize} <= h.fileSize;
        for (DWORD at = 0; own && at < index[i].nSize; at += h.sectorSize)
            own = owners[(index[i].nOffset + at) / h.sectorSize] == 1;
        if (own) alone.insert(static_cast<int>(i));
    }
    return alone;
}

} // namespace

class RecordCrashTest : public RecordFileTest {
protected:
    using Clock = std::chrono::steady_clock;

    // Starts the writer and kills it after a random number of operations, half of the time within a flush,
    // whose few writes are over in a moment.
    void WriteUntilKilled(unsigned seed, Progress& progress)
    {
        std::mt19937 random(seed * 7919);
        const pid_t writer = ::fork();
        if (writer == 0) Write(name, seed, progress);
        int status = 0;
        const auto writes = [&] { return ::waitpid(writer, &status, WNOHANG) == 0; };
        const int least = static_cast<int>(random() % 1500);
        while ((progress.covered == 0 || progress.begun < least) && writes()) ::usleep(50);
        if (seed % 4 < 2) {
            ::usleep(random() % 3000);
        } else {
            while (!progress.flushing && writes()) continue;
            const auto moment = Clock::now() + std::chrono::microseconds(random() % 120);
            while (Clock::now() < moment) continue;
        }
        ::kill(writer, SIGKILL);
        ::waitpid(writer, &status, 0);
        ASSERT_TRUE(WIFSIGNALED(status)) << "the writer failed with " << WEXITSTATUS(status);
    }

    // Those of the covered records that can be read now.
    std::map<int, Bytes> Present(const std::string& file, const std::map<int, Bytes>& covered)
    {
        std::map<int, Bytes> present;
        CVariableLengthRecordFile reader;
        if (!reader.OpenFile(file.c_str())) return present;
        for (const auto& [record, bytes] : covered) {
            Bytes got;
            if (Thrown([&] { got = Get(reader, record); }) == "nothing" && got == bytes)
                present[record] = bytes;
        }
        reader.Close(0);
        return present;
    }
};

TEST_F(RecordCrashTest, AKilledWriterLosesNothingThatAFlushHasCovered)
{
    const char* const asked = std::getenv("COREKIT_CRASH_ROUNDS");
    const unsigned rounds = asked ? static_cast<unsigned>(std::atoi(asked)) : 20;
    void* const shared = ::mmap(nullptr, 4096, PROT_READ | PROT_WRITE, MAP_SHARED | MAP_ANONYMOUS, -1, 0);
    unsigned sound = 0;
    for (unsigned seed = 1; seed <= rounds; ++seed) {
        Progress& progress = *new (shared) Progress;
        WriteUntilKilled(seed, progress);
        const std::map<int, Bytes> covered = Covered(seed, progress);
        const std::map<int, Bytes> present = Present(name, covered);
        const int verdict = CVariableLengthRecordFile().CheckFile(name.c_str(), 0, 0, 0);
        sound += verdict == 1;
        if (verdict == 1) {
            EXPECT_EQ(present.size(), covered.size()) << "round " << seed;
        }

        std::map<int, Bytes> safe;
        const std::set<int> alone = Alone(ReadWhole(name));
        for (const auto& [record, bytes] : present)
            if (alone.contains(record)) safe[record] = bytes;
        const std::string salvaged = folder / "salvaged";
        SalvageRecordFile(name.c_str(), salvaged.c_str());
        EXPECT_EQ(CVariableLengthRecordFile().CheckFile(salvaged.c_str(), 0, 0, 0), 1) << "round " << seed;
        EXPECT_EQ(Present(salvaged, safe).size(), safe.size()) << "round " << seed;
        for (const char* which : {"first", "second"}) {
            CVariableLengthRecordFile repaired;
            repaired.CheckFile(name.c_str(), 0, 0, 1);
            repaired.Close(0);
            EXPECT_EQ(Present(name, safe).size(), safe.size()) << which << " repair, round " << seed;
        }
        std::filesystem::remove(name);
        std::filesystem::remove(salvaged);
    }
    ::munmap(shared, 4096);
    RecordProperty("sound_rounds", static_cast<int>(sound));
}

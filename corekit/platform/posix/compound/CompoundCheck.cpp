#include "corekit/platform/posix/compound/CompoundCheck.h"

#include <algorithm>
#include <array>
#include <cstring>
#include <sys/stat.h>
#include <unistd.h>
#include <vector>

namespace {
using corekit::detail::CompoundState;

constexpr std::array<unsigned char, 8> kSignature = {0xD0, 0xCF, 0x11, 0xE0, 0xA1, 0xB1, 0x1A, 0xE1};
constexpr std::uint32_t kLastSector = 0xFFFFFFFA; // numbers above it are marks
constexpr std::uint32_t kNone = 0xFFFFFFFF;
constexpr std::size_t kHeaderSize = 512, kEntrySize = 128, kHeaderFatSlots = 109;

struct Damage {};

class Checker {
public:
    Checker(int descriptor, std::uint64_t size) : m_descriptor(descriptor), m_fileSize(size) {}

    void Run()
    {
        ReadHeader();
        ReadFat();
        ReadDirectory();
        CheckTree();
    }

private:
    struct Entry {
        std::uint32_t previous, next, child;
        unsigned char type;
    };

    static std::uint32_t Number(const unsigned char* bytes)
    {
        return static_cast<std::uint32_t>(bytes[0] | bytes[1] << 8 | bytes[2] << 16) |
               static_cast<std::uint32_t>(bytes[3]) << 24;
    }
    static void Require(bool condition)
    {
        if (!condition) throw Damage();
    }

    void Read(std::uint64_t place, void* buffer, std::size_t size) const
    {
        Require(pread(m_descriptor, buffer, size, static_cast<off_t>(place)) == static_cast<ssize_t>(size));
    }
    // The last sector of a file may be cut short; what is missing counts as zeros.
    void ReadSector(std::uint32_t sector)
    {
        Require(sector < m_sectors);
        const std::uint64_t place = (std::uint64_t{sector} + 1) << m_shift;
        m_sector.assign(std::size_t{1} << m_shift, 0);
        Read(place, m_sector.data(),
             static_cast<std::size_t>(std::min<std::uint64_t>(m_sector.size(), m_fileSize - place)));
    }

    void ReadHeader()
    {
        Read(0, m_header.data(), m_header.size());
        m_shift = m_header[30] | m_header[31] << 8;
        const int miniShift = m_header[32] | m_header[33] << 8;
        Require((m_shift == 9 || m_shift == 12) && miniShift >= 4 && miniShift < m_shift);
        const std::uint64_t sectorSize = std::uint64_t{1} << m_shift;
        Require(m_fileSize > sectorSize);
        m_sectors = static_cast<std::uint32_t>(
            std::min<std::uint64_t>((m_fileSize - 1) / sectorSize, kLastSector - 1));
        const std::uint64_t perSector = sectorSize / 4;
        // Fat, small fat and the list of fat sectors lie in the file once each.
        for (const int place : {44, 64, 72}) Require(Number(&m_header[place]) <= m_sectors);
        Require(Number(&m_header[44]) <= m_sectors / perSector + 2);
    }

    void AddFatSector(std::uint32_t sector)
    {
        ReadSector(sector);
        for (std::size_t at = 0; at < m_sector.size(); at += 4) m_fat.push_back(Number(&m_sector[at]));
    }

    void ReadFat()
    {
        const std::uint32_t count = Number(&m_header[44]);
        std::uint32_t done = 0;
        for (; done < count && done < kHeaderFatSlots; ++done) AddFatSector(Number(&m_header[76 + 4 * done]));
        std::uint32_t list = Number(&m_header[68]);
        while (done < count) {
            ReadSector(list);
            const std::vector<unsigned char> sectors = m_sector;
            for (std::size_t at = 0; at + 4 < sectors.size() && done < count; at += 4, ++done)
                AddFatSector(Number(&sectors[at]));
            list = Number(&sectors[sectors.size() - 4]);
        }
    }

    void ReadDirectory()
    {
        std::uint32_t sector = Number(&m_header[48]);
        for (std::uint32_t steps = 0; sector < kLastSector; ++steps) {
            Require(steps < m_sectors && sector < m_fat.size());
            ReadSector(sector);
            for (std::size_t at = 0; at < m_sector.size(); at += kEntrySize) {
                const unsigned char* entry = &m_sector[at];
                m_entries.push_back({Number(entry + 68), Number(entry + 72), Number(entry + 76), entry[66]});
            }
            sector = m_fat[sector];
        }
        Require(!m_entries.empty() && m_entries[0].type == 5);
    }

    void CheckTree() const
    {
        struct Step {
            std::uint32_t entry, depth;
        };
        std::vector<bool> seen(m_entries.size());
        std::vector<Step> open = {{0, 0}};
        std::uint32_t elements = 0;
        while (!open.empty()) {
            const Step step = open.back();
            open.pop_back();
            if (step.entry == kNone) continue;
            Require(step.entry < m_entries.size() && !seen[step.entry]);
            Require(step.depth < corekit::detail::kLongestCompoundChain);
            Require(++elements <= corekit::detail::kMostCompoundElements);
            seen[step.entry] = true;
            const Entry& entry = m_entries[step.entry];
            open.push_back({entry.previous, step.depth + 1});
            open.push_back({entry.next, step.depth + 1});
            // Only storages have anything below them.
            if (entry.type == 1 || entry.type == 5)
                open.push_back({entry.child, step.depth + 1});
            else
                Require(entry.type == 2 && entry.child == kNone);
        }
    }

    const int m_descriptor;
    const std::uint64_t m_fileSize;
    std::array<unsigned char, kHeaderSize> m_header{};
    int m_shift = 0;
    std::uint32_t m_sectors = 0;
    std::vector<unsigned char> m_sector;
    std::vector<std::uint32_t> m_fat;
    std::vector<Entry> m_entries;
};
} // namespace

namespace corekit::detail {

bool HasCompoundHeader(int descriptor)
{
    std::array<unsigned char, kSignature.size()> bytes{};
    return pread(descriptor, bytes.data(), bytes.size(), 0) == static_cast<ssize_t>(bytes.size()) &&
           bytes == kSignature;
}

CompoundState CheckCompoundFile(int descriptor)
{
    struct stat status;
    if (fstat(descriptor, &status) != 0 || !S_ISREG(status.st_mode)) return CompoundState::unreadable;
    if (!HasCompoundHeader(descriptor)) return CompoundState::other;
    try {
        Checker(descriptor, static_cast<std::uint64_t>(status.st_size)).Run();
    } catch (const Damage&) {
        return CompoundState::damaged;
    }
    return CompoundState::sound;
}

} // namespace corekit::detail

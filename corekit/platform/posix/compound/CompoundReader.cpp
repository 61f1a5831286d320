#include "corekit/platform/posix/compound/CompoundReader.h"

#include "corekit/platform/posix/compound/CompoundFormat.h"

#include <algorithm>
#include <cerrno>
#include <cstring>
#include <sys/stat.h>
#include <unistd.h>

namespace corekit::detail {
using namespace compound;

namespace {
constexpr int deepestStorage = 1024;

struct Damage {};

void require(bool condition)
{
    if (!condition) throw Damage();
}

std::u16string nameOf(const unsigned char* entry)
{
    const std::size_t length = std::min<std::size_t>(shortAt(entry + nameLengthPlace) / 2, longestName + 1);
    std::u16string name;
    for (std::size_t i = 0; i < length; ++i) {
        const auto unit = static_cast<char16_t>(shortAt(entry + 2 * i));
        if (unit == 0 || name.size() == longestName) break;
        name += unit;
    }
    return name;
}

CompoundReader::Element elementOf(const unsigned char* entry, bool hasLongSizes)
{
    CompoundReader::Element element;
    element.name = nameOf(entry);
    std::memcpy(&element.classId, entry + classPlace, sizeof element.classId);
    element.isStorage = entry[typePlace] == storageEntry || entry[typePlace] == rootEntry;
    element.isSound = element.isStorage || entry[typePlace] == streamEntry;
    element.start = numberAt(entry + startPlace);
    element.size = numberAt(entry + sizePlace);
    if (hasLongSizes) element.size |= std::uint64_t{numberAt(entry + sizePlace + 4)} << 32;
    element.previous = numberAt(entry + previousPlace);
    element.next = numberAt(entry + nextPlace);
    element.child = numberAt(entry + childPlace);
    return element;
}
} // namespace

bool hasCompoundHeader(int descriptor)
{
    std::array<unsigned char, signature.size()> bytes{};
    return ::pread(descriptor, bytes.data(), bytes.size(), 0) == static_cast<ssize_t>(bytes.size()) &&
           bytes == signature;
}

std::shared_ptr<const CompoundReader> CompoundReader::Open(Descriptor file, CompoundState& state)
{
    struct stat facts;
    state = CompoundState::unreadable;
    if (!file || ::fstat(file.get(), &facts) != 0 || !S_ISREG(facts.st_mode)) return nullptr;
    state = CompoundState::other;
    if (!hasCompoundHeader(file.get())) return nullptr;
    state = CompoundState::damaged;
    const std::shared_ptr<CompoundReader> reader(
        new CompoundReader(std::move(file), static_cast<std::uint64_t>(facts.st_size)));
    try {
        reader->ReadHeader();
        reader->ReadFat();
        reader->ReadDirectory();
        reader->CheckTree();
        reader->ReadSmallFat();
        reader->CheckStreams();
    } catch (const Damage&) {
        return nullptr;
    }
    state = CompoundState::sound;
    return reader;
}

void CompoundReader::ReadAt(std::uint64_t place, void* buffer, std::size_t count) const
{
    for (auto* to = static_cast<char*>(buffer); count > 0;) {
        const ssize_t now = ::pread(m_file.get(), to, count, static_cast<off_t>(place));
        if (now < 0 && errno == EINTR) continue;
        require(now > 0);
        to += now, place += static_cast<std::uint64_t>(now), count -= static_cast<std::size_t>(now);
    }
}

// The last sector of a file may be cut short; what is missing counts as zeros.
void CompoundReader::ReadSector(std::uint32_t sector, std::vector<unsigned char>& bytes) const
{
    require(sector < m_sectors);
    bytes.assign(std::size_t{1} << m_shift, 0);
    const std::uint64_t place = PlaceOf(sector, false);
    ReadAt(place, bytes.data(),
           static_cast<std::size_t>(std::min<std::uint64_t>(bytes.size(), m_fileSize - place)));
}

void CompoundReader::ReadHeader()
{
    ReadAt(0, m_header.data(), m_header.size());
    m_shift = shortAt(&m_header[shiftPlace]);
    m_smallShift = shortAt(&m_header[smallShiftPlace]);
    m_cutoff = numberAt(&m_header[cutoffPlace]);
    require((m_shift == sectorShift || m_shift == largeSectorShift) && m_smallShift >= 4 &&
            m_smallShift < m_shift);
    const std::uint64_t sectorSize = std::uint64_t{1} << m_shift;
    require(m_fileSize > sectorSize);
    m_sectors =
        static_cast<std::uint32_t>(std::min<std::uint64_t>((m_fileSize - 1) / sectorSize, lastSector - 1));
    const std::uint64_t perSector = sectorSize / 4;
    // Fat, small fat and the list of fat sectors lie in the file once each.
    for (const auto place : {fatCountPlace, smallFatCountPlace, fatListCountPlace})
        require(numberAt(&m_header[place]) <= m_sectors);
    require(numberAt(&m_header[fatCountPlace]) <= m_sectors / perSector + 2);
}

void CompoundReader::AddFatSector(std::uint32_t sector)
{
    std::vector<unsigned char> bytes;
    ReadSector(sector, bytes);
    for (std::size_t at = 0; at < bytes.size(); at += 4) m_fat.push_back(numberAt(&bytes[at]));
}

void CompoundReader::ReadFat()
{
    const std::uint32_t count = numberAt(&m_header[fatCountPlace]);
    std::uint32_t done = 0;
    for (; done < count && done < headerFatSlots; ++done)
        AddFatSector(numberAt(&m_header[fatPlace + 4 * done]));
    std::uint32_t list = numberAt(&m_header[fatListPlace]);
    for (std::vector<unsigned char> sectors; done < count;) {
        ReadSector(list, sectors);
        for (std::size_t at = 0; at + 4 < sectors.size() && done < count; at += 4, ++done)
            AddFatSector(numberAt(&sectors[at]));
        list = numberAt(&sectors[sectors.size() - 4]);
    }
}

// A table that is not whole leaves the streams unsound that would need the rest.
void CompoundReader::ReadSmallFat()
{
    std::uint32_t sector = numberAt(&m_header[smallFatPlace]);
    const std::uint32_t count = numberAt(&m_header[smallFatCountPlace]);
    std::vector<unsigned char> bytes;
    for (std::uint32_t done = 0; done < count && sector < m_sectors && sector < m_fat.size(); ++done) {
        ReadSector(sector, bytes);
        for (std::size_t at = 0; at < bytes.size(); at += 4) m_smallFat.push_back(numberAt(&bytes[at]));
        sector = m_fat[sector];
    }
}

void CompoundReader::ReadDirectory()
{
    std::uint32_t sector = numberAt(&m_header[directoryPlace]);
    std::vector<unsigned char> bytes;
    for (std::uint32_t steps = 0; sector < lastSector; ++steps) {
        require(steps < m_sectors && sector < m_fat.size());
        ReadSector(sector, bytes);
        if (steps == 0) require(bytes[typePlace] == rootEntry);
        for (std::size_t at = 0; at < bytes.size(); at += entrySize)
            m_elements.push_back(elementOf(&bytes[at], m_shift == largeSectorShift));
        sector = m_fat[sector];
    }
    require(!m_elements.empty());
}

void CompoundReader::CheckTree() const
{
    struct Step {
        std::uint32_t entry;
        int depth;
    };
    std::vector<bool> seen(m_elements.size());
    std::vector<Step> open = {{0, 0}};
    while (!open.empty()) {
        const Step step = open.back();
        open.pop_back();
        if (step.entry == noEntry) continue;
        require(step.entry < m_elements.size() && !seen[step.entry] && step.depth < deepestStorage);
        seen[step.entry] = true;
        const Element& element = m_elements[step.entry];
        require(element.isSound && (element.isStorage || element.child == noEntry));
        open.push_back({element.previous, step.depth});
        open.push_back({element.next, step.depth});
        if (element.isStorage)
            open.push_back({element.child, step.depth + 1}); // nothing else has any below it
    }
}

// Goes down a chain; false if it does not hold what the stream claims in sectors of its own.
bool CompoundReader::TakeChain(const Element& stream, std::vector<bool>& taken, const Chain& fat,
                               int shift) const
{
    std::uint32_t sector = stream.start;
    for (std::uint64_t left = stream.size; left > 0; left -= std::min(left, std::uint64_t{1} << shift)) {
        if (sector >= taken.size() || sector >= fat.size() || taken[sector]) return false;
        taken[sector] = true;
        sector = fat[sector];
    }
    return true;
}

void CompoundReader::CheckStreams()
{
    std::vector<bool> taken(std::min<std::size_t>(m_sectors, m_fat.size()));
    if (TakeChain(m_elements[0], taken, m_fat, m_shift)) m_smallSectors = ChainOf(m_elements[0]);
    std::vector<bool> takenSmall(m_smallSectors.size() << (m_shift - m_smallShift));
    for (Element& element : m_elements) {
        if (element.isStorage) continue;
        element.isSound = IsSmall(element) ? TakeChain(element, takenSmall, m_smallFat, m_smallShift)
                                           : TakeChain(element, taken, m_fat, m_shift);
    }
}

std::vector<std::uint32_t> CompoundReader::Below(std::uint32_t storage) const
{
    std::vector<std::uint32_t> found, open;
    for (std::uint32_t entry = m_elements[storage].child; entry != noEntry || !open.empty();) {
        if (entry != noEntry) {
            open.push_back(entry);
            entry = m_elements[entry].previous;
            continue;
        }
        found.push_back(open.back());
        entry = m_elements[open.back()].next;
        open.pop_back();
    }
    return found;
}

CompoundReader::Chain CompoundReader::ChainOf(const Element& stream) const
{
    const Chain& fat = IsSmall(stream) ? m_smallFat : m_fat;
    const std::uint64_t sectorSize = std::uint64_t{1} << (IsSmall(stream) ? m_smallShift : m_shift);
    Chain chain(static_cast<std::size_t>((stream.size + sectorSize - 1) / sectorSize));
    std::uint32_t next = stream.start;
    for (std::uint32_t& sector : chain) sector = next, next = fat[sector];
    return chain;
}

std::uint64_t CompoundReader::PlaceOf(std::uint32_t sector, bool isSmall) const
{
    if (!isSmall) return (std::uint64_t{sector} + 1) << m_shift;
    const int both = m_shift - m_smallShift;
    const std::uint64_t within = std::uint64_t{sector & ((1U << both) - 1)} << m_smallShift;
    return PlaceOf(m_smallSectors[sector >> both], false) + within;
}

// Sectors that follow each other are read in one go.
bool CompoundReader::Read(const Element& stream, const Chain& chain, std::uint64_t place, char* buffer,
                          std::size_t count) const
try {
    const bool isSmall = IsSmall(stream);
    const std::uint64_t sectorSize = std::uint64_t{1} << (isSmall ? m_smallShift : m_shift);
    while (count > 0) {
        std::size_t at = static_cast<std::size_t>(place / sectorSize);
        const std::uint64_t from = PlaceOf(chain[at], isSmall) + place % sectorSize;
        std::uint64_t run = sectorSize - place % sectorSize;
        while (run < count && PlaceOf(chain[at + 1], isSmall) == from + run) ++at, run += sectorSize;
        const auto now = static_cast<std::size_t>(std::min<std::uint64_t>(run, count));
        // Of a last sector that is cut short, the rest counts as zeros.
        const std::uint64_t left = m_fileSize > from ? m_fileSize - from : 0;
        const auto there = static_cast<std::size_t>(std::min<std::uint64_t>(now, left));
        ReadAt(from, buffer, there);
        std::fill_n(buffer + there, now - there, '\0');
        buffer += now, place += now, count -= now;
    }
    return true;
} catch (const Damage&) {
    return false;
}

} // namespace corekit::detail

// Reading a compound file whose every number may be wrong.
#pragma once

#include "corekit/platform/posix/files/Descriptor.h"
#include "corekit/platform/Types.h"

#include <array>
#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace corekit::detail {

enum class CompoundState { sound, damaged, other, unreadable };

// Whether the file begins as a compound file does.
bool hasCompoundHeader(int descriptor);

// An open file: its directory in memory, its streams in the file.
//
// To be opened, sizes in the header must lie within the file, the directory's chain must end, and no entry
// may be reached twice. Memory is in proportion to the directory and to the tables of sectors. A stream that
// shares sectors with another, ends too early or claims more than there is, is unsound; the others can be
// read.
class CompoundReader {
public:
    struct Element {
        std::u16string name;
        CLSID classId{};
        bool isStorage = false, isSound = true;
        std::uint32_t start = 0;
        std::uint64_t size = 0;
        std::uint32_t previous = 0, next = 0, child = 0;
    };
    // The sectors of a stream in their order.
    using Chain = std::vector<std::uint32_t>;

    // Null unless the state is sound.
    static std::shared_ptr<const CompoundReader> Open(Descriptor file, CompoundState& state);

    const Element& At(std::uint32_t entry) const { return m_elements[entry]; } // 0 is the root
    // What stands in a storage, in the order of the file.
    std::vector<std::uint32_t> Below(std::uint32_t storage) const;
    Chain ChainOf(const Element& stream) const; // of one that is sound
    // False if the file cannot be read; place and count lie within the stream.
    bool Read(const Element& stream, const Chain& chain, std::uint64_t place, char* buffer,
              std::size_t count) const;

private:
    explicit CompoundReader(Descriptor file, std::uint64_t size) : m_file(std::move(file)), m_fileSize(size)
    {
    }

    void ReadHeader();
    void ReadFat();
    void AddFatSector(std::uint32_t sector);
    void ReadSmallFat();
    void ReadDirectory();
    void CheckTree() const;
    void CheckStreams();
    bool TakeChain(const Element& stream, std::vector<bool>& taken, const Chain& fat, int shift) const;

    bool IsSmall(const Element& stream) const
    {
        return stream.size < m_cutoff && &stream != m_elements.data();
    }
    void ReadAt(std::uint64_t place, void* buffer, std::size_t count) const;
    void ReadSector(std::uint32_t sector, std::vector<unsigned char>& bytes) const;
    std::uint64_t PlaceOf(std::uint32_t sector, bool isSmall) const;

    const Descriptor m_file;
    const std::uint64_t m_fileSize;
    std::array<unsigned char, 512> m_header{};
    int m_shift = 0, m_smallShift = 0;
    std::uint64_t m_cutoff = 0;
    std::uint32_t m_sectors = 0;
    Chain m_fat, m_smallFat;
    Chain m_smallSectors; // the root's stream
    std::vector<Element> m_elements;
};

} // namespace corekit::detail

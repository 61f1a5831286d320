// What to look for a narrow name by, without regard to case as _stricmp sees it: only A to Z have case.
#pragma once

#include "corekit/platform/TextVector.h"

#include <bit>
#include <cstddef>
#include <cstdint>
#include <string_view>

namespace corekit::detail {

// The first bytes of a text, if it ends in them.
struct ShortText {
    COREKIT_READS_WHOLE_BLOCKS explicit ShortText(const char* text)
    {
        if (!isInOnePage(text, sizeof(Bytes16))) return;
        block = std::bit_cast<Bytes16>(anyBlock(text));
        const std::uint32_t zeros = equalBytes(block, Bytes16{});
        isWhole = zeros != 0;
        size = static_cast<std::size_t>(std::countr_zero(zeros));
    }
    Bytes16 block;
    std::size_t size = 0;
    bool isWhole = false;
};

class NameKey {
public:
    // The characters stay with the caller. Null is the empty name.
    explicit NameKey(const char* name);
    NameKey(const char* name, const ShortText& text) : m_name(name) { SetShort(text.block, text.size); }
    // Of so many characters, but at least `readable` bytes may be read.
    NameKey(const char* name, std::size_t size) : m_name(name)
    {
        if (size <= readable)
            SetShort(loadBytes(name), size);
        else
            SetLong(size);
    }
    static constexpr std::size_t readable = sizeof(Bytes16);

    std::string_view Name() const { return {m_name, m_size}; }
    // The same for equal names. Other ones in every process, and by all characters, so that no file can be
    // made to fill one place.
    std::uint32_t Hash() const { return static_cast<std::uint32_t>(m_mixed ^ m_mixed >> 32); }

    // The bytes are as above.
    bool IsNameOf(const char* name, std::size_t size) const
    {
        if (size != m_size) return false;
        if (size > readable) return AreLongNamesSame(name, m_name, size);
        const Bytes16 other = loadBytes(name);
        const std::uint32_t behind = ~0u << size;
        if ((equalBytes(other, m_block) | behind) == ~0u) return true; // mostly the case is the same, too
        return (equalBytes(foldedBytes(other), foldedBytes(m_block)) | behind) == ~0u;
    }

private:
    struct Seed {
        std::uint64_t start, factor;
    };
    static const Seed seed;
    static Seed RandomSeed();

    // Multiplies what has been mixed so far by sixteen characters.
    void Mix(Bytes16 folded)
    {
        std::uint64_t words[2];
        std::memcpy(words, &folded, sizeof words);
        __extension__ using Wide = unsigned __int128;
        const Wide product = static_cast<Wide>(m_mixed ^ words[0]) * (seed.factor ^ words[1]);
        m_mixed = static_cast<std::uint64_t>(product) ^ static_cast<std::uint64_t>(product >> 64);
    }
    void SetShort(Bytes16 block, std::size_t size)
    {
        static constexpr std::uint8_t masks[32] = {255, 255, 255, 255, 255, 255, 255, 255,
                                                   255, 255, 255, 255, 255, 255, 255, 255};
        m_size = size;
        m_block = block;
        m_mixed = seed.start ^ size;
        Mix(foldedBytes(block & loadBytes(masks + readable - size)));
    }
    void SetLong(std::size_t size);
    static bool AreLongNamesSame(const char* a, const char* b, std::size_t size);

    const char* m_name;
    std::size_t m_size;
    Bytes16 m_block; // of a short name, and whatever is behind it
    std::uint64_t m_mixed;
};

} // namespace corekit::detail

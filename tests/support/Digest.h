// What a long run of results comes to, in one number: FNV-1a over 32-bit values.
#pragma once

#include <cstdint>
#include <string_view>

class Digest {
public:
    void Add(std::int64_t value) { m_value = (m_value ^ static_cast<std::uint32_t>(value)) * 0x100000001B3; }
    void Add(std::u16string_view text)
    {
        Add(static_cast<std::int64_t>(text.size()));
        for (const char16_t unit : text) Add(static_cast<std::int64_t>(unit));
    }
    std::uint64_t Value() const { return m_value; }

private:
    std::uint64_t m_value = 0xCBF29CE484222325;
};

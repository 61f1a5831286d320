// A keyboard's table of keys, made at compile time from text that is laid out like the keyboard.
//
// The text is a list of rows. A row begins with the line `key` and the virtual keys, a letter or digit as
// such and any other in two hexadecimal digits; lines for the states follow, one cell below each key:
//
//     key    Q     W     E
//     plain  0636  0635  062B
//     shift  064E  064B  -
//
// A cell is a character in four hexadecimal digits, or several joined by `+`; `-` consumes the key and types
// nothing. The state `ctrl` is Ctrl and Shift together. A cell `.` there, or no such line, is the same as
// shifted.
#pragma once

#include "corekit/platform/Types.h"

#include <algorithm>
#include <array>
#include <cstdint>
#include <optional>
#include <stdexcept>
#include <string_view>

namespace corekit::detail {

enum class KeyState { plain, shift, ctrlShift };

class KeyTable {
public:
    static constexpr WPARAM firstKey = 0x10, lastKey = 0xDF;

    // Wrong text does not compile.
    consteval explicit KeyTable(std::string_view text);

    // What the key types in the state: nothing for a key that is not in the table, an empty text for one
    // that is consumed.
    constexpr std::optional<std::u16string_view> Find(WPARAM key, KeyState state) const
    {
        if (key < firstKey || key > lastKey) return std::nullopt;
        const std::size_t at = m_start[static_cast<std::size_t>(state)][key - firstKey];
        if (at == 0) return std::nullopt;
        return std::u16string_view(m_characters.data() + at + 1, m_characters[at]);
    }
    // How many keys the table has.
    constexpr int GetCount() const
    {
        int count = 0;
        for (WPARAM key = firstKey; key <= lastKey; ++key) count += Find(key, KeyState::plain).has_value();
        return count;
    }

private:
    using Starts = std::array<std::uint16_t, lastKey - firstKey + 1>;
    static constexpr int states = 3;

    class Reader;

    std::array<Starts, states> m_start{};
    std::array<char16_t, 400> m_characters{}; // entries: their length, then their characters; 0 is no entry
};

// Reads words, line by line.
class KeyTable::Reader {
public:
    consteval Reader(KeyTable& table, std::string_view text) : m_table(table), m_rest(text) {}

    consteval void Read()
    {
        while (!m_rest.empty()) {
            std::string_view line = Line();
            const std::string_view head = Word(line);
            if (head.empty()) continue;
            if (head == "key")
                ReadKeys(line);
            else if (head == "plain")
                ReadCells(line, KeyState::plain);
            else if (head == "shift")
                ReadCells(line, KeyState::shift);
            else if (head == "ctrl")
                ReadCells(line, KeyState::ctrlShift);
            else
                throw std::logic_error("a line begins with key, plain, shift or ctrl");
        }
        Starts& ctrl = State(KeyState::ctrlShift);
        const Starts &plain = State(KeyState::plain), &shift = State(KeyState::shift);
        for (std::size_t i = 0; i < ctrl.size(); ++i) {
            if ((plain[i] == 0) != (shift[i] == 0)) throw std::logic_error("a key has one state only");
            if (ctrl[i] == 0) ctrl[i] = shift[i];
        }
    }

private:
    consteval Starts& State(KeyState state) { return m_table.m_start[static_cast<std::size_t>(state)]; }

    consteval std::string_view Line()
    {
        const std::size_t length = std::min(m_rest.find('\n'), m_rest.size());
        const std::string_view line = m_rest.substr(0, length);
        m_rest.remove_prefix(std::min(length + 1, m_rest.size()));
        return line;
    }

    static consteval std::string_view Word(std::string_view& line)
    {
        line.remove_prefix(std::min(line.find_first_not_of(' '), line.size()));
        const std::size_t length = std::min(line.find(' '), line.size());
        const std::string_view word = line.substr(0, length);
        line.remove_prefix(length);
        return word;
    }

    static consteval unsigned Hexadecimal(std::string_view digits)
    {
        unsigned value = 0;
        for (const char digit : digits) {
            if (!((digit >= '0' && digit <= '9') || (digit >= 'A' && digit <= 'F')))
                throw std::logic_error("a digit is 0 to 9 or A to F");
            value = value * 16 + static_cast<unsigned>(digit <= '9' ? digit - '0' : digit - 'A' + 10);
        }
        return value;
    }

    consteval void ReadKeys(std::string_view line)
    {
        m_keyCount = 0;
        for (std::string_view word = Word(line); !word.empty(); word = Word(line)) {
            if (word.size() > 2) throw std::logic_error("a key has one or two digits");
            const unsigned key = word.size() == 1 ? static_cast<unsigned>(word[0]) : Hexadecimal(word);
            if (key < firstKey || key > lastKey) throw std::logic_error("a key lies outside the table");
            if (State(KeyState::plain)[key - firstKey] != 0) throw std::logic_error("a key comes twice");
            m_keys[m_keyCount++] = key - firstKey;
        }
    }

    consteval void ReadCells(std::string_view line, KeyState state)
    {
        for (std::size_t i = 0; i < m_keyCount; ++i) {
            const std::string_view cell = Word(line);
            if (cell.empty()) throw std::logic_error("a line has fewer cells than keys");
            std::uint16_t& start = State(state)[m_keys[i]];
            if (start != 0) throw std::logic_error("a state comes twice");
            if (cell != ".") start = Append(cell);
        }
        if (!Word(line).empty()) throw std::logic_error("a line has more cells than keys");
    }

    consteval std::uint16_t Append(std::string_view cell)
    {
        const auto start = static_cast<std::uint16_t>(m_end++);
        for (bool more = cell != "-"; more;) {
            const std::size_t length = std::min(cell.find('+'), cell.size());
            if (length != 4) throw std::logic_error("a character has four digits");
            m_table.m_characters[m_end++] = static_cast<char16_t>(Hexadecimal(cell.substr(0, length)));
            ++m_table.m_characters[start];
            more = length < cell.size();
            cell.remove_prefix(more ? length + 1 : length);
        }
        return start;
    }

    KeyTable& m_table;
    std::string_view m_rest;
    std::array<std::size_t, 16> m_keys{};
    std::size_t m_keyCount = 0;
    std::size_t m_end = 1;
};

consteval KeyTable::KeyTable(std::string_view text) { Reader(*this, text).Read(); }

} // namespace corekit::detail

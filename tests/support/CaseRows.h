// Cases as a table, read field by field: one case a line, fields divided by tabs.
//
// Texts may hold escapes: \n \r \t \\, \xHH for a byte and \uHHHH for a character. What is missing at the end
// of a line is an empty text. Where a file holds several tables, the first field of a line is the name of its
// own.
#pragma once

#include <gtest/gtest.h>

#include <fstream>
#include <string>
#include <vector>

class CaseRow {
public:
    explicit CaseRow(std::string line) : m_line(std::move(line)) {}

    const std::string& Line() const { return m_line; } // to trace a failure

    std::string Word()
    {
        const std::size_t end = std::min(m_line.find('\t', m_at), m_line.size());
        std::string field = m_at < end ? m_line.substr(m_at, end - m_at) : std::string();
        m_at = end + 1;
        return field;
    }
    // Decimal, or hexadecimal behind "0x".
    template <class T = int>
    T Number()
    {
        return static_cast<T>(std::stoll(Word(), nullptr, 0));
    }
    std::string Bytes()
    {
        const std::string field = Word();
        std::string bytes;
        for (std::size_t i = 0; i < field.size(); ++i)
            bytes += field[i] == '\\' ? static_cast<char>(Escape(field, i)) : field[i];
        return bytes;
    }
    // Characters beyond 16 bits are written as two escapes.
    std::u16string Units()
    {
        const std::string field = Word();
        std::u16string units;
        for (std::size_t i = 0; i < field.size(); ++i) {
            unsigned code = static_cast<unsigned char>(field[i]);
            if (code == '\\') {
                code = Escape(field, i);
            } else if (code >= 0x80) { // UTF-8
                const int more = code >= 0xE0 ? 2 : 1;
                code &= 0x3Fu >> more;
                for (int k = 0; k < more; ++k)
                    code = code << 6 | (static_cast<unsigned char>(field.at(++i)) & 0x3Fu);
            }
            units += static_cast<char16_t>(code);
        }
        return units;
    }

private:
    // What the escape at `i` stands for; `i` goes to its last character.
    static unsigned Escape(const std::string& field, std::size_t& i)
    {
        const char kind = field.at(++i);
        if (kind != 'x' && kind != 'u')
            return kind == 'n'   ? '\n'
                   : kind == 'r' ? '\r'
                   : kind == 't' ? '\t'
                                 : static_cast<unsigned char>(kind);
        const std::size_t digits = kind == 'x' ? 2 : 4;
        i += digits;
        return static_cast<unsigned>(std::stoul(field.substr(i + 1 - digits, digits), nullptr, 16));
    }

    std::string m_line;
    std::size_t m_at = 0;
};

// The rows of a file, or those of its table `name`.
inline std::vector<CaseRow> CaseRows(const std::string& path, const std::string& name = {})
{
    std::ifstream file(path);
    std::vector<CaseRow> rows;
    for (std::string line; std::getline(file, line);) {
        if (line.empty() || line[0] == '#') continue;
        CaseRow row(line);
        if (name.empty() || row.Word() == name) rows.push_back(row);
    }
    EXPECT_FALSE(rows.empty()) << path << ' ' << name;
    return rows;
}

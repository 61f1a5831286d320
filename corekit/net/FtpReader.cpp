#include "corekit/net/FtpReader.h"

#include <algorithm>
#include <bit>
#include <charconv>
#include <climits>
#include <utility>

namespace corekit::detail {
namespace {

constexpr char cr = '\r';
constexpr char endOfData = 4;

bool isDigit(char c) { return c >= '0' && c <= '9'; }

bool startsWithCode(std::string_view line)
{
    return line.size() >= 4 && isDigit(line[0]) && isDigit(line[1]) && isDigit(line[2]);
}

CString textOf(std::string_view bytes) { return {bytes.data(), static_cast<int>(bytes.size())}; }

// As atoi, but a number beyond all bounds is the largest.
int numberAt(std::string_view text)
{
    text.remove_prefix(std::min(text.find_first_not_of(" \t"), text.size()));
    if (text.starts_with('+')) text.remove_prefix(1);
    int number = 0;
    if (std::from_chars(text.data(), text.data() + text.size(), number).ec == std::errc::result_out_of_range)
        number = INT_MAX;
    return number;
}

} // namespace

bool isLastLineOfReply(std::string_view line) { return startsWithCode(line) && line[3] == ' '; }

FtpPassiveAddress passiveAddressIn(std::string_view line)
{
    const std::size_t open = line.find('(');
    if (open != line.npos) line.remove_prefix(open + 1);
    line = line.substr(0, line.find(')'));
    int fields[6];
    for (int& field : fields) {
        field = numberAt(line);
        const std::size_t comma = line.find(',');
        if (comma != line.npos) line.remove_prefix(comma + 1);
    }
    const auto byte = [](int number) { return number & 0xFF; };
    return {{byte(fields[0]), byte(fields[1]), byte(fields[2]), byte(fields[3])},
            static_cast<int>((static_cast<unsigned>(fields[4]) * 256 + static_cast<unsigned>(fields[5])) &
                             0xFFFF)};
}

bool FtpListingSplitter::Add(std::string_view bytes)
{
    m_taken += bytes.size();
    while (!bytes.empty()) {
        const std::size_t end = bytes.find_first_of("\r\n");
        const std::string_view part = bytes.substr(0, end);
        m_rest.Append(part.data(), static_cast<int>(part.size()));
        if (end == bytes.npos) break;
        if (!m_rest.IsEmpty()) m_taken += lineCost;
        End();
        bytes.remove_prefix(end + 1);
    }
    return m_taken <= most;
}

void FtpListingSplitter::End()
{
    if (!m_rest.IsEmpty()) {
        const int size =
            m_lines.GetSize(); // room is doubled, so that a long listing is not copied for each line
        if (size >= 1024 && std::has_single_bit(static_cast<unsigned>(size))) m_lines.SetSize(size, size);
        m_lines.Add(m_rest);
    }
    m_rest.Empty();
}

char* FtpReader::Room(std::size_t size)
{
    if (m_begin == m_end) m_begin = m_end = 0;
    if (m_store.size() - m_end < size && m_begin > 0) {
        std::copy(m_store.data() + m_begin, m_store.data() + m_end, m_store.data());
        m_end -= std::exchange(m_begin, 0);
    }
    if (m_store.size() - m_end < size)
        m_store.resize(std::max(m_end + size, m_store.size() + m_store.size() / 2));
    return m_store.data() + m_end;
}

void FtpReader::Consume(std::size_t count)
{
    m_begin = std::min(m_begin + count, m_end);
    m_searched = 0;
}

bool FtpReader::TakeLine(CString& line)
{
    const std::string_view bytes = Bytes();
    if (bytes.empty()) return false;
    // Not in the last byte: the one behind the CR goes with it.
    const std::size_t last = bytes.size() - 1;
    const std::size_t end = bytes.substr(0, last).find(cr, m_searched);
    if (end == bytes.npos) {
        m_searched = last;
        return false;
    }
    line = textOf(bytes.substr(0, end));
    Consume(end + 2);
    return true;
}

FtpReader::Fast FtpReader::TakeFastLines(CStringArray& lines)
{
    for (;;) {
        const std::string_view bytes = Bytes();
        if (bytes.empty()) return Fast::needsMore;
        const std::size_t last = bytes.size() - 1;
        const std::size_t end = bytes.substr(0, last).find_first_of("\r\4", m_searched);
        if (end == bytes.npos) {
            m_searched = last;
            return bytes.size() > mostReply ? Fast::isTooLarge : Fast::needsMore;
        }
        const std::string_view line = bytes.substr(0, end);
        const bool isReply = startsWithCode(line) && (line[3] == ' ' || line[3] == '-');
        if (isReply) {
            m_searched = 0;
            return Fast::isWhole;
        }
        lines.Add(textOf(line));
        const bool isEnd = bytes[end] == endOfData;
        Consume(end + (isEnd ? 1 : 2));
        if (isEnd) return Fast::isWhole;
    }
}

FtpReader::Fast FtpReader::TakeFastData(CStream& stream)
{
    const std::string_view bytes = Bytes();
    const std::size_t end = std::min(bytes.find(endOfData), bytes.size());
    if (end > 0) stream.Write(bytes.data(), static_cast<DWORD>(end));
    const bool isWhole = end < bytes.size();
    Consume(end + isWhole);
    return isWhole ? Fast::isWhole : Fast::needsMore;
}

} // namespace corekit::detail

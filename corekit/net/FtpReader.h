// What an FTP server sends, taken apart: the lines of its replies, and the listings and files of the AvidFast
// mode, which come on the same connection. Knows nothing of sockets: bytes are put in, and whatever is whole
// is taken out.
#pragma once

#include "corekit/foundation/Stream.h"

#include <string_view>
#include <vector>

namespace corekit::detail {

// A line that ends a reply: three digits and a blank.
COREKIT_API bool isLastLineOfReply(std::string_view line);

// The address of a data connection.
struct FtpPassiveAddress {
    int host[4];
    int port;
};
// From the last line of a reply to PASV: six numbers between parentheses. Whatever is there gives some
// address.
COREKIT_API FtpPassiveAddress passiveAddressIn(std::string_view line);

// Splits the bytes of a listing into lines at CR and LF; empty lines vanish.
class COREKIT_API FtpListingSplitter {
public:
    static constexpr std::size_t most = 64 << 20; // bytes, with what a line costs beside its text
    static constexpr std::size_t lineCost = 32;

    explicit FtpListingSplitter(CStringArray& lines) : m_lines(lines) {}
    bool Add(std::string_view bytes); // false when the listing has become too large
    void End();                       // the rest is a line too

private:
    CStringArray& m_lines;
    CString m_rest;
    std::size_t m_taken = 0;
};

// The bytes that were received on a control connection and belong to nobody yet. All operations that are told
// that something is not whole yet continue where they were when more bytes are there.
class COREKIT_API FtpReader {
public:
    static constexpr std::size_t mostReply = 256 << 10; // bytes of a line, and of a whole reply

    // Room for `size` bytes at the end; Added says how many of them were used.
    char* Room(std::size_t size);
    void Added(std::size_t count) { m_end += count; }
    std::string_view Bytes() const { return {m_store.data() + m_begin, m_end - m_begin}; }

    // The bytes up to a CR, which goes too, with the byte behind it. False when there is no such line yet.
    bool TakeLine(CString& line);

    enum class Fast { isWhole, needsMore, isTooLarge };
    // Adds lines to the array up to the byte 4, which goes too, or up to a line that is a reply, which stays.
    Fast TakeFastLines(CStringArray& lines);
    // Writes to the stream what comes before the byte 4, which goes too.
    Fast TakeFastData(CStream& stream);

private:
    void Consume(std::size_t count);

    std::vector<char> m_store;
    std::size_t m_begin = 0, m_end = 0;
    std::size_t m_searched = 0; // bytes from m_begin that hold no end of a line
};

} // namespace corekit::detail

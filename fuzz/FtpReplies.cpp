// Arbitrary bytes as replies; what a reply to PASV gives must be an address.
#include "corekit/net/FtpReader.h"
#include "FtpReads.h"

#include <cstdlib>

extern "C" int LLVMFuzzerTestOneInput(const unsigned char* data, std::size_t size)
{
    using namespace corekit::detail;
    FtpReader reader;
    EachRead(data, size, [&](std::string_view bytes) {
        bytes.copy(reader.Room(bytes.size()), bytes.size());
        reader.Added(bytes.size());
        for (CString line; reader.TakeLine(line);) {
            const std::string_view text(line.GetString(), static_cast<std::size_t>(line.GetLength()));
            if (text.find('\r') != text.npos) std::abort();
            isLastLineOfReply(text);
            const FtpPassiveAddress address = passiveAddressIn(text);
            for (const int byte : address.host)
                if (byte < 0 || byte > 255) std::abort();
            if (address.port < 0 || address.port > 65535) std::abort();
        }
        if (reader.Bytes().substr(0, reader.Bytes().size() - !reader.Bytes().empty()).find('\r') !=
            std::string_view::npos)
            std::abort();
    });
    return 0;
}

// Arbitrary bytes as what comes in the AvidFast mode: a listing, then a file, then a reply.
#include "corekit/net/FtpReader.h"
#include "corekit/stores/MemoryStream.h"
#include "FtpReads.h"

#include <cstdlib>

extern "C" int LLVMFuzzerTestOneInput(const unsigned char* data, std::size_t size)
{
    using corekit::detail::FtpReader;
    FtpReader reader;
    CStringArray lines;
    CMemoryStream file(256, 4096);
    CString reply;
    int part = 0;
    EachRead(data, size, [&](std::string_view bytes) {
        bytes.copy(reader.Room(bytes.size()), bytes.size());
        reader.Added(bytes.size());
        if (part == 0 && reader.TakeFastLines(lines) != FtpReader::Fast::needsMore) ++part;
        if (part == 1 && reader.TakeFastData(file) == FtpReader::Fast::isWhole) ++part;
        if (part == 2) reader.TakeLine(reply);
    });
    const std::string_view kept(static_cast<const char*>(file.GetMemoryBufferPointer()), file.GetSize());
    if (kept.find('\4') != kept.npos || file.GetSize() + reader.Bytes().size() > size) std::abort();
    return 0;
}

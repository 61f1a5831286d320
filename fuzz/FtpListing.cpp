// Arbitrary bytes as a listing: however it is cut into reads, its lines are the same and hold no end of a
// line.
#include "corekit/net/FtpReader.h"
#include "FtpReads.h"

#include <cstdlib>

extern "C" int LLVMFuzzerTestOneInput(const unsigned char* data, std::size_t size)
{
    using corekit::detail::FtpListingSplitter;
    if (size == 0) return 0;
    CStringArray whole, parts;
    FtpListingSplitter one(whole), many(parts);
    one.Add({reinterpret_cast<const char*>(data) + 1, size - 1});
    one.End();
    EachRead(data, size, [&](std::string_view bytes) { many.Add(bytes); });
    many.End();
    if (whole.GetSize() != parts.GetSize()) std::abort();
    for (int i = 0; i < whole.GetSize(); ++i)
        if (whole[i] != parts[i] || whole[i].IsEmpty() || whole[i].FindOneOf("\r\n") >= 0) std::abort();
    return 0;
}

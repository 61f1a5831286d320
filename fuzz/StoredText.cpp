// Any UTF-16 as plain and as stored text: what is stored stays, and both roads end.
#include "corekit/unicode/storage/StoredText.h"

#include <cstdlib>
#include <cstring>
#include <string>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    std::u16string text(size / 2, u'\0');
    std::memcpy(text.data(), data, text.size() * 2);
    const StoredText stored = ToStoredText(text.data(), static_cast<int>(text.size()));
    const StringW plain = ToPlainText(stored, stored.GetLength());
    if (ToStoredText(stored, stored.GetLength()) != stored) std::abort();
    return plain.GetLength() < 0;
}

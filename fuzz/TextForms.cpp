// Any text as each of the small forms that settings and users write: bytes, escapes, times, identifiers,
// lists, search patterns.
#include "corekit/foundation/ByteText.h"
#include "corekit/foundation/DelimitedText.h"
#include "corekit/foundation/SystemHelpers.h"
#include "corekit/foundation/Timecode.h"
#include "corekit/foundation/WildCards.h"
#include "corekit/platform/HarmlessText.h"

#include <algorithm>
#include <cstdlib>

namespace {

void Must(bool holds)
{
    if (!holds) std::abort();
}

void Narrow(const std::string& text)
{
    CString form(text.c_str());
    CByteArray bytes, again;
    ConvertHexStringToByteArray(form, bytes);
    ConvertDecStringToByteArray(form, bytes);
    CString written;
    if (ConvertUserStringToByteArray(form, bytes) == 0 &&
        std::all_of(bytes.GetData(), bytes.GetData() + bytes.GetSize(), [](BYTE b) { return b < 128; })) {
        ConvertByteArrayToHexString(bytes, written);
        Must(ConvertHexStringToByteArray(written, again) == 0 && again.GetSize() == bytes.GetSize());
    }
    CTimecode time;
    if (time.SetFromString(text.c_str())) time.MakeString();
    ClassIDFromString(text.c_str());
    CStringArray items, lines;
    ConvertDelimitedStringToArray(text.c_str(), items, ',');
    ConvertBufferIntoLines(text.c_str(), lines, 1);
    for (int i = 0; i < lines.GetSize(); ++i) Must(lines[i].FindOneOf("\r\n") < 0);
    for (const char c : corekit::HarmlessText(text, corekit::LineEnds::escaped))
        Must(static_cast<unsigned char>(c) >= ' ' || c == '\t');
}

void Wide(const std::u16string& text, const std::u16string& pattern)
{
    const StringW there = ExpandBackslashSequences(text.c_str());
    Must(CompactBackslashSequences(there) == StringW(text.c_str()));
    CTimecode().SetFromString(text.c_str());
    // The most that a search looks at takes a third of a second, and under the checkers half a minute.
    if (std::ranges::count(pattern, u'?') > 3) return;
    const int length = static_cast<int>(text.size());
    for (const int caseSensitive : {0, 1}) {
        Must(MatchWildCardString(text.c_str(), pattern.c_str(), caseSensitive) <= std::max(length, 1));
        Must(MatchNonWildCardString(text.c_str(), pattern.c_str(), caseSensitive) <= std::max(length, 1));
    }
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    std::string text(reinterpret_cast<const char*>(data), size);
    text.resize(std::min(text.find('\0'), size));
    Narrow(text);
    const std::u16string wide(text.begin(), text.end());
    const std::size_t cut = std::min(wide.find(u'\n'), wide.size());
    Wide(wide.substr(cut), wide.substr(0, cut));
    return 0;
}

// What the registry says of a face: the "Font Mapping" branch of CFontMapInfo.
#include "corekit/stores/RegistryKey.h"
#include "corekit/stores/RegistryText.h"
#include "corekit/unicode/shaping/GlyphConversion.h"
#include "corekit/unicode/ui/FontMapInfo.h"

#include <algorithm>
#include <charconv>
#include <string>
#include <string_view>
#include <vector>

namespace {

constexpr const char* mappingBranch = "Software\\Corvane\\Unicode Support\\Font Mapping\\";

// A face with the glyphs of one private range, at their low bytes.
struct PrivateRange {
    DWORD customSignature;
    WORD first, last;
};
constexpr PrivateRange privateRanges[] = {
    {1, 0xE000, 0xE0FF},
    {2, 0xE100, 0xE1FF},
    {4, 0xE200, 0xE2FF},
    {8, 0xE300, 0xE3FF},
};
constexpr DWORD tamilSignature = 4; // its positions 0x80 to 0x9F go by code page 1252

void addUsualRules(CFontSignature& signature)
{
    const auto* const found =
        std::ranges::find(privateRanges, signature.GetCustomSignature(), &PrivateRange::customSignature);
    if (found == std::end(privateRanges)) return;
    signature.AddZone(found->first, found->last, found->first);
    if (signature.GetCustomSignature() != tamilSignature) return;
    for (WORD glyph = 0xE280; glyph <= 0xE29F; ++glyph)
        if (const WORD code = OldDumbMapSpecialGlyph(glyph); code != glyph) signature.AddMapping(glyph, code);
}

bool readWord(const CRegistryKey& key, const std::string& name, WORD& value)
{
    DWORD whole = 0;
    if (!key.GetValue(name.c_str(), whole)) return false;
    value = LOWORD(whole);
    return true;
}

// The numbered values that a key has. A count in the registry may be any number, so what is there is looked
// at, not what could be.
class NumberedValues {
public:
    explicit NumberedValues(const CRegistryKey& key) : m_key(key), m_names(RegistryValueNames(key)) {}

    // The numbers, ascending, of the values "<before>N<after>" with N from 1 to the value of `countName`.
    std::vector<int> Find(const char* countName, std::string_view before, std::string_view after) const
    {
        int count = 0;
        std::vector<int> numbers;
        if (!m_key.GetValue(countName, count)) return numbers;
        for (const std::string& name : m_names) {
            const int number = NumberIn(name, before, after);
            if (number >= 1 && number <= count) numbers.push_back(number);
        }
        std::ranges::sort(numbers);
        return numbers;
    }

private:
    // 0 if the name is none of these.
    static int NumberIn(const std::string& name, std::string_view before, std::string_view after)
    {
        if (name.size() <= before.size() + after.size() || name[before.size()] == '0') return 0;
        int number = 0;
        const char* const end = name.data() + name.size() - after.size();
        const auto read = std::from_chars(name.data() + before.size(), end, number);
        if (read.ec != std::errc() || read.ptr != end || number < 1) return 0;
        const std::string whole = std::string(before) + std::to_string(number) + std::string(after);
        return CString(whole.c_str()).CompareNoCase(name.c_str()) == 0 ? number : 0;
    }

    const CRegistryKey& m_key;
    std::vector<std::string> m_names;
};

} // namespace

bool CFontMapInfo::LoadFromRegistry()
{
    CRegistryKey key;
    DWORD usb[4], custom = 0;
    int advanced = 0;
    if (!key.Open(HKEY_LOCAL_MACHINE, CString(mappingBranch) + m_face)) return false;
    if (!key.GetValue("USB Signature", usb, sizeof usb)) return false;
    if (!key.GetValue("Custom Signature", custom)) return false;
    m_signature.SetFromUsb(usb);
    m_signature.SetCustomSignature(custom);
    key.GetValue("Advanced Mapping", advanced);
    if (advanced)
        LoadRules(key);
    else
        addUsualRules(m_signature);
    return true;
}

void CFontMapInfo::BecomeGlyphFont(DWORD customSignature)
{
    constexpr DWORD noUnicodeRange[4] = {};
    m_signature.SetFromUsb(noUnicodeRange);
    m_signature.SetCustomSignature(customSignature);
    addUsualRules(m_signature);
    m_loaded = TRUE;
}

void CFontMapInfo::LoadRules(const CRegistryKey& key)
{
    const NumberedValues values(key);
    for (const int number : values.Find("Zone Count", "Zone ", " First")) {
        const std::string zone = "Zone " + std::to_string(number) + " ";
        WORD first, last, offset;
        if (readWord(key, zone + "First", first) && readWord(key, zone + "Last", last) &&
            readWord(key, zone + "Offset", offset))
            m_signature.AddZone(first, last, offset);
    }
    for (const int number : values.Find("Mapping Count", "Mapping ", "")) {
        DWORD mapping;
        if (key.GetValue(("Mapping " + std::to_string(number)).c_str(), mapping))
            m_signature.AddMapping(HIWORD(mapping), LOWORD(mapping));
    }
    for (const int number : values.Find("Multimap Count", "Multimap ", " From")) {
        const std::string multimap = "Multimap " + std::to_string(number) + " ";
        WORD from, character;
        std::u16string text;
        if (!readWord(key, multimap + "From", from)) continue;
        while (readWord(key, multimap + "Ch " + std::to_string(text.size() + 1), character))
            text += static_cast<WCHAR>(character);
        if (!text.empty()) m_signature.AddMultimap(from, StringW(text.data(), static_cast<int>(text.size())));
    }
}

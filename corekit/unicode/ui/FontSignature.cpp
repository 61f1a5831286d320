#include "corekit/unicode/ui/FontSignature.h"

#include <algorithm>
#include <memory>

IMPLEMENT_DYNAMIC(CFontSignature, CObject)

namespace {

constexpr int mapBlockSize = 10;

} // namespace

CFontSignature::CFontSignature() : m_map(mapBlockSize), m_multimap(mapBlockSize) {}

CFontSignature::CFontSignature(const CFontSignature& other) : CFontSignature() { CopyRules(other); }

CFontSignature& CFontSignature::operator=(const CFontSignature& other)
{
    if (this != &other) CopyRules(other);
    return *this;
}

CFontSignature::~CFontSignature() { DropMultimap(); }

void CFontSignature::CopyRules(const CFontSignature& other)
{
    SetFromUsb(other.m_usb);
    DropMultimap();
    m_custom = other.m_custom;
    for (POSITION at = other.m_map.GetStartPosition(); at;) {
        WORD from = 0, to = 0;
        other.m_map.GetNextAssoc(at, from, to);
        AddMapping(from, to);
    }
    for (POSITION at = other.m_multimap.GetStartPosition(); at;) {
        WORD from = 0;
        StringW* to = nullptr;
        other.m_multimap.GetNextAssoc(at, from, to);
        AddMultimap(from, *to);
    }
    for (int i = 0; i < other.m_zones.GetSize(); ++i) {
        const Zone zone = other.m_zones.GetAt(i);
        AddZone(zone.first, zone.last, zone.offset);
    }
}

void CFontSignature::DropMultimap()
{
    for (POSITION at = m_multimap.GetStartPosition(); at;) {
        WORD from = 0;
        StringW* to = nullptr;
        m_multimap.GetNextAssoc(at, from, to);
        delete to;
    }
    m_multimap.RemoveAll();
    m_hasRules = m_map.GetCount() > 0 || m_zones.GetSize() > 0;
}

void CFontSignature::SetFromUsb(const DWORD usb[4])
{
    std::copy_n(usb, 4, m_usb);
    m_custom = 0;
    m_zones.RemoveAll();
    m_map.RemoveAll();
    m_hasRules = m_multimap.GetCount() > 0;
}

void CFontSignature::GetUsb(DWORD usb[4]) const { std::copy_n(m_usb, 4, usb); }

bool CFontSignature::Contains(const CFontSignature& other) const
{
    DWORD missing = other.m_custom & ~m_custom;
    for (int i = 0; i < 4; ++i) missing |= other.m_usb[i] & ~m_usb[i];
    return missing == 0;
}

bool CFontSignature::CoversRange(int rangeNumber) const
{
    const int bit = rangeNumber & 31;
    if (rangeNumber >= 256) return rangeNumber < 260 && (m_custom >> bit & 1);
    return rangeNumber >= 128 && (m_usb[(rangeNumber - 128) >> 5] >> bit & 1);
}

void CFontSignature::AddZone(WORD first, WORD last, WORD offset)
{
    m_zones.Add({first, last, offset});
    m_hasRules = true;
}

void CFontSignature::AddMapping(WORD from, WORD to)
{
    m_map.SetAt(from, to);
    m_hasRules = true;
}

void CFontSignature::AddMultimap(WORD from, const StringW& to)
{
    auto text = std::make_unique<StringW>(to);
    StringW*& place = m_multimap[from]; // null if new
    delete place;
    place = text.release();
    m_hasRules = true;
}

std::u16string_view CFontSignature::Resolve(WCHAR ch, WCHAR& single) const
{
    single = ch;
    if (!m_hasRules) return {&single, 1};
    const WORD code = ch;
    if (StringW* text = nullptr; m_multimap.Lookup(code, text))
        return {static_cast<const WCHAR*>(*text), static_cast<std::size_t>(text->GetLength())};
    if (WORD to = 0; m_map.Lookup(code, to)) {
        single = to;
        return {&single, 1};
    }
    for (int i = m_zones.GetSize(); i-- > 0;)
        if (const Zone zone = m_zones.GetAt(i); zone.first <= code && code <= zone.last) {
            single = static_cast<WCHAR>(code - zone.offset);
            break;
        }
    return {&single, 1};
}

void CFontSignature::Convert(WCHAR ch, StringW& out) const
{
    WCHAR single;
    for (const WCHAR c : Resolve(ch, single)) out += c;
}

void CFontSignature::Convert(WCHAR ch, std::u16string& out) const
{
    if (!m_hasRules) {
        out.push_back(ch);
        return;
    }
    WCHAR single;
    out.append(Resolve(ch, single));
}

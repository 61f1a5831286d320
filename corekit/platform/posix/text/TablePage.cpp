#include "corekit/platform/posix/text/TablePage.h"

#include <algorithm>

namespace corekit::detail {
namespace {

constexpr WCHAR unknown = 0xFFFD;
constexpr std::array<WORD, 256> noCodes{};

// Converters made for the mainframe's habits swap three control characters.
bool isSwappedControl(BYTE byte, WCHAR unit)
{
    const auto isOne = [](unsigned value) { return value == 0x1A || value == 0x1C || value == 0x7F; };
    return isOne(byte) && isOne(unit);
}

WCHAR patchOf(std::span<const CodePagePatch> patches, BYTE byte)
{
    for (const CodePagePatch& patch : patches)
        if (byte >= patch.first && byte - patch.first < static_cast<int>(patch.units.size()))
            return patch.units[static_cast<std::size_t>(byte - patch.first)];
    return 0;
}

} // namespace

TablePage::TablePage(PageSource& source, std::span<const CodePagePatch> patches)
{
    m_codes.fill(&noCodes);
    readSingleBytes(source, patches);
    if (const WORD code = codeOf(u'?'); code > 0 && code < 0x100) m_questionMark = static_cast<BYTE>(code);
    m_hasHoles = std::ranges::find(m_units, unknown) != m_units.end();
    m_isSingle = std::ranges::all_of(m_trails, [](const auto& trails) { return trails == nullptr; });
}

void TablePage::readSingleBytes(PageSource& source, std::span<const CodePagePatch> patches)
{
    for (unsigned value = 0; value < 256; ++value) {
        const auto byte = static_cast<BYTE>(value);
        const char text = static_cast<char>(byte);
        WCHAR unit = patchOf(patches, byte);
        const auto answer = unit != 0 ? PageSource::Answer::unit : source.decode({&text, 1}, unit);
        // What an extension of ASCII leaves open there are control characters.
        if (answer == PageSource::Answer::nothing)
            unit = m_hasAscii && byte >= 0x80 && byte < 0xA0 ? byte : unknown;
        if (isSwappedControl(byte, unit)) unit = byte;
        if (byte < 0x80) m_hasAscii = m_hasAscii && unit == byte;
        m_units[byte] = answer == PageSource::Answer::leadByte ? unknown : unit;
        if (answer == PageSource::Answer::leadByte)
            readTrails(source, byte);
        else if (unit != unknown)
            enter(source, unit, byte);
    }
}

void TablePage::readTrails(PageSource& source, BYTE lead)
{
    auto trails = std::make_unique<Trails>();
    trails->fill(unknown);
    for (unsigned trail = 0x20; trail < 0x100; ++trail) {
        const char text[] = {static_cast<char>(lead), static_cast<char>(trail)};
        WCHAR unit = unknown;
        if (source.decode({text, 2}, unit) != PageSource::Answer::unit || unit == unknown) continue;
        (*trails)[trail] = unit;
        enter(source, unit, static_cast<WORD>(lead << 8 | trail));
    }
    m_trails[lead] = std::move(trails);
}

// Where several codes stand for one unit, the converter says which one is meant for the way back.
void TablePage::enter(PageSource& source, WCHAR unit, WORD code)
{
    auto& codes = m_ownCodes[unit >> 8];
    if (!codes) {
        codes = std::make_unique<Codes>();
        m_codes[unit >> 8] = codes.get();
    }
    WORD& place = (*codes)[unit & 0xFF];
    if (place == 0) {
        place = code;
        return;
    }
    const std::string preferred = source.encode(unit);
    const auto byte = [&](std::size_t i) { return static_cast<BYTE>(preferred[i]); };
    if (preferred.size() == 1 && m_units[byte(0)] == unit) place = byte(0);
    if (preferred.size() == 2) place = static_cast<WORD>(byte(0) << 8 | byte(1));
}

// One character that may have two bytes; returns how many it had. ASCII behind a lead byte that it does not
// fit is left standing.
std::size_t TablePage::widenDouble(std::string_view text, Sink<WCHAR>& sink) const
{
    const auto lead = static_cast<BYTE>(text[0]);
    WCHAR unit = m_units[lead];
    std::size_t bytes = 1;
    if (m_trails[lead] && text.size() > 1) {
        const auto trail = static_cast<BYTE>(text[1]);
        unit = (*m_trails[lead])[trail];
        if (unit != unknown || trail >= 0x80) bytes = 2;
    }
    if (unit == unknown) sink.markUnknown();
    sink.put(unit);
    return bytes;
}

Converted TablePage::widen(std::string_view text, WCHAR* result, std::size_t size) const
{
    if (m_isSingle) {
        Converted converted{text.size(), size >= text.size(), false};
        const std::size_t written = std::min(size, text.size());
        Sink<WCHAR> front(result, written);
        std::size_t i = m_hasAscii ? copyAscii(text, front) : 0;
        for (; i < written; ++i) result[i] = m_units[static_cast<BYTE>(text[i])];
        converted.hasUnknown = m_hasHoles && std::ranges::any_of(text, [this](char c) {
                                   return m_units[static_cast<BYTE>(c)] == unknown;
                               });
        return converted;
    }
    Sink<WCHAR> sink(result, size);
    while (!text.empty()) {
        if (m_hasAscii) text.remove_prefix(copyAscii(text, sink));
        if (!text.empty()) text.remove_prefix(widenDouble(text, sink));
    }
    return sink.converted();
}

// Units at the front that the page has, with room for two bytes each; the others are left.
std::size_t TablePage::narrowKnown(std::u16string_view text, Sink<char>& sink) const
{
    char* to = sink.place();
    const std::size_t count = std::min(text.size(), sink.room() / 2);
    std::size_t i = 0;
    for (; i < count; ++i) {
        const WORD code = codeOf(text[i]);
        if (code == 0 && text[i] != 0) break;
        *to = static_cast<char>(code >> 8);
        to += code > 0xFF;
        *to++ = static_cast<char>(code & 0xFF);
    }
    sink.advance(static_cast<std::size_t>(to - sink.place()));
    return i;
}

Converted TablePage::narrowSingle(std::u16string_view text, char* result, std::size_t size,
                                  char replacement) const
{
    Converted converted{text.size(), size >= text.size(), false};
    if (size == 0 || size < text.size()) // what is not written must still be looked at
        converted.hasUnknown =
            std::ranges::any_of(text, [this](WCHAR unit) { return unit != 0 && codeOf(unit) == 0; });
    text = text.substr(0, size);
    Sink<char> front(result, size);
    for (std::size_t i = m_hasAscii ? copyAscii(text, front) : 0; i < text.size(); ++i) {
        const WORD code = codeOf(text[i]);
        const bool isUnknown = code == 0 && text[i] != 0;
        converted.hasUnknown |= isUnknown;
        result[i] = isUnknown ? replacement : static_cast<char>(code);
    }
    return converted;
}

Converted TablePage::narrow(std::u16string_view text, char* result, std::size_t size,
                            std::string_view replacement) const
{
    const char questionMark = static_cast<char>(m_questionMark);
    if (replacement.empty()) replacement = {&questionMark, 1};
    if (m_isSingle && replacement.size() == 1) return narrowSingle(text, result, size, replacement[0]);
    Sink<char> sink(result, size);
    while (!text.empty()) {
        if (m_hasAscii && text[0] < 0x80) text.remove_prefix(copyAscii(text, sink));
        text.remove_prefix(narrowKnown(text, sink));
        if (text.empty()) break;
        const WORD code = codeOf(text[0]);
        const char bytes[] = {static_cast<char>(code >> 8), static_cast<char>(code & 0xFF)};
        if (code == 0 && text[0] != 0) {
            sink.markUnknown();
            sink.put(replacement.data(), replacement.size());
        } else {
            sink.put(code > 0xFF ? bytes : bytes + 1, code > 0xFF ? 2 : 1);
        }
        text.remove_prefix(1);
    }
    return sink.converted();
}

} // namespace corekit::detail

// Code pages of one or two bytes a character, held as tables.
#pragma once

#include "corekit/platform/posix/text/CodePage.h"
#include "corekit/platform/posix/text/CodePageNames.h"

#include <array>
#include <memory>
#include <string>

namespace corekit::detail {

// What a page's own converter says, asked once for each character while the tables are made.
class PageSource {
public:
    enum class Answer { unit, leadByte, nothing };

    virtual ~PageSource() = default;
    // The one unit that these one or two bytes stand for.
    virtual Answer decode(std::string_view bytes, WCHAR& unit) = 0;
    // The one or two bytes for a unit; empty if there are none.
    virtual std::string encode(WCHAR unit) = 0;
};

class TablePage final : public CodePage {
public:
    TablePage(PageSource& source, std::span<const CodePagePatch> patches);

    Converted widen(std::string_view text, WCHAR* result, std::size_t size) const override;
    Converted narrow(std::u16string_view text, char* result, std::size_t size,
                     std::string_view replacement) const override;
    bool isLeadByte(BYTE byte) const override { return m_trails[byte] != nullptr; }
    std::size_t longest() const override { return m_isSingle ? 1 : 2; }
    BYTE questionMark() const override { return m_questionMark; }

private:
    using Trails = std::array<WCHAR, 256>;
    using Codes = std::array<WORD, 256>; // one byte, or lead byte above trail byte; 0 for none

    void readSingleBytes(PageSource& source, std::span<const CodePagePatch> patches);
    void readTrails(PageSource& source, BYTE lead);
    void enter(PageSource& source, WCHAR unit, WORD code);
    WORD codeOf(WCHAR unit) const { return (*m_codes[unit >> 8])[unit & 0xFF]; }
    std::size_t widenDouble(std::string_view text, Sink<WCHAR>& sink) const;
    Converted narrowSingle(std::u16string_view text, char* result, std::size_t size, char replacement) const;
    std::size_t narrowKnown(std::u16string_view text, Sink<char>& sink) const;

    std::array<WCHAR, 256> m_units{}; // U+FFFD where a byte stands for nothing
    std::array<std::unique_ptr<Trails>, 256> m_trails;
    std::array<const Codes*, 256> m_codes; // by the unit's upper byte; never null
    std::array<std::unique_ptr<Codes>, 256> m_ownCodes;
    BYTE m_questionMark = '?';
    bool m_hasAscii = true; // the lower half is ASCII
    bool m_isSingle = true;
    bool m_hasHoles = false; // a byte stands for nothing
};

} // namespace corekit::detail

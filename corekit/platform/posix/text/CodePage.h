// One code page as a converter, and the finding of it by number.
#pragma once

#include "corekit/platform/posix/text/CodePageNames.h"
#include "corekit/platform/Types.h"

#include <cstddef>
#include <memory>
#include <span>
#include <string_view>

namespace corekit::detail {

// How a conversion ended.
struct Converted {
    std::size_t length = 0;  // of the whole result, written or not
    bool isComplete = true;  // all of it was written
    bool hasUnknown = false; // something stood for nothing, or could not be held and was replaced
};

// Safe for any thread.
class CodePage {
public:
    virtual ~CodePage() = default;

    // Both write no more than size; a character that no longer fits as a whole, and what follows, is counted
    // only. With size 0 nothing is written. An empty replacement is the page's question mark.
    virtual Converted widen(std::string_view text, WCHAR* result, std::size_t size) const = 0;
    virtual Converted narrow(std::u16string_view text, char* result, std::size_t size,
                             std::string_view replacement) const = 0;
    virtual bool isLeadByte(BYTE) const { return false; }
    // The most bytes that one unit may take, those that change a state included.
    virtual std::size_t longest() const = 0;
    virtual BYTE questionMark() const { return '?'; }
};

// Made at first use and kept; null for a page that nobody knows. The number is a real one, not CP_ACP.
const CodePage* findCodePage(UINT number);
// The numbers of all pages that can be found, ascending.
std::span<const UINT> codePageNumbers();

std::unique_ptr<const CodePage> makeUtf8Page();
// By its converter's name in ICU or, where that has none that fits, in iconv; null if that is missing.
std::unique_ptr<const CodePage> makeIcuPage(const CodePageName& name);
std::unique_ptr<const CodePage> makeIconvPage(const CodePageName& name);
bool hasIcuConverter(const char* name);
bool hasIconvConverter(const char* name);

// A place for a result, with a length that keeps counting.
template <typename Unit>
class Sink {
public:
    Sink(Unit* to, std::size_t size) : m_to(to), m_room(size) {}

    void put(const Unit* units, std::size_t count)
    {
        m_converted.length += count;
        if (count > m_room || !m_converted.isComplete) {
            m_converted.isComplete = false;
            return;
        }
        for (std::size_t i = 0; i < count; ++i) m_to[i] = units[i];
        m_to += count;
        m_room -= count;
    }
    void put(Unit unit) { put(&unit, 1); }
    void markUnknown() { m_converted.hasUnknown = true; }
    // How many units may be written straight to place() before advance().
    std::size_t room() const { return m_converted.isComplete ? m_room : 0; }
    Unit* place() const { return m_to; }
    void advance(std::size_t count)
    {
        m_converted.length += count;
        m_to += count;
        m_room -= count;
    }
    const Converted& converted() const { return m_converted; }

private:
    Unit* m_to;
    std::size_t m_room;
    Converted m_converted;
};

// Copies the ASCII at the front of text while there is room; returns how much that was.
std::size_t copyAscii(std::string_view text, Sink<WCHAR>& sink);
std::size_t copyAscii(std::u16string_view text, Sink<char>& sink);

} // namespace corekit::detail

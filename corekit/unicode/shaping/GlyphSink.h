// Where the shaping steps put their glyphs: the end of a StringW, filled in place.
#pragma once

#include "corekit/foundation/StringW.h"

#include <algorithm>
#include <functional>

namespace corekit::detail {

// Appends to the string it is made for. Until the sink is gone, the string is not to be touched.
class GlyphSink {
public:
    explicit GlyphSink(StringW& out) : m_out(out), m_length(out.GetLength()) {}
    ~GlyphSink()
    {
        if (m_buffer) m_out.ReleaseBuffer(m_length);
    }
    GlyphSink(const GlyphSink&) = delete;
    GlyphSink& operator=(const GlyphSink&) = delete;

    // A text that lies in the string itself would go when the string grows: `keeper` shares it and gives the
    // place where it then stands.
    static const WCHAR* KeepApart(const WCHAR* text, const StringW& out, StringW& keeper)
    {
        const std::less_equal<const WCHAR*> notAbove;
        const WCHAR* own = out;
        if (!notAbove(own, text) || !notAbove(text, own + out.GetLength())) return text;
        keeper = out;
        return static_cast<const WCHAR*>(keeper) + (text - own);
    }

    // Room for `count` glyphs; write them there and tell how far you came.
    WCHAR* Room(int count)
    {
        if (!m_buffer || count > m_room - m_length) Grow(count);
        return m_buffer + m_length;
    }
    void Commit(const WCHAR* end) { m_length = static_cast<int>(end - m_buffer); }

    void Append(WCHAR glyph)
    {
        *Room(1) = glyph;
        ++m_length;
    }

private:
    void Grow(int count)
    {
        if (m_buffer) m_out.ReleaseBuffer(m_length);
        constexpr int spare = 8; // so that the last step of a text does not grow it again
        const LONGLONG wanted = LONGLONG{m_length} + spare + std::max(count, m_buffer ? m_length / 2 : 0);
        m_buffer = m_out.GetBuffer(countedLength(static_cast<std::size_t>(wanted)));
        m_room = m_out.GetAllocLength();
    }

    StringW& m_out;
    WCHAR* m_buffer = nullptr; // null until something is written
    int m_length;
    int m_room = 0;
};

} // namespace corekit::detail

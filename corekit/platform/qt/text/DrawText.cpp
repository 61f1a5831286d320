// Text in a rectangle: mnemonics, lines, ellipses, and their places.
#include "corekit/platform/Errors.h"
#include "corekit/platform/Gdi.h"
#include "corekit/platform/qt/drawing/Fill.h"
#include "corekit/platform/qt/text/SizedFont.h"
#include "corekit/platform/qt/text/WideText.h"

#include <algorithm>
#include <string>
#include <string_view>
#include <vector>

using namespace corekit::detail;

namespace {

using View = std::u16string_view;
constexpr std::size_t none = View::npos;
constexpr View ellipsis = u"...";
constexpr int tabCharacters = 8;

bool isLineEnd(char16_t c) { return c == u'\r' || c == u'\n'; }
bool isLowSurrogate(char16_t c) { return c >= 0xDC00 && c <= 0xDFFF; }

struct Line {
    std::u16string text;
    std::size_t mark = none; // the character that is underlined
};

// Takes the "&" off that mark a character; the last mark counts.
Line withoutPrefixes(View text, UINT format)
{
    Line line;
    for (std::size_t i = 0; i < text.size(); ++i) {
        if (text[i] == u'&' && !(format & DT_NOPREFIX)) {
            if (++i == text.size()) break;
            if (text[i] != u'&') line.mark = line.text.size();
        }
        line.text += text[i];
    }
    return line;
}

class TextBlock {
public:
    TextBlock(HDC dc, DeviceContext& context, SizedFont& font, UINT format, std::int64_t width)
        : m_dc(dc), m_context(context), m_font(font), m_format(format), m_room(width)
    {
        TEXTMETRICA metrics;
        GetTextMetricsA(dc, &metrics);
        m_lineHeight = metrics.tmHeight + (format & DT_EXTERNALLEADING ? metrics.tmExternalLeading : 0);
        m_tab = std::max(metrics.tmAveCharWidth, 1) * tabCharacters;
    }

    void layOut(View text)
    {
        Line all = withoutPrefixes(text, m_format);
        if (m_format & DT_SINGLELINE) {
            for (char16_t& c : all.text)
                if (isLineEnd(c)) c = u' ';
            add(all, 0, all.text.size());
        } else {
            breakLines(all);
        }
        for (Line& line : m_lines) shorten(line);
    }

    int height() const { return static_cast<int>(m_lines.size()) * m_lineHeight; }
    std::int64_t widest() const
    {
        std::int64_t most = 0;
        for (const Line& line : m_lines) most = std::max(most, widthOf(line.text));
        return most;
    }

    void draw(const RECT& rect, std::int64_t top) const
    {
        std::int64_t y = top;
        for (const Line& line : m_lines) {
            const std::int64_t spare = m_room - widthOf(line.text);
            const std::int64_t x = rect.left + (m_format & DT_CENTER  ? spare / 2
                                                : m_format & DT_RIGHT ? spare
                                                                      : 0);
            drawPieces(line.text, x, y, m_format & DT_NOCLIP ? nullptr : &rect);
            if (line.mark != none && !(m_format & DT_HIDEPREFIX)) underline(line, x, y, rect);
            y += m_lineHeight;
        }
    }

private:
    UINT options() const { return m_format & DT_RTLREADING ? ETO_RTLREADING : 0; }

    std::int64_t plainWidth(View text) const
    {
        SIZE size{};
        GetTextExtentPoint32W(m_dc, text.data(), static_cast<int>(text.size()), &size, options());
        return size.cx;
    }

    // Calls with each piece between tabs and where it begins; the end of the last is the width.
    template <typename Use>
    std::int64_t forEachPiece(View text, Use use) const
    {
        std::int64_t x = 0;
        for (;;) {
            const std::size_t tab = m_format & DT_EXPANDTABS ? text.find(u'\t') : none;
            const View piece = text.substr(0, tab);
            use(piece, x);
            x += plainWidth(piece);
            if (tab == none) return x;
            x = (x / m_tab + 1) * m_tab;
            text.remove_prefix(tab + 1);
        }
    }
    std::int64_t widthOf(View text) const
    {
        return forEachPiece(text, [](View, std::int64_t) {});
    }

    void add(const Line& all, std::size_t from, std::size_t to)
    {
        Line line;
        line.text = all.text.substr(from, to - from);
        if (all.mark >= from && all.mark < to) line.mark = all.mark - from;
        if (!(m_format & DT_EXPANDTABS)) std::ranges::replace(line.text, u'\t', u' ');
        m_lines.push_back(std::move(line));
    }

    void breakLines(const Line& all)
    {
        const View text = all.text;
        std::size_t from = 0;
        while (from < text.size()) {
            const std::size_t end = std::min(text.find_first_of(u"\r\n", from), text.size());
            if (m_format & DT_WORDBREAK)
                breakWords(all, from, end);
            else
                add(all, from, end);
            from = end;
            if (from < text.size()) from += text.substr(from, 2) == u"\r\n" ? 2 : 1;
        }
    }

    // Breaks at the blanks, which stay out of sight at the end of a line. A word that is too wide stands
    // alone.
    void breakWords(const Line& all, std::size_t from, std::size_t end)
    {
        const View text = all.text;
        const std::size_t begin = from;
        std::size_t lineEnd = from, next = from;
        std::int64_t width = 0;
        while (next < end) {
            const std::size_t word = std::min(text.find_first_not_of(u' ', next), end);
            std::size_t wordEnd = std::min(text.find(u' ', word), end);
            const std::int64_t added = widthOf(text.substr(next, wordEnd - next));
            if (width + added <= m_room || lineEnd == from) {
                if (added > m_room && lineEnd == from && m_format & DT_EDITCONTROL)
                    wordEnd = word + fitting(text.substr(word, wordEnd - word), m_room, true);
                width += added;
                lineEnd = next = wordEnd;
                if (wordEnd < end && text[wordEnd] != u' ') width = m_room + 1;
                continue;
            }
            add(all, from, lineEnd);
            from = lineEnd = next = text[next] == u' ' ? word : next;
            width = 0;
        }
        if (from < end || from == begin) add(all, from, lineEnd);
    }

    // How many units fit; at least one character where `some`.
    std::size_t fitting(View text, std::int64_t room, bool some) const
    {
        std::size_t fits = 0, fails = text.size() + 1;
        while (fails - fits > 1) {
            const std::size_t middle = (fits + fails) / 2;
            (widthOf(text.substr(0, middle)) <= room ? fits : fails) = middle;
        }
        if (fits == 0 && some) fits = std::min<std::size_t>(1, text.size());
        if (fits < text.size() && isLowSurrogate(text[fits])) some&& fits == 1 ? ++fits : --fits;
        return fits;
    }

    void shorten(Line& line) const
    {
        constexpr UINT any = DT_END_ELLIPSIS | DT_WORD_ELLIPSIS | DT_PATH_ELLIPSIS;
        if (!(m_format & any) || widthOf(line.text) <= m_room) return;
        const View text = line.text;
        std::size_t tail = text.size();
        if (m_format & DT_PATH_ELLIPSIS) {
            const std::size_t slash = text.find_last_of(u"\\/");
            if (slash != none) tail = slash;
        }
        const std::int64_t room = m_room - widthOf(std::u16string(ellipsis) += text.substr(tail));
        const std::size_t head = fitting(text.substr(0, tail), std::max<std::int64_t>(room, 0), false);
        std::u16string cut(text.substr(0, head));
        cut += ellipsis;
        cut += text.substr(tail);
        if (line.mark != none && line.mark >= head)
            line.mark = line.mark >= tail ? line.mark - tail + head + ellipsis.size() : none;
        line.text = std::move(cut);
    }

    void drawPieces(View text, std::int64_t left, std::int64_t y, const RECT* clip) const
    {
        forEachPiece(text, [&](View piece, std::int64_t x) {
            ExtTextOutW(m_dc, static_cast<int>(left + x), static_cast<int>(y),
                        options() | (clip ? ETO_CLIPPED : 0), clip, piece.data(),
                        static_cast<UINT>(piece.size()));
        });
    }

    void underline(const Line& line, std::int64_t left, std::int64_t y, const RECT& rect) const
    {
        const View text = line.text;
        const std::int64_t from = widthOf(text.substr(0, line.mark));
        const std::int64_t to = std::max(widthOf(text.substr(0, line.mark + 1)), from + 1);
        const bool fromRight = (m_format & DT_RTLREADING) != 0;
        const std::int64_t width = widthOf(text), below = y + m_font.ascent() + 1;
        const Area bar{left + (fromRight ? width - to : from), below, left + (fromRight ? width - from : to),
                       below + 1};
        const Area seen = m_format & DT_NOCLIP ? bar : bar.cut(areaOf(rect));
        if (!seen.isEmpty()) fillArea(m_context, m_context.pixelsOf(seen), pixelOf(m_context.textColour));
    }

    HDC m_dc;
    DeviceContext& m_context;
    SizedFont& m_font;
    UINT m_format;
    std::int64_t m_room;
    int m_lineHeight = 0, m_tab = 1;
    std::vector<Line> m_lines;
};

// The reference point of a text is its upper left corner while this lives.
class AlignGuard {
public:
    explicit AlignGuard(DeviceContext& context) : m_context(context), m_before(context.align)
    {
        context.align = TA_LEFT | TA_TOP;
    }
    ~AlignGuard() { m_context.align = m_before; }
    AlignGuard(const AlignGuard&) = delete;
    AlignGuard& operator=(const AlignGuard&) = delete;

private:
    DeviceContext& m_context;
    const UINT m_before;
};

int drawIn(HDC dc, View text, RECT& rect, UINT format)
{
    DeviceContext* const context = GdiTable::find<DeviceContext>(dc);
    SizedFont* const font = context ? context->glyphs() : nullptr;
    if (!font) return 0;
    const AlignGuard guard(*context);
    TextBlock block(dc, *context, *font, format, std::int64_t{rect.right} - rect.left);
    block.layOut(text);
    const int height = block.height();
    if (format & DT_CALCRECT) {
        rect.right = static_cast<LONG>(rect.left + block.widest());
        rect.bottom = rect.top + height;
        return height;
    }
    std::int64_t top = rect.top;
    const std::int64_t spare = std::int64_t{rect.bottom} - rect.top - height;
    if (format & DT_SINGLELINE && format & DT_VCENTER)
        top += spare / 2;
    else if (format & DT_SINGLELINE && format & DT_BOTTOM)
        top += spare;
    block.draw(rect, top);
    return static_cast<int>(top - rect.top) + height;
}

constexpr int longestText = 1 << 20; // units

} // namespace

int DrawTextW(HDC dc, const WCHAR* text, int count, RECT* rect, UINT format)
{
    if (!rect || (!text && count != 0) || count > longestText) {
        SetLastError(ERROR_INVALID_PARAMETER);
        return 0;
    }
    const View all = count < 0 ? View(text) : View(text, static_cast<std::size_t>(count));
    return drawIn(dc, all.substr(0, longestText), *rect, format);
}

int DrawTextA(HDC dc, const char* text, int count, RECT* rect, UINT format)
{
    if (!rect || (!text && count != 0) || count > longestText) {
        SetLastError(ERROR_INVALID_PARAMETER);
        return 0;
    }
    const std::size_t length = count < 0 ? std::string_view(text).size() : static_cast<std::size_t>(count);
    const std::u16string wide = wideText(text, static_cast<int>(std::min<std::size_t>(length, longestText)));
    return drawIn(dc, wide, *rect, format);
}

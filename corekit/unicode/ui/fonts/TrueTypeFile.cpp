#include "corekit/unicode/ui/fonts/TrueTypeFile.h"

#include "corekit/platform/CodePages.h"

#include <algorithm>
#include <cmath>
#include <map>
#include <span>
#include <string_view>
#include <utility>

namespace corekit::detail {

namespace {

class Bytes {
public:
    void U8(unsigned v) { data.push_back(static_cast<BYTE>(v)); }
    void U16(int v)
    {
        U8(static_cast<unsigned>(v) >> 8 & 0xFF);
        U8(static_cast<unsigned>(v) & 0xFF);
    }
    void U32(DWORD v)
    {
        U16(static_cast<int>(v >> 16));
        U16(static_cast<int>(v & 0xFFFF));
    }
    void Append(const std::vector<BYTE>& more) { data.insert(data.end(), more.begin(), more.end()); }
    void PadTo4() { data.resize((data.size() + 3) & ~std::size_t{3}); }
    std::size_t Size() const { return data.size(); }

    std::vector<BYTE> data;
};

struct Box {
    int left = 32767, bottom = 32767, right = -32768, top = -32768;

    void Add(int x, int y)
    {
        left = std::min(left, x);
        right = std::max(right, x);
        bottom = std::min(bottom, y);
        top = std::max(top, y);
    }
    void Add(const Box& b)
    {
        if (b.IsEmpty()) return;
        Add(b.left, b.bottom);
        Add(b.right, b.top);
    }
    bool IsEmpty() const { return left > right; }
};

int rounded(double v) { return static_cast<int>(std::lround(std::clamp(v, -16000.0, 16000.0))); }

// ---- Glyphs -----------------------------------------------------------------------------------

struct GlyphPoints {
    std::vector<BYTE> onCurve;
    std::vector<int> x, y, contourEnds;
    Box box;

    void Add(OutlinePoint p, bool on)
    {
        x.push_back(rounded(p.x));
        y.push_back(rounded(p.y));
        onCurve.push_back(on);
        box.Add(x.back(), y.back());
    }
};

bool isStraight(const OutlineCurve& c)
{
    return std::abs(c.control.x - (c.start.x + c.end.x) / 2) < 0.25 &&
           std::abs(c.control.y - (c.start.y + c.end.y) / 2) < 0.25;
}

GlyphPoints pointsOf(const GlyphOutline& outline)
{
    GlyphPoints points;
    for (const OutlineContour& contour : outline) {
        for (const OutlineCurve& side : contour) {
            points.Add(side.start, true);
            if (!isStraight(side)) points.Add(side.control, false);
        }
        if (!contour.empty()) points.contourEnds.push_back(static_cast<int>(points.x.size()) - 1);
    }
    return points;
}

void writeGlyph(Bytes& out, const GlyphPoints& points)
{
    constexpr unsigned onCurve = 1, mayOverlap = 0x40;
    out.U16(static_cast<int>(points.contourEnds.size()));
    out.U16(points.box.left);
    out.U16(points.box.bottom);
    out.U16(points.box.right);
    out.U16(points.box.top);
    for (const int end : points.contourEnds) out.U16(end);
    out.U16(0); // no instructions
    for (std::size_t i = 0; i < points.x.size(); ++i)
        out.U8((points.onCurve[i] ? onCurve : 0) | (i == 0 ? mayOverlap : 0));
    int before = 0;
    for (const int x : points.x) out.U16(x - std::exchange(before, x));
    before = 0;
    for (const int y : points.y) out.U16(y - std::exchange(before, y));
    out.PadTo4();
}

struct GlyphTables {
    Bytes outlines, places, widths;
    Box box;
    int widest = 0, mostPoints = 0, mostContours = 0;
};

GlyphTables tablesOf(const std::vector<TrueTypeGlyph>& glyphs)
{
    GlyphTables t;
    for (const TrueTypeGlyph& glyph : glyphs) {
        const GlyphPoints points = pointsOf(glyph.outline);
        t.places.U32(static_cast<DWORD>(t.outlines.Size()));
        if (!points.x.empty()) writeGlyph(t.outlines, points);
        t.widths.U16(glyph.advance);
        t.widths.U16(points.x.empty() ? 0 : points.box.left);
        t.box.Add(points.box);
        t.widest = std::max(t.widest, glyph.advance);
        t.mostPoints = std::max(t.mostPoints, static_cast<int>(points.x.size()));
        t.mostContours = std::max(t.mostContours, static_cast<int>(points.contourEnds.size()));
    }
    t.places.U32(static_cast<DWORD>(t.outlines.Size()));
    if (t.box.IsEmpty()) t.box = {0, 0, 0, 0};
    return t;
}

// ---- Tables of the whole ----------------------------------------------------------------------

constexpr int windowsPlatform = 3, unicodeEncoding = 1, english = 0x409;

Bytes headTable(const TrueTypeFile& file, const Box& box)
{
    Bytes b;
    b.U32(0x00010000);
    b.U32(0x00010000);
    b.U32(0); // the sum over the whole comes last
    b.U32(0x5F0F3CF5);
    b.U16(0x0003); // baseline and left edge at 0
    b.U16(file.unitsPerEm);
    for (int i = 0; i < 4; ++i) b.U32(0); // made and changed: left at 0, so that equal fonts are equal bytes
    b.U16(box.left);
    b.U16(box.bottom);
    b.U16(box.right);
    b.U16(box.top);
    b.U16(0);
    b.U16(8); // least readable size
    b.U16(2);
    b.U16(1); // places have 32 bits
    b.U16(0);
    return b;
}

Bytes horizontalHeader(const TrueTypeFile& file, const GlyphTables& t)
{
    Bytes b;
    b.U32(0x00010000);
    b.U16(file.ascent);
    b.U16(-file.descent);
    b.U16(0);
    b.U16(t.widest);
    b.U16(t.box.left);
    b.U16(0);
    b.U16(t.box.right);
    b.U16(1);
    for (int i = 0; i < 7; ++i) b.U16(0);
    b.U16(static_cast<int>(file.glyphs.size()));
    return b;
}

Bytes profile(const TrueTypeFile& file, const GlyphTables& t)
{
    Bytes b;
    b.U32(0x00010000);
    b.U16(static_cast<int>(file.glyphs.size()));
    b.U16(t.mostPoints);
    b.U16(t.mostContours);
    for (int i = 0; i < 2; ++i) b.U16(0); // no glyphs made of others
    b.U16(1);
    for (int i = 0; i < 8; ++i) b.U16(0);
    return b;
}

Bytes os2(const TrueTypeFile& file)
{
    const int em = file.unitsPerEm;
    const auto [least, most] = std::minmax_element(file.codes.begin(), file.codes.end(),
                                                   [](auto a, auto b) { return a.character < b.character; });
    Bytes b;
    b.U16(4);
    b.U16(em / 2);
    b.U16(400);
    b.U16(5);
    b.U16(0); // may be embedded
    for (const int v : {em / 2, em / 2, 0, em / 7, em / 2, em / 2, 0, em / 2, em / 20, em / 4}) b.U16(v);
    b.U16(0);
    for (int i = 0; i < 10; ++i) b.U8(0);
    for (int i = 0; i < 4; ++i) b.U32(0); // its codes are no Unicode text
    for (const char c : {' ', ' ', ' ', ' '}) b.U8(static_cast<unsigned char>(c));
    b.U16(0x0040); // regular
    b.U16(least->character);
    b.U16(most->character);
    b.U16(file.ascent);
    b.U16(-file.descent);
    b.U16(0);
    b.U16(file.ascent);
    b.U16(file.descent);
    b.U32(1);
    b.U32(0);
    b.U16(em / 2);
    b.U16(em * 7 / 10);
    b.U16(0);
    b.U16(' ');
    b.U16(1);
    return b;
}

// Format 4: a segment for each stretch of characters whose glyphs follow each other, too.
Bytes characterMap(const TrueTypeFile& file)
{
    std::vector<TrueTypeCode> codes = file.codes;
    std::sort(codes.begin(), codes.end(), [](auto a, auto b) { return a.character < b.character; });
    struct Segment {
        int first, last, delta;
    };
    std::vector<Segment> segments;
    for (const TrueTypeCode& c : codes) {
        const int delta = c.glyph - c.character;
        if (!segments.empty() && segments.back().last + 1 == c.character && segments.back().delta == delta)
            segments.back().last = c.character;
        else
            segments.push_back({c.character, c.character, delta});
    }
    segments.push_back({0xFFFF, 0xFFFF, 1});

    const int count = static_cast<int>(segments.size());
    const int power = static_cast<int>(std::log2(count)), range = 2 << power;
    Bytes b;
    for (const int v : {0, 1, windowsPlatform, unicodeEncoding}) b.U16(v);
    b.U32(12);
    for (const int v : {4, 16 + 8 * count, 0, 2 * count, range, power, 2 * count - range}) b.U16(v);
    for (const Segment& s : segments) b.U16(s.last);
    b.U16(0);
    for (const Segment& s : segments) b.U16(s.first);
    for (const Segment& s : segments) b.U16(s.delta);
    for (int i = 0; i < count; ++i) b.U16(0);
    return b;
}

std::u16string utf16(const std::string& utf8)
{
    std::u16string wide(utf8.size(), u'\0'); // never more units than bytes
    const auto size = static_cast<int>(utf8.size());
    wide.resize(
        static_cast<std::size_t>(MultiByteToWideChar(CP_UTF8, 0, utf8.data(), size, wide.data(), size)));
    return wide;
}

Bytes names(const TrueTypeFile& file)
{
    std::string postScript = file.family;
    std::erase(postScript, ' ');
    const std::map<int, std::string> entries{
        {0, file.copyright}, {1, file.family}, {2, "Regular"},     {3, file.family},         {4, file.family},
        {5, "Version 1.0"},  {6, postScript},  {13, file.licence}, {14, file.licenceAddress}};
    Bytes records, text;
    int count = 0;
    for (const auto& [id, value] : entries) {
        if (value.empty()) continue;
        const std::u16string wide = utf16(value);
        for (const int v : {windowsPlatform, unicodeEncoding, english, id, 2 * static_cast<int>(wide.size()),
                            static_cast<int>(text.Size())})
            records.U16(v);
        for (const char16_t unit : wide) text.U16(unit);
        ++count;
    }
    Bytes b;
    for (const int v : {0, count, 6 + 12 * count}) b.U16(v);
    b.Append(records.data);
    b.Append(text.data);
    return b;
}

Bytes postTable(const TrueTypeFile& file)
{
    Bytes b;
    b.U32(0x00030000); // no names of glyphs
    b.U32(0);
    b.U16(-file.unitsPerEm / 10);
    b.U16(file.unitsPerEm / 20);
    for (int i = 0; i < 5; ++i) b.U32(0);
    return b;
}

// ---- Kerning ----------------------------------------------------------------------------------

// As many subtables as their length of 16 bits asks for.
Bytes kerning(std::vector<TrueTypePair> pairs)
{
    constexpr std::size_t most = 10000;
    std::ranges::sort(pairs, {}, [](const TrueTypePair& p) { return std::pair(p.left, p.right); });
    const auto count = static_cast<int>((pairs.size() + most - 1) / most);
    Bytes b;
    for (const int v : {0, count}) b.U16(v);
    for (std::size_t at = 0; at < pairs.size(); at += most) {
        const int n = static_cast<int>(std::min(most, pairs.size() - at)),
                  power = static_cast<int>(std::log2(n));
        const int range = 6 << power;
        for (const int v : {0, 14 + 6 * n, 1, n, range, power, 6 * n - range}) b.U16(v);
        for (const TrueTypePair& p : std::span(pairs).subspan(at, static_cast<std::size_t>(n)))
            for (const int v : {int{p.left}, int{p.right}, p.move}) b.U16(v);
    }
    return b;
}

// ---- The file ---------------------------------------------------------------------------------

DWORD sumOf(const std::vector<BYTE>& padded)
{
    DWORD sum = 0;
    for (std::size_t i = 0; i + 3 < padded.size(); i += 4)
        sum += static_cast<DWORD>(padded[i]) << 24 | static_cast<DWORD>(padded[i + 1]) << 16 |
               static_cast<DWORD>(padded[i + 2]) << 8 | padded[i + 3];
    return sum;
}

struct Table {
    std::string_view tag;
    Bytes bytes;
};

std::vector<BYTE> assemble(std::vector<Table> tables)
{
    const int count = static_cast<int>(tables.size()), power = static_cast<int>(std::log2(count)),
              range = 16 << power;
    Bytes out;
    out.U32(0x00010000);
    for (const int v : {count, range, power, 16 * count - range}) out.U16(v);
    std::size_t place = 12 + 16 * tables.size(), head = 0;
    for (Table& table : tables) {
        const auto size = static_cast<DWORD>(table.bytes.Size());
        table.bytes.PadTo4();
        if (table.tag == "head") head = place;
        for (int i = 0; i < 4; ++i)
            out.U8(static_cast<unsigned char>(table.tag[static_cast<std::size_t>(i)]));
        out.U32(sumOf(table.bytes.data));
        out.U32(static_cast<DWORD>(place));
        out.U32(size);
        place += table.bytes.Size();
    }
    for (const Table& table : tables) out.Append(table.bytes.data);
    Bytes sum;
    sum.U32(0xB1B0AFBA - sumOf(out.data));
    std::copy(sum.data.begin(), sum.data.end(), out.data.begin() + static_cast<std::ptrdiff_t>(head) + 8);
    return out.data;
}

} // namespace

std::vector<BYTE> TrueTypeFile::Write() const
{
    GlyphTables t = tablesOf(glyphs);
    std::vector<Table> tables{{"OS/2", os2(*this)},
                              {"cmap", characterMap(*this)},
                              {"glyf", std::move(t.outlines)},
                              {"head", headTable(*this, t.box)},
                              {"hhea", horizontalHeader(*this, t)},
                              {"hmtx", std::move(t.widths)},
                              {"loca", std::move(t.places)},
                              {"maxp", profile(*this, t)},
                              {"name", names(*this)},
                              {"post", postTable(*this)}};
    if (!pairs.empty()) // tables stand by their tags
        tables.insert(std::ranges::find(tables, std::string_view("loca"), &Table::tag),
                      {"kern", kerning(pairs)});
    return assemble(std::move(tables));
}

} // namespace corekit::detail

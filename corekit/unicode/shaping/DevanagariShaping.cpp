#include "corekit/unicode/shaping/DevanagariShaping.h"

#include "corekit/unicode/shaping/DevanagariBlock.h"
#include "corekit/unicode/shaping/ShapingStep.h"

namespace corekit::detail {

namespace {

using namespace devanagari;

constexpr WCHAR virama = 0x094D;
constexpr int longestSyllable = 24; // glyphs, with what the last list spills

// The place in the text. Behind the end it sees zeros, and it never goes there.
class Reader {
public:
    Reader(const WCHAR* text, int end, int index) : m_text(text), m_end(end), m_index(index) {}

    int Index() const { return m_index; }
    WCHAR Peek() const { return m_index < m_end ? m_text[m_index] : u'\0'; }
    void Advance()
    {
        if (Peek()) ++m_index;
    }
    bool Take(WCHAR c)
    {
        const bool found = Peek() == c;
        m_index += found;
        return found;
    }

private:
    const WCHAR* m_text;
    int m_end, m_index;
};

unsigned readConsonantMarks(Reader& text)
{
    unsigned flags = 0;
    while (const unsigned mark = characterOf(text.Peek()).mark) {
        flags |= mark;
        text.Advance();
    }
    return flags;
}

struct Consonant {
    WCHAR code;
    unsigned flags;

    const Letter& Forms() const
    {
        const Character& c = characterOf(code);
        return block.letters[c.kind == Kind::consonant ? c.row : 0];
    }
    bool IsRa() const { return code == devanagariRa; }
    bool Has(unsigned flag) const { return (flags & flag) != 0; }
};

// Of the two marks one is written; the full form and the half one disagree on which.
constexpr GlyphList markOnFull[] = {{}, {anusvaraGlyph}, {candrabinduGlyph}, {candrabinduGlyph}};
constexpr GlyphList markOnHalf[] = {{}, {anusvaraGlyph}, {candrabinduGlyph}, {anusvaraGlyph}};
static_assert(anusvara == 2 && candrabindu == 4);

WCHAR* appendForm(WCHAR* out, const GlyphList (&form)[2], const GlyphList (&marks)[4], unsigned flags)
{
    const GlyphList& glyphs = form[flags & nukta];
    out = glyphs.Put(out);
    return flags > nukta && glyphs.Count() ? marks[flags >> 1].Put(out) : out;
}
WCHAR* appendFullConsonant(WCHAR* out, const Consonant& c, unsigned flags)
{
    return appendForm(out, c.Forms().full, markOnFull, flags);
}
WCHAR* appendHalfConsonant(WCHAR* out, const Consonant& c)
{
    return appendForm(out, c.Forms().half, markOnHalf, c.flags);
}
WCHAR* appendRakarConsonant(WCHAR* out, const Consonant& c, unsigned flags)
{
    return appendForm(out, c.Forms().rakar, markOnFull, flags);
}
WCHAR* appendConsonantTail(WCHAR* out, const Consonant& c) { return c.Forms().tail.Put(out); }

WCHAR* appendGlyph(WCHAR* out, WCHAR glyph)
{
    *out = glyph;
    return out + (glyph != 0);
}

enum class Form : unsigned char { full, reph, rakar };

struct Cluster {
    Consonant consonants[3];
    int count;
    bool dead; // ends in a virama
};

// The consonant that ends the cluster and carries its vowel sign: under a reph, over a rakar or as it is.
struct Base {
    int which;
    Form form;
};

Cluster readCluster(Reader& text)
{
    Cluster cluster{};
    for (;;) {
        const WCHAR code = text.Peek();
        text.Advance();
        cluster.consonants[cluster.count++] = {code, readConsonantMarks(text)};
        if (cluster.count == 3 || !text.Take(virama)) return cluster;
        if (characterOf(text.Peek()).kind != Kind::consonant) {
            cluster.dead = true;
            return cluster;
        }
    }
}

Base baseOf(const Cluster& cluster)
{
    const auto& c = cluster.consonants;
    const int last = cluster.count - 1;
    if (last == 0) return {0, Form::full};
    if (c[0].IsRa() && !(cluster.dead && c[last].IsRa())) return {last, Form::reph};
    if (c[last].IsRa() && !(last == 2 && c[1].IsRa())) return {last - 1, Form::rakar};
    return {last, Form::full};
}

// All before the base.
WCHAR* appendLead(WCHAR* out, const Cluster& cluster, Base base)
{
    const auto& c = cluster.consonants;
    if (cluster.count == 3 && base.form == Form::full && c[1].IsRa())
        return appendConsonantTail(appendRakarConsonant(out, c[0], c[0].flags), c[0]);
    for (int i = base.form == Form::reph; i < base.which; ++i) out = appendHalfConsonant(out, c[i]);
    return out;
}

WCHAR* appendBase(WCHAR* out, const Consonant& c, Form form, bool dead)
{
    if (form == Form::rakar) {
        out = appendRakarConsonant(out, c, c.flags);
    } else if (form == Form::reph) {
        out = appendFullConsonant(out, c, c.flags & ~anusvara);
        out = appendGlyph(out, c.Has(anusvara) ? rephAnusvara : reph);
    } else {
        out = appendFullConsonant(out, c, c.flags);
    }
    if (dead) out = appendGlyph(out, viramaGlyph);
    return appendConsonantTail(out, c);
}

SignOn readSignMarks(Reader& text, const Consonant& c, Form form)
{
    const unsigned follows = characterOf(text.Peek()).mark & (anusvara | candrabindu);
    if (form != Form::reph) {
        if (follows) text.Advance();
        return static_cast<SignOn>((c.flags | follows) >> 1);
    }
    if (!c.Has(anusvara) && follows != anusvara) return SignOn::reph;
    // Where the consonant had the anusvara before its sign, this is whatever comes behind the sign.
    text.Advance();
    return SignOn::rephAnusvara;
}
static_assert(static_cast<unsigned>(SignOn::anusvara) == anusvara >> 1 &&
              static_cast<unsigned>(SignOn::candrabindu) == candrabindu >> 1);

WCHAR* appendLowSign(WCHAR* out, const DevanagariLowSign& low, SignOn on, const Consonant& c, Form form)
{
    const GlyphList& beside = devanagariBesideLowSign[static_cast<int>(on)];
    const unsigned nuktaOnly = c.flags & nukta;
    if (form != Form::rakar && c.IsRa()) {
        out = beside.Put(appendGlyph(out, low.onRa));
        return appendGlyph(out, on < SignOn::reph ? low.raTail : low.raTailBehindReph);
    }
    if (form != Form::rakar) {
        out = appendFullConsonant(out, c, 0);
        out = appendGlyph(out, nuktaOnly ? low.withNukta : low.glyph);
    } else if (c.code == devanagariTta || c.code == devanagariDda) {
        out = appendGlyph(appendFullConsonant(out, c, nuktaOnly), low.withRakar);
    } else {
        out = appendGlyph(appendRakarConsonant(out, c, nuktaOnly), low.glyph);
    }
    return appendConsonantTail(beside.Put(out), c);
}

// The base with its vowel sign, which the text is at. `start` is where the syllable begins; room for a sign
// that goes there has been left.
WCHAR* appendMatra(WCHAR* out, WCHAR* start, Reader& text, const Consonant& c, Form form)
{
    const int which = text.Peek() - firstSign;
    text.Advance();
    const SignOn on = readSignMarks(text, c, form);
    const DevanagariSign* sign = block.signs[which];
    if (!sign) return appendLowSign(out, devanagariLowSigns[which - (firstLowSign - firstSign)], on, c, form);

    const GlyphList& glyphs = sign->glyphs[static_cast<int>(on)];
    const unsigned nuktaOnly = c.flags & nukta;
    out = form == Form::rakar ? appendRakarConsonant(out, c, nuktaOnly)
                              : appendFullConsonant(out, c, nuktaOnly);
    if (sign->place == SignPlace::beforeTail) return appendConsonantTail(glyphs.Put(out), c);
    out = appendConsonantTail(out, c);
    if (sign->place == SignPlace::behindTail) return glyphs.Put(out);
    *start = glyphs[0];
    return out;
}

constexpr WCHAR signFirst = 0x093F;

WCHAR* appendCluster(WCHAR* out, Reader& text)
{
    const Cluster cluster = readCluster(text);
    const Base base = baseOf(cluster);
    const Consonant& c = cluster.consonants[base.which];
    const WCHAR sign = text.Peek();
    if (cluster.dead || !IsDevanagariMatra(sign))
        return appendBase(appendLead(out, cluster, base), c, base.form, cluster.dead);
    WCHAR* const start = out;
    if (sign == signFirst) ++out;
    return appendMatra(appendLead(out, cluster, base), start, text, c, base.form);
}

WCHAR* appendVowel(WCHAR* out, Reader& text, const DevanagariVowel& vowel)
{
    text.Advance();
    if (text.Take(0x0901)) return vowel.withCandrabindu.Put(out);
    if (text.Take(0x0902)) return vowel.withAnusvara.Put(out);
    return vowel.plain.Put(out);
}

// `end` is where the text can be read no further.
int shapeSyllable(GlyphSink& sink, const WCHAR* text, int end, int index)
{
    Reader reader(text, end, index);
    WCHAR* out = sink.Room(longestSyllable);
    const Character& first = characterOf(reader.Peek());
    if (first.kind == Kind::single) {
        reader.Advance();
        sink.Commit(appendGlyph(out, devanagariSingles[first.row].glyph));
    } else if (first.kind == Kind::vowel) {
        sink.Commit(appendVowel(out, reader, devanagariVowels[first.row]));
    } else {
        sink.Commit(appendCluster(out, reader));
    }
    return reader.Index();
}

} // namespace

int shapeDevanagariRun(GlyphSink& sink, const WCHAR* text, int end, int index, int limit)
{
    // Behind a zero within the text only the limit is known.
    const int readable = index < end ? end : limit;
    do {
        index = shapeSyllable(sink, text, readable, index);
    } while (index < limit && text[index] - blockStart < blockSize);
    return index;
}

} // namespace corekit::detail

void ConvertDevanagariSyllable(StringW& out, const WCHAR* text, int& index)
{
    corekit::detail::takeStep(out, text, index, corekit::detail::shapeSyllable);
}

bool IsDevanagariConsonant(WCHAR c)
{
    using namespace corekit::detail::devanagari;
    return characterOf(c).kind == Kind::consonant;
}

bool IsDevanagariMatra(WCHAR c)
{
    using namespace corekit::detail::devanagari;
    return c >= firstSign && c <= lastSign;
}

#include "FontComparison.h"

#include "Output.h"
#include "Raster.h"

#include "corekit/framework/Geometry.h"
#include "corekit/platform/PairKerning.h"
#include "corekit/unicode/storage/StoredText.h"
#include "corekit/unicode/tables/CharacterCodes.h"
#include "corekit/unicode/tables/UnicodeCharTypes.h"
#include "corekit/unicode/ui/UniRender.h"

#include <algorithm>
#include <set>

namespace {

constexpr int emPixels = 64, margin = 32, wordWidth = 1024, wordHeight = 160, baseline = 104;
constexpr int inkFrom = 128; // coverage that counts as ink

// Draws a word as the prompter does: ordered and shaped by us, with the glyph font first.
class OurHand {
public:
    explicit OurHand(const ComparedFaces& faces)
    {
        if (!faces.glyphFont.empty()) m_render.AddFont(faces.glyphFont.c_str());
        m_render.AddFont(faces.base.c_str());
        m_render.Create(-emPixels, 0, 0, 0);
        m_render.UsePairKerning(faces.isKerned ? PairKerning::on : PairKerning::off);
    }
    void Write(const Raster& raster, int x, int y, const std::u16string& word)
    {
        const StoredText stored = ToStoredText(word.data(), static_cast<int>(word.size()));
        m_render.AttachDC(raster.Context());
        m_render.DrawLogicalString(x, y, 0, CRect(0, 0, raster.Width(), raster.Height()), stored,
                                   stored.GetLength(), 0);
        m_render.DetachDC();
    }

private:
    CUniRender m_render;
};

class PlatformsHand {
public:
    explicit PlatformsHand(const ComparedFaces& faces)
        : m_font(CreateFontA(-emPixels, 0, 0, 0, FW_NORMAL, 0, 0, 0, DEFAULT_CHARSET, 0, 0, 0, 0,
                             faces.base.c_str())),
          m_options(faces.isKerned ? ETO_PAIRKERNING : 0)
    {
    }
    ~PlatformsHand() { DeleteObject(m_font); }
    PlatformsHand(const PlatformsHand&) = delete;
    PlatformsHand& operator=(const PlatformsHand&) = delete;

    void Write(const Raster& raster, int x, int y, const std::u16string& word)
    {
        const HGDIOBJ before = SelectObject(raster.Context(), m_font);
        ExtTextOutW(raster.Context(), x, y, m_options, nullptr, word.c_str(), static_cast<UINT>(word.size()));
        SelectObject(raster.Context(), before);
    }

private:
    HFONT m_font;
    UINT m_options;
};

void MakeReady(const Raster& raster)
{
    SetTextColor(raster.Context(), RGB(255, 255, 255));
    SetBkMode(raster.Context(), TRANSPARENT);
    SetTextAlign(raster.Context(), TA_LEFT | TA_BASELINE);
}

double OverlapOf(const Raster& a, const Raster& b)
{
    long long inA = 0, inB = 0, inBoth = 0;
    for (int i = 0; i < a.Width() * a.Height(); ++i) {
        const bool first = (a.Pixels()[i] & 0xFF) >= inkFrom, second = (b.Pixels()[i] & 0xFF) >= inkFrom;
        inA += first;
        inB += second;
        inBoth += first && second;
    }
    const long long more = std::max(inA, inB);
    return more == 0 ? 0 : static_cast<double>(inBoth) / static_cast<double>(more);
}

enum class InWord { no, letter, mark };

InWord PlaceOf(char16_t c)
{
    using namespace corekit::general;
    const bool isJoiner = c == 0x200C || c == 0x200D;
    switch (CUnicodeCharTypes::GetGeneralType(c)) {
    case Lu:
    case Ll:
    case Lt:
    case Lm:
    case Lo:
        return InWord::letter;
    case Mn:
    case Mc:
        return InWord::mark;
    default:
        return isJoiner ? InWord::mark : InWord::no;
    }
}

std::set<std::u16string> WordsOf(const std::vector<std::u16string>& texts)
{
    std::set<std::u16string> words;
    for (const std::u16string& text : texts) {
        std::u16string word;
        bool hasLetter = false;
        for (const char16_t c : text + u' ') {
            const InWord place = PlaceOf(c);
            hasLetter |= place == InWord::letter;
            if (place != InWord::no) {
                word += c;
                continue;
            }
            if (hasLetter) words.insert(word);
            word.clear();
            hasLetter = false;
        }
    }
    return words;
}

} // namespace

std::vector<WordLikeness> CompareWords(const std::vector<std::u16string>& texts, const ComparedFaces& faces)
{
    OurHand ours(faces);
    PlatformsHand platforms(faces);
    std::vector<WordLikeness> compared;
    for (const std::u16string& word : WordsOf(texts)) {
        const Raster a(wordWidth, wordHeight), b(wordWidth, wordHeight);
        MakeReady(a);
        MakeReady(b);
        ours.Write(a, margin, baseline, word);
        platforms.Write(b, margin, baseline, word);
        compared.push_back({word, OverlapOf(a, b)});
    }
    std::stable_sort(compared.begin(), compared.end(),
                     [](const auto& a, const auto& b) { return a.overlap < b.overlap; });
    return compared;
}

double ShareOf(const std::vector<WordLikeness>& words, double overlap)
{
    const auto alike = std::ranges::count_if(words, [=](const auto& w) { return w.overlap >= overlap; });
    return words.empty() ? 0 : 100.0 * static_cast<double>(alike) / static_cast<double>(words.size());
}

void SaveWordPairs(const std::vector<WordLikeness>& words, const ComparedFaces& faces,
                   const std::string& path)
{
    constexpr std::size_t most = 120; // rows of one picture
    OurHand ours(faces);
    PlatformsHand platforms(faces);
    const int rows = static_cast<int>(std::min(words.size(), most));
    const Raster sheet(2 * wordWidth, std::max(1, rows) * wordHeight);
    MakeReady(sheet);
    const RECT all{0, 0, sheet.Width(), sheet.Height()};
    SetBkColor(sheet.Context(), RGB(0, 0, 0));
    ExtTextOutW(sheet.Context(), 0, 0, ETO_OPAQUE, &all, nullptr, 0);
    for (int i = 0; i < rows; ++i) {
        const std::u16string& word = words[static_cast<std::size_t>(i)].word;
        SetBkMode(sheet.Context(), TRANSPARENT);
        ours.Write(sheet, margin, i * wordHeight + baseline, word);
        platforms.Write(sheet, wordWidth + margin, i * wordHeight + baseline, word);
    }
    if (!SaveBitmapAsPng(sheet.Bitmap(), path.c_str())) FailFor(path);
}

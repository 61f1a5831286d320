#include "corekit/platform/Errors.h"
#include "corekit/platform/qt/drawing/DeviceContext.h"
#include "corekit/platform/qt/text/FontList.h"
#include "corekit/platform/Toolkit.h"

#include <algorithm>
#include <cstring>
#include <QFile>

using namespace corekit::detail;

namespace {

constexpr int greatestEm = 4096;
constexpr int enumeratedEm = 32;
constexpr BYTE familyOfEnumerated = 0x04 | 0x02; // TrueType, vector

// Character sets by the code page bit that stands for them.
struct CharSet {
    int bit;
    BYTE set;
};
constexpr CharSet charSets[] = {{0, 0},    {1, 238},  {2, 204},  {3, 161},  {4, 162},
                                {5, 177},  {6, 178},  {7, 186},  {8, 163},  {16, 222},
                                {17, 128}, {18, 134}, {19, 129}, {20, 136}, {31, 2}};

BYTE charSetOf(const FontTables& tables)
{
    for (const CharSet& c : charSets)
        if (tables.codePages[0] >> c.bit & 1) return c.set;
    return static_cast<BYTE>(DEFAULT_CHARSET);
}

BYTE byteOf(WORD unit) { return static_cast<BYTE>(std::min<WORD>(unit, 0xFF)); }

BYTE pitchAndFamily(const FontTables& tables)
{
    return static_cast<BYTE>(familyOfEnumerated | (tables.fixedPitch ? 0 : 1)); // bit 0 means variable
}

TEXTMETRICA metricsOf(SizedFont& font, const FontRequest& request)
{
    const FontTables& t = font.face().tables();
    TEXTMETRICA m{};
    m.tmHeight = font.height();
    m.tmAscent = font.ascent();
    m.tmDescent = font.descent();
    m.tmInternalLeading = std::max(0, font.height() - static_cast<int>(std::lround(font.em())));
    m.tmExternalLeading = font.down(t.externalLeading);
    m.tmAveCharWidth = std::max(1, font.across(t.averageWidth));
    m.tmMaxCharWidth = font.across(t.greatestWidth);
    m.tmWeight = request.bold ? FW_BOLD : t.weight;
    m.tmDigitizedAspectX = m.tmDigitizedAspectY = 96;
    m.tmFirstChar = byteOf(t.firstChar);
    m.tmLastChar = byteOf(t.lastChar);
    m.tmDefaultChar = byteOf(t.defaultChar);
    m.tmBreakChar = byteOf(t.breakChar);
    m.tmItalic = request.italic;
    m.tmUnderlined = request.underline;
    m.tmStruckOut = request.strikeOut;
    m.tmPitchAndFamily = pitchAndFamily(t);
    m.tmCharSet = charSetOf(t);
    return m;
}

bool refuse(DWORD error)
{
    SetLastError(error);
    return false;
}

bool sizeIsSound(int height, int width)
{
    return height >= -greatestEm && height <= greatestEm && width >= 0 && width <= greatestEm;
}

void setFaceName(LOGFONTA& log, const std::string& name)
{
    const std::string cut = cutFaceName(name);
    std::memcpy(log.lfFaceName, cut.c_str(), cut.size() + 1);
}

// Tells the callback of one style; false when the enumeration is to end.
bool tellStyle(const FontList::Family& family, bool bold, bool italic, FONTENUMPROCA callback,
               LPARAM parameter, int& answer)
{
    const auto face = Typeface::load(family.name, bold, italic); // not kept: most are never drawn with
    if (!face) return true;
    FontRequest request;
    request.bold = bold;
    request.italic = italic;
    SizedFont font(face, -enumeratedEm, 0);
    const TEXTMETRICA metrics = metricsOf(font, request);
    LOGFONTA log{};
    log.lfHeight = metrics.tmHeight;
    log.lfWidth = metrics.tmAveCharWidth;
    log.lfWeight = metrics.tmWeight;
    log.lfItalic = italic;
    log.lfCharSet = metrics.tmCharSet;
    log.lfPitchAndFamily = metrics.tmPitchAndFamily;
    setFaceName(log, face->name());
    answer = callback(&log, &metrics, TRUETYPE_FONTTYPE, parameter);
    return answer != 0;
}

} // namespace

namespace corekit::detail {

SizedFont* Font::sized()
{
    if (m_sized) return m_sized.get();
    if (!ToolkitIsRunning()) {
        SetLastError(ERROR_DEV_NOT_EXIST);
        return nullptr;
    }
    m_sized =
        FontList::instance().font(request.face, request.bold, request.italic, request.height, request.width);
    if (!m_sized) SetLastError(ERROR_FILE_NOT_FOUND);
    return m_sized.get();
}

SizedFont* Font::scaled(double scale)
{
    if (!sized()) return nullptr;
    if (!m_scaled || m_scale != scale) {
        m_scaled = FontList::instance().font(request.face, request.bold, request.italic, request.height,
                                             request.width, scale);
        m_scale = scale;
    }
    return m_scaled.get();
}

} // namespace corekit::detail

HFONT CreateFontA(int height, int width, int escapement, int orientation, int weight, DWORD italic,
                  DWORD underline, DWORD strikeOut, DWORD, DWORD, DWORD, DWORD, DWORD, const char* face)
{
    if (!sizeIsSound(height, width) || escapement != 0 || orientation != 0) {
        SetLastError(ERROR_INVALID_PARAMETER);
        return nullptr;
    }
    auto font = std::make_shared<Font>(FontRequest{face ? face : "", height, width, weight >= 600,
                                                   italic != 0, underline != 0, strikeOut != 0});
    return font->sized() ? static_cast<HFONT>(GdiTable::add(std::move(font))) : nullptr;
}

HFONT CreateFontIndirectA(const LOGFONTA* font)
{
    if (!font) {
        SetLastError(ERROR_INVALID_PARAMETER);
        return nullptr;
    }
    const std::string face(font->lfFaceName, strnlen(font->lfFaceName, sizeof font->lfFaceName));
    return CreateFontA(font->lfHeight, font->lfWidth, font->lfEscapement, font->lfOrientation, font->lfWeight,
                       font->lfItalic, font->lfUnderline, font->lfStrikeOut, font->lfCharSet,
                       font->lfOutPrecision, font->lfClipPrecision, font->lfQuality, font->lfPitchAndFamily,
                       face.c_str());
}

BOOL GetTextMetricsA(HDC dc, TEXTMETRICA* metrics)
{
    DeviceContext* const context = GdiTable::find<DeviceContext>(dc);
    if (!context || (!metrics && !refuse(ERROR_INVALID_PARAMETER))) return FALSE;
    SizedFont* const font = context->glyphs();
    if (!font) return FALSE;
    *metrics = metricsOf(*font, context->font->request);
    return TRUE;
}

int GetTextFaceA(HDC dc, int size, char* face)
{
    DeviceContext* const context = GdiTable::find<DeviceContext>(dc);
    if (!context || (face && size < 1 && !refuse(ERROR_INVALID_PARAMETER))) return 0;
    SizedFont* const font = context->glyphs();
    if (!font) return 0;
    const std::string& name = font->face().name();
    if (!face) return static_cast<int>(name.size()) + 1;
    const std::size_t copied = std::min(name.size(), static_cast<std::size_t>(size) - 1);
    std::memcpy(face, name.data(), copied);
    face[copied] = '\0';
    return static_cast<int>(copied) + 1;
}

int GetTextCharsetInfo(HDC dc, FONTSIGNATURE* signature, DWORD flags)
{
    if (signature) *signature = {};
    DeviceContext* const context = GdiTable::find<DeviceContext>(dc);
    if (!context || (flags && !refuse(ERROR_INVALID_PARAMETER))) return DEFAULT_CHARSET;
    SizedFont* const font = context->glyphs();
    if (!font) return DEFAULT_CHARSET;
    const FontTables& tables = font->face().tables();
    if (signature) {
        std::copy(tables.subsets.begin(), tables.subsets.end(), signature->fsUsb);
        std::copy(tables.codePages.begin(), tables.codePages.end(), signature->fsCsb);
    }
    return charSetOf(tables);
}

int AddFontResourceA(const char* path)
{
    if (path == nullptr) return refuse(ERROR_INVALID_PARAMETER);
    if (!ToolkitIsRunning()) return refuse(ERROR_DEV_NOT_EXIST);
    QFile file(QFile::decodeName(path));
    if (!file.open(QIODevice::ReadOnly)) return refuse(ERROR_FILE_NOT_FOUND);
    const int added = FontList::instance().addFont(file.readAll());
    if (added == 0) SetLastError(ERROR_INVALID_PARAMETER);
    return added;
}

int EnumFontsA(HDC dc, const char* face, FONTENUMPROCA callback, LPARAM parameter)
{
    if (!GdiTable::find<DeviceContext>(dc) || (!callback && !refuse(ERROR_INVALID_PARAMETER))) return 0;
    if (!ToolkitIsRunning() && !refuse(ERROR_DEV_NOT_EXIST)) return 0;
    const FontList& list = FontList::instance();
    int answer = 0;
    if (face && *face) {
        const FontList::Family* const family = list.find(face);
        if (!family || !family->scalable) return 0;
        for (const int style : {0, 1, 2, 3})
            if (!tellStyle(*family, style & 1, style & 2, callback, parameter, answer)) break;
        return answer;
    }
    const TEXTMETRICA noMetrics{};
    for (const FontList::Family& family : list.families()) {
        if (!family.scalable) continue;
        LOGFONTA log{};
        log.lfWeight = FW_NORMAL;
        log.lfCharSet = static_cast<BYTE>(DEFAULT_CHARSET);
        log.lfPitchAndFamily = familyOfEnumerated;
        setFaceName(log, family.name.toStdString());
        answer = callback(&log, &noMetrics, TRUETYPE_FONTTYPE, parameter);
        if (!answer) break;
    }
    return answer;
}

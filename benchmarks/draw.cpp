// Measuring and drawing mixed lines, against FreeType with HarfBuzz and FriBidi, Pango and Qt.
//
// Every peer gets the same lines and, for drawing, a 1920 by 96 surface that is cleared before each line.
// Devanagari, Bengali and Tamil words go through our road as they stand, one glyph a code point: there is no
// shaping for them in it. The peers shape them.
#include "corekit/platform/Gdi.h"
#include "corekit/unicode/ui/UnicodeManager.h"
#include "corekit/unicode/ui/UniRender.h"
#include "workload.h"

#include <algorithm>
#include <benchmark/benchmark.h>
#include <cstring>
#include <fribidi.h>
#include <ft2build.h>
#include <hb-ft.h>
#include <pango/pangocairo.h>
#include <QFont>
#include <QFontMetricsF>
#include <QGuiApplication>
#include <QImage>
#include <QPainter>
#include <unordered_map>

#include FT_FREETYPE_H

namespace {

constexpr int width = 1920, height = 96, baseline = 64;
constexpr int drawnEm = 40, measuredEm = 24;
constexpr std::size_t surfaceBytes = std::size_t{width} * height * 4;

const std::vector<std::u16string>& lines()
{
    static const auto all = workload::drawLines();
    return all;
}

void report(benchmark::State& state, double pixels)
{
    const double count = static_cast<double>(state.iterations()) * static_cast<double>(lines().size());
    state.SetItemsProcessed(static_cast<std::int64_t>(count));
    if (pixels > 0) state.counters["mean_px"] = pixels / count;
}

// ---- CoreKit ----------------------------------------------------------------------------------

// DejaVu Sans claims Latin, Hebrew, Arabic and the presentation forms, and has them.
void prepare(CUniRender& render, int em)
{
    CUnicodeManager::Initialise(TRUE)->OverrideSettings({.biDi = TRUE});
    for (const char* face : {"DejaVu Sans", "Noto Sans Devanagari", "Noto Sans Bengali", "Noto Sans Tamil"})
        render.AddFont(face);
    render.Create(-em, FALSE, FALSE, FALSE);
}

class Surface {
public:
    Surface() : m_dc(CreateCompatibleDC(nullptr))
    {
        BITMAPINFO info{};
        info.bmiHeader = {sizeof(BITMAPINFOHEADER), width, -height, 1, 32, BI_RGB, 0, 0, 0, 0, 0};
        m_bitmap = CreateDIBSection(m_dc, &info, DIB_RGB_COLORS, &m_bits, nullptr, 0);
        m_before = SelectObject(m_dc, m_bitmap);
        SetTextColor(m_dc, RGB(255, 255, 255));
        SetBkColor(m_dc, RGB(0, 0, 0));
        SetTextAlign(m_dc, TA_LEFT | TA_BASELINE);
        SetBkMode(m_dc, TRANSPARENT);
    }
    ~Surface()
    {
        DeleteDC(m_dc);
        DeleteObject(m_bitmap);
    }
    HDC dc() const { return m_dc; }
    void clear() { std::memset(m_bits, 0, surfaceBytes); }

private:
    HDC m_dc;
    HBITMAP m_bitmap = nullptr;
    HGDIOBJ m_before = nullptr;
    void* m_bits = nullptr;
};

void ourDraw(benchmark::State& state)
{
    Surface surface;
    CUniRender render;
    prepare(render, drawnEm);
    render.AttachDC(surface.dc());
    const CRect whole(0, 0, width, height);
    for (auto _ : state)
        for (const auto& line : lines()) {
            surface.clear();
            render.DrawLogicalString(0, baseline, 0, whole, line.data(), static_cast<int>(line.size()), 0);
            benchmark::ClobberMemory();
        }
    render.DetachDC();
    report(state, 0);
}

void ourMeasure(benchmark::State& state)
{
    Surface surface;
    CUniRender render;
    prepare(render, measuredEm);
    render.AttachDC(surface.dc());
    double pixels = 0;
    for (auto _ : state)
        for (const auto& line : lines())
            pixels += render.CalcLogicalStringSize(line.data(), static_cast<int>(line.size()), 0).cx;
    render.DetachDC();
    report(state, pixels);
}

// ---- FreeType, HarfBuzz, FriBidi --------------------------------------------------------------

class FreeTypeLine {
public:
    explicit FreeTypeLine(int em)
    {
        FT_Init_FreeType(&m_library);
        for (const char* name : {"NotoSans", "NotoSansHebrew", "NotoSansArabic", "NotoSansDevanagari",
                                 "NotoSansBengali", "NotoSansTamil"}) {
            const std::string path = std::string(PEER_FONT_DIR) + "/" + name + "-Regular.ttf";
            Face face{};
            if (FT_New_Face(m_library, path.c_str(), 0, &face.type)) std::abort();
            FT_Set_Pixel_Sizes(face.type, 0, static_cast<FT_UInt>(em));
            face.shaper = hb_ft_font_create(face.type, nullptr);
            m_faces.push_back(face);
        }
        m_buffer = hb_buffer_create();
    }
    ~FreeTypeLine()
    {
        hb_buffer_destroy(m_buffer);
        for (const Face& face : m_faces) hb_font_destroy(face.shaper);
        FT_Done_FreeType(m_library);
    }
    FreeTypeLine(const FreeTypeLine&) = delete;
    FreeTypeLine& operator=(const FreeTypeLine&) = delete;

    // The width of the line, which is also drawn if there is a surface.
    double layOut(const std::u16string& text, std::uint32_t* surface)
    {
        cutRuns(text);
        double x = 0;
        for (const Run& run : m_runs) {
            hb_buffer_clear_contents(m_buffer);
            hb_buffer_add_utf16(m_buffer, reinterpret_cast<const std::uint16_t*>(text.data()),
                                static_cast<int>(text.size()), static_cast<unsigned>(run.from),
                                run.to - run.from);
            hb_buffer_set_direction(m_buffer, run.level & 1 ? HB_DIRECTION_RTL : HB_DIRECTION_LTR);
            hb_buffer_guess_segment_properties(m_buffer);
            hb_shape(m_faces[run.face].shaper, m_buffer, nullptr, 0);
            unsigned count = 0;
            const hb_glyph_info_t* infos = hb_buffer_get_glyph_infos(m_buffer, &count);
            const hb_glyph_position_t* places = hb_buffer_get_glyph_positions(m_buffer, &count);
            for (unsigned i = 0; i < count; ++i) {
                if (surface)
                    blend(glyph(run.face, infos[i].codepoint),
                          static_cast<int>(x + places[i].x_offset / 64.0), baseline - places[i].y_offset / 64,
                          surface);
                x += places[i].x_advance / 64.0;
            }
        }
        return x;
    }

private:
    struct Face {
        FT_Face type;
        hb_font_t* shaper;
    };
    struct Run {
        int from, to, level;
        std::size_t face;
    };
    struct Glyph {
        int left = 0, top = 0, columns = 0, rows = 0;
        std::vector<std::uint8_t> mask;
    };

    static std::size_t faceOf(char16_t c, std::size_t now)
    {
        if (c >= 0x0590 && c < 0x0600) return 1;
        if (c >= 0x0600 && c < 0x0700) return 2;
        if (c >= 0x0900 && c < 0x0980) return 3;
        if (c >= 0x0980 && c < 0x0A00) return 4;
        if (c >= 0x0B80 && c < 0x0C00) return 5;
        return c > 0x40 && c < 0x80 ? 0 : now == 2 && c < 0x40 && c != u' ' ? 0 : now;
    }

    void cutRuns(const std::u16string& text)
    {
        const auto count = static_cast<FriBidiStrIndex>(text.size());
        m_text.assign(text.begin(), text.end());
        m_types.resize(text.size());
        m_brackets.resize(text.size());
        m_levels.resize(text.size());
        fribidi_get_bidi_types(m_text.data(), count, m_types.data());
        fribidi_get_bracket_types(m_text.data(), count, m_types.data(), m_brackets.data());
        FriBidiParType direction = FRIBIDI_PAR_RTL;
        const int highest = fribidi_get_par_embedding_levels_ex(m_types.data(), m_brackets.data(), count,
                                                                &direction, m_levels.data()) -
                            1;
        m_runs.clear();
        std::size_t face = 0;
        for (std::size_t i = 0, end; i < text.size(); i = end) {
            face = faceOf(text[i], face);
            for (end = i;
                 end < text.size() && m_levels[end] == m_levels[i] && faceOf(text[end], face) == face;)
                ++end;
            m_runs.push_back({static_cast<int>(i), static_cast<int>(end), m_levels[i], face});
        }
        for (int level = highest; level >= 1; --level)
            for (auto from = m_runs.begin(); from != m_runs.end();) {
                const auto below = [&](const Run& run) { return run.level < level; };
                from = std::find_if_not(from, m_runs.end(), below);
                const auto to = std::find_if(from, m_runs.end(), below);
                std::reverse(from, to);
                from = to;
            }
    }

    const Glyph& glyph(std::size_t face, std::uint32_t id)
    {
        Glyph& g = m_glyphs[face << 32 | id];
        if (!g.mask.empty()) return g;
        FT_Load_Glyph(m_faces[face].type, id, FT_LOAD_RENDER | FT_LOAD_NO_HINTING);
        const FT_GlyphSlot slot = m_faces[face].type->glyph;
        g.left = slot->bitmap_left;
        g.top = slot->bitmap_top;
        g.columns = static_cast<int>(slot->bitmap.width);
        g.rows = static_cast<int>(slot->bitmap.rows);
        for (int y = 0; y < g.rows; ++y) {
            const std::uint8_t* row = slot->bitmap.buffer + y * slot->bitmap.pitch;
            g.mask.insert(g.mask.end(), row, row + g.columns);
        }
        if (g.mask.empty()) g.mask.push_back(0);
        return g;
    }

    static void blend(const Glyph& g, int x, int y, std::uint32_t* surface)
    {
        const int left = std::max(0, -(x + g.left)), right = std::min(g.columns, width - (x + g.left));
        for (int r = 0; r < g.rows; ++r) {
            const int row = y - g.top + r;
            if (row < 0 || row >= height) continue;
            for (int c = left; c < right; ++c) {
                std::uint32_t& pixel = surface[row * width + x + g.left + c];
                const std::uint32_t cover = g.mask[static_cast<std::size_t>(r * g.columns + c)];
                const std::uint32_t grey = ((pixel & 255) * (255 - cover) + 255 * cover + 127) / 255;
                pixel = 0xFF000000u | grey << 16 | grey << 8 | grey;
            }
        }
    }

    FT_Library m_library = nullptr;
    std::vector<Face> m_faces;
    hb_buffer_t* m_buffer = nullptr;
    std::vector<FriBidiChar> m_text;
    std::vector<FriBidiCharType> m_types;
    std::vector<FriBidiBracketType> m_brackets;
    std::vector<FriBidiLevel> m_levels;
    std::vector<Run> m_runs;
    std::unordered_map<std::uint64_t, Glyph> m_glyphs;
};

void freeTypeDraw(benchmark::State& state)
{
    FreeTypeLine layout(drawnEm);
    std::vector<std::uint32_t> surface(surfaceBytes / 4);
    for (auto _ : state)
        for (const auto& line : lines()) {
            std::memset(surface.data(), 0, surfaceBytes);
            layout.layOut(line, surface.data());
            benchmark::ClobberMemory();
        }
    report(state, 0);
}

void freeTypeMeasure(benchmark::State& state)
{
    FreeTypeLine layout(measuredEm);
    double pixels = 0;
    for (auto _ : state)
        for (const auto& line : lines()) pixels += layout.layOut(line, nullptr);
    report(state, pixels);
}

// ---- Pango ------------------------------------------------------------------------------------

class PangoLine {
public:
    explicit PangoLine(int em)
    {
        m_surface = cairo_image_surface_create(CAIRO_FORMAT_ARGB32, width, height);
        m_cairo = cairo_create(m_surface);
        m_layout = pango_cairo_create_layout(m_cairo);
        PangoFontDescription* font = pango_font_description_from_string("Noto Sans");
        pango_font_description_set_absolute_size(font, em * PANGO_SCALE);
        pango_layout_set_font_description(m_layout, font);
        pango_font_description_free(font);
        for (const auto& line : lines()) m_texts.push_back(workload::utf8(line));
    }
    ~PangoLine()
    {
        g_object_unref(m_layout);
        cairo_destroy(m_cairo);
        cairo_surface_destroy(m_surface);
    }
    PangoLine(const PangoLine&) = delete;
    PangoLine& operator=(const PangoLine&) = delete;

    const std::vector<std::string>& texts() const { return m_texts; }
    void draw(const std::string& text)
    {
        pango_layout_set_text(m_layout, text.data(), static_cast<int>(text.size()));
        std::memset(cairo_image_surface_get_data(m_surface), 0, surfaceBytes);
        cairo_surface_mark_dirty(m_surface);
        cairo_move_to(m_cairo, 0, 16);
        cairo_set_source_rgb(m_cairo, 1, 1, 1);
        pango_cairo_show_layout(m_cairo, m_layout);
        cairo_surface_flush(m_surface);
    }
    int measure(const std::string& text)
    {
        int across = 0;
        pango_layout_set_text(m_layout, text.data(), static_cast<int>(text.size()));
        pango_layout_get_pixel_size(m_layout, &across, nullptr);
        return across;
    }

private:
    cairo_surface_t* m_surface;
    cairo_t* m_cairo;
    PangoLayout* m_layout;
    std::vector<std::string> m_texts;
};

void pangoDraw(benchmark::State& state)
{
    PangoLine pango(drawnEm);
    for (auto _ : state)
        for (const auto& text : pango.texts()) pango.draw(text);
    report(state, 0);
}

void pangoMeasure(benchmark::State& state)
{
    PangoLine pango(measuredEm);
    double pixels = 0;
    for (auto _ : state)
        for (const auto& text : pango.texts()) pixels += pango.measure(text);
    report(state, pixels);
}

// ---- Qt ---------------------------------------------------------------------------------------

QFont qtFont(int em)
{
    QFont font(QStringLiteral("Noto Sans"));
    font.setPixelSize(em);
    return font;
}

std::vector<QString> qtTexts()
{
    std::vector<QString> texts;
    for (const auto& line : lines()) texts.push_back(QString::fromStdU16String(line));
    return texts;
}

void qtDraw(benchmark::State& state)
{
    QImage image(width, height, QImage::Format_ARGB32_Premultiplied);
    const auto texts = qtTexts();
    QPainter painter(&image);
    painter.setFont(qtFont(drawnEm));
    painter.setPen(Qt::white);
    for (auto _ : state)
        for (const auto& text : texts) {
            std::memset(image.bits(), 0, surfaceBytes);
            painter.drawText(0, baseline, text);
        }
    report(state, 0);
}

void qtMeasure(benchmark::State& state)
{
    const QFontMetricsF metrics(qtFont(measuredEm));
    const auto texts = qtTexts();
    double pixels = 0;
    for (auto _ : state)
        for (const auto& text : texts) pixels += metrics.horizontalAdvance(text);
    report(state, pixels);
}

// ---- What no drawing can undercut -------------------------------------------------------------

void clearOnly(benchmark::State& state)
{
    std::vector<std::uint32_t> surface(surfaceBytes / 4);
    for (auto _ : state)
        for (std::size_t i = 0; i < lines().size(); ++i) {
            std::memset(surface.data(), 0, surfaceBytes);
            benchmark::ClobberMemory();
        }
    report(state, 0);
}

} // namespace

BENCHMARK(ourMeasure)->Name("draw/measure/corekit");
BENCHMARK(freeTypeMeasure)->Name("draw/measure/freetype_harfbuzz_fribidi");
BENCHMARK(pangoMeasure)->Name("draw/measure/pango");
BENCHMARK(qtMeasure)->Name("draw/measure/qt6_font_metrics");
BENCHMARK(ourDraw)->Name("draw/raster/corekit");
BENCHMARK(freeTypeDraw)->Name("draw/raster/freetype_harfbuzz_fribidi_cached");
BENCHMARK(pangoDraw)->Name("draw/raster/pango_cairo");
BENCHMARK(qtDraw)->Name("draw/raster/qt6_qpainter");
BENCHMARK(clearOnly)->Name("draw/raster/limit_clear");

int main(int argc, char** argv)
{
    setenv("QT_QPA_PLATFORM", "offscreen", 1);
    QGuiApplication app(argc, argv);
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
}

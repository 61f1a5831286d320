#include "corekit/platform/ShapingFace.h"

#include "corekit/platform/qt/text/FontList.h"
#include "corekit/platform/Toolkit.h"

#include <hb-ot.h>
#include <hb.h>

namespace {

template <auto Destroy>
struct Deleter {
    template <class T>
    void operator()(T* p) const
    {
        Destroy(p);
    }
};
using FacePointer = std::unique_ptr<hb_face_t, Deleter<hb_face_destroy>>;
using FontPointer = std::unique_ptr<hb_font_t, Deleter<hb_font_destroy>>;
using BufferPointer = std::unique_ptr<hb_buffer_t, Deleter<hb_buffer_destroy>>;
using DrawPointer = std::unique_ptr<hb_draw_funcs_t, Deleter<hb_draw_funcs_destroy>>;

hb_blob_t* tableOf(hb_face_t*, hb_tag_t tag, void* user)
{
    const char name[] = {static_cast<char>(tag >> 24), static_cast<char>(tag >> 16),
                         static_cast<char>(tag >> 8), static_cast<char>(tag), '\0'};
    auto table = std::make_unique<QByteArray>(static_cast<corekit::detail::Typeface*>(user)->table(name));
    if (table->isEmpty()) return nullptr;
    const char* const bytes = table->constData();
    const auto size = static_cast<unsigned>(table->size());
    return hb_blob_create(bytes, size, HB_MEMORY_MODE_READONLY, table.release(),
                          [](void* p) { delete static_cast<QByteArray*>(p); });
}

// ---- Collecting an outline --------------------------------------------------------------------

struct Pen {
    GlyphOutline outline;
    OutlineContour contour;

    void Add(OutlinePoint control, OutlinePoint end)
    {
        contour.push_back({contour.empty() ? start : contour.back().end, control, end});
    }
    void Close()
    {
        if (contour.empty()) return;
        const OutlinePoint last = contour.back().end;
        if (last.x != start.x || last.y != start.y) Add(Between(last, start, 0.5), start);
        outline.push_back(std::move(contour));
        contour.clear();
    }
    static OutlinePoint Between(OutlinePoint a, OutlinePoint b, double share)
    {
        return {a.x + (b.x - a.x) * share, a.y + (b.y - a.y) * share};
    }

    OutlinePoint start;
};

void moveTo(hb_draw_funcs_t*, void* data, hb_draw_state_t*, float x, float y, void*)
{
    Pen& pen = *static_cast<Pen*>(data);
    pen.Close();
    pen.start = {x, y};
}

void lineTo(hb_draw_funcs_t*, void* data, hb_draw_state_t* state, float x, float y, void*)
{
    const OutlinePoint from{state->current_x, state->current_y}, to{x, y};
    static_cast<Pen*>(data)->Add(Pen::Between(from, to, 0.5), to);
}

void quadraticTo(hb_draw_funcs_t*, void* data, hb_draw_state_t*, float cx, float cy, float x, float y, void*)
{
    static_cast<Pen*>(data)->Add({cx, cy}, {x, y});
}

// A cubic side as four parabolas, each with the end points and, in the middle, the speed of its quarter.
void cubicTo(hb_draw_funcs_t*, void* data, hb_draw_state_t* state, float ax, float ay, float bx, float by,
             float x, float y, void*)
{
    constexpr int parts = 4;
    const OutlinePoint p0{state->current_x, state->current_y}, p1{ax, ay}, p2{bx, by}, p3{x, y};
    const auto at = [&](double t) {
        const double s = 1 - t, a = s * s * s, b = 3 * s * s * t, c = 3 * s * t * t, d = t * t * t;
        return OutlinePoint{a * p0.x + b * p1.x + c * p2.x + d * p3.x,
                            a * p0.y + b * p1.y + c * p2.y + d * p3.y};
    };
    OutlinePoint from = p0;
    for (int i = 1; i <= parts; ++i) {
        const OutlinePoint to = i == parts ? p3 : at(i / double{parts}), middle = at((i - 0.5) / parts);
        static_cast<Pen*>(data)->Add({2 * middle.x - (from.x + to.x) / 2, 2 * middle.y - (from.y + to.y) / 2},
                                     to);
        from = to;
    }
}

void closePath(hb_draw_funcs_t*, void* data, hb_draw_state_t*, void*) { static_cast<Pen*>(data)->Close(); }

hb_draw_funcs_t* drawFunctions()
{
    static const DrawPointer functions = [] {
        DrawPointer made(hb_draw_funcs_create());
        hb_draw_funcs_set_move_to_func(made.get(), moveTo, nullptr, nullptr);
        hb_draw_funcs_set_line_to_func(made.get(), lineTo, nullptr, nullptr);
        hb_draw_funcs_set_quadratic_to_func(made.get(), quadraticTo, nullptr, nullptr);
        hb_draw_funcs_set_cubic_to_func(made.get(), cubicTo, nullptr, nullptr);
        hb_draw_funcs_set_close_path_func(made.get(), closePath, nullptr, nullptr);
        return made;
    }();
    return functions.get();
}

int metric(hb_font_t* font, hb_ot_metrics_tag_t tag)
{
    hb_position_t value = 0;
    hb_ot_metrics_get_position_with_fallback(font, tag, &value);
    return value;
}

} // namespace

struct ShapingFace::Font {
    std::shared_ptr<corekit::detail::Typeface> typeface;
    FacePointer face;
    FontPointer font;
    hb_language_t language = HB_LANGUAGE_INVALID;
};

ShapingFace::ShapingFace(const char* name, const std::string& language)
{
    if (!ToolkitIsRunning()) return;
    auto& list = corekit::detail::FontList::instance();
    const auto* const family = list.find(name);
    auto typeface = family && family->scalable ? list.typeface(*family, false, false) : nullptr;
    if (!typeface) return;
    m_font = std::make_unique<Font>();
    m_font->typeface = std::move(typeface);
    m_font->face.reset(hb_face_create_for_tables(tableOf, m_font->typeface.get(), nullptr));
    m_font->font.reset(hb_font_create(m_font->face.get())); // its scale is that of the design
    if (!language.empty())
        m_font->language = hb_language_from_string(language.data(), static_cast<int>(language.size()));
}

ShapingFace::~ShapingFace() = default;

ShapedPieces ShapingFace::Shape(std::u16string_view text) const { return ShapeIn(m_font->language, text); }
ShapedPieces ShapingFace::ShapeForMost(std::u16string_view text) const
{
    return ShapeIn(HB_LANGUAGE_INVALID, text);
}

ShapedPieces ShapingFace::ShapeIn(const hb_language_impl_t* language, std::u16string_view text) const
{
    const BufferPointer buffer(hb_buffer_create());
    hb_buffer_add_utf16(buffer.get(), reinterpret_cast<const std::uint16_t*>(text.data()),
                        static_cast<int>(text.size()), 0, static_cast<int>(text.size()));
    hb_buffer_guess_segment_properties(buffer.get());
    if (language) hb_buffer_set_language(buffer.get(), language);
    hb_buffer_set_flags(buffer.get(), HB_BUFFER_FLAG_DO_NOT_INSERT_DOTTED_CIRCLE);
    hb_shape(m_font->font.get(), buffer.get(), nullptr, 0);

    ShapedPieces shaped;
    unsigned count = 0;
    const hb_glyph_info_t* const info = hb_buffer_get_glyph_infos(buffer.get(), &count);
    const hb_glyph_position_t* const position = hb_buffer_get_glyph_positions(buffer.get(), &count);
    for (unsigned i = 0; i < count; ++i) {
        shaped.glyphs.push_back({info[i].codepoint, shaped.advance + position[i].x_offset,
                                 static_cast<double>(position[i].y_offset)});
        shaped.advance += position[i].x_advance;
    }
    return shaped;
}

GlyphOutline ShapingFace::Outline(unsigned glyph) const
{
    Pen pen;
    hb_font_get_glyph_shape(m_font->font.get(), glyph, drawFunctions(), &pen);
    pen.Close();
    return std::move(pen.outline);
}

int ShapingFace::UnitsPerEm() const { return static_cast<int>(hb_face_get_upem(m_font->face.get())); }

int ShapingFace::CellAscent() const
{
    return metric(m_font->font.get(), HB_OT_METRICS_TAG_HORIZONTAL_CLIPPING_ASCENT);
}

int ShapingFace::CellDescent() const
{
    return metric(m_font->font.get(), HB_OT_METRICS_TAG_HORIZONTAL_CLIPPING_DESCENT);
}

std::string ShapingFace::Name(unsigned id) const
{
    const auto english = hb_language_from_string("en", -1);
    unsigned length = hb_ot_name_get_utf8(m_font->face.get(), id, english, nullptr, nullptr);
    std::string name(length + 1, '\0');
    ++length; // room for the zero that is written behind
    hb_ot_name_get_utf8(m_font->face.get(), id, english, &length, name.data());
    name.resize(length);
    return name;
}

// Indic scripts, and lines in which all scripts mix, to glyphs, a line a call.
#include "corekit/foundation/StringW.h"
#include "corekit/unicode/shaping/GlyphConversion.h"
#include "workload.h"

#include <benchmark/benchmark.h>
#include <hb-ot.h>
#include <hb.h>
#include <map>
#include <pango/pangoft2.h>

namespace {

using workload::Script;
using Lines = std::vector<std::u16string>;

struct Path {
    const char* name;
    std::vector<Script> lines;
};

const Path paths[] = {
    {"devanagari", {Script::Devanagari}},
    {"bengali", {Script::Bengali}},
    {"tamil", {Script::Tamil}},
    {"mixed", {Script::MixedLtr, Script::MixedRtl}},
};

Lines LinesOf(const Path& path)
{
    Lines all;
    for (const Script script : path.lines)
        for (std::u16string& line : workload::lines(script, 500)) all.push_back(std::move(line));
    return all;
}

void Done(benchmark::State& state, const Lines& lines)
{
    state.SetItemsProcessed(state.iterations() * static_cast<std::int64_t>(workload::units(lines)));
}

// A fresh string of glyphs for every line, as a drawing call makes one.
void CoreKit(benchmark::State& state, const Path& path)
{
    const Lines lines = LinesOf(path);
    for (auto _ : state)
        for (const auto& line : lines) {
            StringW glyphs;
            ConvertToGlyphs(line.data(), static_cast<int>(line.size()), glyphs, false);
            benchmark::DoNotOptimize(static_cast<const WCHAR*>(glyphs));
            benchmark::ClobberMemory();
        }
    Done(state, lines);
}

// ---- HarfBuzz ---------------------------------------------------------------------------------
// It takes one script and one font a call; the lines are cut beforehand, which is not measured.

hb_script_t ScriptOf(WCHAR c)
{
    if (c >= 0x0590 && c < 0x0600) return HB_SCRIPT_HEBREW;
    if (c >= 0x0600 && c < 0x0700) return HB_SCRIPT_ARABIC;
    if (c >= 0x0900 && c < 0x0980) return HB_SCRIPT_DEVANAGARI;
    if (c >= 0x0980 && c < 0x0A00) return HB_SCRIPT_BENGALI;
    if (c >= 0x0B80 && c < 0x0C00) return HB_SCRIPT_TAMIL;
    return c >= u'A' ? HB_SCRIPT_LATIN : HB_SCRIPT_COMMON;
}

hb_font_t* FontOf(hb_script_t script)
{
    static std::map<hb_script_t, hb_font_t*> fonts;
    hb_font_t*& font = fonts[script];
    if (font) return font;
    const char* file = script == HB_SCRIPT_HEBREW       ? "NotoSansHebrew-Regular.ttf"
                       : script == HB_SCRIPT_ARABIC     ? "NotoSansArabic-Regular.ttf"
                       : script == HB_SCRIPT_DEVANAGARI ? "NotoSansDevanagari-Regular.ttf"
                       : script == HB_SCRIPT_BENGALI    ? "NotoSansBengali-Regular.ttf"
                       : script == HB_SCRIPT_TAMIL      ? "NotoSansTamil-Regular.ttf"
                                                        : "NotoSans-Regular.ttf";
    hb_blob_t* blob = hb_blob_create_from_file((std::string(PEER_FONT_DIR "/") + file).c_str());
    hb_face_t* face = hb_face_create(blob, 0);
    font = hb_font_create(face);
    hb_face_destroy(face);
    hb_blob_destroy(blob);
    return font;
}

struct Run {
    int start, length;
    hb_script_t script;
};

std::vector<Run> RunsOf(const std::u16string& line)
{
    std::vector<Run> runs;
    for (int i = 0; i < static_cast<int>(line.size()); ++i) {
        const hb_script_t script = ScriptOf(line[static_cast<std::size_t>(i)]);
        if (runs.empty() || (script != HB_SCRIPT_COMMON && script != runs.back().script))
            runs.push_back({i, 0, script == HB_SCRIPT_COMMON ? HB_SCRIPT_LATIN : script});
        ++runs.back().length;
    }
    return runs;
}

void HarfBuzz(benchmark::State& state, const Path& path)
{
    const Lines lines = LinesOf(path);
    std::vector<std::vector<Run>> runs;
    for (const auto& line : lines) runs.push_back(RunsOf(line));
    hb_buffer_t* buffer = hb_buffer_create();
    for (auto _ : state)
        for (std::size_t i = 0; i < lines.size(); ++i)
            for (const Run& run : runs[i]) {
                hb_buffer_clear_contents(buffer);
                hb_buffer_add_utf16(buffer, reinterpret_cast<const std::uint16_t*>(lines[i].data()),
                                    static_cast<int>(lines[i].size()), static_cast<unsigned>(run.start),
                                    run.length);
                hb_buffer_set_direction(buffer, hb_script_get_horizontal_direction(run.script));
                hb_buffer_set_script(buffer, run.script);
                hb_shape(FontOf(run.script), buffer, nullptr, 0);
                benchmark::DoNotOptimize(hb_buffer_get_glyph_infos(buffer, nullptr));
            }
    hb_buffer_destroy(buffer);
    Done(state, lines);
}

// ---- Pango ------------------------------------------------------------------------------------

void Pango(benchmark::State& state, const Path& path)
{
    const Lines lines = LinesOf(path);
    std::vector<std::string> texts;
    for (const auto& line : lines) texts.push_back(workload::utf8(line));
    PangoFontMap* map = pango_ft2_font_map_new();
    PangoContext* context = pango_font_map_create_context(map);
    PangoFontDescription* font = pango_font_description_from_string("Noto Sans 36");
    pango_context_set_font_description(context, font);
    PangoAttrList* none = pango_attr_list_new();
    PangoGlyphString* glyphs = pango_glyph_string_new();
    for (auto _ : state)
        for (const auto& text : texts) {
            GList* items =
                pango_itemize(context, text.data(), 0, static_cast<int>(text.size()), none, nullptr);
            for (GList* i = items; i; i = i->next) {
                auto* item = static_cast<PangoItem*>(i->data);
                pango_shape(text.data() + item->offset, item->length, &item->analysis, glyphs);
                benchmark::DoNotOptimize(glyphs->num_glyphs);
                pango_item_free(item);
            }
            g_list_free(items);
        }
    pango_glyph_string_free(glyphs);
    pango_attr_list_unref(none);
    pango_font_description_free(font);
    g_object_unref(context);
    g_object_unref(map);
    Done(state, lines);
}

} // namespace

int main(int argc, char** argv)
{
    for (const Path& path : paths) {
        const std::string name = std::string("indic/") + path.name;
        const auto add = [&](const char* peer, void (*measure)(benchmark::State&, const Path&)) {
            benchmark::RegisterBenchmark((name + peer).c_str(),
                                         [=, &path](benchmark::State& state) { measure(state, path); });
        };
        add("/corekit", CoreKit);
        add("/harfbuzz", HarfBuzz);
        add("/pango_itemize_shape", Pango);
    }
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
}

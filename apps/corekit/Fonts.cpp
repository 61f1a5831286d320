// corekit fonts: fonts for the glyph codes of our own shaping, made from ordinary faces, and how well they
// write.
#include "Commands.h"
#include "FontComparison.h"
#include "Output.h"
#include "Terminal.h"
#include "TextFile.h"

#include "corekit/platform/Toolkit.h"
#include "corekit/unicode/ui/FontMapInfo.h"
#include "corekit/unicode/ui/fonts/GlyphFont.h"
#include "corekit/unicode/ui/UnicodeManager.h"

#include <CLI/CLI.hpp>

#include <cstdio>
#include <filesystem>
#include <fstream>
#include <memory>
#include <stdexcept>

namespace {

const std::map<std::string, GlyphScript> scripts{{"devanagari", GlyphScript::Devanagari},
                                                 {"bengali", GlyphScript::Bengali},
                                                 {"tamil", GlyphScript::Tamil}};

void NeedToolkit()
{
    if (!StartToolkit(ToolkitDisplay::offscreen))
        throw std::runtime_error("the window toolkit does not start");
}

// ---- build ------------------------------------------------------------------------------------

struct BuildOptions {
    GlyphScript script = GlyphScript::Devanagari;
    std::string base, name, folder;
    bool isRegistered = false;
};

void Save(const std::filesystem::path& path, const std::vector<BYTE>& bytes)
{
    std::error_code error;
    std::filesystem::create_directories(path.parent_path(), error);
    WriteOutput(path, {reinterpret_cast<const char*>(bytes.data()), bytes.size()});
}

void Build(const BuildOptions& options)
{
    NeedToolkit();
    const ShapingFace base(options.base.c_str());
    if (!base.IsFound()) throw std::runtime_error("this machine has no face " + options.base);
    const std::string name =
        options.name.empty() ? "CoreKit " + std::string(NameOf(options.script)) : options.name;
    const BuiltGlyphFont built = BuildGlyphFont(options.script, base, name);
    std::string file = name;
    std::replace(file.begin(), file.end(), ' ', '-');
    const auto path = std::filesystem::path(options.folder) / (file + ".ttf");
    Save(path, built.file);
    if (options.isRegistered) RegisterGlyphFont(options.script, name);
    Print("%s: %d glyph codes, %zu bytes, from %s\n", path.c_str(), built.pieces, built.file.size(),
          options.base.c_str());
    for (const WORD position : built.withoutPart)
        Print("position %02X is left out: the face does not draw it apart\n", position);
}

void AddBuild(CLI::App& fonts)
{
    auto* command =
        fonts.add_subcommand("build", "Make the font of a script's glyph codes from an installed face");
    auto options = std::make_shared<BuildOptions>();
    command->add_option("--script", options->script, "devanagari, bengali or tamil")
        ->required()
        ->transform(CLI::CheckedTransformer(scripts, CLI::ignore_case))
        ->type_name("SCRIPT");
    command->add_option("--from", options->base, "The face whose shapes are taken over")
        ->required()
        ->type_name("FACE");
    command->add_option("-o,--output", options->folder, "The folder for the font, made if it is missing")
        ->required()
        ->type_name("DIR");
    command->add_option("--name", options->name, "The new face's name; without it, CoreKit and the script")
        ->type_name("FACE");
    command->add_flag("--register", options->isRegistered,
                      "Enter it in the registry, so that text of the script is drawn with it");
    command->footer(
        "Example: corekit fonts build --script devanagari --from 'Noto Sans Devanagari' -o fonts --register");
    command->callback([options] { Build(*options); });
}

// ---- compare ----------------------------------------------------------------------------------

struct CompareOptions {
    std::string fontFile, glyphFont, base, picture;
    std::vector<std::string> files;
    double share = 0;
    std::size_t worst = 10;
};

constexpr double alike = 0.7; // overlap of two words that look the same to a reader

void CheckThatCodesGoTo(const std::string& face)
{
    const CFontMapInfo* const info = CUnicodeManager::Initialise(FALSE)->GetFontMapInfo(face.c_str());
    if (info == nullptr) throw std::runtime_error("this machine has no face " + face);
    if (info->GetSignature().GetCustomSignature() == 0)
        throw std::runtime_error(face +
                                 " is not registered as a font of glyph codes (fonts build --register)");
}

void Compare(const CompareOptions& options)
{
    NeedToolkit();
    if (AddFontResourceA(options.fontFile.c_str()) == 0)
        throw std::runtime_error("cannot read the font " + options.fontFile);
    CheckThatCodesGoTo(options.glyphFont);
    std::vector<std::u16string> texts;
    for (const std::string& file : options.files)
        for (std::u16string& line : ReadLines(file)) texts.push_back(std::move(line));
    const std::vector<WordLikeness> words = CompareWords(texts, options.glyphFont, options.base);
    if (words.empty()) throw std::runtime_error("no words to compare");
    if (!options.picture.empty()) SaveWordPairs(words, options.glyphFont, options.base, options.picture);

    const auto good =
        std::count_if(words.begin(), words.end(), [](const auto& w) { return w.overlap >= alike; });
    const double share = 100.0 * static_cast<double>(good) / static_cast<double>(words.size());
    std::vector<std::vector<std::string>> rows{{"word", "overlap"}};
    for (std::size_t i = 0; i < std::min(options.worst, words.size()); ++i)
        rows.push_back(
            {Utf8(words[i].word), std::to_string(static_cast<int>(words[i].overlap * 100)) + " %"});
    PrintTable(rows);
    Print("%.1f %% of %zu words overlap by at least 70 %%\n", share, words.size());
    if (share < options.share)
        throw std::runtime_error("fewer words are alike than the " + std::to_string(options.share) +
                                 " % asked for");
}

void AddCompare(CLI::App& fonts)
{
    auto* command = fonts.add_subcommand(
        "compare",
        "Lay each word, shaped by us in a glyph font, over the platform's drawing in the base face");
    auto options = std::make_shared<CompareOptions>();
    command->add_option("FILE", options->files, "Text files, UTF-8 or UTF-16")->required();
    command->add_option("--font-file", options->fontFile, "The glyph font as a file")
        ->required()
        ->type_name("TTF");
    command->add_option("--font", options->glyphFont, "Its face name, registered")
        ->required()
        ->type_name("FACE");
    command->add_option("--with", options->base, "The face that it was made from")
        ->required()
        ->type_name("FACE");
    command->add_option("--worst", options->worst, "How many of the least alike words to list")
        ->capture_default_str();
    command->add_option("--picture", options->picture, "Draw the word pairs, the least alike first")
        ->type_name("PNG");
    command->add_option("--at-least", options->share, "Fail if fewer words in a hundred are alike")
        ->type_name("PERCENT");
    command->footer(
        "Two words are alike when the ink that they share is at least 70 % of the ink of the fuller one.");
    command->callback([options] { Compare(*options); });
}

} // namespace

void AddFontsCommand(CLI::App& app)
{
    auto* fonts = app.add_subcommand("fonts", "Make and judge the fonts of the glyph codes");
    fonts->require_subcommand(1);
    AddBuild(*fonts);
    AddCompare(*fonts);
}

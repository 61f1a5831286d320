// corekit fonts: fonts for the glyph codes of our own shaping, made from ordinary faces, and how well they
// write.
#include "Commands.h"
#include "FontComparison.h"
#include "Output.h"
#include "PictureNames.h"
#include "Table.h"
#include "TextFile.h"

#include "corekit/platform/Gdi.h"
#include "corekit/platform/Toolkit.h"
#include "corekit/unicode/ui/FontMapInfo.h"
#include "corekit/unicode/ui/fonts/GlyphFont.h"
#include "corekit/unicode/ui/UnicodeManager.h"

#include <CLI/CLI.hpp>

#include <algorithm>
#include <cctype>
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
    std::string base, name, language, folder;
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
    const ShapingFace base(options.base.c_str(), options.language);
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

// Empty if the text is a code of letters and hyphens, as "mr" or "sr-Latn" is; else what is wrong.
std::string IsLanguage(const std::string& code)
{
    const bool isCode =
        code.size() >= 2 && code.size() <= 35 && std::isalpha(static_cast<unsigned char>(code[0])) &&
        std::ranges::all_of(code, [](unsigned char c) { return std::isalnum(c) || c == '-'; });
    return isCode ? "" : code + " is no code of a language";
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
    command
        ->add_option("--language", options->language,
                     "The language whose shapes are taken where the face has its own: mr, ne, as, ...")
        ->check(CLI::Validator(IsLanguage, "CODE"));
    command->add_option("-o,--output", options->folder, "The folder for the font, made if it is missing")
        ->required()
        ->type_name("DIR");
    command->add_option("--name", options->name, "The new face's name; without it, CoreKit and the script")
        ->type_name("FACE");
    command->add_flag("--register", options->isRegistered,
                      "Enter it in the registry, so that text of the script is drawn with it");
    command->callback([options] { Build(*options); });
}

// ---- compare ----------------------------------------------------------------------------------

struct CompareOptions {
    std::string fontFile, picture;
    ComparedFaces faces;
    std::vector<std::string> files;
    double share = 0;
    std::size_t worst = 10;
    bool isJson = false;
};

constexpr double alike = 0.7; // overlap of two words that look the same to a reader
constexpr double grades[] = {0.98, 0.9, alike};

void CheckThatCodesGoTo(const std::string& face)
{
    const CFontMapInfo* const info = CUnicodeManager::GetObjectA()->GetFontMapInfo(face.c_str());
    if (info == nullptr) throw std::runtime_error("this machine has no face " + face);
    if (info->GetSignature().GetCustomSignature() == 0)
        throw std::runtime_error(face +
                                 " is not registered as a font of glyph codes (fonts build --register)");
}

void PrepareFaces(const CompareOptions& options)
{
    NeedToolkit();
    if (!options.fontFile.empty() && AddFontResourceA(options.fontFile.c_str()) == 0)
        throw std::runtime_error("cannot read the font " + options.fontFile);
    CUnicodeManager* const manager = CUnicodeManager::Initialise(FALSE);
    manager->OverrideSettings({.biDi = true, .complexLanguage = false});
    if (!manager->IsFontValid(options.faces.base.c_str()))
        throw std::runtime_error("this machine has no face " + options.faces.base);
    if (!options.faces.glyphFont.empty()) CheckThatCodesGoTo(options.faces.glyphFont);
}

std::string Quoted(const std::string& text)
{
    std::string quoted = "\"";
    for (const char c : text) {
        if (c == '"' || c == '\\') quoted += '\\';
        quoted += static_cast<unsigned char>(c) < ' ' ? ' ' : c;
    }
    return quoted + '"';
}

void PrintJson(const CompareOptions& options, const std::vector<WordLikeness>& words)
{
    Print("{\"font\": %s, \"with\": %s, \"words\": %zu, \"shares\": {",
          Quoted(options.faces.glyphFont).c_str(), Quoted(options.faces.base).c_str(), words.size());
    for (const double grade : grades)
        Print("%s\"%.0f\": %.2f", grade == grades[0] ? "" : ", ", 100 * grade, ShareOf(words, grade));
    Print("}, \"worst\": [");
    for (std::size_t i = 0; i < std::min(options.worst, words.size()); ++i)
        Print("%s{\"word\": %s, \"overlap\": %.3f}", i == 0 ? "" : ", ", Quoted(Utf8(words[i].word)).c_str(),
              words[i].overlap);
    Print("]}\n");
}

void PrintWords(const CompareOptions& options, const std::vector<WordLikeness>& words)
{
    TableRows rows{{"word", "overlap"}};
    for (std::size_t i = 0; i < std::min(options.worst, words.size()); ++i)
        rows.push_back(
            {Utf8(words[i].word), std::to_string(static_cast<int>(words[i].overlap * 100)) + " %"});
    PrintTable(rows);
    for (const double grade : grades)
        Print("%.1f %% of %zu words overlap by at least %.0f %%\n", ShareOf(words, grade), words.size(),
              100 * grade);
}

void Compare(const CompareOptions& options)
{
    PrepareFaces(options);
    std::vector<std::u16string> texts;
    for (const std::string& file : options.files)
        for (std::u16string& line : ReadLines(file)) texts.push_back(std::move(line));
    const std::vector<WordLikeness> words = CompareWords(texts, options.faces);
    if (words.empty()) throw std::runtime_error("no words to compare");
    if (!options.picture.empty()) SaveWordPairs(words, options.faces, options.picture);
    if (options.isJson)
        PrintJson(options, words);
    else
        PrintWords(options, words);
    if (ShareOf(words, alike) < options.share)
        throw std::runtime_error("fewer words are alike than the " + std::to_string(options.share) +
                                 " % asked for");
}

void AddCompare(CLI::App& fonts)
{
    auto* command = fonts.add_subcommand(
        "compare", "Lay each word, ordered and shaped by us, over the platform's drawing in the same face");
    auto options = std::make_shared<CompareOptions>();
    command->add_option("FILE", options->files, "Text files, UTF-8 or UTF-16")->required();
    command->add_option("--with", options->faces.base, "The face to draw with")
        ->required()
        ->type_name("FACE");
    auto* font =
        command
            ->add_option("--font", options->faces.glyphFont,
                         "The glyph font that was made from it, registered; Arabic and Hebrew need none")
            ->type_name("FACE");
    command->add_option("--font-file", options->fontFile, "The glyph font as a file, if it is not installed")
        ->needs(font)
        ->type_name("TTF");
    command->add_flag("--json", options->isJson, "Print one JSON object instead of a table");
    command->add_flag("--kerning", options->faces.isKerned, "Kern pairs, on both sides");
    command->add_option("--worst", options->worst, "How many of the least alike words to list")
        ->capture_default_str();
    command->add_option("--picture", options->picture, "Draw the least alike words beside the platform's")
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
    auto* fonts = app.add_subcommand("fonts", PictureDescription("fonts"));
    fonts->require_subcommand(1);
    AddBuild(*fonts);
    AddCompare(*fonts);
}

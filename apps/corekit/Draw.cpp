// corekit draw: text files as pictures of prompter lines.
#include "Commands.h"
#include "Output.h"
#include "PictureNames.h"
#include "Raster.h"
#include "Terminal.h"
#include "TextFile.h"

#include "corekit/framework/Geometry.h"
#include "corekit/platform/Gdi.h"
#include "corekit/platform/PngFile.h"
#include "corekit/platform/Toolkit.h"
#include "corekit/unicode/bidi/ReorderToVisual.h"
#include "corekit/unicode/storage/StoredText.h"
#include "corekit/unicode/ui/FontMapInfo.h"
#include "corekit/unicode/ui/fonts/GlyphFont.h"
#include "corekit/unicode/ui/UnicodeManager.h"
#include "corekit/unicode/ui/UniRender.h"
#include "corekit/unicode/ui/UsualFonts.h"

#include <CLI/CLI.hpp>

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <filesystem>
#include <map>
#include <memory>
#include <span>
#include <stdexcept>

namespace {

struct DrawOptions {
    std::vector<std::string> files;
    std::string folder;
    std::vector<std::string> fonts;
    std::string fontFolder;
    int size = 48;
    int width = 0; // pixels; 0 is as wide as the widest line
    bool bidi = false;
    bool complex = false;
    bool isSmall = false;
    bool isKerned = false;
};

constexpr int margin = 24;
constexpr int widest = 16384, tallest = 32768; // pixels of one picture
constexpr long long largest = 24'000'000;      // and of its area, 4 bytes each
constexpr COLORREF paper = RGB(0, 0, 0), ink = RGB(255, 255, 255);

struct Line {
    StringW text;
    int width = 0;
    bool rightToLeft = false;
};

// Where the lines of a file do not fit on one picture, the second is <name>-2.png.
std::filesystem::path PictureOf(const DrawOptions& options, const std::string& file, int number = 1)
{
    const std::string name = std::filesystem::path(file).stem().string();
    return std::filesystem::path(options.folder) /
           (number == 1 ? name + ".png" : name + "-" + std::to_string(number) + ".png");
}

class Artist {
public:
    explicit Artist(const DrawOptions& options) : m_options(options)
    {
        for (const std::string& face : options.fonts) m_render.AddFont(face.c_str());
        if (options.fonts.empty()) AddUsualFonts();
        m_render.UsePairKerning(options.isKerned ? PairKerning::on : PairKerning::off);
        m_render.Create(-options.size, 0, 0, 0); // the height of the letters, the same in every face
    }

    // Draws every line of the file below the other; gives the pictures' paths.
    std::vector<std::string> Draw(const std::string& file)
    {
        const std::vector<Line> lines = Measure(ReadLines(file));
        int width = m_options.width;
        for (const Line& line : lines)
            if (m_options.width == 0) width = std::max(width, line.width + 2 * margin);
        if (width > widest)
            throw std::runtime_error(file + " has a line too long for a picture; give a --width to cut it");
        width = std::max(width, 2 * margin);
        const std::size_t most = static_cast<std::size_t>(LinesThatFit(width));
        std::vector<std::string> pictures;
        for (std::size_t at = 0; at == 0 || at < lines.size(); at += most) {
            const std::span<const Line> part =
                std::span(lines).subspan(at, std::min(most, lines.size() - at));
            const int count = static_cast<int>(std::max<std::size_t>(1, part.size()));
            const Raster surface(width, count * Pitch() + 2 * margin);
            Paint(surface, part, width);
            pictures.push_back(Save(surface, file, static_cast<int>(pictures.size()) + 1));
        }
        return pictures;
    }

    std::size_t LinesDrawn() const { return m_linesDrawn; }

private:
    int Pitch() const { return m_options.size * 7 / 4; }
    int LinesThatFit(int width) const
    {
        const long long height = std::min<long long>(tallest, largest / width);
        return static_cast<int>(std::max(1LL, (height - 2 * margin) / Pitch()));
    }

    void AddUsualFonts()
    {
        const CFontDescriptor usual = UsualFonts(m_options.size);
        for (int i = 0; i < usual.GetCount(); ++i) m_render.AddFont(usual.GetFont(i));
    }

    std::vector<Line> Measure(const std::vector<std::u16string>& texts)
    {
        const Raster scratch(1, 1);
        m_render.AttachDC(scratch.Context());
        std::vector<Line> lines;
        for (const std::u16string& text : texts) {
            const int length = static_cast<int>(text.size());
            Line line{m_options.complex ? StringW(text.data(), length) : ToStoredText(text.data(), length)};
            line.width = DrawnWidth(line.text);
            line.rightToLeft = GetBaseLevel(line.text, line.text.GetLength()) == 1;
            lines.push_back(std::move(line));
        }
        m_render.DetachDC();
        return lines;
    }

    // Arabic letters take their forms from their neighbours on the screen, so the width is that of display
    // order.
    int DrawnWidth(StringW text)
    {
        const CUnicodeManager* manager = CUnicodeManager::GetObjectA();
        CArray<int, int> order, types;
        if (manager->IsBIDIEnabled(TRUE))
            ReorderToVisual(text, order, types, GetBaseLevel(text, text.GetLength()));
        StringW glyphs;
        manager->ConvertToGlyphs(text, text.GetLength(), glyphs);
        return m_render.CalcGlyphStringSize(glyphs, glyphs.GetLength(), 0).cx;
    }

    void Paint(const Raster& surface, std::span<const Line> lines, int width)
    {
        SetTextColor(surface.Context(), ink);
        SetBkColor(surface.Context(), paper);
        SetTextAlign(surface.Context(), TA_LEFT | TA_BASELINE);
        const CRect all(0, 0, width, surface.Height());
        ExtTextOutW(surface.Context(), 0, 0, ETO_OPAQUE, &all, nullptr, 0, nullptr);
        m_render.AttachDC(surface.Context());
        int baseline = margin + m_options.size * 5 / 4;
        for (const Line& line : lines) {
            const int x = line.rightToLeft ? width - margin - line.width : margin;
            SetBkMode(surface.Context(), TRANSPARENT); // a line with marks leaves it opaque
            m_render.DrawLogicalString(x, baseline, 0, all, line.text, -1, 0);
            baseline += Pitch();
            ++m_linesDrawn;
        }
        m_render.DetachDC();
    }

    std::string Save(const Raster& surface, const std::string& file, int number)
    {
        const std::filesystem::path path = PictureOf(m_options, file, number);
        for (const std::string& other : m_options.files)
            if (number > 1 && PictureOf(m_options, other) == path)
                throw std::runtime_error(file + " needs several pictures, and " + path.string() +
                                         " is that of " + other);
        const PngEffort effort = m_options.isSmall ? PngEffort::small : PngEffort::quick;
        if (!SaveBitmapAsPng(surface.Bitmap(), path.c_str(), effort)) FailFor(path);
        return path.string();
    }

    const DrawOptions& m_options;
    CUniRender m_render;
    std::size_t m_linesDrawn = 0;
};

void AddFontFiles(const std::string& folder)
{
    std::error_code error;
    std::vector<std::filesystem::path> files;
    for (const auto& entry : std::filesystem::directory_iterator(folder, error))
        if (entry.path().extension() == ".ttf") files.push_back(entry.path());
    if (error) throw std::runtime_error("cannot read the folder " + folder + ": " + error.message());
    for (const auto& file : files)
        if (AddFontResourceA(file.c_str()) == 0)
            throw std::runtime_error("cannot read the font " + file.string());
}

// A font of glyph codes draws them in this run even if it is not registered. One that has letters of nobody
// and does not say whose codes it holds is named, as nothing will be drawn with it.
void UseGlyphFonts(const DrawOptions& options, CUnicodeManager& manager)
{
    if (options.fontFolder.empty() || options.complex) return;
    const CFontDescriptor usual = UsualFonts(options.size);
    std::vector<std::string> faces = options.fonts;
    for (int i = 0; options.fonts.empty() && i < usual.GetCount(); ++i)
        faces.emplace_back(static_cast<const char*>(usual.GetFont(i)));
    for (const std::string& face : faces) {
        const CFontMapInfo* const info = manager.GetFontMapInfo(face.c_str());
        if (!info || info->GetSignature().GetCustomSignature() != 0 || UseAsGlyphFont(face)) continue;
        DWORD ranges[4];
        info->GetSignature().GetUsb(ranges);
        if (std::ranges::all_of(ranges, [](DWORD word) { return word == 0; }))
            std::fprintf(stderr,
                         "corekit: %s is not used for glyph codes: its name ends in none of Devanagari, "
                         "Bengali, Tamil\n",
                         face.c_str());
    }
}

void RefuseSameNames(const DrawOptions& options)
{
    std::map<std::filesystem::path, std::string> drawn;
    for (const std::string& file : options.files)
        if (const auto [other, isNew] = drawn.emplace(PictureOf(options, file), file); !isNew)
            throw std::runtime_error(other->second + " and " + file + " would become one picture, " +
                                     other->first.string());
}

void Draw(const DrawOptions& options)
{
    RefuseSameNames(options);
    if (!StartToolkit(ToolkitDisplay::offscreen))
        throw std::runtime_error("the window toolkit does not start");
    if (!options.fontFolder.empty()) AddFontFiles(options.fontFolder);
    CUnicodeManager* manager = CUnicodeManager::Initialise(FALSE);
    // A picture changes no settings of the machine.
    manager->OverrideSettings({.biDi = options.bidi, .complexLanguage = options.complex});
    UseGlyphFonts(options, *manager);
    std::error_code error;
    std::filesystem::create_directories(options.folder, error);
    if (error) throw std::runtime_error("cannot make the folder " + options.folder + ": " + error.message());

    const auto started = std::chrono::steady_clock::now();
    Artist artist(options);
    std::vector<std::string> pictures;
    {
        ProgressBar bar("drawing", options.files.size());
        for (const std::string& file : options.files) {
            std::ranges::move(artist.Draw(file), std::back_inserter(pictures));
            bar.Advance();
        }
    }
    const std::chrono::duration<double, std::milli> took = std::chrono::steady_clock::now() - started;
    for (const std::string& picture : pictures) PrintLine(picture);
    Print("%zu lines in %zu pictures, %.0f ms. Look into %s\n", artist.LinesDrawn(), pictures.size(),
          took.count(), std::filesystem::absolute(options.folder).c_str());
}

} // namespace

void AddDrawCommand(CLI::App& app)
{
    auto* command = app.add_subcommand("draw", PictureDescription("draw"));
    auto options = std::make_shared<DrawOptions>();
    command
        ->add_option("FILE", options->files,
                     "Text files, UTF-8 or UTF-16; each becomes DIR/<name>.png, a long one\n"
                     "DIR/<name>-2.png and so on, too")
        ->required();
    command->add_option("-o,--output", options->folder, "The folder for the pictures, made if it is missing")
        ->required()
        ->type_name("DIR");
    command->add_option("--font", options->fonts, "A font face, up to sixteen, in order of preference")
        ->expected(1)
        ->type_name("FACE")
        ->multi_option_policy(CLI::MultiOptionPolicy::TakeAll);
    command
        ->add_option("--fonts", options->fontFolder,
                     "A folder of .ttf fonts to draw with beside those installed")
        ->type_name("DIR");
    command->add_option("--size", options->size, "Height of the fonts in pixels")
        ->check(CLI::Range(4, 1000))
        ->capture_default_str();
    command
        ->add_option("--width", options->width,
                     "Width of the pictures in pixels; without it, that of the widest line")
        ->check(CLI::Range(1, widest));
    command->add_flag("--bidi", options->bidi, "Order right-to-left text ourselves");
    command->add_flag("--kerning", options->isKerned, "Kern pairs where the fonts have values for them");
    command->add_flag("--small", options->isSmall, "Take more time for smaller files");
    command->add_flag("--complex", options->complex,
                      "Leave all shaping to the platform (Devanagari, Bengali, Tamil)");
    command->callback([options] { Draw(*options); });
}

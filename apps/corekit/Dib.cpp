// corekit dib: what bitmap files hold, PNG pictures from them and back, several on one sheet.
#include "Commands.h"
#include "Output.h"
#include "PictureNames.h"
#include "Raster.h"
#include "Table.h"

#include "corekit/foundation/ChainedException.h"
#include "corekit/graphics/Dib.h"
#include "corekit/platform/Dibs.h"
#include "corekit/platform/PictureFiles.h"

#include <CLI/CLI.hpp>

#include <algorithm>
#include <cstring>
#include <filesystem>
#include <memory>
#include <stdexcept>
#include <vector>

namespace {

namespace fs = std::filesystem;

constexpr int gap = 8, cell = 160; // of a sheet, in pixels

struct DibOptions {
    std::vector<std::string> files;
    std::string in, out;
    int bits = 24;
    int columns = 4;
};

// Where a failure is told, the file is named.
template <class Work>
void OfFile(const std::string& file, Work work)
{
    try {
        work();
    } catch (CException* error) {
        const std::string text = static_cast<const char*>(GetExceptionMsg(error));
        error->Delete();
        throw std::runtime_error(file + ": " + text);
    }
}

void Load(CDib& dib, const std::string& file)
{
    OfFile(file, [&] { dib.LoadDIBFile(file.c_str()); });
}

// Loads one after the other for `use`, which gets its place in the list, and null for one that cannot be
// read. Returns what is to be said of those.
template <class Use>
std::string LoadEach(const DibOptions& options, Use use)
{
    std::string unread;
    for (std::size_t i = 0; i < options.files.size(); ++i) {
        CDib dib;
        try {
            Load(dib, options.files[i]);
        } catch (const std::runtime_error& error) {
            unread += (unread.empty() ? "" : "; ") + std::string(error.what());
        }
        use(i, dib.IsValid() ? &dib : nullptr);
    }
    return unread;
}

void EndWith(const std::string& unread)
{
    if (!unread.empty()) throw std::runtime_error(unread);
}

void Info(const DibOptions& options)
{
    TableRows rows = {{"FILE", "WIDTH", "HEIGHT", "BITS", "COLOURS", "ROWS", "BYTES"}};
    const std::string unread = LoadEach(options, [&](std::size_t i, const CDib* dib) {
        if (!dib) return;
        const BITMAPINFOHEADER& header = dib->GetBitmapInfo()->bmiHeader;
        rows.push_back({options.files[i], std::to_string(dib->GetBitmapWidth()),
                        std::to_string(dib->GetBitmapHeight()), std::to_string(header.biBitCount),
                        std::to_string((dib->GetInfoSize() - sizeof header) / 4),
                        header.biHeight < 0 ? "top down" : "bottom up", std::to_string(dib->GetDataSize())});
    });
    if (rows.size() > 1) PrintTable(rows, {"WIDTH", "HEIGHT", "BITS", "COLOURS", "BYTES"});
    EndWith(unread);
}

void BitmapToPng(const DibOptions& options)
{
    CDib dib;
    Load(dib, options.in);
    const Raster raster(dib.GetBitmapWidth(), dib.GetBitmapHeight());
    dib.DrawBitmap(raster.Context(), CPoint(0, 0));
    if (!SaveBitmapAsPng(raster.Bitmap(), options.out.c_str()))
        throw std::runtime_error(options.out + ": " + static_cast<const char*>(GetLastErrorString()));
}

void PngToBitmap(const DibOptions& options)
{
    const HBITMAP picture = LoadPictureFile(options.in.c_str());
    if (!picture) throw std::runtime_error(options.in + ": no picture that can be read");
    BITMAP facts{};
    GetObjectA(picture, sizeof facts, &facts);
    const auto bits = static_cast<WORD>(options.bits);
    const DWORD colours = bits <= 8 ? 1u << bits : 0;
    BITMAPINFOHEADER header{sizeof header, facts.bmWidth, facts.bmHeight, 1, bits, BI_RGB, 0, 0, 0, 0, 0};
    corekit::DibLayout layout;
    corekit::ReadDibLayout(header, layout);
    const std::size_t front = sizeof header + colours * sizeof(RGBQUAD);
    std::vector<BYTE> dib(front + layout.dataSize());
    std::memcpy(dib.data(), &header, sizeof header);
    GetDIBits(nullptr, picture, 0, static_cast<UINT>(facts.bmHeight), &dib[front],
              reinterpret_cast<BITMAPINFO*>(dib.data()), DIB_RGB_COLORS);
    DeleteObject(picture);
    CDib whole;
    OfFile(options.out, [&] {
        whole.AttachDIBData(dib.data(), static_cast<DWORD>(dib.size()));
        whole.SaveDIBFile(options.out.c_str());
    });
}

void Convert(const DibOptions& options)
{
    const fs::path from = fs::path(options.in).extension(), to = fs::path(options.out).extension();
    if (to == ".png")
        BitmapToPng(options);
    else if (to == ".bmp" && from == ".png")
        PngToBitmap(options);
    else
        throw std::runtime_error("one of the two files must end with .bmp and the other with .png");
}

void Cross(HDC dc, const CRect& place)
{
    MoveToEx(dc, place.left, place.top, nullptr);
    LineTo(dc, place.right, place.bottom);
    MoveToEx(dc, place.right - 1, place.top, nullptr);
    LineTo(dc, place.left - 1, place.bottom);
}

// As large as it is, or reduced until it fits, in the middle of its place.
void DrawInCell(HDC dc, const CDib& dib, const CRect& place)
{
    const CSize whole = dib.GetSize();
    const double scale = std::min(1.0, static_cast<double>(place.Width()) / std::max(whole.cx, whole.cy));
    const CSize size(std::max(1, static_cast<int>(whole.cx * scale)),
                     std::max(1, static_cast<int>(whole.cy * scale)));
    const CPoint corner(place.left + (place.Width() - size.cx) / 2,
                        place.top + (place.Height() - size.cy) / 2);
    dib.StretchBitmap(dc, CRect(corner, size));
}

// Each bitmap in a cell of its own; a cross for one that cannot be read.
void Show(const DibOptions& options)
{
    const int count = static_cast<int>(options.files.size());
    const int columns = std::min(options.columns, count), lines = (count + columns - 1) / columns;
    const Raster sheet(columns * (cell + gap) + gap, lines * (cell + gap) + gap);
    const RECT all{0, 0, sheet.Width(), sheet.Height()};
    const HBRUSH ground = CreateSolidBrush(RGB(0x80, 0x80, 0x80));
    FillRect(sheet.Context(), &all, ground);
    DeleteObject(ground);
    SetStretchBltMode(sheet.Context(), HALFTONE);
    const std::string unread = LoadEach(options, [&](std::size_t i, const CDib* dib) {
        const int at = static_cast<int>(i);
        const CPoint corner(gap + at % columns * (cell + gap), gap + at / columns * (cell + gap));
        const CRect place(corner, CSize(cell, cell));
        if (dib)
            DrawInCell(sheet.Context(), *dib, place);
        else
            Cross(sheet.Context(), place);
    });
    if (!SaveBitmapAsPng(sheet.Bitmap(), options.out.c_str()))
        throw std::runtime_error(options.out + ": " + static_cast<const char*>(GetLastErrorString()));
    PrintLine(options.out);
    EndWith(unread);
}

} // namespace

void AddDibCommand(CLI::App& app)
{
    auto* command = app.add_subcommand("dib", PictureDescription("dib"));
    command->require_subcommand(1);
    auto options = std::make_shared<DibOptions>();

    auto* info = command->add_subcommand("info", "Size, depth and colours of each bitmap");
    info->add_option("FILE", options->files, "Bitmap files")->required();
    OfferJson(*info);
    info->callback([options] { Info(*options); });

    auto* convert = command->add_subcommand("convert", "A bitmap to PNG, or PNG to a bitmap");
    convert->add_option("FROM", options->in, "A .bmp or .png file")->required();
    convert->add_option("TO", options->out, "A .png or .bmp file")->required();
    convert->add_option("--bits", options->bits, "Bits a pixel of the bitmap: 1, 4, 8, 16, 24 or 32")
        ->check(CLI::IsMember({1, 4, 8, 16, 24, 32}))
        ->capture_default_str();
    convert->callback([options] { Convert(*options); });

    auto* show = command->add_subcommand("show", "All bitmaps on one sheet");
    show->add_option("FILE", options->files, "Bitmap files")->required();
    show->add_option("-o,--output", options->out, "The PNG file of the sheet")->required();
    show->add_option("--columns", options->columns, "Bitmaps side by side")
        ->check(CLI::Range(1, 64))
        ->capture_default_str();
    show->callback([options] { Show(*options); });
}

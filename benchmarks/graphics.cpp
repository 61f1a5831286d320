// Bitmaps: files, drawing, buttons from the cache, and a flip of the full screen, beside the toolkit's own
// pictures.
//
// Every peer reads and writes the same file of 1920 by 1080 pixels with 24 bits and draws to a raster of 32
// bits of that size.
#include "corekit/framework/Module.h"
#include "corekit/graphics/DirectDraw.h"
#include "corekit/graphics/ui/BitmapDrawCache.h"
#include "corekit/platform/Gdi.h"
#include "corekit/platform/Toolkit.h"

#include <benchmark/benchmark.h>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <QApplication>
#include <QImage>
#include <QPainter>
#include <QPixmap>
#include <QWidget>
#include <unistd.h>
#include <vector>

namespace {

constexpr int width = 1920, height = 1080;
constexpr int smallWidth = 1280, smallHeight = 720;
constexpr int buttonWidth = 16, buttonHeight = 15;
constexpr UINT buttonId = 77;

std::vector<BYTE> dibOf(int w, int h)
{
    const std::size_t stride = static_cast<std::size_t>(w * 3 + 3) / 4 * 4;
    std::vector<BYTE> dib(40 + stride * static_cast<std::size_t>(h));
    const BITMAPINFOHEADER header{40, w, h, 1, 24, BI_RGB, 0, 0, 0, 0, 0};
    std::memcpy(dib.data(), &header, sizeof header);
    for (std::size_t i = 40; i < dib.size(); ++i) dib[i] = static_cast<BYTE>(i * 2654435761u >> 13);
    return dib;
}

// The file that everybody reads.
const std::string& file()
{
    static const std::string path = [] {
        std::string name = "/tmp/corekit-bench-" + std::to_string(getpid()) + ".bmp";
        const auto dib = dibOf(width, height);
        CDib picture;
        picture.AttachDIBData(dib.data(), static_cast<DWORD>(dib.size()));
        picture.SaveDIBFile(name.c_str());
        std::atexit([] { std::remove(file().c_str()); });
        return name;
    }();
    return path;
}

const CDib& ourPicture()
{
    static CDib picture;
    if (!picture.IsValid()) picture.LoadDIBFile(file().c_str());
    return picture;
}

const QImage& theirPicture()
{
    static const QImage picture(QString::fromStdString(file()));
    return picture;
}

// The raster that we draw to.
CDC& ourRaster()
{
    static CBitmap bitmap;
    static CDC dc;
    if (!dc.GetSafeHdc()) {
        dc.CreateCompatibleDC(nullptr);
        bitmap.CreateCompatibleBitmap(&dc, width, height);
        dc.SelectObject(&bitmap);
    }
    return dc;
}

QImage& theirRaster()
{
    static QImage raster(width, height, QImage::Format_RGB32);
    return raster;
}

void LoadOurs(benchmark::State& state)
{
    for (auto _ : state) {
        CDib picture;
        picture.LoadDIBFile(file().c_str());
        benchmark::DoNotOptimize(picture.GetBitmapData());
    }
}

void LoadTheirs(benchmark::State& state)
{
    const QString path = QString::fromStdString(file());
    for (auto _ : state) {
        const QImage picture(path);
        benchmark::DoNotOptimize(picture.constBits());
    }
}

void SaveOurs(benchmark::State& state)
{
    const std::string path = file() + ".ours";
    for (auto _ : state) ourPicture().SaveDIBFile(path.c_str());
    std::remove(path.c_str());
}

void SaveTheirs(benchmark::State& state)
{
    const QString path = QString::fromStdString(file() + ".theirs");
    const QImage picture = theirPicture().convertToFormat(QImage::Format_RGB888);
    for (auto _ : state) benchmark::DoNotOptimize(picture.save(path, "BMP"));
    std::remove(path.toLocal8Bit().constData());
}

void DrawOurs(benchmark::State& state)
{
    for (auto _ : state) ourPicture().DrawBitmap(ourRaster(), CPoint(0, 0));
}

void DrawTheirs(benchmark::State& state)
{
    QPainter painter(&theirRaster());
    for (auto _ : state) painter.drawImage(0, 0, theirPicture());
}

void StretchOurs(benchmark::State& state)
{
    for (auto _ : state) ourPicture().StretchBitmap(ourRaster(), CRect(0, 0, smallWidth, smallHeight));
}

void StretchTheirs(benchmark::State& state)
{
    QPainter painter(&theirRaster());
    for (auto _ : state) painter.drawImage(QRect(0, 0, smallWidth, smallHeight), theirPicture());
}

void ButtonOurs(benchmark::State& state)
{
    static const auto dib = dibOf(buttonWidth, buttonHeight);
    static const BinaryResource rows[] = {{"#2", "#77", std::as_bytes(std::span(dib))}};
    AfxSetResources(rows);
    CBitmapDrawCache& cache = GetBitmapDrawCache();
    int x = 0;
    for (auto _ : state) cache.DrawBitmap(ourRaster(), buttonId, CPoint(x = (x + 17) % 1800, 40));
}

void ButtonTheirs(benchmark::State& state)
{
    const QPixmap button = QPixmap::fromImage(theirPicture().copy(0, 0, buttonWidth, buttonHeight));
    QPainter painter(&theirRaster());
    int x = 0;
    for (auto _ : state) painter.drawPixmap(x = (x + 17) % 1800, 40, button);
}

// A surface that was filled once, brought to the screen at every turn.
void FlipOurs(benchmark::State& state)
{
    CDirectDraw draw;
    CDirectDrawSurface front, back;
    draw.Initialise(nullptr);
    draw.SetCooperativeLevel(nullptr, DDSCL_EXCLUSIVE | DDSCL_FULLSCREEN);
    draw.SetDisplayMode(width, height, 32, 0, 0);
    draw.CreateFlipChain(1, front);
    back.AttachBackBuffer(front);
    const HDC dc = back.GetDC(nullptr);
    PatBlt(dc, 0, 0, width, height, WHITENESS);
    back.ReleaseDC(dc);
    for (auto _ : state) {
        front.Flip(0);
        QApplication::processEvents();
    }
    back.Delete();
    front.Delete();
    draw.Shutdown();
}

class PictureWidget final : public QWidget {
    void paintEvent(QPaintEvent*) override { QPainter(this).drawImage(rect(), theirPicture()); }
};

void FlipTheirs(benchmark::State& state)
{
    PictureWidget widget;
    widget.showFullScreen();
    for (auto _ : state) {
        widget.update();
        QApplication::processEvents();
    }
}

BENCHMARK(LoadOurs)->Name("graphics/load_24/corekit");
BENCHMARK(LoadTheirs)->Name("graphics/load_24/qt6_qimage");
BENCHMARK(SaveOurs)->Name("graphics/save_24/corekit");
BENCHMARK(SaveTheirs)->Name("graphics/save_24/qt6_qimage");
BENCHMARK(DrawOurs)->Name("graphics/draw_24/corekit");
BENCHMARK(DrawTheirs)->Name("graphics/draw_24/qt6_qpainter");
BENCHMARK(StretchOurs)->Name("graphics/stretch_24/corekit");
BENCHMARK(StretchTheirs)->Name("graphics/stretch_24/qt6_qpainter");
BENCHMARK(ButtonOurs)->Name("graphics/button/corekit");
BENCHMARK(ButtonTheirs)->Name("graphics/button/qt6_drawpixmap");
BENCHMARK(FlipOurs)->Name("graphics/flip/corekit");
BENCHMARK(FlipTheirs)->Name("graphics/flip/qt6_widget");

} // namespace

int main(int argc, char** argv)
{
    StartToolkit(ToolkitDisplay::offscreen);
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
}

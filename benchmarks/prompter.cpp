// A frame of the prompt view: 1920 by 1080 pixels with 40 lines of mixed scripts, a pixel further every time,
// beside the toolkit's text layouts, which are kept from frame to frame and only drawn.
#include "view/Session.h"

#include "corekit/platform/Toolkit.h"
#include "corekit/unicode/ui/UnicodeManager.h"

#include <benchmark/benchmark.h>
#include <memory>
#include <QFont>
#include <QImage>
#include <QPainter>
#include <QTextLayout>
#include <vector>

using namespace prompter;

namespace {

constexpr SIZE frame{1920, 1080};
constexpr int size = 19, lines = 200;
constexpr std::u16string_view samples[] = {
    u"Good evening. The council voted tonight to rebuild the old harbour bridge, which was closed in 1998.",
    u"مساء الخير. صوت المجلس الليلة على إعادة بناء الجسر القديم في الميناء (1998).",
    u"ערב טוב. המועצה הצביעה הלילה על בנייתו מחדש של הגשר הישן בנמל, שנסגר בשנת 1998.",
    u"The mayor said: «سيبدأ العمل في الربيع» and then took questions from the press.",
    u"شب بخیر. شورای شهر امشب به بازسازی پل قدیمی بندر رای داد و کار در بهار آغاز "
    u"می‌شود.",
};

std::u16string text()
{
    std::u16string all;
    for (int i = 0; i < lines; ++i) all += std::u16string(samples[i % std::size(samples)]) + u"\n";
    return all;
}

void Ours(benchmark::State& state)
{
    Script script;
    script.SetText(text());
    Session session(script);
    SessionSettings settings;
    settings.style.size = size;
    settings.frame = frame;
    settings.showsStatus = false;
    session.SetSettings(settings, 0);
    session.StepLines(lines / 2, 0);
    double step = 1;
    for (auto _ : state) {
        session.DragBy(step = -step, 0);
        if (!session.Tick(0)) return state.SkipWithError("no frame");
    }
}

void Theirs(benchmark::State& state)
{
    const PromptStyle style;
    const int lineHeight = size + size * style.lineGap / 100, shown = frame.cy / lineHeight + 1;
    QFont font(QStringLiteral("Noto Sans"));
    font.setPixelSize(size);
    std::vector<std::unique_ptr<QTextLayout>> kept;
    for (int i = 0; i < shown; ++i) {
        const std::u16string_view sample = samples[static_cast<std::size_t>(i) % std::size(samples)];
        auto& layout = *kept.emplace_back(std::make_unique<QTextLayout>(
            QString::fromUtf16(sample.data(), static_cast<qsizetype>(sample.size())), font));
        layout.setCacheEnabled(true);
        layout.beginLayout();
        layout.createLine().setLineWidth(frame.cx - 2 * style.margin);
        layout.endLayout();
    }
    QImage image(frame.cx, frame.cy, QImage::Format_ARGB32_Premultiplied);
    QPainter painter(&image);
    painter.setPen(Qt::white);
    int step = 0;
    for (auto _ : state) {
        step = 1 - step;
        painter.fillRect(image.rect(), Qt::black);
        for (int i = 0; i < shown; ++i)
            kept[static_cast<std::size_t>(i)]->draw(&painter, QPointF(style.margin, i * lineHeight - step));
    }
}

BENCHMARK(Ours)->Name("prompter/frame_40_lines/corekit");
BENCHMARK(Theirs)->Name("prompter/frame_40_lines/qt6_qtextlayout");

} // namespace

int main(int argc, char** argv)
{
    StartToolkit(ToolkitDisplay::offscreen);
    CUnicodeManager::Initialise(1)->OverrideSettings({TRUE, FALSE, FALSE, FALSE});
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
}

// How long a script takes to open, and how evenly the prompt moves: the desk as it is used, on the display of
// the environment, and the times at which its output is painted. benchmarks/evenness.sh runs it under an X
// server of its own.
#include "desk/Desk.h"

#include "corekit/framework/WinApp.h"
#include "corekit/platform/Toolkit.h"

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <QApplication>
#include <QEvent>
#include <QWidget>
#include <vector>

namespace {

using Clock = std::chrono::steady_clock;

constexpr double allowed = 2; // milliseconds that a step may be off
constexpr double wanted = 1000.0 / prompter::FrameClock::framesPerSecond;

class PaintTimes final : public QObject {
public:
    bool eventFilter(QObject* receiver, QEvent* event) override
    {
        if (event->type() == QEvent::Paint && receiver->isWidgetType() &&
            static_cast<QWidget*>(receiver)->window()->windowTitle() == QLatin1String("Prompt"))
            times.push_back(Clock::now());
        return false;
    }
    std::vector<Clock::time_point> times;
};

// The share of steps that took as long as a frame lasts, give or take what is allowed.
int report(const std::vector<Clock::time_point>& times)
{
    std::vector<double> steps;
    for (std::size_t i = 1; i < times.size(); ++i)
        steps.push_back(std::chrono::duration<double, std::milli>(times[i] - times[i - 1]).count());
    if (steps.size() < 10) return std::puts("no frames were shown"), EXIT_FAILURE;
    std::vector<double> sorted = steps;
    std::ranges::sort(sorted);
    const double median = sorted[sorted.size() / 2];
    const auto even = std::ranges::count_if(steps, [&](double s) { return std::abs(s - wanted) <= allowed; });
    const auto at = [&](double share) {
        return sorted[static_cast<std::size_t>(share * static_cast<double>(sorted.size() - 1))];
    };
    std::printf("%zu steps of %.2f ms in the middle (a tenth below %.2f, a tenth above %.2f, the longest "
                "%.2f); within "
                "%.0f ms of %.2f: %.2f %%\n",
                steps.size(), median, at(0.1), at(0.9), sorted.back(), allowed, wanted,
                100.0 * static_cast<double>(even) / static_cast<double>(steps.size()));
    return EXIT_SUCCESS;
}

} // namespace

// prompter_evenness SCRIPT SECONDS
int main(int argc, char** argv)
{
    if (argc != 3 || !StartToolkit()) return EXIT_FAILURE;
    CWinApp application("prompter");
    prompter::DeskOptions options;
    options.script = argv[1];
    const Clock::time_point started = Clock::now();
    prompter::Desk desk(options);
    desk.Open();
    UpdateWindow(desk.Editor());
    std::printf("open after %.0f ms\n",
                std::chrono::duration<double, std::milli>(Clock::now() - started).count());
    application.m_pMainWnd = &desk;
    desk.StartPrompt(false);
    desk.TheSession().Start(prompter::PromptWnd::Now());
    PaintTimes paints;
    QCoreApplication::instance()->installEventFilter(&paints);
    constexpr UINT_PTR timer = 99;
    static HWND closing = desk.m_hWnd;
    SetTimer(nullptr, timer, static_cast<UINT>(std::atoi(argv[2])) * 1000,
             [](HWND, UINT, UINT_PTR, DWORD) { PostMessageA(closing, WM_CLOSE, 0, 0); });
    application.Run();
    application.m_pMainWnd = nullptr;
    return report(paints.times);
}

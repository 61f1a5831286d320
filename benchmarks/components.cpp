// Fifty tool bars of twenty buttons laid out anew while their frame changes its size, beside QMainWindow with
// as many QToolBars; an overlay of five hundred panes, beside QTabWidget; a list of a hundred thousand items
// scrolled by pages, beside QListView.
#include "corekit/framework/ui/FrameWnd.h"
#include "corekit/framework/ui/ToolBar.h"
#include "corekit/platform/ListBoxes.h"
#include "corekit/platform/Toolkit.h"
#include "corekit/unicode/ui/UnicodeManager.h"
#include "corekit/windows/ui/MultiViewListBox.h"
#include "corekit/windows/ui/TabbedOverlayWnd.h"

#include <benchmark/benchmark.h>

#include <QAction>
#include <QApplication>
#include <QListView>
#include <QMainWindow>
#include <QScrollBar>
#include <QStringListModel>
#include <QTabWidget>
#include <QToolBar>

#include <memory>

namespace {

constexpr int barCount = 50, buttonCount = 20, paneCount = 500, itemCount = 100'000;

void settle()
{
    QCoreApplication::processEvents();
    QCoreApplication::sendPostedEvents();
}

int nextWidth()
{
    static int step = 0;
    return 1000 + 7 * (++step % 60);
}

void bars_corekit(benchmark::State& state)
{
    auto* const frame = new CFrameWnd;
    const CRect place(0, 0, 1200, 900);
    frame->Create(nullptr, "", WS_OVERLAPPEDWINDOW, &place);
    frame->EnableDocking(CBRS_ALIGN_ANY);
    std::vector<std::unique_ptr<CToolBar>> bars;
    UINT commands[buttonCount];
    for (int i = 0; i < buttonCount; ++i) commands[i] = static_cast<UINT>(1000 + i);
    for (int i = 0; i < barCount; ++i) {
        auto& bar = bars.emplace_back(std::make_unique<CToolBar>());
        bar->Create(frame, WS_CHILD | WS_VISIBLE | CBRS_TOP, static_cast<UINT>(2000 + i));
        bar->SetButtons(commands, buttonCount);
        bar->EnableDocking(CBRS_ALIGN_ANY);
        const CRect row(0, i / 5 * 30, 10, i / 5 * 30 + 20);
        frame->DockControlBar(bar.get(), AFX_IDW_DOCKBAR_TOP, i % 5 ? &row : nullptr);
    }
    frame->ShowWindow(SW_SHOW);
    settle();
    for (auto _ : state) {
        frame->SetWindowPos(nullptr, 0, 0, nextWidth(), 900, SWP_NOMOVE | SWP_NOZORDER);
        settle();
    }
    bars.clear();
    frame->DestroyWindow();
    settle();
}

void bars_qt(benchmark::State& state)
{
    QMainWindow window;
    window.resize(1200, 900);
    for (int i = 0; i < barCount; ++i) {
        if (i % 5 == 0) window.addToolBarBreak();
        QToolBar* const bar = window.addToolBar(QString::number(i));
        for (int button = 0; button < buttonCount; ++button) bar->addAction(QString::number(button));
    }
    window.show();
    settle();
    for (auto _ : state) {
        window.resize(nextWidth(), 900);
        settle();
    }
}

class Pane : public CWnd {
    DECLARE_DYNCREATE(Pane)
protected:
    void PostNcDestroy() override { delete this; }
};
IMPLEMENT_DYNCREATE(Pane, CWnd)

void overlay_corekit(benchmark::State& state)
{
    CWnd parent;
    parent.CreateEx(0, AfxRegisterWndClass(0), "", WS_OVERLAPPEDWINDOW, 0, 0, 800, 600, nullptr, nullptr);
    CTabbedOverlayWnd overlay;
    overlay.Create(&parent, WS_CHILD | WS_VISIBLE, 0, CRect(0, 0, 800, 600), 1);
    for (int i = 0; i < paneCount; ++i) overlay.CreatePane(RUNTIME_CLASS(Pane), u"Pane", -1, nullptr, 0, 0);
    parent.ShowWindow(SW_SHOW);
    settle();
    int pane = 0;
    for (auto _ : state) {
        overlay.SetActivePane(pane = (pane + 37) % paneCount);
        settle();
    }
    parent.DestroyWindow();
}

void overlay_qt(benchmark::State& state)
{
    QTabWidget tabs;
    tabs.resize(800, 600);
    for (int i = 0; i < paneCount; ++i) tabs.addTab(new QWidget, QStringLiteral("Pane"));
    tabs.show();
    settle();
    int pane = 0;
    for (auto _ : state) {
        tabs.setCurrentIndex(pane = (pane + 37) % paneCount);
        settle();
    }
}

class Items : public CMultiViewListBox {
protected:
    void GetItemText(StringW& out, int id, int) override { out = StringW(std::to_string(id).c_str()); }
    int GetItemPicture(int, CDib&) override { return 0; }
    void OnSelectionChange() override {}
    void OnItemDoubleClick(int) override {}
    void OnListSetFocus() override {}
    void OnColumnWidthChange(int, int) override {}
    DWORD GetDragEffect(int, int) override { return 0; }
    int CanDrag(CArray<int, int>&) override { return 0; }
    void OnDragCancel() override {}
    void OnDrop(int, int, CArray<int, int>&, int) override {}
    void MakeDragImage(CImageList*) override {}
};

void scroll_corekit(benchmark::State& state)
{
    CWnd parent;
    parent.CreateEx(0, AfxRegisterWndClass(0), "", WS_OVERLAPPEDWINDOW, 0, 0, 500, 600, nullptr, nullptr);
    Items items;
    items.Create(&parent, 1, WS_CHILD | WS_VISIBLE, CRect(0, 0, 500, 600), eMVLBMode_Details);
    items.AppendColumn(eMVLBAlign_Left, 0, 200, "Name");
    for (int i = 0; i < itemCount; ++i) items.AppendItem(i);
    parent.ShowWindow(SW_SHOW);
    settle();
    CWnd* list = items.GetTopWindow();
    while (list && list->SendMessage(LB_GETCOUNT) != itemCount) list = list->GetNextWindow();
    if (!list) {
        state.SkipWithError("no list");
        return;
    }
    int top = 0;
    for (auto _ : state) {
        list->SendMessage(LB_SETTOPINDEX, static_cast<WPARAM>(top = (top + 30) % (itemCount - 100)));
        settle();
    }
    parent.DestroyWindow();
}

void scroll_qt(benchmark::State& state)
{
    QStringList names;
    for (int i = 0; i < itemCount; ++i) names << QString::number(i);
    QStringListModel model(names);
    QListView view;
    view.setUniformItemSizes(true);
    view.setModel(&model);
    view.resize(500, 600);
    view.show();
    settle();
    int top = 0;
    for (auto _ : state) {
        view.verticalScrollBar()->setValue(top = (top + 30) % (itemCount - 100));
        settle();
    }
}

} // namespace

int main(int argc, char** argv)
{
    if (!StartToolkit(ToolkitDisplay::offscreen)) return 1;
    CFontDescriptor font;
    font.SetSize(16);
    font.AddFont("Noto Sans");
    CUnicodeManager::Initialise(1)->OverrideControlsFont(font);
    const auto add = [](const char* name, void (*run)(benchmark::State&)) {
        benchmark::RegisterBenchmark(name, run)->Unit(benchmark::kMicrosecond);
    };
    add("components/bars_relayout/corekit", bars_corekit);
    add("components/bars_relayout/qt6_qmainwindow", bars_qt);
    add("components/overlay_switch/corekit", overlay_corekit);
    add("components/overlay_switch/qt6_qtabwidget", overlay_qt);
    add("components/list_page/corekit", scroll_corekit);
    add("components/list_page/qt6_qlistview", scroll_qt);
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
}

// The Unicode list control filled with 100,000 rows and scrolled by pages, against QTreeView on a model.
#include "corekit/framework/ui/Wnd.h"
#include "corekit/platform/ListViews.h"
#include "corekit/platform/Toolkit.h"
#include "corekit/unicode/ui/list/UnicodeListCtrl.h"
#include "corekit/unicode/ui/UnicodeManager.h"

#include "workload.h"

#include <benchmark/benchmark.h>

#include <QApplication>
#include <QKeyEvent>
#include <QStandardItemModel>
#include <QTreeView>

namespace {

constexpr int width = 500, height = 600, columnWidth = 220, fontSize = 22, rowCount = 100'000;

const std::vector<std::u16string>& names()
{
    static const auto all = workload::lines(workload::Script::MixedLtr, 1000, 2, 3);
    return all;
}

void settle()
{
    QCoreApplication::processEvents();
    QCoreApplication::sendPostedEvents();
}

void press(int key)
{
    for (const QEvent::Type type : {QEvent::KeyPress, QEvent::KeyRelease}) {
        QKeyEvent event(type, key, Qt::NoModifier);
        QCoreApplication::sendEvent(QApplication::focusWidget(), &event);
    }
    settle();
}

class Names final : public CUnicodeListCtrl {
public:
    void GetColumnText(StringW& out, long data, int column) override
    {
        out = names()[static_cast<std::size_t>(data + column) % names().size()].c_str();
    }
    void OnListKeyDown(UINT, UINT, UINT) override {}
    void OnListChar(UINT, UINT, UINT) override {}
    void OnListLButtonDown(UINT, CPoint) override {}
    void OnListLButtonDblClk(UINT, CPoint) override {}
};

struct Ours {
    static constexpr const char* name = "corekit";

    Ours()
    {
        CUnicodeManager* const manager = CUnicodeManager::Initialise(1);
        CFontDescriptor font;
        font.SetSize(fontSize);
        for (const char* face : {"Noto Sans", "Noto Sans Hebrew", "Amiri"}) font.AddFont(face);
        manager->OverrideControlsFont(font);
        window.CreateEx(0, AfxRegisterWndClass(0), "", WS_OVERLAPPEDWINDOW, 0, 0, width, height, nullptr,
                        nullptr);
        list.Create(WS_CHILD | WS_VISIBLE | LVS_REPORT, CRect(0, 0, width, height), &window, 1);
        for (int i = 0; i < 2; ++i) list.InsertColumn(i, "column", LVCFMT_LEFT, columnWidth);
        window.ShowWindow(SW_SHOW);
        list.SetFocus();
        settle();
    }
    ~Ours() { window.DestroyWindow(); }
    void fill()
    {
        for (int i = 0; i < rowCount; ++i)
            list.AddString(names()[static_cast<std::size_t>(i) % names().size()].c_str(), ulcPlain, i);
    }
    int count() { return list.GetItemCount(); }
    void empty() { list.ResetContent(); }
    int topRow() { return list.GetTopIndex(); }

    CWnd window;
    Names list;
};

struct Peer {
    static constexpr const char* name = "qt6_qtreeview";

    Peer()
    {
        model.setColumnCount(2);
        view.setModel(&model);
        view.setUniformRowHeights(true);
        view.setRootIsDecorated(false);
        view.resize(width, height);
        view.setSelectionMode(QAbstractItemView::ExtendedSelection);
        view.show();
        view.activateWindow();
        view.setFocus();
        settle();
    }
    void fill()
    {
        for (int i = 0; i < rowCount; ++i) model.appendRow({cell(i), cell(i + 1)});
    }
    static QStandardItem* cell(int i)
    {
        return new QStandardItem(
            QString::fromStdU16String(names()[static_cast<std::size_t>(i) % names().size()]));
    }
    int count() { return model.rowCount(); }
    void empty() { model.removeRows(0, model.rowCount()); }
    int topRow() { return view.indexAt(QPoint(0, 0)).row(); }

    QStandardItemModel model;
    QTreeView view;
};

template <class List>
void fill(benchmark::State& state)
{
    List list;
    for (auto _ : state) {
        list.fill();
        settle();
        state.PauseTiming();
        if (list.count() != rowCount) state.SkipWithError("rows are missing");
        list.empty();
        settle();
        state.ResumeTiming();
    }
    state.SetItemsProcessed(state.iterations() * rowCount);
}

template <class List>
void scroll(benchmark::State& state)
{
    List list;
    list.fill();
    settle();
    for (int i = 0; i < 5; ++i) press(Qt::Key_PageDown);
    if (list.topRow() < 10) state.SkipWithError("the list does not scroll");
    int pages = 0;
    for (auto _ : state) press(++pages % 1000 ? Qt::Key_PageDown : Qt::Key_Home);
    state.SetItemsProcessed(state.iterations());
}

template <class List>
void add()
{
    const std::string name = List::name;
    benchmark::RegisterBenchmark(("list/fill_100000_rows/" + name).c_str(), fill<List>)->UseRealTime();
    benchmark::RegisterBenchmark(("list/scroll_a_page/" + name).c_str(), scroll<List>)->UseRealTime();
}

} // namespace

int main(int argc, char** argv)
{
    if (!StartToolkit(ToolkitDisplay::offscreen)) return 1;
    add<Ours>();
    add<Peer>();
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
}

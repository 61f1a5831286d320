// A key press in the Unicode edit control up to the finished repaint, a paste of a mebibyte, and all of it
// deleted again, against QPlainTextEdit with the same text, font and size.
#include "corekit/framework/ui/Wnd.h"
#include "corekit/platform/Gdi.h"
#include "corekit/platform/Toolkit.h"
#include "corekit/unicode/ui/edit/MultilineUnicodeEditCtl.h"
#include "corekit/unicode/ui/UnicodeManager.h"

#include "workload.h"

#include <benchmark/benchmark.h>

#include <QApplication>
#include <QClipboard>
#include <QKeyEvent>
#include <QPlainTextEdit>

#include <cstring>
#include <memory>

namespace {

constexpr int width = 800, height = 600, fontSize = 24;
constexpr std::size_t kib = 1024, mib = 1024 * kib; // in characters
const char* const faces[] = {"Noto Sans", "Noto Sans Hebrew", "Amiri"};

std::u16string mixedText(std::size_t length)
{
    std::u16string text;
    while (text.size() < length)
        for (const std::u16string& line : workload::lines(workload::Script::MixedLtr, 400, 4, 60)) {
            text += line;
            text += u'\n';
        }
    text.resize(length);
    return text;
}

void settle()
{
    QCoreApplication::processEvents();
    QCoreApplication::sendPostedEvents();
}

// As the window system delivers it, and up to the painted picture.
void press(int key, Qt::KeyboardModifiers held = Qt::NoModifier, const QString& text = {})
{
    for (const QEvent::Type type : {QEvent::KeyPress, QEvent::KeyRelease}) {
        QKeyEvent event(type, key, held, text);
        QCoreApplication::sendEvent(QApplication::focusWidget(), &event);
    }
    settle();
}

struct Ours {
    static constexpr const char* name = "corekit";

    Ours()
    {
        CUnicodeManager* const manager = CUnicodeManager::Initialise(1);
        manager->OverrideSettings({.biDi = TRUE});
        CFontDescriptor font;
        font.SetSize(fontSize);
        for (const char* face : faces) font.AddFont(face);
        manager->OverrideControlsFont(font);
        window.CreateEx(0, AfxRegisterWndClass(0), "", WS_OVERLAPPEDWINDOW, 0, 0, width + 50, height + 50,
                        nullptr, nullptr);
        edit.SetInitialHighlightOff();
        edit.Create(&window, 1, CRect(0, 0, width, height));
        window.ShowWindow(SW_SHOW);
        edit.SetFocus();
        settle();
    }
    ~Ours() { window.DestroyWindow(); }
    void set(const std::u16string& text) { edit.SetString(text.c_str()); }
    std::size_t length() { return static_cast<std::size_t>(edit.GetString().GetLength()); }

    CWnd window;
    CMultilineUnicodeEditCtl edit;
};

struct Peer {
    static constexpr const char* name = "qt6_qplaintextedit";

    Peer()
    {
        QFont font;
        font.setFamilies(
            {QString::fromLatin1(faces[0]), QString::fromLatin1(faces[1]), QString::fromLatin1(faces[2])});
        font.setPixelSize(fontSize * 3 / 4); // the same letters
        edit.setFont(font);
        edit.resize(width, height);
        edit.show();
        edit.activateWindow();
        edit.setFocus();
        settle();
    }
    void set(const std::u16string& text) { edit.setPlainText(QString::fromStdU16String(text)); }
    std::size_t length() { return static_cast<std::size_t>(edit.document()->characterCount()) - 1; }

    QPlainTextEdit edit;
};

template <class Edit>
void key(benchmark::State& state, std::size_t length)
{
    Edit edit;
    edit.set(mixedText(length));
    for (int i = 0; i < 8; ++i) press(Qt::Key_Down);
    const std::size_t before = edit.length();
    for (auto _ : state) {
        press(Qt::Key_X, Qt::NoModifier, QStringLiteral("x"));
        press(Qt::Key_Backspace);
    }
    if (edit.length() != before) state.SkipWithError("the keys did not arrive");
    state.SetItemsProcessed(2 * state.iterations());
}

template <class Edit>
void pasteAndDelete(benchmark::State& state)
{
    Edit edit;
    const std::u16string text = mixedText(mib);
    QApplication::clipboard()->setText(QString::fromStdU16String(text));
    for (auto _ : state) {
        press(Qt::Key_V, Qt::ControlModifier);
        if (edit.length() != text.size()) state.SkipWithError("the text did not arrive");
        press(Qt::Key_A, Qt::ControlModifier);
        press(Qt::Key_Delete);
        if (edit.length() != 0) state.SkipWithError("the text did not go");
    }
    state.SetItemsProcessed(state.iterations());
}

template <class Edit>
void add()
{
    const std::string name = Edit::name;
    benchmark::RegisterBenchmark(("edit/key_4_kib/" + name).c_str(), key<Edit>, 4 * kib)->UseRealTime();
    benchmark::RegisterBenchmark(("edit/key_64_kib/" + name).c_str(), key<Edit>, 64 * kib)->UseRealTime();
    benchmark::RegisterBenchmark(("edit/paste_1_mib_and_delete/" + name).c_str(), pasteAndDelete<Edit>)
        ->UseRealTime();
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

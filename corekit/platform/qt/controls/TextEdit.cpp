#include "corekit/platform/qt/controls/TextEdit.h"

#include "corekit/platform/Edits.h"
#include "corekit/platform/qt/windows/ReadableMedia.h"

#include <QAbstractTextDocumentLayout>
#include <QKeyEvent>
#include <QMimeData>
#include <QPlainTextEdit>
#include <QScrollBar>
#include <QTextBlock>
#include <QTextLayout>

#include <algorithm>
#include <climits>
#include <functional>

namespace corekit::detail {

namespace {

constexpr int greatestLimit = INT_MAX;
constexpr int firstLimit = 30000;

class TextFace final : public QPlainTextEdit {
public:
    explicit TextFace(QWidget* parent) : QPlainTextEdit(parent) { setTabChangesFocus(false); }

    // As the user enters it, by whatever way.
    std::function<void(const QString&)> enter;

protected:
    void keyPressEvent(QKeyEvent* event) override
    {
        const QString text = event->text();
        const bool isText = !text.isEmpty() && isEntry(text.at(0).unicode()) &&
                            !(event->modifiers() & (Qt::ControlModifier | Qt::AltModifier));
        if (isText)
            enter(text);
        else
            QPlainTextEdit::keyPressEvent(event);
    }
    bool canInsertFromMimeData(const QMimeData* source) const override { return readable(source)->hasText(); }
    void insertFromMimeData(const QMimeData* source) override
    {
        const QMimeData& media = *readable(source);
        if (media.hasText()) enter(media.text());
    }
};

// The toolkit ends a line with one unit, the documented text with two: a position grows by one with each line
// before it.
class TextEdit final : public Control {
public:
    explicit TextEdit(QWidget* parent) : Control(new TextFace(parent))
    {
        face()->enter = [this](const QString& text) { enter(text); };
        QObject::connect(face(), &QPlainTextEdit::textChanged, life(), [this] { changed(); });
        // The bar is silent when the caret takes the view along.
        QObject::connect(face(), &QPlainTextEdit::updateRequest, life(), [this](const QRect&, int moved) {
            if (moved) tell(EN_VSCROLL);
        });
        QObject::connect(face()->horizontalScrollBar(), &QScrollBar::valueChanged, life(),
                         [this] { tell(EN_HSCROLL); });
    }
    ~TextEdit() override
    {
        if (face()) face()->enter = [](const QString&) {};
    }
    void begin(const CREATESTRUCTA&) override { followStyle(); }
    void styleChanged(DWORD former, DWORD formerEx) override
    {
        Control::styleChanged(former, formerEx);
        followStyle();
    }
    LRESULT defaultProcedure(UINT message, WPARAM wParam, LPARAM lParam) override;
    LRESULT undoing(UINT message, WPARAM wParam, LPARAM lParam);
    QString text() const override
    {
        return face() ? face()->toPlainText().replace(u'\n', QStringLiteral("\r\n")) : QString();
    }
    void setText(const QString& text) override;

protected:
    UINT dialogCode() const override
    {
        return DLGC_HASSETSEL | DLGC_WANTCHARS | DLGC_WANTARROWS | DLGC_WANTALLKEYS;
    }
    void character(char16_t c) override
    {
        if (isEntry(c)) enter(QString(QChar(c)));
    }
    void focusChanged(bool gained) override { tell(gained ? EN_SETFOCUS : EN_KILLFOCUS); }

private:
    TextFace* face() const { return as<TextFace>(); }
    QTextDocument& document() const { return *face()->document(); }
    void followStyle();
    void changed();
    void enter(const QString& text);
    void replaceSelection(const QString& text, bool canUndo);
    LRESULT selection(WPARAM start, LPARAM end) const;
    void select(int start, int end);
    LRESULT places(UINT message, WPARAM wParam, LPARAM lParam);
    LRESULT points(UINT message, WPARAM wParam, LPARAM lParam);
    LRESULT look(UINT message, WPARAM wParam, LPARAM lParam);

    int length() const { return document().characterCount() - 1 + document().blockCount() - 1; }
    // -1, or anything before the text, is its beginning.
    int inDocument(int position) const;
    int inText(int documentPosition) const
    {
        return documentPosition + document().findBlock(documentPosition).blockNumber();
    }

    // A line on show: `start` within its block.
    struct Line {
        QTextBlock block;
        int start = 0, length = 0;
        bool isThere() const { return block.isValid(); }
    };
    int lineCount() const;
    Line lineAt(int number) const;
    int lineOf(int documentPosition) const;
    void layOut(const QTextBlock& block) const { document().documentLayout()->blockBoundingRect(block); }

    int m_limit = firstLimit;
    int m_program = 0;
};

void TextEdit::followStyle()
{
    if (!face()) return;
    const bool wraps = !(style() & (ES_AUTOHSCROLL | WS_HSCROLL));
    face()->setLineWrapMode(wraps ? QPlainTextEdit::WidgetWidth : QPlainTextEdit::NoWrap);
    face()->setVerticalScrollBarPolicy(style() & WS_VSCROLL ? Qt::ScrollBarAsNeeded : Qt::ScrollBarAlwaysOff);
    face()->setHorizontalScrollBarPolicy(style() & WS_HSCROLL ? Qt::ScrollBarAsNeeded
                                                              : Qt::ScrollBarAlwaysOff);
    face()->setReadOnly(style() & ES_READONLY);
    if (style() & ES_READONLY)
        face()->setTextInteractionFlags(Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard);
    else
        face()->setTextInteractionFlags(Qt::TextEditorInteraction);
    face()->setFrameShape(style() & WS_BORDER || exStyle() & WS_EX_CLIENTEDGE ? QFrame::StyledPanel
                                                                              : QFrame::NoFrame);
    QTextOption option = document().defaultTextOption();
    option.setAlignment(style() & ES_CENTER  ? Qt::AlignHCenter
                        : style() & ES_RIGHT ? Qt::AlignRight
                                             : Qt::AlignLeft);
    document().setDefaultTextOption(option);
}

void TextEdit::setText(const QString& text)
{
    if (!face()) return;
    const ByProgram quiet(m_program);
    face()->setPlainText(QString(text).replace(QStringLiteral("\r\n"), QStringLiteral("\n")));
    document().setModified(false);
}

void TextEdit::changed()
{
    if (m_program == 0 && tell(EN_UPDATE)) tell(EN_CHANGE);
}

void TextEdit::enter(const QString& text)
{
    if (face()->isReadOnly()) return;
    QString admitted =
        rulesOf(style()).admitted(QString(text).replace(QStringLiteral("\r\n"), QStringLiteral("\n")));
    const int selected = face()->textCursor().selectionEnd() - face()->textCursor().selectionStart();
    const int room = std::max(0, m_limit - (length() - selected));
    const bool fits = admitted.size() <= room && !admitted.isEmpty();
    admitted.truncate(room);
    if (!admitted.isEmpty()) face()->textCursor().insertText(admitted);
    if (!isAlive()) return;
    face()->ensureCursorVisible();
    if (!fits) tell(EN_MAXTEXT);
}

void TextEdit::replaceSelection(const QString& text, bool canUndo)
{
    face()->textCursor().insertText(QString(text).replace(QStringLiteral("\r\n"), QStringLiteral("\n")));
    if (!isAlive()) return;
    if (!canUndo) document().clearUndoRedoStacks();
    face()->ensureCursorVisible();
}

int TextEdit::inDocument(int position) const
{
    // Each line before takes one off; a step at a time converges from above.
    const int last = document().characterCount() - 1;
    int low = 0, high = last;
    while (low < high) {
        const int middle = low + (high - low + 1) / 2;
        if (inText(middle) <= position)
            low = middle;
        else
            high = middle - 1;
    }
    return low;
}

LRESULT TextEdit::selection(WPARAM start, LPARAM end) const
{
    const QTextCursor cursor = face()->textCursor();
    const int first = inText(cursor.selectionStart()), last = inText(cursor.selectionEnd());
    if (auto* const out = reinterpret_cast<DWORD*>(start)) *out = static_cast<DWORD>(first);
    if (auto* const out = reinterpret_cast<DWORD*>(end)) *out = static_cast<DWORD>(last);
    return last > 0xFFFF ? -1 : inWords(first, last);
}

void TextEdit::select(int start, int end)
{
    QTextCursor cursor = face()->textCursor();
    if (start < 0)
        cursor.clearSelection();
    else {
        cursor.setPosition(inDocument(start));
        cursor.setPosition(inDocument(end < 0 ? INT_MAX : end), QTextCursor::KeepAnchor);
    }
    face()->setTextCursor(cursor);
}

int TextEdit::lineCount() const
{
    int count = 0;
    for (QTextBlock block = document().begin(); block.isValid(); block = block.next()) {
        layOut(block);
        count += std::max(1, block.layout()->lineCount());
    }
    return count;
}

TextEdit::Line TextEdit::lineAt(int number) const
{
    for (QTextBlock block = document().begin(); block.isValid(); block = block.next()) {
        layOut(block);
        const int lines = std::max(1, block.layout()->lineCount());
        if (number >= lines) {
            number -= lines;
            continue;
        }
        if (number >= block.layout()->lineCount()) return {block, 0, 0};
        const QTextLine line = block.layout()->lineAt(number);
        const int visible = std::min(line.textLength(), block.length() - 1 - line.textStart());
        return {block, line.textStart(), visible};
    }
    return {};
}

int TextEdit::lineOf(int documentPosition) const
{
    const QTextBlock wanted = document().findBlock(documentPosition);
    int lines = 0;
    for (QTextBlock block = document().begin(); block.isValid() && block != wanted; block = block.next()) {
        layOut(block);
        lines += std::max(1, block.layout()->lineCount());
    }
    if (!wanted.isValid()) return lines;
    layOut(wanted);
    const QTextLine line = wanted.layout()->lineForTextPosition(documentPosition - wanted.position());
    return lines + (line.isValid() ? line.lineNumber() : 0);
}

LRESULT TextEdit::defaultProcedure(UINT message, WPARAM wParam, LPARAM lParam)
{
    if (!face()) return Control::defaultProcedure(message, wParam, lParam);
    switch (message) {
    case EM_GETSEL:
        return selection(wParam, lParam);
    case EM_SETSEL:
        select(static_cast<int>(wParam), static_cast<int>(lParam));
        return 0;
    case EM_REPLACESEL:
        replaceSelection(textIn(lParam), wParam != 0);
        return 0;
    case EM_GETMODIFY:
        return document().isModified();
    case EM_SETMODIFY:
        document().setModified(wParam != 0);
        return 0;
    case EM_LIMITTEXT:
        m_limit = wParam ? static_cast<int>(std::min<WPARAM>(wParam, greatestLimit)) : greatestLimit;
        return 0;
    case EM_GETLIMITTEXT:
        return m_limit;
    case EM_SETREADONLY:
        SetWindowLongPtrA(handle(), GWL_STYLE, wParam ? style() | ES_READONLY : style() & ~ES_READONLY);
        return 1;
    default:
        return undoing(message, wParam, lParam);
    }
}

LRESULT TextEdit::undoing(UINT message, WPARAM wParam, LPARAM lParam)
{
    switch (message) {
    case EM_CANUNDO:
        return document().isUndoAvailable();
    case EM_UNDO:
    case WM_UNDO:
        face()->undo();
        return 1;
    case EM_EMPTYUNDOBUFFER:
        document().clearUndoRedoStacks();
        return 0;
    case WM_CUT:
        face()->cut();
        return 0;
    case WM_COPY:
        face()->copy();
        return 0;
    case WM_PASTE:
        face()->paste();
        return 0;
    case WM_CLEAR:
        if (!face()->isReadOnly()) face()->textCursor().removeSelectedText();
        return 0;
    default:
        return places(message, wParam, lParam);
    }
}

LRESULT TextEdit::places(UINT message, WPARAM wParam, LPARAM lParam)
{
    const int argument = static_cast<int>(wParam);
    const QTextCursor cursor = face()->textCursor();
    switch (message) {
    case EM_GETLINECOUNT:
        return lineCount();
    case EM_LINEINDEX: {
        const Line line = lineAt(argument < 0 ? lineOf(cursor.position()) : argument);
        return line.isThere() ? inText(line.block.position() + line.start) : -1;
    }
    case EM_LINEFROMCHAR:
        return lineOf(argument < 0 ? cursor.selectionStart() : inDocument(argument));
    case EM_LINELENGTH: {
        if (argument >= 0) return lineAt(lineOf(inDocument(argument))).length;
        const Line first = lineAt(lineOf(cursor.selectionStart())),
                   last = lineAt(lineOf(cursor.selectionEnd()));
        return cursor.selectionStart() - first.block.position() - first.start +
               (last.block.position() + last.start + last.length - cursor.selectionEnd());
    }
    case EM_GETLINE: {
        const Line line = lineAt(argument);
        return line.isThere() ? copyLine(*this, line.block.text().mid(line.start, line.length), lParam) : 0;
    }
    default:
        return points(message, wParam, lParam);
    }
}

LRESULT TextEdit::points(UINT message, WPARAM wParam, LPARAM lParam)
{
    const int argument = static_cast<int>(wParam);
    switch (message) {
    case EM_POSFROMCHAR: {
        if (argument < 0 || argument > length()) return -1;
        QTextCursor at = face()->textCursor();
        at.setPosition(inDocument(argument));
        const QPoint place = face()->viewport()->mapTo(face(), face()->cursorRect(at).topLeft());
        return inWords(place.x(), place.y());
    }
    case EM_CHARFROMPOS: {
        const POINT point = pointIn(lParam);
        const QPoint inView = face()->viewport()->mapFrom(face(), QPoint(point.x, point.y));
        const int position = face()->cursorForPosition(inView).position();
        return inWords(inText(position), lineOf(position));
    }
    default:
        return look(message, wParam, lParam);
    }
}

LRESULT TextEdit::look(UINT message, WPARAM wParam, LPARAM lParam)
{
    switch (message) {
    case EM_GETRECT:
        if (auto* const rect = reinterpret_cast<RECT*>(lParam))
            *rect = documentedRect(face()->viewport()->geometry());
        return 0;
    case EM_GETFIRSTVISIBLELINE:
        return face()->verticalScrollBar()->value();
    case EM_LINESCROLL:
        face()->verticalScrollBar()->setValue(face()->verticalScrollBar()->value() +
                                              static_cast<int>(lParam));
        return 1;
    case EM_SCROLLCARET:
        face()->ensureCursorVisible();
        return 0;
    case EM_SETTABSTOPS: {
        const auto* const quarters = reinterpret_cast<const int*>(lParam);
        const double em = face()->fontMetrics().averageCharWidth();
        face()->setTabStopDistance(wParam == 1 && quarters ? *quarters * em / 4 : 8 * em);
        return 1;
    }
    case EM_SETMARGINS:
    case EM_GETMARGINS:
    case EM_SETPASSWORDCHAR:
    case EM_GETPASSWORDCHAR:
        return 0;
    case EM_SETCUEBANNER:
        face()->setPlaceholderText(textFrom(reinterpret_cast<const WCHAR*>(lParam)));
        return 1;
    default:
        return Control::defaultProcedure(message, wParam, lParam);
    }
}

} // namespace

std::unique_ptr<Window> makeTextEdit(QWidget* parent) { return std::make_unique<TextEdit>(parent); }

} // namespace corekit::detail

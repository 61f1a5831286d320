#include "corekit/platform/qt/controls/LineEdit.h"

#include "corekit/platform/qt/controls/LineMenu.h"
#include "corekit/platform/qt/windows/ReadableMedia.h"

#include <QContextMenuEvent>
#include <QGuiApplication>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QSignalBlocker>

#include <algorithm>

namespace corekit::detail {

namespace {
constexpr int firstLimit = 30000;
}

QString EntryRules::admitted(const QString& text) const
{
    QString folded = text;
    for (QChar& c : folded) {
        if (digitsOnly && !c.isDigit()) return {};
        if (upperCase) c = c.toUpper();
        if (lowerCase) c = c.toLower();
    }
    return folded;
}

// Sees whatever the toolkit lets in: typed, pasted, dropped.
class LineFace::Validator final : public QValidator {
public:
    using QValidator::QValidator;
    State validate(QString& input, int&) const override
    {
        if (isOff || input.isEmpty()) return Acceptable;
        const QString folded = rules.admitted(input);
        if (folded.isEmpty()) return Invalid;
        input = folded;
        return Acceptable;
    }
    EntryRules rules;
    bool isOff = false;
};

LineFace::LineFace(QWidget* parent) : QLineEdit(parent), m_limit(firstLimit), m_validator(new Validator(this))
{
    setMaxLength(m_limit);
    // What a validator folds counts as set by the program, for the toolkit.
    connect(this, &QLineEdit::textEdited, this, [this] { setModified(true); });
}

void LineFace::setRules(const EntryRules& rules)
{
    m_validator->rules = rules;
    const bool any = rules.digitsOnly || rules.upperCase || rules.lowerCase;
    setValidator(any ? m_validator : nullptr);
}

void LineFace::setLimit(int units)
{
    m_limit = units;
    // The toolkit cuts what stands there; we do not.
    setAgain(std::max(m_limit, static_cast<int>(text().size())));
}

void LineFace::setWholeText(const QString& whole)
{
    m_validator->isOff = true;
    if (whole.size() > maxLength()) setMaxLength(static_cast<int>(whole.size()));
    setText(whole);
    if (text().size() <= m_limit && maxLength() != m_limit) setMaxLength(m_limit);
    m_validator->isOff = false;
    setCursorPosition(0);
}

void LineFace::replaceSelection(const QString& with)
{
    const auto whole = text().size() - selectedText().size() + with.size();
    if (whole > maxLength()) setAgain(static_cast<int>(whole));
    m_validator->isOff = true;
    insert(with);
    m_validator->isOff = false;
}

void LineFace::enter(const QString& text)
{
    if (!isReadOnly()) insert(text);
}

void LineFace::forgetUndo() { setAgain(maxLength()); }

// What stands there, with nothing to undo, under a limit of the toolkit's own.
void LineFace::setAgain(int greatest)
{
    const QSignalBlocker quiet(this);
    const int start = selectionStart(), length = selectionLength(), cursor = cursorPosition();
    const bool modified = isModified();
    if (greatest != maxLength()) setMaxLength(greatest);
    setText(text());
    setModified(modified);
    if (start >= 0)
        setSelection(start, length);
    else
        setCursorPosition(cursor);
}

// The toolkit's own paste, where another program has to be asked: it would wait for that for seconds.
void LineFace::pasteFrom(QClipboard::Mode mode)
{
    if (isReadOnly()) return;
    if (mode == QClipboard::Clipboard && !isHeldElsewhere()) return paste();
    const QString text = readableText(mode);
    if (text.isEmpty()) return;
    endStep();
    insert(text);
    endStep();
}

// What comes next is undone by itself: the toolkit parts it where the caret was moved.
void LineFace::endStep()
{
    if (hasSelectedText() || text().isEmpty()) return;
    const QSignalBlocker quiet(this);
    const int cursor = cursorPosition();
    setCursorPosition(cursor > 0 ? cursor - 1 : cursor + 1);
    setCursorPosition(cursor);
}

void LineFace::keyPressEvent(QKeyEvent* event)
{
    if (!event->matches(QKeySequence::Paste)) return QLineEdit::keyPressEvent(event);
    const bool ofSelection = QGuiApplication::clipboard()->supportsSelection() &&
                             event->modifiers() == (Qt::ControlModifier | Qt::ShiftModifier) &&
                             event->key() == Qt::Key_Insert;
    pasteFrom(ofSelection ? QClipboard::Selection : QClipboard::Clipboard);
}

void LineFace::mouseReleaseEvent(QMouseEvent* event)
{
    if (event->button() != Qt::MiddleButton || !isHeldElsewhere(QClipboard::Selection))
        return QLineEdit::mouseReleaseEvent(event);
    deselect();
    pasteFrom(QClipboard::Selection);
}

void LineFace::contextMenuEvent(QContextMenuEvent* event)
{
    showLineMenu(*this, event->globalPos(), [this] { pasteFrom(QClipboard::Clipboard); });
}

QRect LineFace::placeOf(int position)
{
    const QSignalBlocker quiet(this);
    const int start = selectionStart(), length = selectionLength(), cursor = cursorPosition();
    setCursorPosition(position);
    const QRect place = cursorRect();
    if (start >= 0)
        setSelection(cursor == start ? start + length : start, cursor == start ? -length : length);
    else
        setCursorPosition(cursor);
    return place;
}

std::intptr_t lineSelection(const QLineEdit& line, std::uintptr_t start, std::intptr_t end)
{
    const bool any = line.hasSelectedText();
    const int first = any ? line.selectionStart() : line.cursorPosition();
    const int last = any ? line.selectionEnd() : first;
    if (auto* const out = reinterpret_cast<std::uint32_t*>(start)) *out = static_cast<std::uint32_t>(first);
    if (auto* const out = reinterpret_cast<std::uint32_t*>(end)) *out = static_cast<std::uint32_t>(last);
    return last > 0xFFFF ? -1 : std::intptr_t{first} | std::intptr_t{last} << 16;
}

void selectInLine(QLineEdit& line, int start, int end)
{
    const int length = static_cast<int>(line.text().size());
    if (start < 0) return line.deselect();
    start = std::min(start, length);
    end = end < 0 ? length : std::min(end, length);
    if (start == end)
        line.setCursorPosition(start);
    else
        line.setSelection(start, end - start);
}

bool isEntry(char16_t character) { return character >= u' ' && character != 0x7F; }

} // namespace corekit::detail

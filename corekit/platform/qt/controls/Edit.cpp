#include "corekit/platform/Edits.h"

#include "corekit/platform/qt/controls/LineEdit.h"
#include "corekit/platform/qt/controls/Make.h"
#include "corekit/platform/qt/controls/TextEdit.h"
#include "corekit/platform/qt/windows/WideText.h"

#include <QClipboard>
#include <QGuiApplication>

#include <algorithm>
#include <climits>

namespace corekit::detail {

EntryRules rulesOf(DWORD style)
{
    return {(style & ES_NUMBER) != 0, (style & ES_UPPERCASE) != 0, (style & ES_LOWERCASE) != 0};
}

namespace {

constexpr char16_t firstPasswordChar = u'\x25CF';

// One line: positions are the toolkit's own.
class LineEdit final : public Control {
public:
    explicit LineEdit(QWidget* parent) : Control(new LineFace(parent))
    {
        QObject::connect(face(), &QLineEdit::textChanged, life(), [this] { changed(); });
        QObject::connect(face(), &QLineEdit::inputRejected, life(), [this] { tell(EN_MAXTEXT); });
    }
    void begin(const CREATESTRUCTA&) override { followStyle(style()); }
    void styleChanged(DWORD former, DWORD formerEx) override
    {
        Control::styleChanged(former, formerEx);
        followStyle(style() ^ former);
    }
    LRESULT defaultProcedure(UINT message, WPARAM wParam, LPARAM lParam) override;
    LRESULT undoing(UINT message, WPARAM wParam, LPARAM lParam);
    QString text() const override { return face() ? face()->text() : QString(); }
    void setText(const QString& text) override
    {
        if (face()) face()->setWholeText(text);
    }

protected:
    UINT dialogCode() const override { return DLGC_HASSETSEL | DLGC_WANTCHARS | DLGC_WANTARROWS; }
    void character(char16_t c) override
    {
        if (isEntry(c)) face()->enter(QString(QChar(c)));
    }
    void focusChanged(bool gained) override { tell(gained ? EN_SETFOCUS : EN_KILLFOCUS); }

private:
    LineFace* face() const { return as<LineFace>(); }
    void followStyle(DWORD changed);
    void changed();
    void setPasswordChar(char16_t character);
    LRESULT setMargins(WPARAM which, LPARAM widths);
    LRESULT words(UINT message, WPARAM wParam, LPARAM lParam);
    LRESULT look(UINT message, WPARAM wParam, LPARAM lParam);

    char16_t m_passwordChar = 0;
};

void LineEdit::followStyle(DWORD changed)
{
    if (!face()) return;
    face()->setRules(rulesOf(style()));
    face()->setReadOnly(style() & ES_READONLY);
    face()->setAlignment(style() & ES_CENTER  ? Qt::AlignHCenter | Qt::AlignVCenter
                         : style() & ES_RIGHT ? Qt::AlignRight | Qt::AlignVCenter
                                              : Qt::AlignLeft | Qt::AlignVCenter);
    face()->setFrame(style() & WS_BORDER || exStyle() & WS_EX_CLIENTEDGE);
    if (changed & ES_PASSWORD) setPasswordChar(style() & ES_PASSWORD ? firstPasswordChar : u'\0');
}

void LineEdit::changed()
{
    if (tell(EN_UPDATE)) tell(EN_CHANGE);
}

void LineEdit::setPasswordChar(char16_t character)
{
    m_passwordChar = character;
    face()->setEchoMode(character ? QLineEdit::Password : QLineEdit::Normal);
}

LRESULT LineEdit::setMargins(WPARAM which, LPARAM widths)
{
    QMargins margins = face()->textMargins();
    const auto width = [](WORD w) { return w == EC_USEFONTINFO ? 0 : static_cast<int>(w); };
    if (which & EC_LEFTMARGIN) margins.setLeft(width(LOWORD(static_cast<DWORD_PTR>(widths))));
    if (which & EC_RIGHTMARGIN) margins.setRight(width(HIWORD(static_cast<DWORD_PTR>(widths))));
    face()->setTextMargins(margins);
    return 0;
}

LRESULT LineEdit::defaultProcedure(UINT message, WPARAM wParam, LPARAM lParam)
{
    if (!face()) return Control::defaultProcedure(message, wParam, lParam);
    switch (message) {
    case EM_GETSEL:
        return lineSelection(*face(), wParam, lParam);
    case EM_SETSEL:
        selectInLine(*face(), static_cast<int>(wParam), static_cast<int>(lParam));
        return 0;
    case EM_REPLACESEL:
        face()->replaceSelection(textIn(lParam));
        if (!wParam && isAlive()) face()->forgetUndo();
        return 0;
    case EM_GETMODIFY:
        return face()->isModified();
    case EM_SETMODIFY:
        face()->setModified(wParam != 0);
        return 0;
    case EM_LIMITTEXT:
        face()->setLimit(wParam ? static_cast<int>(std::min<WPARAM>(wParam, INT_MAX)) : INT_MAX);
        return 0;
    case EM_GETLIMITTEXT:
        return face()->limit();
    case EM_SETREADONLY:
        SetWindowLongPtrA(handle(), GWL_STYLE, wParam ? style() | ES_READONLY : style() & ~ES_READONLY);
        return 1;
    case EM_SETPASSWORDCHAR:
        setPasswordChar(static_cast<char16_t>(wParam));
        return 1;
    case EM_GETPASSWORDCHAR:
        return m_passwordChar;
    default:
        return undoing(message, wParam, lParam);
    }
}

LRESULT LineEdit::undoing(UINT message, WPARAM wParam, LPARAM lParam)
{
    switch (message) {
    case EM_CANUNDO:
        return face()->isUndoAvailable();
    case EM_UNDO:
    case WM_UNDO:
        face()->undo();
        return 1;
    case EM_EMPTYUNDOBUFFER:
        face()->forgetUndo();
        return 0;
    case WM_CUT:
        if (!face()->isReadOnly()) face()->cut();
        return 0;
    case WM_COPY:
        face()->copy();
        return 0;
    case WM_PASTE:
        face()->pasteFrom(QClipboard::Clipboard);
        return 0;
    case WM_CLEAR:
        if (!face()->isReadOnly() && face()->hasSelectedText()) face()->insert(QString());
        return 0;
    default:
        return words(message, wParam, lParam);
    }
}

// Places and lines, of which there is one.
LRESULT LineEdit::words(UINT message, WPARAM wParam, LPARAM lParam)
{
    const int length = static_cast<int>(face()->text().size());
    switch (message) {
    case EM_GETRECT:
        if (auto* const rect = reinterpret_cast<RECT*>(lParam))
            *rect = documentedRect(face()->contentsRect());
        return 0;
    case EM_GETLINECOUNT:
        return 1;
    case EM_LINEINDEX:
        return static_cast<int>(wParam) <= 0 ? 0 : -1;
    case EM_LINEFROMCHAR:
        return 0;
    case EM_LINELENGTH:
        return static_cast<int>(wParam) < 0 ? length - face()->selectedText().size() : length;
    case EM_GETLINE:
        return wParam == 0 ? copyLine(*this, face()->text(), lParam) : 0;
    case EM_GETFIRSTVISIBLELINE:
        return face()->cursorPositionAt({face()->contentsRect().left(), face()->height() / 2});
    case EM_POSFROMCHAR: {
        if (static_cast<int>(wParam) < 0 || static_cast<int>(wParam) > length) return -1;
        const QRect place = face()->placeOf(static_cast<int>(wParam));
        return inWords(place.center().x(), place.top());
    }
    case EM_CHARFROMPOS: {
        const POINT point = pointIn(lParam);
        return inWords(face()->cursorPositionAt({point.x, point.y}), 0);
    }
    default:
        return look(message, wParam, lParam);
    }
}

LRESULT LineEdit::look(UINT message, WPARAM wParam, LPARAM lParam)
{
    switch (message) {
    case EM_SCROLLCARET:
    case EM_LINESCROLL:
        return 0;
    case EM_SETMARGINS:
        return setMargins(wParam, lParam);
    case EM_GETMARGINS:
        return inWords(face()->textMargins().left(), face()->textMargins().right());
    case EM_SETCUEBANNER:
        face()->setPlaceholderText(textFrom(reinterpret_cast<const WCHAR*>(lParam)));
        return 1;
    default:
        return Control::defaultProcedure(message, wParam, lParam);
    }
}

} // namespace

int copyLine(const Window& control, const QString& line, LPARAM buffer)
{
    auto* const into = reinterpret_cast<char*>(buffer);
    if (!into) return 0;
    WORD size = 0;
    std::memcpy(&size, into, sizeof size);
    if (carriesWideText(control.handle(), buffer)) {
        const auto units = std::min<qsizetype>(line.size(), size);
        std::memcpy(into, line.utf16(), static_cast<std::size_t>(units) * sizeof(WCHAR));
        return static_cast<int>(units);
    }
    std::string narrow = toNarrow(line);
    for (qsizetype units = line.size(); narrow.size() > size; --units)
        narrow = toNarrow(line.left(units - 1));
    std::memcpy(into, narrow.data(), narrow.size());
    return static_cast<int>(narrow.size());
}

std::unique_ptr<Window> makeEdit(const CREATESTRUCTA& create, QWidget* parent)
{
    if (static_cast<DWORD>(create.style) & ES_MULTILINE) return makeTextEdit(parent);
    return std::make_unique<LineEdit>(parent);
}

} // namespace corekit::detail

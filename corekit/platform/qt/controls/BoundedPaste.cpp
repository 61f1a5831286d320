#include "corekit/platform/qt/controls/BoundedPaste.h"

#include "corekit/platform/qt/controls/LineMenu.h"
#include "corekit/platform/qt/windows/ReadableMedia.h"

#include <QContextMenuEvent>
#include <QKeyEvent>
#include <QLineEdit>
#include <QMouseEvent>

namespace corekit::detail {
namespace {

class BoundedPaste final : public QObject {
public:
    explicit BoundedPaste(QLineEdit& line) : QObject(&line), m_line(line) { line.installEventFilter(this); }

    bool eventFilter(QObject*, QEvent* event) override
    {
        switch (event->type()) {
        case QEvent::KeyPress:
            return static_cast<QKeyEvent*>(event)->matches(QKeySequence::Paste) &&
                   paste(QClipboard::Clipboard);
        case QEvent::MouseButtonRelease:
            return static_cast<QMouseEvent*>(event)->button() == Qt::MiddleButton &&
                   paste(QClipboard::Selection);
        case QEvent::ContextMenu:
            showLineMenu(m_line, static_cast<QContextMenuEvent*>(event)->globalPos(), [this] {
                if (!paste(QClipboard::Clipboard)) m_line.paste();
            });
            return true;
        default:
            return false;
        }
    }

private:
    // False where the toolkit has the text at hand.
    bool paste(QClipboard::Mode mode)
    {
        if (!isHeldElsewhere(mode)) return false;
        const QString text = readableText(mode);
        if (!text.isEmpty() && !m_line.isReadOnly()) m_line.insert(text);
        return true;
    }

    QLineEdit& m_line;
};

} // namespace

void boundPastes(const QWidget& dialog)
{
    for (QLineEdit* const line : dialog.findChildren<QLineEdit*>()) new BoundedPaste(*line);
}

} // namespace corekit::detail

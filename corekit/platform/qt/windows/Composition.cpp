#include "corekit/platform/qt/windows/Composition.h"

#include "corekit/platform/qt/windows/WindowState.h"

#include <QLabel>

#include <algorithm>

namespace corekit::detail {

namespace {

constexpr int leastHeight = 8; // pixels

QLabel* makeLabel(QWidget* parent)
{
    auto* const label = new QLabel(parent);
    label->setTextFormat(Qt::PlainText);
    label->setAutoFillBackground(true);
    label->setBackgroundRole(QPalette::Base);
    label->setForegroundRole(QPalette::Text);
    label->setAttribute(Qt::WA_TransparentForMouseEvents);
    label->setFocusPolicy(Qt::NoFocus);
    return label;
}

} // namespace

void showComposition(const Window& window, const QString& text)
{
    static QPointer<QLabel> label; // the widget's
    QWidget* const widget = window.widget();
    if (text.isEmpty() || !widget) {
        if (label) label->hide();
        return;
    }
    if (label && label->parentWidget() != widget) label->deleteLater();
    if (!label || label->parentWidget() != widget) label = makeLabel(widget);
    const QRect caret = caretPlace(window);
    QFont font = widget->font();
    font.setUnderline(true);
    font.setPixelSize(std::max(caret.height() * 3 / 4, leastHeight));
    label->setFont(font);
    label->setText(text);
    label->resize(label->sizeHint().width(), std::max(caret.height(), label->sizeHint().height()));
    const int left = text.isRightToLeft() ? caret.left() - label->width() : caret.left();
    label->move(std::clamp(left, 0, std::max(widget->width() - label->width(), 0)), caret.top());
    label->show();
    label->raise();
}

} // namespace corekit::detail

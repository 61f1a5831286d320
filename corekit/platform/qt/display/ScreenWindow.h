// The full-screen window that shows a surface, and the clock of its screen.
#pragma once

#include <chrono>
#include <QImage>
#include <QPointer>
#include <QScreen>
#include <QWidget>

namespace corekit::detail {

class ScreenWindow final : public QWidget {
public:
    // Comes up on top of whatever fills the screen; an older window of this kind there counts as covered from
    // then on.
    explicit ScreenWindow(QScreen* screen);
    ~ScreenWindow() override;

    // What is shown from the next refresh on: the pixels must stay where they are until the next call.
    void show(const QImage& picture);
    using QWidget::show;
    // Returns at the beginning of the next vertical blank, with what is to be shown on its way to the screen.
    void waitForBlank();
    // False once the screen has gone, or another one covers this.
    bool isOnTop() const;
    // On top again; false if the screen has gone.
    bool raiseAgain();

private:
    void paintEvent(QPaintEvent*) override;

    QPointer<QScreen> m_screen;
    QImage m_picture;
    bool m_isPending = false;
};

// The screen's refresh in force.
std::chrono::nanoseconds refreshPeriod(const QScreen* screen);
void sleepUntilBlank(const QScreen* screen);

} // namespace corekit::detail

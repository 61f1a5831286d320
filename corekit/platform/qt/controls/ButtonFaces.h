// The toolkit's buttons, whose state only their control changes.
#pragma once

#include <QCheckBox>
#include <QGroupBox>
#include <QPushButton>
#include <QRadioButton>

#include <functional>

class QStyleOptionButton;

namespace corekit::detail {

struct ButtonText {
    bool wraps = false;
    int alignment = 0; // Qt::Alignment, 0 the theme's
    bool isPlain() const { return !wraps && alignment == 0; }
};

class PushFace final : public QPushButton {
public:
    explicit PushFace(QWidget* parent);
    ButtonText how;
    std::function<void(QPainter&)> draw; // instead of all that the theme draws

protected:
    void nextCheckState() override {}
    void paintEvent(QPaintEvent* event) override;
};

class CheckFace final : public QCheckBox {
public:
    using QCheckBox::QCheckBox;
    ButtonText how;

protected:
    void nextCheckState() override {}
    void paintEvent(QPaintEvent* event) override;
    bool hitButton(const QPoint& point) const override { return rect().contains(point); }
};

class RadioFace final : public QRadioButton {
public:
    explicit RadioFace(QWidget* parent);
    ButtonText how;

protected:
    void nextCheckState() override {}
    void paintEvent(QPaintEvent* event) override;
    bool hitButton(const QPoint& point) const override { return rect().contains(point); }
};

} // namespace corekit::detail

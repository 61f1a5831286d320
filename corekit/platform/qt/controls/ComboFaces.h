// The two looks of a combo box: the toolkit's, and a field over a list that is always open.
#pragma once

#include "corekit/platform/qt/controls/LineEdit.h"

#include <QComboBox>
#include <QListView>
#include <QPointer>

#include <functional>

namespace corekit::detail {

class DropFace final : public QComboBox {
public:
    explicit DropFace(QWidget* parent);

    std::function<void(QPainter&, const QRect&)> drawField; // instead of the theme's text
    std::function<void()> opening, closed;

    void showPopup() override;
    void hidePopup() override;

protected:
    void paintEvent(QPaintEvent* event) override;
};

class SimpleFace final : public QWidget {
public:
    explicit SimpleFace(QWidget* parent);
    LineFace& line() { return *m_line; }
    QListView& list() { return *m_list; }

private:
    LineFace* m_line;
    QListView* m_list;
};

} // namespace corekit::detail

#include "Parent.h"

#include "corekit/platform/Buttons.h"
#include "corekit/platform/ListViews.h"
#include "corekit/platform/ProgressBars.h"
#include "corekit/platform/Statics.h"
#include "corekit/platform/Tabs.h"
#include "corekit/platform/TreeViews.h"

#include <QAccessible>
#include <QApplication>
#include <QWidget>

namespace {

// The toolkit's control at the place where all of them are put.
QWidget* widgetOfControl()
{
    for (QWidget* const widget : QApplication::allWidgets()) {
        const QWidget* const parent = widget->parentWidget();
        if (parent && parent->isWindow() && widget->isVisible() && widget->pos() == QPoint(10, 10))
            return widget;
    }
    return nullptr;
}

} // namespace

TEST(Controls, AreReadOutWithNameAndRole)
{
    struct Case {
        const char* windowClass;
        DWORD style;
        QAccessible::Role role;
        bool namesItself;
    };
    const Case cases[] = {
        {WC_STATICA, SS_LEFT, QAccessible::StaticText, true},
        {WC_BUTTONA, BS_PUSHBUTTON, QAccessible::Button, true},
        {WC_BUTTONA, BS_AUTOCHECKBOX, QAccessible::CheckBox, true},
        {WC_BUTTONA, BS_AUTORADIOBUTTON, QAccessible::RadioButton, true},
        {WC_BUTTONA, BS_GROUPBOX, QAccessible::Grouping, true},
        {WC_EDITA, 0, QAccessible::EditableText, false},
        {WC_EDITA, 4, QAccessible::EditableText, false},
        {WC_LISTBOXA, 0, QAccessible::List, false},
        {WC_COMBOBOXA, 3, QAccessible::ComboBox, false},
        {WC_SCROLLBARA, 0, QAccessible::ScrollBar, false},
        {PROGRESS_CLASSA, 0, QAccessible::ProgressBar, false},
        {WC_TREEVIEWA, 0, QAccessible::Tree, false},
        {WC_LISTVIEWA, LVS_REPORT, QAccessible::Tree, false},
    };
    for (const Case& c : cases) {
        Parent parent;
        // The text of a bar comes once there is something to say.
        const bool isLate = c.role == QAccessible::ProgressBar;
        HWND label = nullptr;
        if (!c.namesItself)
            label = parent.add(WC_STATICA, isLate ? "" : "&Name:", SS_LEFT, {0, 0, 50, 20}, 1);
        parent.add(c.windowClass, c.namesItself ? "&Name:" : "", c.style);
        if (isLate) SetWindowTextA(label, "&Name:");
        QAccessibleInterface* const described = QAccessible::queryAccessibleInterface(widgetOfControl());
        ASSERT_NE(described, nullptr) << c.windowClass;
        EXPECT_EQ(described->role(), c.role) << c.windowClass << ' ' << c.style;
        EXPECT_EQ(described->text(QAccessible::Name).toStdString(), "Name:")
            << c.windowClass << ' ' << c.style;
    }
}

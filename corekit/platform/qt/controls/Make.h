// The makers of all control classes, which ControlClasses.cpp has in one table.
#pragma once

#include "corekit/platform/qt/controls/Control.h"

namespace corekit::detail {

std::unique_ptr<Window> makeStatic(const CREATESTRUCTA& create, QWidget* parent);
std::unique_ptr<Window> makeButton(const CREATESTRUCTA& create, QWidget* parent);
std::unique_ptr<Window> makeEdit(const CREATESTRUCTA& create, QWidget* parent);
std::unique_ptr<Window> makeListBox(const CREATESTRUCTA& create, QWidget* parent);
std::unique_ptr<Window> makeComboBox(const CREATESTRUCTA& create, QWidget* parent);
std::unique_ptr<Window> makeScrollBar(const CREATESTRUCTA& create, QWidget* parent);
std::unique_ptr<Window> makeProgressBar(const CREATESTRUCTA& create, QWidget* parent);
std::unique_ptr<Window> makeTreeView(const CREATESTRUCTA& create, QWidget* parent);
std::unique_ptr<Window> makeListView(const CREATESTRUCTA& create, QWidget* parent);
std::unique_ptr<Window> makeHeader(const CREATESTRUCTA& create, QWidget* parent);
std::unique_ptr<Window> makeTab(const CREATESTRUCTA& create, QWidget* parent);
std::unique_ptr<Window> makeHotKey(const CREATESTRUCTA& create, QWidget* parent);
std::unique_ptr<Window> makeUpDown(const CREATESTRUCTA& create, QWidget* parent);
std::unique_ptr<Window> makeToolTip(const CREATESTRUCTA& create, QWidget* parent);
std::unique_ptr<Window> makeStatusBar(const CREATESTRUCTA& create, QWidget* parent);

} // namespace corekit::detail

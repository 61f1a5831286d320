#include "corekit/platform/qt/controls/Make.h"

namespace corekit::detail {

namespace {

struct ControlClass {
    const char* name;
    MakeControl make;
};

constexpr ControlClass classes[] = {
    {WC_STATICA, makeStatic},       {WC_BUTTONA, makeButton},       {WC_EDITA, makeEdit},
    {WC_LISTBOXA, makeListBox},     {WC_COMBOBOXA, makeComboBox},   {PROGRESS_CLASSA, makeProgressBar},
    {WC_TREEVIEWA, makeTreeView},   {WC_LISTVIEWA, makeListView},   {WC_HEADERA, makeHeader},
    {WC_TABCONTROLA, makeTab},      {HOTKEY_CLASSA, makeHotKey},    {UPDOWN_CLASSA, makeUpDown},
    {WC_SCROLLBARA, makeScrollBar}, {TOOLTIPS_CLASSA, makeToolTip}, {STATUSCLASSNAMEA, makeStatusBar},
};

const bool registered = [] {
    for (const ControlClass& c : classes) registerControlClass(c.name, c.make);
    return true;
}();

} // namespace

} // namespace corekit::detail

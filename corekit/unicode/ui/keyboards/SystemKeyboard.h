// Keyboards that stand for a layout of the platform: while one is active the platform's own translation
// applies.
#pragma once

#include "corekit/unicode/ui/keyboards/KBLayout.h"

namespace corekit::detail {

// Name, language and code page are those of the layout's language. User-interface thread.
class COREKIT_API PlatformKeyboard : public CKBLayout {
public:
    // Puts the platform on the layout.
    void Activate() override;                                 // if it is there
    void Deactivate() override {}                             // the next keyboard does what is needed
    int TranslateKey(MSG*) override { return 0; }             // all keys are the platform's
    HKL GetLayoutHandle() const override { return m_layout; } // as given to the constructor

protected:
    explicit PlatformKeyboard(HKL layout) : CKBLayout(layout), m_layout(layout) {}

private:
    HKL m_layout; // the platform's; nothing is to be freed
};

} // namespace corekit::detail

// Any layout that has no class of its own below.
class COREKIT_API CSystemKeyboard : public corekit::detail::PlatformKeyboard {
    DECLARE_DYNAMIC(CSystemKeyboard)
    // The layout is one of GetKeyboardLayoutList.
    explicit CSystemKeyboard(HKL layout) : PlatformKeyboard(layout) {}
};

// Brazilian Portuguese, 0x416.
class COREKIT_API KBT_PortugueseExtension : public corekit::detail::PlatformKeyboard {
    DECLARE_DYNAMIC(KBT_PortugueseExtension)
    // As any layout: a class of its own, so that hosts can tell it.
    explicit KBT_PortugueseExtension(HKL layout) : PlatformKeyboard(layout) {}
};

// Thai, 0x41E: Ctrl and the space bar type the control code U+F103 of the text, Shift and the space bar
// U+F105.
class COREKIT_API KBT_ThaiExtension : public corekit::detail::PlatformKeyboard {
    DECLARE_DYNAMIC(KBT_ThaiExtension)
    // The platform's layout, with two keys more.
    explicit KBT_ThaiExtension(HKL layout) : PlatformKeyboard(layout) {}

    // Consumes the space bar with Ctrl or Shift, but not with Alt; Ctrl counts before Shift.
    int TranslateKey(MSG* message) override;
};

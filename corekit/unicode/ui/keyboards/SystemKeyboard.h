// Keyboards that stand for a layout of the platform: while one is active the platform's own translation
// applies.
#pragma once

#include "corekit/unicode/ui/keyboards/KBLayout.h"

namespace corekit::detail {

class COREKIT_API PlatformKeyboard : public CKBLayout {
public:
    // Puts the platform on the layout.
    void Activate() override;
    void Deactivate() override {}
    int TranslateKey(MSG*) override { return 0; }
    HKL GetLayoutHandle() const override { return m_layout; }

protected:
    explicit PlatformKeyboard(HKL layout) : CKBLayout(layout), m_layout(layout) {}

private:
    HKL m_layout;
};

} // namespace corekit::detail

// Any layout that has no class of its own below.
class COREKIT_API CSystemKeyboard : public corekit::detail::PlatformKeyboard {
    DECLARE_DYNAMIC(CSystemKeyboard)
    explicit CSystemKeyboard(HKL layout) : PlatformKeyboard(layout) {}
};

// Brazilian Portuguese, 0x416.
class COREKIT_API KBT_PortugueseExtension : public corekit::detail::PlatformKeyboard {
    DECLARE_DYNAMIC(KBT_PortugueseExtension)
    explicit KBT_PortugueseExtension(HKL layout) : PlatformKeyboard(layout) {}
};

// Thai, 0x41E: Ctrl and the space bar type the control code U+F103 of the text, Shift and the space bar
// U+F105.
class COREKIT_API KBT_ThaiExtension : public corekit::detail::PlatformKeyboard {
    DECLARE_DYNAMIC(KBT_ThaiExtension)
    explicit KBT_ThaiExtension(HKL layout) : PlatformKeyboard(layout) {}

    int TranslateKey(MSG* message) override;
};

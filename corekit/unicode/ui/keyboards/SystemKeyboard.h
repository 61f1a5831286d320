// Keyboards that stand for a layout of the platform: while one is active the platform's own translation
// applies.
#pragma once

#include "corekit/unicode/ui/keyboards/KBLayout.h"

// Any layout that has no class of its own below.
class COREKIT_API CSystemKeyboard : public CKBLayout {
    DECLARE_DYNAMIC(CSystemKeyboard)
    explicit CSystemKeyboard(HKL layout) : CKBLayout(layout), m_layout(layout) {}

    // Puts the platform on the layout.
    void Activate() override;
    void Deactivate() override {}
    int TranslateKey(MSG*) override { return 0; }
    HKL GetLayoutHandle() const override { return m_layout; }

private:
    HKL m_layout;
};

// Brazilian Portuguese, 0x416.
class COREKIT_API KBT_PortugueseExtension : public CSystemKeyboard {
    DECLARE_DYNAMIC(KBT_PortugueseExtension)
    explicit KBT_PortugueseExtension(HKL layout) : CSystemKeyboard(layout) {}
};

// Thai, 0x41E: Ctrl and the space bar type the control code U+F103 of the text, Shift and the space bar U+F105.
class COREKIT_API KBT_ThaiExtension : public CSystemKeyboard {
    DECLARE_DYNAMIC(KBT_ThaiExtension)
    explicit KBT_ThaiExtension(HKL layout) : CSystemKeyboard(layout) {}

    int TranslateKey(MSG* message) override;
};

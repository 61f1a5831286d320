// "Welsh (Internal)": the letters with a circumflex and two with a diaeresis on right Alt, or Ctrl and Alt.
// All else is left to the platform, which is asked to stay on English (U.K.).
#pragma once

#include "corekit/unicode/ui/keyboards/KBLayout.h"

class COREKIT_API KBT_Welsh : public CKBLayout {
    DECLARE_DYNAMIC(KBT_Welsh)
    // Language 515, a private one; code page 1252.
    KBT_Welsh();

    void Activate() override; // puts the platform on English (U.K.)
    void Deactivate() override {}
    // Capitals with Shift, but not while the Caps Lock key is held down.
    int TranslateKey(MSG* message) override;
    HKL GetLayoutHandle() const override { return nullptr; } // it is our own
};

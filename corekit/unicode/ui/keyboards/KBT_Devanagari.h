// Devanagari by the Indian standard, with a memory: after a consonant a vowel key types the vowel's sign, and
// elsewhere the vowel itself.
#pragma once

#include "corekit/unicode/ui/keyboards/KBLayout.h"

// "Devanagari - Std (Internal)" or, with `alternate` not 0, "Devanagari - Alt 1 (Internal)", where Y keeps to
// its two letters and the keys 0xC0 and 0xDE change places.
//
// Whether the last key left a consonant that can take a sign is remembered once for the process, whichever
// of the keyboards was used, and nothing but keys changes it.
class COREKIT_API KBT_Devanagari : public CKBLayout {
    DECLARE_DYNAMIC(KBT_Devanagari)
    explicit KBT_Devanagari(int alternate);

    void Activate() override { ActivateHelper(0); }
    void Deactivate() override {}
    int TranslateKey(MSG* message) override;
    HKL GetLayoutHandle() const override { return nullptr; }

private:
    int m_alternate; // 0 or 1
};

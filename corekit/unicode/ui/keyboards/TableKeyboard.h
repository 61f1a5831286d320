// Keyboards that type what a table says for the key and Shift. Caps Lock does not matter to them.
#pragma once

#include "corekit/unicode/ui/keyboards/KBLayout.h"

namespace corekit::detail {

class KeyTable;

// Which held keys leave a key to the platform. Alt always does.
enum class CtrlRule {
    passes,        // Ctrl, too
    typesWithShift // Ctrl alone; with Shift it types the table's third state
};

class COREKIT_API TableKeyboard : public CKBLayout {
public:
    // The table must outlive the keyboard.
    TableKeyboard(const char* name, WORD locale, int codePage, const KeyTable& table,
                  CtrlRule ctrl = CtrlRule::passes)
        : CKBLayout(name, locale, codePage), m_table(table), m_ctrl(ctrl)
    {
    }

    void Activate() override { ActivateHelper(0); }
    void Deactivate() override {}
    int TranslateKey(MSG* message) override;
    HKL GetLayoutHandle() const override { return nullptr; }

private:
    const KeyTable& m_table;
    CtrlRule m_ctrl;
};

} // namespace corekit::detail

// "Arabic (Internal)": Arabic letters, the digits U+0660 to U+0669, the keypad's too.
class COREKIT_API KBT_Arabic : public corekit::detail::TableKeyboard {
    DECLARE_DYNAMIC(KBT_Arabic)
    KBT_Arabic();
};

// "Assamese": the Bengali block with the Assamese ra and wa.
class COREKIT_API KBT_Assamme : public corekit::detail::TableKeyboard {
    DECLARE_DYNAMIC(KBT_Assamme)
    KBT_Assamme();
};

// "Bengali (Internal)": the typists' layout of Bangladesh, where a link key joins consonants.
class COREKIT_API KBT_Bengali : public corekit::detail::TableKeyboard {
    DECLARE_DYNAMIC(KBT_Bengali)
    KBT_Bengali();
};

// "Bengali Inscript": the Indian standard.
class COREKIT_API KBT_BengaliInscript : public corekit::detail::TableKeyboard {
    DECLARE_DYNAMIC(KBT_BengaliInscript)
    KBT_BengaliInscript();
};

// "Hebrew (Internal)".
class COREKIT_API KBT_Hebrew : public corekit::detail::TableKeyboard {
    DECLARE_DYNAMIC(KBT_Hebrew)
    KBT_Hebrew();
};

// "Persian (Internal)": laid out as the Arabic one, for a British keyboard.
class COREKIT_API KBT_Persian : public corekit::detail::TableKeyboard {
    DECLARE_DYNAMIC(KBT_Persian)
    KBT_Persian();
};

// "Tamil": the Indian standard, with conjuncts on the digit row.
class COREKIT_API KBT_Tamil : public corekit::detail::TableKeyboard {
    DECLARE_DYNAMIC(KBT_Tamil)
    KBT_Tamil();
};

// "Urdu (Internal)": letters by their sound, whole phrases on three keys.
class COREKIT_API KBT_Urdu : public corekit::detail::TableKeyboard {
    DECLARE_DYNAMIC(KBT_Urdu)
    KBT_Urdu();
};

// "Indic Urdu": the private block U+E301 to U+E360, in the order of the keys.
class COREKIT_API KBT_UrduIndian : public corekit::detail::TableKeyboard {
    DECLARE_DYNAMIC(KBT_UrduIndian)
    KBT_UrduIndian();
};

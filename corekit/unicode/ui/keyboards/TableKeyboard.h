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

// All are this library's own: no layout of the platform belongs to them. User-interface thread.
//
// Each character of a cell arrives as a character message of its own, marked final, before TranslateKey
// returns.
class COREKIT_API TableKeyboard : public CKBLayout {
public:
    // The name in lists, the language number, and the code page of characters that are not final, 0 for
    // none. The table must outlive the keyboard.
    TableKeyboard(const char* name, WORD locale, int codePage, const KeyTable& table,
                  CtrlRule ctrl = CtrlRule::passes)
        : CKBLayout(name, locale, codePage), m_table(table), m_ctrl(ctrl)
    {
    }

    void Activate() override { ActivateHelper(0); } // the platform may stay where it is
    void Deactivate() override {}                   // nothing is left behind
    // 1 if the table has the key in this state, whether it types anything or not.
    int TranslateKey(MSG* message) override;
    // Null: the platform has no layout for it.
    HKL GetLayoutHandle() const override { return nullptr; }

private:
    const KeyTable& m_table; // a constant of the layout
    CtrlRule m_ctrl;         // what Ctrl does
};

} // namespace corekit::detail

// "Arabic (Internal)": Arabic letters, the digits U+0660 to U+0669, the keypad's too.
class COREKIT_API KBT_Arabic : public corekit::detail::TableKeyboard {
    DECLARE_DYNAMIC(KBT_Arabic)
    // Language 1025, code page 1256.
    KBT_Arabic();
};

// "Assamese": the Bengali block with the Assamese ra and wa.
class COREKIT_API KBT_Assamme : public corekit::detail::TableKeyboard {
    DECLARE_DYNAMIC(KBT_Assamme)
    // Language 514, a private one.
    KBT_Assamme();
};

// "Bengali (Internal)": the typists' layout of Bangladesh, where a link key joins consonants.
class COREKIT_API KBT_Bengali : public corekit::detail::TableKeyboard {
    DECLARE_DYNAMIC(KBT_Bengali)
    // Language 514, a private one.
    KBT_Bengali();
};

// "Bengali Inscript": the Indian standard.
class COREKIT_API KBT_BengaliInscript : public corekit::detail::TableKeyboard {
    DECLARE_DYNAMIC(KBT_BengaliInscript)
    // Language 514, a private one.
    KBT_BengaliInscript();
};

// "Hebrew (Internal)".
class COREKIT_API KBT_Hebrew : public corekit::detail::TableKeyboard {
    DECLARE_DYNAMIC(KBT_Hebrew)
    // Language 1037.
    KBT_Hebrew();
};

// "Persian (Internal)": laid out as the Arabic one, for a British keyboard.
class COREKIT_API KBT_Persian : public corekit::detail::TableKeyboard {
    DECLARE_DYNAMIC(KBT_Persian)
    // Language 516, a private one.
    KBT_Persian();
};

// "Tamil": the Indian standard, with conjuncts on the digit row.
class COREKIT_API KBT_Tamil : public corekit::detail::TableKeyboard {
    DECLARE_DYNAMIC(KBT_Tamil)
    // Language 517, a private one.
    KBT_Tamil();
};

// "Urdu (Internal)": letters by their sound, whole phrases on three keys.
class COREKIT_API KBT_Urdu : public corekit::detail::TableKeyboard {
    DECLARE_DYNAMIC(KBT_Urdu)
    // Language 1056. Ctrl with Shift types a third character of some keys.
    KBT_Urdu();
};

// "Indic Urdu": the private block U+E301 to U+E360, in the order of the keys.
class COREKIT_API KBT_UrduIndian : public corekit::detail::TableKeyboard {
    DECLARE_DYNAMIC(KBT_UrduIndian)
    // Language 1056. Ctrl with Shift counts as Shift.
    KBT_UrduIndian();
};

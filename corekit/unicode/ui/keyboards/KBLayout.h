// A keyboard: an object that sees each key before the platform does and may type Unicode characters for it,
// so that complex scripts need no keyboard layout of the operating system.
//
// What it types goes to the window of the key message as character messages that are marked final. Which
// keys are held it asks of the platform. Keyboards belong to the user-interface thread, and whoever made
// one owns it: the Unicode manager, for those in its list.
#pragma once

#include "corekit/framework/Object.h"
#include "corekit/framework/String.h"
#include "corekit/platform/Keyboard.h"
#include "corekit/platform/Messages.h"

// In the wParam of a character message: the low 16 bits are Unicode already.
inline constexpr WPARAM finalCharacterMark = 0x80000000;

class COREKIT_API CKBLayout : public CObject {
    DECLARE_DYNAMIC(CKBLayout)
public:
    // Becoming active, and no longer being so. The latter does nothing in any keyboard here.
    virtual void Activate() = 0;
    virtual void Deactivate() = 0;
    // A key-down message. Above 0 if the key is consumed; `message` has then become the last character
    // message sent, if any was. 0 leaves the message to the platform, untouched.
    virtual int TranslateKey(MSG* message) = 0;
    // The platform's layout that this keyboard stands for; null for one of this library's own.
    virtual HKL GetLayoutHandle() const = 0;

    // The name in lists and settings; never changes.
    const CString& GetName() const { return m_name; }
    // A language number; with bit 0x200 a private one, for scripts that the platform has no language for.
    WORD GetLocale() const { return m_locale; }
    // Of character messages that are not final; 0 if none.
    int GetCodePage() const { return m_codePage; }
    // Whether the user wants it among those that switching goes through. At first it is.
    BOOL IsEnabled() const { return m_enabled; }
    void SetEnabled(BOOL enabled) { m_enabled = enabled; }

protected:
    CKBLayout(const char* name, WORD locale, int codePage);
    // Name and code page are those of the layout's language; empty and 0 for an unknown one.
    explicit CKBLayout(HKL layout);

    // Puts the platform on a layout for a keyboard of our own: one of that language if there is one. 0 asks
    // for none in particular.
    static void ActivateHelper(DWORD locale);
    // Turns the message into a final character message and delivers it.
    static void SendCharacter(MSG& message, WCHAR character);

private:
    CString m_name;
    WORD m_locale;
    int m_codePage;
    BOOL m_enabled = TRUE;
};

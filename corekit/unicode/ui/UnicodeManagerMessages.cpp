// The message hook of CUnicodeManager: from keys and bytes to characters that are marked final.
#include "corekit/platform/CodePages.h"
#include "corekit/unicode/ui/keyboards/HeldKeys.h"
#include "corekit/unicode/ui/keyboards/KeyboardRotation.h"
#include "corekit/unicode/ui/UnicodeManager.h"

#include <iterator>

bool CUnicodeManager::TranslateMessageHook(MSG* message)
{
    switch (message ? message->message : 0) {
    case WM_KEYDOWN:
        return TMH_KeyDown(message);
    case WM_CHAR:
        return TMH_Char(message);
    case WM_IME_CHAR:
        return TMH_IMEChar(message);
    default:
        return false;
    }
}

bool CUnicodeManager::TMH_KeyDown(MSG* message)
{
    using corekit::detail::isKeyDown;
    if (isKeyDown(VK_CONTROL) && isKeyDown(VK_MENU)) {
        if (message->wParam == VK_LEFT) return ActivatePrevKeyboard();
        if (message->wParam == VK_RIGHT) return ActivateNextKeyboard();
    }
    CKBLayout* const keyboard = m_keyboards->Active();
    return keyboard && keyboard->TranslateKey(message) > 0;
}

bool CUnicodeManager::TMH_Char(MSG* message)
{
    if (message->wParam & finalCharacterMark) return false;
    const BYTE byte = LOBYTE(message->wParam);
    if (m_pendingLeadByte != 0) {
        const BYTE lead = LOBYTE(m_pendingLeadByte);
        m_pendingLeadByte = 0; // before anyone answers the message
        return SendConverted(*message, lead, byte);
    }
    if (!IsDBCSLeadByteEx(static_cast<UINT>(m_keyboards->CodePage()), byte)) return false;
    m_pendingLeadByte = static_cast<UINT>(message->wParam);
    return true;
}

bool CUnicodeManager::TMH_IMEChar(MSG* message)
{
    return SendConverted(*message, HIBYTE(message->wParam), LOBYTE(message->wParam));
}

// The first of no bytes is 0. What the code page cannot read is lost, as a key that types nothing.
bool CUnicodeManager::SendConverted(MSG& message, BYTE first, BYTE second) const
{
    const char bytes[] = {static_cast<char>(first), static_cast<char>(second)};
    const int skipped = first == 0 ? 1 : 0;
    WCHAR characters[4];
    if (MultiByteToWideChar(static_cast<UINT>(m_keyboards->CodePage()), MB_PRECOMPOSED, bytes + skipped,
                            2 - skipped, characters, static_cast<int>(std::size(characters))) < 1)
        return true;
    message.message = WM_CHAR;
    message.wParam = characters[0] | finalCharacterMark;
    DispatchMessageA(&message);
    return true;
}

WORD CUnicodeManager::ConvertCharMessage(UINT wParam) const
{
    if (wParam & finalCharacterMark) return LOWORD(wParam);
    const char byte = static_cast<char>(wParam & 0xFF);
    WCHAR characters[2] = {static_cast<BYTE>(byte)};
    MultiByteToWideChar(static_cast<UINT>(m_keyboards->CodePage()), MB_PRECOMPOSED, &byte, 1, characters,
                        static_cast<int>(std::size(characters)));
    return characters[0];
}

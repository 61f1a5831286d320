#include "corekit/unicode/ui/keyboards/Typist.h"

#include "corekit/unicode/ui/keyboards/KBLayout.h"

#include <array>
#include <utility>

namespace {

// Keys that are down for as long as this lives.
class HeldKeys {
public:
    explicit HeldKeys(const KeyStroke& stroke)
        : m_keys{stroke.shift ? VK_LSHIFT : none, stroke.ctrl ? VK_LCONTROL : none,
                 stroke.alt ? VK_LMENU : none, stroke.rightAlt ? VK_RMENU : none, stroke.key}
    {
        for (const int key : m_keys) RecordKeyMotion(key, KeyMotion::down);
    }
    ~HeldKeys()
    {
        for (const int key : m_keys) RecordKeyMotion(key, KeyMotion::up);
    }
    HeldKeys(const HeldKeys&) = delete;
    HeldKeys& operator=(const HeldKeys&) = delete;

private:
    static constexpr int none = -1;
    std::array<int, 5> m_keys;
};

} // namespace

Typist::Typist(CKBLayout& keyboard)
    : m_keyboard(keyboard), m_window([this](const MSG& message) -> LRESULT {
          if (message.message == WM_CHAR && message.wParam & finalCharacterMark)
              m_arrived += static_cast<char16_t>(LOWORD(message.wParam));
          return 0;
      })
{
}

Typist::Typed Typist::Press(const KeyStroke& stroke)
{
    constexpr LPARAM once = 1, scanCodePlace = 16;
    const HeldKeys held(stroke);
    MSG message{};
    message.hwnd = m_window.GetSafeHwnd();
    message.message = WM_KEYDOWN;
    message.wParam = static_cast<WPARAM>(stroke.key);
    message.lParam =
        once | static_cast<LPARAM>(MapVirtualKeyA(static_cast<UINT>(stroke.key), MAPVK_VK_TO_VSC))
                   << scanCodePlace;
    m_arrived.clear();
    const bool consumed = m_keyboard.TranslateKey(&message) > 0;
    return {consumed, std::exchange(m_arrived, {})};
}

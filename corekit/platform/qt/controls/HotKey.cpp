#include "corekit/platform/HotKeys.h"

#include "corekit/platform/Edits.h"
#include "corekit/platform/Keyboard.h"
#include "corekit/platform/qt/controls/Make.h"

#include <QLineEdit>

namespace corekit::detail {

namespace {

constexpr char noKey[] = "None";

// Keys that are the dialog's, and those that only change others.
bool isLeftToOthers(WPARAM key, BYTE held)
{
    const bool isAlone = !(held & (HOTKEYF_CONTROL | HOTKEYF_ALT));
    return isAlone && (key == VK_TAB || key == VK_RETURN || key == VK_ESCAPE);
}
bool isModifier(WPARAM key)
{
    return key == VK_SHIFT || key == VK_CONTROL || key == VK_MENU || (key >= VK_LSHIFT && key <= VK_RMENU);
}
bool isExtended(WPARAM key)
{
    return (key >= VK_PRIOR && key <= VK_DOWN) || key == VK_INSERT || key == VK_DELETE;
}

BYTE heldNow()
{
    const auto bit = [](int key, BYTE flag) { return GetKeyState(key) < 0 ? flag : BYTE{0}; };
    return static_cast<BYTE>(bit(VK_SHIFT, HOTKEYF_SHIFT) | bit(VK_CONTROL, HOTKEYF_CONTROL) |
                             bit(VK_MENU, HOTKEYF_ALT));
}

QString nameOf(UINT key, bool extended)
{
    char name[64];
    const LONG place =
        static_cast<LONG>(MapVirtualKeyA(key, MAPVK_VK_TO_VSC) << 16 | (extended ? 1u << 24 : 0));
    return QString::fromLatin1(name, GetKeyNameTextA(place, name, sizeof name));
}

class HotKey final : public Control {
public:
    explicit HotKey(QWidget* parent) : Control(new QLineEdit(parent))
    {
        face()->setReadOnly(true);
        face()->setContextMenuPolicy(Qt::NoContextMenu);
        face()->setAttribute(Qt::WA_InputMethodEnabled, false);
        show();
    }
    LRESULT defaultProcedure(UINT message, WPARAM wParam, LPARAM lParam) override;
    QString text() const override { return face() ? face()->text() : QString(); }
    void setText(const QString&) override {} // the key alone says what it shows

protected:
    UINT dialogCode() const override { return DLGC_WANTARROWS | DLGC_WANTCHARS; }
    LRESULT input(UINT message, WPARAM wParam, LPARAM lParam) override;
    void focusChanged(bool gained) override { tell(gained ? EN_SETFOCUS : EN_KILLFOCUS); }

private:
    QLineEdit* face() const { return as<QLineEdit>(); }
    BYTE allowed(BYTE held) const;
    void take(WPARAM key);
    void show();

    WORD m_key = 0;
    WORD m_refused = 0, m_instead = 0;
};

LRESULT HotKey::defaultProcedure(UINT message, WPARAM wParam, LPARAM lParam)
{
    switch (message) {
    case HKM_SETHOTKEY:
        m_key = static_cast<WORD>(wParam);
        show();
        return 0;
    case HKM_GETHOTKEY:
        return m_key;
    case HKM_SETRULES:
        m_refused = static_cast<WORD>(wParam);
        m_instead = static_cast<WORD>(lParam);
        return 0;
    default:
        return Control::defaultProcedure(message, wParam, lParam);
    }
}

LRESULT HotKey::input(UINT message, WPARAM wParam, LPARAM lParam)
{
    if (message == WM_CHAR || message == WM_SYSCHAR) return 0;
    if ((message != WM_KEYDOWN && message != WM_SYSKEYDOWN) || isLeftToOthers(wParam, heldNow()))
        return Control::input(message, wParam, lParam);
    if (!isModifier(wParam)) take(wParam);
    return 0;
}

BYTE HotKey::allowed(BYTE held) const
{
    constexpr WORD combinations[] = {HKCOMB_NONE, HKCOMB_S,  HKCOMB_C,  HKCOMB_SC,
                                     HKCOMB_A,    HKCOMB_SA, HKCOMB_CA, HKCOMB_SCA};
    const bool isRefused = m_refused & combinations[held & 7];
    return isRefused ? static_cast<BYTE>(held | LOBYTE(m_instead)) : held;
}

void HotKey::take(WPARAM key)
{
    const bool clears = (key == VK_BACK || key == VK_DELETE) && heldNow() == 0;
    const BYTE held = static_cast<BYTE>(allowed(heldNow()) | (isExtended(key) ? HOTKEYF_EXT : 0));
    const WORD pressed = clears ? WORD{0} : MAKEWORD(static_cast<BYTE>(key), held);
    if (std::exchange(m_key, pressed) == pressed) return;
    show();
    tell(EN_CHANGE);
}

void HotKey::show()
{
    if (!face()) return;
    const BYTE held = HIBYTE(m_key);
    QString text;
    if (held & HOTKEYF_SHIFT) text += QStringLiteral("Shift + ");
    if (held & HOTKEYF_CONTROL) text += QStringLiteral("Ctrl + ");
    if (held & HOTKEYF_ALT) text += QStringLiteral("Alt + ");
    text += LOBYTE(m_key) ? nameOf(LOBYTE(m_key), held & HOTKEYF_EXT) : QString::fromLatin1(noKey);
    face()->setText(text);
    face()->setCursorPosition(0);
}

} // namespace

std::unique_ptr<Window> makeHotKey(const CREATESTRUCTA&, QWidget* parent)
{
    return std::make_unique<HotKey>(parent);
}

} // namespace corekit::detail

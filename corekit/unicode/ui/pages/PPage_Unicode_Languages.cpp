#include "corekit/unicode/ui/pages/PPage_Unicode_Languages.h"

#include "corekit/platform/ComboBoxes.h"
#include "corekit/platform/ListBoxes.h"
#include "corekit/resources/dialogs/UnicodePages.h"
#include "corekit/resources/Messages.h"
#include "corekit/stores/RegistryKey.h"
#include "corekit/unicode/ui/keyboards/KBLayout.h"
#include "corekit/unicode/ui/UnicodeManager.h"

IMPLEMENT_DYNAMIC(PPage_Unicode_Languages, CAXPropertyPage)

namespace {

constexpr int keyboardsControl = 1009, defaultControl = 1013;
constexpr const char* keyName = "Software\\Corvane\\Unicode Support";
constexpr const char* defaultLocaleName = "Default Locale";

// Keyboards can be tried for as long as this lives; the present one comes back.
class KeyboardTrial {
public:
    explicit KeyboardTrial(CUnicodeManager& manager)
        : m_manager(manager), m_switching(manager.IsKeyboardSwitchingEnabled()),
          m_locale(manager.GetCurrentKeyboardLocale())
    {
        manager.EnableKeyboardSwitching(TRUE);
    }
    KeyboardTrial(const KeyboardTrial&) = delete;
    KeyboardTrial& operator=(const KeyboardTrial&) = delete;
    ~KeyboardTrial()
    {
        m_manager.SetKeyboardFromLocale(m_locale, FALSE);
        m_manager.EnableKeyboardSwitching(m_switching);
    }

private:
    CUnicodeManager& m_manager;
    BOOL m_switching;
    WORD m_locale;
};

// The keyboard that a program begins with: the active one while no language is set, or none serves it.
CString defaultKeyboardName(CUnicodeManager& manager)
{
    CRegistryKey key;
    key.Create(HKEY_LOCAL_MACHINE, keyName);
    DWORD locale = 0;
    if (!key.GetValue(defaultLocaleName, locale)) return manager.GetActiveKeyboardName();
    const KeyboardTrial trial(manager);
    manager.SetKeyboardFromLocale(LOWORD(locale), FALSE);
    return manager.GetActiveKeyboardName();
}

LPARAM asParameter(const CString& text) { return reinterpret_cast<LPARAM>(static_cast<const char*>(text)); }

} // namespace

BEGIN_MESSAGE_MAP(PPage_Unicode_Languages, CAXPropertyPage)
ON_CONTROL(CLBN_CHKCHANGE, keyboardsControl, &PPage_Unicode_Languages::OnCheck)
ON_CBN_SELCHANGE(defaultControl, &PPage_Unicode_Languages::OnDefault)
END_MESSAGE_MAP()

PPage_Unicode_Languages::PPage_Unicode_Languages()
    : CAXPropertyPage(corekit::detail::dialogs::unicodeLanguages.id)
{
}

void PPage_Unicode_Languages::LoadPage()
{
    CUnicodeManager& manager = *CUnicodeManager::GetObjectA();
    for (int k = 0; k < manager.GetKeyboardCount(); ++k) {
        const CKBLayout& keyboard = *manager.GetKeyboard(k);
        const LRESULT row =
            SendDlgItemMessage(keyboardsControl, LB_ADDSTRING, 0, asParameter(keyboard.GetName()));
        SendDlgItemMessage(keyboardsControl, CLB_SETCHECK, static_cast<WPARAM>(row),
                           keyboard.IsEnabled() != 0);
    }
    FillDefaults(defaultKeyboardName(manager));
}

bool PPage_Unicode_Languages::IsChecked(int row) const
{
    return SendDlgItemMessage(keyboardsControl, CLB_GETCHECK, static_cast<WPARAM>(row)) != 0;
}

CString PPage_Unicode_Languages::SelectedDefault() const
{
    CString name;
    if (SendDlgItemMessage(defaultControl, CB_GETCURSEL) >= 0) GetDlgItemText(defaultControl, name);
    return name;
}

// All checked keyboards; where the one asked for is not among them, the first is selected.
void PPage_Unicode_Languages::FillDefaults(const CString& selected)
{
    const CUnicodeManager& manager = *CUnicodeManager::GetObjectA();
    SendDlgItemMessage(defaultControl, CB_RESETCONTENT);
    for (int k = 0; k < manager.GetKeyboardCount(); ++k)
        if (IsChecked(k))
            SendDlgItemMessage(defaultControl, CB_ADDSTRING, 0,
                               asParameter(manager.GetKeyboard(k)->GetName()));
    const LRESULT row = SendDlgItemMessage(defaultControl, CB_FINDSTRINGEXACT, static_cast<WPARAM>(-1),
                                           asParameter(selected));
    SendDlgItemMessage(defaultControl, CB_SETCURSEL, row >= 0 ? static_cast<WPARAM>(row) : 0);
}

void PPage_Unicode_Languages::OnCheck()
{
    FillDefaults(SelectedDefault());
    SetModified(1);
}

int PPage_Unicode_Languages::CommitPage()
{
    CUnicodeManager& manager = *CUnicodeManager::GetObjectA();
    bool isAnyChecked = false;
    for (int k = 0; k < manager.GetKeyboardCount(); ++k) isAnyChecked |= IsChecked(k);
    if (!isAnyChecked) {
        StockMessageBox(this, message::noKeyboardEnabled, MB_ICONSTOP);
        return 0;
    }
    for (int k = 0; k < manager.GetKeyboardCount(); ++k) manager.GetKeyboard(k)->SetEnabled(IsChecked(k));
    manager.SaveEnabledKeyboardsConfig();
    if (const CString name = SelectedDefault(); !name.IsEmpty()) SaveDefault(name);
    return 1;
}

void PPage_Unicode_Languages::SaveDefault(const CString& name)
{
    CUnicodeManager& manager = *CUnicodeManager::GetObjectA();
    WORD locale = 0;
    {
        const KeyboardTrial trial(manager);
        for (int k = 0; k < manager.GetKeyboardCount(); ++k) {
            if (manager.GetKeyboard(k)->GetName() != name) continue;
            manager.ActivateKeyboard(k, FALSE);
            manager.SetDefaultKeyboard(manager.GetKeyboard(k)->GetLocale());
        }
        locale = manager.GetCurrentKeyboardLocale();
    }
    CRegistryKey key;
    key.Create(HKEY_LOCAL_MACHINE, keyName);
    key.SetValue(defaultLocaleName, static_cast<DWORD>(locale));
}

// Which of the keyboards is active, and the ways from one to another.
#pragma once

#include "corekit/unicode/ui/keyboards/KeyboardList.h"

class CRegistryKey;

namespace corekit::detail {

// User-interface thread.
class KeyboardRotation {
public:
    // Makes the keyboards; active is that of the platform's layout in force.
    void Start();

    int Count() const { return static_cast<int>(m_keyboards.size()); }
    CKBLayout* At(int index) const; // null outside the list
    CKBLayout* Active() const { return At(m_active); }
    int ActiveIndex() const { return m_active; }
    int CodePage() const { return m_codePage; } // of the active one
    int IndexOf(HKL layout) const;              // -1 if no keyboard stands for it

    // While switching is off, at first, Activate, ActivateLanguage and Step answer true and change nothing.
    void EnableSwitching(BOOL enabled) { m_switching = enabled; }
    BOOL IsSwitchingEnabled() const { return m_switching; }

    // False if the keyboard is not enabled or there is none.
    bool Activate(int index);
    int Default() const { return m_default; }
    // To the next enabled one, or the previous, round the end; true also if there is no other.
    bool StepForward() { return Step(1); }
    bool StepBack() { return Step(Count() - 1); }
    // The first enabled keyboard of the language, else of one of its varieties; -1 if there is none.
    int Find(WORD locale) const;
    // The first enabled keyboard of the language or a variety becomes the default; without one there is none.
    void SetDefault(DWORD locale);
    // Lets go of the active keyboard and takes hold of another and its code page. False if there is none.
    bool HandOver(int index);
    // The user has put a layout of the platform in force: its keyboard is the active one from now on.
    void Follow(HKL layout);

    // Which keyboards are enabled, by their names, and of `support` which language to begin with. A keyboard
    // that is not named stays as it is.
    void Load(const CRegistryKey& support);
    // In place of all that stood there. Throws CChainedException message::createKeyFailed or
    // message::setValueFailed.
    void SaveEnabled() const;

private:
    bool SwitchTo(int index);
    bool Step(int step);
    void LoadEnabled();

    KeyboardList m_keyboards;
    int m_default = 0;
    int m_active = 0;
    int m_codePage = 0;
    BOOL m_switching = FALSE;
    bool m_isHandingOver = false;
};

} // namespace corekit::detail

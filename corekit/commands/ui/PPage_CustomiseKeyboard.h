// The page on which a user gives commands other keys. Nothing counts before OK: the page works on a copy of
// the user's keys, and committing gives it to the command list, which must outlive the page.
//
// The user picks a location, which is a key table, then a category and a command, sees the command's keys,
// presses a new one, and sees who holds it already. User-interface thread.
#pragma once

#include "corekit/commands/KeyAssignments.h"
#include "corekit/commands/ui/AXPropertyPage.h"
#include "corekit/commands/ui/CommandList.h"

class COREKIT_API PPage_CustomiseKeyboard : public CAXPropertyPage {
    DECLARE_DYNAMIC(PPage_CustomiseKeyboard)
public:
    // The location is the name of a registered key table. The page begins with the first of its list all
    // the same.
    PPage_CustomiseKeyboard(CCommandList& commands, const CString& location);

    void LoadPage() override; // lists the locations
    // Gives the keys to the command list; tables that were built are not built anew by this. Always 1.
    int CommitPage() override;

    void UpdateControls() override; // what can be pressed, and who holds the key

protected:
    // Each choice fills what depends on it: location, category, command, its keys.
    void OnSelectLocation();
    void OnSelectCategory();
    void OnSelectCommand();
    void OnSelectKey() { UpdateControls(); }
    void OnHotKey() { UpdateControls(); } // the user has pressed another key
    void OnAssign();                      // the pressed key becomes the command's newest
    void OnRemove();                      // the key selected in the list
    void OnResetAll();                    // all default keys count again, in all tables
    void OnClearKey();                    // forgets the pressed key
    DECLARE_MESSAGE_MAP()

private:
    std::span<const ACCEL> Defaults() const;
    UINT Command() const;              // the one selected; 0 for none
    bool ReadHotKey(ACCEL& key) const; // false for none
    // The list of the command's keys, and the line about who holds the pressed one.
    void ShowKeys();
    void ShowHolder();

    CCommandList& m_list;
    CString m_location;
    UINT m_table = 0; // of the location
    // The location's default keys, and those that count wherever the user is.
    CCommandList::AccelArray m_defaults, m_everywhere;
    std::vector<CCmdItem> m_commands;       // of the default table
    corekit::detail::KeyAssignments m_keys; // the copy that is worked on
};

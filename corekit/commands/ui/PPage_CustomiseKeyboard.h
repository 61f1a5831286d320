// The page on which a user gives commands other keys. Nothing counts before OK.
#pragma once

#include "corekit/commands/KeyAssignments.h"
#include "corekit/commands/ui/AXPropertyPage.h"
#include "corekit/commands/ui/CommandList.h"

class COREKIT_API PPage_CustomiseKeyboard : public CAXPropertyPage {
    DECLARE_DYNAMIC(PPage_CustomiseKeyboard)
public:
    // The location is the name of a registered key table.
    PPage_CustomiseKeyboard(CCommandList& commands, const CString& location);

    void LoadPage() override;
    int CommitPage() override;
    void UpdateControls() override;

protected:
    void OnSelectLocation();
    void OnSelectCategory();
    void OnSelectCommand();
    void OnSelectKey() { UpdateControls(); }
    void OnHotKey() { UpdateControls(); }
    void OnAssign();
    void OnRemove();
    void OnResetAll();
    void OnClearKey();
    DECLARE_MESSAGE_MAP()

private:
    std::span<const ACCEL> Defaults() const;
    UINT Command() const;
    bool ReadHotKey(ACCEL& key) const; // false for none
    void ShowKeys();
    void ShowHolder();

    CCommandList& m_list;
    CString m_location;
    UINT m_table = 0;
    CCommandList::AccelArray m_defaults, m_everywhere;
    std::vector<CCmdItem> m_commands; // of the default table
    corekit::detail::KeyAssignments m_keys;
};

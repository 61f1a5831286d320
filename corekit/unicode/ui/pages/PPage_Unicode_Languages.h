// Which keyboards switching goes through, and which one a program begins with. The page works on
// CUnicodeManager, which must be initialised. User-interface thread.
#pragma once

#include "corekit/commands/ui/AXPropertyPage.h"

class COREKIT_API PPage_Unicode_Languages : public CAXPropertyPage {
    DECLARE_DYNAMIC(PPage_Unicode_Languages)
public:
    // Made with new for a sheet that deletes its pages.
    PPage_Unicode_Languages();

    void LoadPage() override; // all keyboards, and the default one
    // Enables the keyboards that are checked and stores them and the default one; 0, with a message, if
    // none is.
    int CommitPage() override;

    void UpdateControls() override {}

protected:
    void OnCheck(); // the default can only be one that is checked
    void OnDefault() { SetModified(1); }
    DECLARE_MESSAGE_MAP()

private:
    // All checked keyboards; the one named is selected, else the first.
    void FillDefaults(const CString& selected);
    CString SelectedDefault() const;       // empty for none
    bool IsChecked(int row) const;         // rows are the manager's indexes
    void SaveDefault(const CString& name); // its language, in the registry
};

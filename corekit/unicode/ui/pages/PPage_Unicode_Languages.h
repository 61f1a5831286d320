// Which keyboards switching goes through, and which one a program begins with.
#pragma once

#include "corekit/commands/ui/AXPropertyPage.h"

class COREKIT_API PPage_Unicode_Languages : public CAXPropertyPage {
    DECLARE_DYNAMIC(PPage_Unicode_Languages)
public:
    PPage_Unicode_Languages();

    void LoadPage() override;
    int CommitPage() override;
    void UpdateControls() override {}

protected:
    void OnCheck();
    void OnDefault() { SetModified(1); }
    DECLARE_MESSAGE_MAP()

private:
    void FillDefaults(const CString& selected);
    CString SelectedDefault() const;
    bool IsChecked(int row) const;
    void SaveDefault(const CString& name);
};

// The page on which the user says in which code page a text is.
#pragma once

#include "corekit/commands/ui/AXPropertyPage.h"

class COREKIT_API PPage_CodePage : public CAXPropertyPage {
    DECLARE_DYNAMIC(PPage_CodePage)
public:
    // The number outlives the page; it is changed when the page is applied.
    explicit PPage_CodePage(int* codePage);

    void LoadPage() override;
    int CommitPage() override;
    void UpdateControls() override {}

protected:
    void OnSelection() { SetModified(1); }
    DECLARE_MESSAGE_MAP()

private:
    static int TakeCodePage(char* number);
    void Add(int codePage, const CString& name);

    int* m_codePage;
};

// Adds a page made with new. The help number is not used.
COREKIT_API void AddCodePagePropertyPage(CPropertySheet& sheet, int* codePage, UINT helpId);

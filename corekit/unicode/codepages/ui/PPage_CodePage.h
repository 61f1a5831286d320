// The page on which the user says in which code page a text is: a list of the pages that the machine has,
// by name, and this library's own. User-interface thread.
#pragma once

#include "corekit/commands/ui/AXPropertyPage.h"

class COREKIT_API PPage_CodePage : public CAXPropertyPage {
    DECLARE_DYNAMIC(PPage_CodePage)
public:
    // The number outlives the page; it is changed when the page is applied. One that no row has selects the
    // active code page.
    explicit PPage_CodePage(int* codePage);

    // Fills the list and selects the number's row.
    void LoadPage() override;

    int CommitPage() override; // stores the number of the row selected, if there is one; always 1
    void UpdateControls() override {}

protected:
    void OnSelection() { SetModified(1); }
    DECLARE_MESSAGE_MAP()

private:
    // For the system's enumeration: adds a page of the machine to the list that is being filled.
    static int TakeCodePage(char* number);
    void Add(int codePage, const CString& name); // a row

    int* m_codePage; // the caller's
};

// Adds a page made with new. The help number is not used.
COREKIT_API void AddCodePagePropertyPage(CPropertySheet& sheet, int* codePage, UINT helpId);

// The settings of one category without children, as a plain sheet. It owns the pages that the category
// adds. User-interface thread. COptionsCategory::ShowOptionsDialog makes it where it is called for.
#pragma once

#include "corekit/commands/ui/AXPropertySheet.h"

class COptionsCategory;

class COREKIT_API CSoloCategoryPropSheet : public CAXPropertySheet {
    DECLARE_DYNAMIC(CSoloCategoryPropSheet)
public:
    // The category must outlive the sheet. The caption is a number in the string table.
    CSoloCategoryPropSheet(UINT captionId, CWnd* parent, COptionsCategory& category);

    // Lets the category add its pages, and shows the first.
    BOOL OnInitDialog() override;

protected:
    // Saves if something has changed, else lets the category drop what it holds; a page or category that
    // refuses keeps the sheet open.
    void OnOK();
    // Lets the category drop what it holds.
    void OnCancel();
    DECLARE_MESSAGE_MAP()

private:
    COptionsCategory* m_category; // not owned
};

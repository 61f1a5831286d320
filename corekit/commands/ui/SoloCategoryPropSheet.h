// The settings of one category without children, as a plain sheet.
#pragma once

#include "corekit/commands/ui/AXPropertySheet.h"

class COptionsCategory;

class COREKIT_API CSoloCategoryPropSheet : public CAXPropertySheet {
    DECLARE_DYNAMIC(CSoloCategoryPropSheet)
public:
    CSoloCategoryPropSheet(UINT captionId, CWnd* parent, COptionsCategory& category);

    BOOL OnInitDialog() override;

protected:
    void OnOK();
    void OnCancel();
    DECLARE_MESSAGE_MAP()

private:
    COptionsCategory* m_category;
};

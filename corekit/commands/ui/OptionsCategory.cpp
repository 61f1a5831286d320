#include "corekit/commands/ui/OptionsCategory.h"

#include "corekit/commands/ui/OptionsPropertySheet.h"
#include "corekit/commands/ui/PPage_OptionsMgrBlank.h"
#include "corekit/commands/ui/SoloCategoryPropSheet.h"

IMPLEMENT_DYNAMIC(COptionsCategory, CObject)
IMPLEMENT_DYNAMIC(CSimpleOptionsCategory, COptionsCategory)

COptionsCategory::~COptionsCategory()
{
    for (int k = 0; k < m_children.GetSize(); ++k) delete m_children[k];
}

void COptionsCategory::AddChild(COptionsCategory* child)
{
    m_children.Add(child);
    child->m_parent = this;
}

int COptionsCategory::ShowOptionsDialog(UINT captionId, CWnd* parent, CLogTarget* log)
{
    if (!HasChildren()) return DoSoloCategory(captionId, parent);
    COptionsPropertySheet sheet(captionId, parent, *this, log);
    sheet.SetAutoDeleteMode(1);
    sheet.AddPage(new PPage_OptionsMgrBlank); // a sheet needs a page until a category is picked
    return sheet.DoModal() == IDOK;
}

int COptionsCategory::DoSoloCategory(UINT captionId, CWnd* parent)
{
    if (!CheckSelectOK(parent)) return 0;
    CSoloCategoryPropSheet sheet(captionId, parent, *this);
    return sheet.DoModal() == IDOK;
}

CSimpleOptionsCategory::CSimpleOptionsCategory(UINT titleStringId, int hideIfRoot) : m_hideIfRoot(hideIfRoot)
{
    m_title.LoadString(titleStringId);
}

void CSimpleOptionsCategory::PreparePages(CWnd*, CAXPropertySheet& sheet) { AddBlankPage(sheet); }

void CSimpleOptionsCategory::AddBlankPage(CAXPropertySheet& sheet)
{
    sheet.AddPage(new PPage_OptionsMgrBlank);
}

#include "corekit/commands/ui/OptionsCategory.h"

#include "corekit/commands/ui/AXPropertySheet.h"
#include "corekit/commands/ui/PPage_OptionsMgrBlank.h"

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

CSimpleOptionsCategory::CSimpleOptionsCategory(UINT titleStringId, int hideIfRoot) : m_hideIfRoot(hideIfRoot)
{
    m_title.LoadString(titleStringId);
}

void CSimpleOptionsCategory::PreparePages(CWnd*, CAXPropertySheet& sheet) { AddBlankPage(sheet); }

void CSimpleOptionsCategory::AddBlankPage(CAXPropertySheet& sheet)
{
    sheet.AddPage(new PPage_OptionsMgrBlank);
}

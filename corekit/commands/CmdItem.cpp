#include "corekit/commands/CmdItem.h"

CString CCmdItem::GetCatagory() const
{
    const int end = m_strCategory.Find('!');
    return end < 0 ? CString() : m_strCategory.Left(end);
}

CString CCmdItem::GetDescription() const
{
    CString text;
    text.LoadString(m_nCommand);
    const int end = text.Find('\n');
    return end < 0 ? text : text.Left(end);
}

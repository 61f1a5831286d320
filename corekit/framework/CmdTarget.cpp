#include "corekit/framework/CmdTarget.h"

IMPLEMENT_DYNAMIC(CCmdTarget, CObject)

static constexpr AFX_MSGMAP_ENTRY noEntries[] = {{0, 0, 0, 0, 0, nullptr}};
constinit const AFX_MSGMAP CCmdTarget::messageMap = {nullptr, noEntries};

const AFX_MSGMAP* CCmdTarget::GetMessageMap() const { return &messageMap; }

const AFX_MSGMAP_ENTRY* CCmdTarget::FindMessageEntry(UINT message, UINT code, UINT id) const
{
    for (const AFX_MSGMAP* map = GetMessageMap(); map;
         map = map->pfnGetBaseMap ? map->pfnGetBaseMap() : nullptr)
        for (const AFX_MSGMAP_ENTRY* entry = map->lpEntries; entry->pfn; ++entry)
            if (entry->nMessage == message && entry->nCode == code && id >= entry->nID &&
                id <= entry->nLastID)
                return entry;
    return nullptr;
}

#include "corekit/framework/CmdTarget.h"

#include "corekit/framework/UpdateDispatch.h"
#include "corekit/platform/WindowMessages.h"

IMPLEMENT_DYNAMIC(CCmdTarget, CObject)

namespace {

constinit corekit::UpdateDispatch updateDispatch = nullptr;

// What a handler is called with.
struct Command {
    UINT id;
    void* extra;

    CCmdUI* ui() const { return static_cast<CCmdUI*>(extra); }
    AFX_NOTIFY* notify() const { return static_cast<AFX_NOTIFY*>(extra); }
};

template <class Method, class... Arguments>
auto call(CCmdTarget* target, AFX_PMSG method, Arguments... arguments)
{
    return (target->*std::bit_cast<Method>(method))(arguments...);
}

// Whether the command is done with.
BOOL dispatchTo(CCmdTarget* target, const AFX_MSGMAP_ENTRY& entry, const Command& command)
{
    using T = CCmdTarget;
    switch (entry.nSig) {
    case AfxSigCmd_b:
        return call<BOOL (T::*)()>(target, entry.pfn);
    case AfxSigCmd_id:
        call<void (T::*)(UINT)>(target, entry.pfn, command.id);
        return TRUE;
    case AfxSigCmd_idEx:
        return call<BOOL (T::*)(UINT)>(target, entry.pfn, command.id);
    case AfxSigCmd_ui:
        return updateDispatch && updateDispatch(target, entry.pfn, command.ui());
    case AfxSigCmd_notify:
        call<void (T::*)(NMHDR*, LRESULT*)>(target, entry.pfn, command.notify()->pNMHDR,
                                            command.notify()->pResult);
        return TRUE;
    case AfxSigCmd_notifyId:
        call<void (T::*)(UINT, NMHDR*, LRESULT*)>(target, entry.pfn, command.id, command.notify()->pNMHDR,
                                                  command.notify()->pResult);
        return TRUE;
    case AfxSigCmd_notifyBool:
        return call<BOOL (T::*)(NMHDR*, LRESULT*)>(target, entry.pfn, command.notify()->pNMHDR,
                                                   command.notify()->pResult);
    case AfxSigCmd_notifyEx:
        return call<BOOL (T::*)(UINT, NMHDR*, LRESULT*)>(target, entry.pfn, command.id,
                                                         command.notify()->pNMHDR, command.notify()->pResult);
    default:
        (target->*entry.pfn)();
        return TRUE;
    }
}

} // namespace

const AFX_MSGMAP* CCmdTarget::GetThisMessageMap()
{
    static constexpr AFX_MSGMAP_ENTRY noEntries[] = {{0, 0, 0, 0, 0, nullptr}};
    static constexpr AFX_MSGMAP map = {nullptr, noEntries};
    return &map;
}

const AFX_MSGMAP* CCmdTarget::GetMessageMap() const { return GetThisMessageMap(); }

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

BOOL CCmdTarget::OnCmdMsg(UINT id, int code, void* extra, AFX_CMDHANDLERINFO* info)
{
    // A notification's code shares its number with the message that it comes in.
    const bool plain = code == static_cast<int>(CN_UPDATE_COMMAND_UI) || code == static_cast<int>(CN_EVENT);
    const UINT message =
        plain || !HIWORD(static_cast<UINT>(code)) ? WM_COMMAND : HIWORD(static_cast<UINT>(code));
    const UINT number = plain ? static_cast<UINT>(code) : LOWORD(static_cast<UINT>(code));
    // The state of a control's own item, reflected to it.
    const bool isReflected = number == LOWORD(CN_UPDATE_COMMAND_UI) && message != WM_NOTIFY;
    const AFX_MSGMAP_ENTRY* const entry =
        FindMessageEntry(message, isReflected ? CN_UPDATE_COMMAND_UI : number, id);
    if (!entry) return FALSE;
    if (info) {
        *info = {this, entry->pfn};
        return TRUE;
    }
    return dispatchTo(this, *entry, {id, extra});
}

void corekit::setUpdateDispatch(UpdateDispatch dispatch) { updateDispatch = dispatch; }

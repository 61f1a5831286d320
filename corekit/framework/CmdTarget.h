// Objects that take commands and messages by a table.
#pragma once

#include "corekit/framework/Object.h"

#include <bit>

class CCmdTarget;
class CCmdUI;

using AFX_PMSG = void (CCmdTarget::*)();

// One row: which message, from which notification and range of controls, goes to which member, called with
// the arguments that nSig names. A row of zeros ends a table.
struct AFX_MSGMAP_ENTRY {
    UINT nMessage;
    UINT nCode;
    UINT nID;
    UINT nLastID;
    UINT_PTR nSig;
    AFX_PMSG pfn;
};

struct AFX_MSGMAP {
    const AFX_MSGMAP* (*pfnGetBaseMap)(); // null at the root
    const AFX_MSGMAP_ENTRY* lpEntries;
};

// Who would handle a command: filled in by OnCmdMsg instead of calling it.
struct AFX_CMDHANDLERINFO {
    CCmdTarget* pTarget;
    AFX_PMSG pmf;
};

inline constexpr UINT CN_COMMAND = 0;                    // a command from a menu, a key or a bar
inline constexpr UINT CN_UPDATE_COMMAND_UI = 0xFFFFFFFF; // the state of its items; extra is a CCmdUI*
inline constexpr UINT CN_EVENT = 0xFFFFFFFE;

// How a handler is called: the arguments that its row's message carries. Rows of window messages have numbers
// of their own in framework/ui/MessageMap.h.
enum AfxSigCmd : UINT_PTR {
    AfxSigCmd_end,
    AfxSigCmd_v,          // void ()
    AfxSigCmd_b,          // BOOL (): false lets the next handler have it
    AfxSigCmd_id,         // void (UINT id)
    AfxSigCmd_idEx,       // BOOL (UINT id)
    AfxSigCmd_ui,         // void (CCmdUI*)
    AfxSigCmd_notify,     // void (NMHDR*, LRESULT*)
    AfxSigCmd_notifyEx,   // BOOL (UINT id, NMHDR*, LRESULT*)
    AfxSigCmd_notifyId,   // void (UINT id, NMHDR*, LRESULT*)
    AfxSigCmd_notifyBool, // BOOL (NMHDR*, LRESULT*)
    AfxSigCmd_count
};

// What a WM_NOTIFY carries on its way through OnCmdMsg, whose code then has WM_NOTIFY in its high word.
struct AFX_NOTIFY {
    LRESULT* pResult;
    struct NMHDR* pNMHDR;
};

class COREKIT_API CCmdTarget : public CObject {
    DECLARE_DYNAMIC(CCmdTarget)
public:
    // Gives a command, a notification or an update to this object's map; whether it was handled. With `info`
    // nothing is called, the handler is only named. Derived classes pass on what they do not handle.
    virtual BOOL OnCmdMsg(UINT id, int code, void* extra, AFX_CMDHANDLERINFO* info);
    // The row of this object's class or the nearest base that fits, or null.
    const AFX_MSGMAP_ENTRY* FindMessageEntry(UINT message, UINT code, UINT id) const;

protected:
    CCmdTarget() = default;
    static const AFX_MSGMAP* GetThisMessageMap();
    virtual const AFX_MSGMAP* GetMessageMap() const;
};

#define DECLARE_MESSAGE_MAP()                                                                                \
protected:                                                                                                   \
    static const AFX_MSGMAP* GetThisMessageMap();                                                            \
    const AFX_MSGMAP* GetMessageMap() const override;

#define BEGIN_MESSAGE_MAP(the_class, base_class)                                                             \
    const AFX_MSGMAP* the_class::GetMessageMap() const { return GetThisMessageMap(); }                       \
    const AFX_MSGMAP* the_class::GetThisMessageMap()                                                         \
    {                                                                                                        \
        using ThisClass [[maybe_unused]] = the_class;                                                        \
        using TheBaseClass = base_class;                                                                     \
        static const AFX_MSGMAP_ENTRY entries[] = {

#define END_MESSAGE_MAP()                                                                                    \
    {                                                                                                        \
        0, 0, 0, 0, 0, nullptr                                                                               \
    }                                                                                                        \
    }                                                                                                        \
    ;                                                                                                        \
    static const AFX_MSGMAP map = {&TheBaseClass::GetThisMessageMap, entries};                               \
    return &map;                                                                                             \
    }

namespace corekit::detail {
// The one type that rows keep handlers in.
template <class Method>
AFX_PMSG storedHandler(Method method)
{
    return std::bit_cast<AFX_PMSG>(method);
}
} // namespace corekit::detail

// Objects that take commands and messages by a table.
//
// A command is a number that menus, keys and bars send; a target names the members that handle numbers in a
// table. Tables are constants made by the macros below and of framework/ui/MessageMap.h; a class that
// declares one searches its own rows first, then those of its base. The first row that fits wins.
//
//     class CPlayer : public CCmdTarget {
//         ...
//         void OnPlay() { m_plays = true; }
//         void OnUpdatePlay(CCmdUI* ui) { ui->Enable(!m_plays); }
//         DECLARE_MESSAGE_MAP()
//     };
//
//     BEGIN_MESSAGE_MAP(CPlayer, CCmdTarget)
//     ON_COMMAND(idPlay, &CPlayer::OnPlay)
//     ON_UPDATE_COMMAND_UI(idPlay, &CPlayer::OnUpdatePlay)
//     END_MESSAGE_MAP()
//
// A frame's OnCmdMsg passes a command on to such an object by calling its OnCmdMsg.
#pragma once

#include "corekit/framework/Object.h"

#include <bit>

class CCmdTarget;
class CCmdUI; // an item whose state is asked for

// The type that all handlers are kept as. A row's nSig says which type they really have.
using AFX_PMSG = void (CCmdTarget::*)();

// One row: which message, from which notification and range of controls, goes to which member, called with
// the arguments that nSig names. A row of zeros ends a table.
struct AFX_MSGMAP_ENTRY {
    UINT nMessage; // WM_COMMAND, WM_NOTIFY or another window message
    UINT nCode;    // notification code, CN_ value, or 0
    UINT nID;      // first control or command
    UINT nLastID;  // last one; the same for a single id
    UINT_PTR nSig; // AfxSigCmd_ or AfxSig_; of a registered message the address of its number
    AFX_PMSG pfn;  // null ends the table
};

// A class's table, and the way to its base's.
struct AFX_MSGMAP {
    const AFX_MSGMAP* (*pfnGetBaseMap)(); // null at the root
    const AFX_MSGMAP_ENTRY* lpEntries;    // rows, up to one of zeros
};

// Who would handle a command: filled in by OnCmdMsg instead of calling it.
struct AFX_CMDHANDLERINFO {
    CCmdTarget* pTarget; // not owned
    AFX_PMSG pmf;        // as in its row
};

// Codes that are no notification of a control.
inline constexpr UINT CN_COMMAND = 0;                    // a command from a menu, a key or a bar
inline constexpr UINT CN_UPDATE_COMMAND_UI = 0xFFFFFFFF; // the state of its items; extra is a CCmdUI*
inline constexpr UINT CN_EVENT = 0xFFFFFFFE; // kept apart from notifications; nothing here sends it

// How a handler is called: the arguments that its row's message carries. Rows of window messages have numbers
// of their own in framework/ui/MessageMap.h.
enum AfxSigCmd : UINT_PTR {
    AfxSigCmd_end,        // of the row that ends a table
    AfxSigCmd_v,          // void ()
    AfxSigCmd_b,          // BOOL (): false lets the next handler have it
    AfxSigCmd_id,         // void (UINT id)
    AfxSigCmd_idEx,       // BOOL (UINT id)
    AfxSigCmd_ui,         // void (CCmdUI*)
    AfxSigCmd_notify,     // void (NMHDR*, LRESULT*)
    AfxSigCmd_notifyEx,   // BOOL (UINT id, NMHDR*, LRESULT*)
    AfxSigCmd_notifyId,   // void (UINT id, NMHDR*, LRESULT*)
    AfxSigCmd_notifyBool, // BOOL (NMHDR*, LRESULT*)
    AfxSigCmd_count       // how many there are
};

// What a WM_NOTIFY carries on its way through OnCmdMsg, whose code then has WM_NOTIFY in its high word.
// Lives on the stack of the window that got the message.
struct AFX_NOTIFY {
    LRESULT* pResult;     // what the sender gets back
    struct NMHDR* pNMHDR; // the notification, good during the call
};

// The thread of the caller handles: windows send on the user-interface thread.
class COREKIT_API CCmdTarget : public CObject {
    DECLARE_DYNAMIC(CCmdTarget)
public:
    // Gives a command, a notification or an update to this object's map; whether it was handled. With `info`
    // nothing is called, the handler is only named. Derived classes pass on what they do not handle. `code`
    // is a CN_ value or a notification code, with the message in its high word if that is not WM_COMMAND;
    // `extra` belongs to the code and may be null. An update handler counts as handled unless it calls
    // ContinueRouting.
    virtual BOOL OnCmdMsg(UINT id, int code, void* extra, AFX_CMDHANDLERINFO* info);
    // The row of this object's class or the nearest base that fits, or null. Linear in the rows; not cached.
    const AFX_MSGMAP_ENTRY* FindMessageEntry(UINT message, UINT code, UINT id) const;

protected:
    CCmdTarget() = default;
    // Made by DECLARE_MESSAGE_MAP for each class; this one is empty and ends the chain.
    static const AFX_MSGMAP* GetThisMessageMap();
    virtual const AFX_MSGMAP* GetMessageMap() const;
};

// In the class, at the end of a section: what follows is protected.
#define DECLARE_MESSAGE_MAP()                                                                                \
protected:                                                                                                   \
    static const AFX_MSGMAP* GetThisMessageMap();                                                            \
    const AFX_MSGMAP* GetMessageMap() const override;

// In one source file: BEGIN_MESSAGE_MAP, rows without commas between them, END_MESSAGE_MAP.
#define BEGIN_MESSAGE_MAP(the_class, base_class)                                                             \
    const AFX_MSGMAP* the_class::GetMessageMap() const { return GetThisMessageMap(); }                       \
    const AFX_MSGMAP* the_class::GetThisMessageMap()                                                         \
    {                                                                                                        \
        using ThisClass [[maybe_unused]] = the_class;                                                        \
        using TheBaseClass = base_class;                                                                     \
        static const AFX_MSGMAP_ENTRY entries[] = {

// Ends the table with a row of zeros.
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

// Objects that take commands and messages by a table.
#pragma once

#include "corekit/framework/Object.h"

class CCmdTarget;

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

class COREKIT_API CCmdTarget : public CObject {
    DECLARE_DYNAMIC(CCmdTarget)
public:
    // The row of this object's class or the nearest base that fits, or null.
    const AFX_MSGMAP_ENTRY* FindMessageEntry(UINT message, UINT code, UINT id) const;

protected:
    CCmdTarget() = default;
    static const AFX_MSGMAP* _GetBaseMessageMap() { return nullptr; }
    static const AFX_MSGMAP messageMap;
    virtual const AFX_MSGMAP* GetMessageMap() const;
};

#define DECLARE_MESSAGE_MAP()                                                                                \
private:                                                                                                     \
    static const AFX_MSGMAP_ENTRY _messageEntries[];                                                         \
                                                                                                             \
protected:                                                                                                   \
    static const AFX_MSGMAP messageMap;                                                                      \
    static const AFX_MSGMAP* _GetBaseMessageMap();                                                           \
    const AFX_MSGMAP* GetMessageMap() const override;

#define BEGIN_MESSAGE_MAP(the_class, base_class)                                                             \
    const AFX_MSGMAP* the_class::_GetBaseMessageMap() { return &base_class::messageMap; }                    \
    const AFX_MSGMAP* the_class::GetMessageMap() const { return &the_class::messageMap; }                    \
    const AFX_MSGMAP the_class::messageMap = {&the_class::_GetBaseMessageMap, the_class::_messageEntries};   \
    const AFX_MSGMAP_ENTRY the_class::_messageEntries[] = {

#define END_MESSAGE_MAP()                                                                                    \
    {                                                                                                        \
        0, 0, 0, 0, 0, nullptr                                                                               \
    }                                                                                                        \
    }                                                                                                        \
    ;

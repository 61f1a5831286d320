// The root of the class tree and its run-time class records.
//
// A class that can be asked what it is derives from CObject and names itself twice:
//
//     class CThing : public CObject {                 // Thing.h
//         DECLARE_DYNAMIC(CThing)
//     ...
//     IMPLEMENT_DYNAMIC(CThing, CObject)              // Thing.cpp
//
// A record is filled before any code runs, so GetRuntimeClass, IsKindOf and RUNTIME_CLASS answer rightly
// even during static construction. Records add themselves to one process-wide list when their module is
// loaded and leave it when it is unloaded; any thread may look a class up by name.
#pragma once

#include "corekit/platform/Export.h"
#include "corekit/platform/Types.h"

#include <new>

class CArchive;
class CDumpContext;
class CObject;

// A place in a container; null is the end.
using POSITION = struct __POSITION*;

struct COREKIT_API CRuntimeClass {
    const char* m_lpszClassName;           // as the source spells it
    int m_nObjectSize;                     // bytes of one object
    UINT m_wSchema;                        // 65535: not for archives
    CObject* (*m_pfnCreateObject)();       // null unless declared with DECLARE_DYNCREATE
    CRuntimeClass* (*m_pfnGetBaseClass)(); // null for CObject only
    CRuntimeClass* m_pNextClass;           // guarded by the list's own lock

    // A new object for the caller to delete; null if the class has no creation function or memory is out.
    CObject* CreateObject() const;
    // True for the class itself as well.
    bool IsDerivedFrom(const CRuntimeClass* base) const;
    // The base's record, null for CObject.
    CRuntimeClass* GetBaseClass() const;
    // The loaded class of that name, or null.
    static CRuntimeClass* FromName(const char* className);
};

// The virtual table opens GetRuntimeClass, destructor, Serialize, AssertValid, Dump, in this order.
// Objects are not copied unless a class says how.
class COREKIT_API CObject {
public:
    virtual CRuntimeClass* GetRuntimeClass() const;
    virtual ~CObject() = default;
    virtual void Serialize(CArchive& archive);   // does nothing
    virtual void AssertValid() const;            // does nothing
    virtual void Dump(CDumpContext& dump) const; // does nothing

    bool IsSerializable() const;
    bool IsKindOf(const CRuntimeClass* base) const;

    CObject(const CObject&) = delete;
    CObject& operator=(const CObject&) = delete;

    static CRuntimeClass* GetThisClass() { return &classCObject; }
    static CRuntimeClass classCObject;

protected:
    CObject() = default;
    static CRuntimeClass* _GetBaseClass() { return nullptr; }
};

// Links one record for as long as the module that holds it is loaded.
class COREKIT_API AFX_CLASSINIT {
public:
    explicit AFX_CLASSINIT(CRuntimeClass* record);
    ~AFX_CLASSINIT();
    AFX_CLASSINIT(const AFX_CLASSINIT&) = delete;
    AFX_CLASSINIT& operator=(const AFX_CLASSINIT&) = delete;

private:
    CRuntimeClass* m_record;
};

#define RUNTIME_CLASS(class_name) (class_name::GetThisClass())

#define DECLARE_DYNAMIC(class_name)                                                                          \
protected:                                                                                                   \
    static CRuntimeClass* _GetBaseClass();                                                                   \
                                                                                                             \
public:                                                                                                      \
    static CRuntimeClass class##class_name;                                                                  \
    static CRuntimeClass* GetThisClass() { return &class##class_name; }                                      \
    CRuntimeClass* GetRuntimeClass() const override;

#define DECLARE_DYNCREATE(class_name)                                                                        \
    DECLARE_DYNAMIC(class_name)                                                                              \
public:                                                                                                      \
    static CObject* CreateObject();

// Members that follow these macros are public. Records are linked before objects of ordinary static duration
// are built.
#define COREKIT_IMPLEMENT_RECORD(class_name, base_class_name, create)                                        \
    CRuntimeClass* class_name::_GetBaseClass() { return base_class_name::GetThisClass(); }                   \
    constinit CRuntimeClass class_name::class##class_name = {                                                \
        #class_name, sizeof(class_name), 0xFFFF, create, &class_name::_GetBaseClass, nullptr};               \
    CRuntimeClass* class_name::GetRuntimeClass() const { return &class##class_name; }                        \
    [[gnu::init_priority(1000)]] static const AFX_CLASSINIT init_##class_name(class_name::GetThisClass());

#define IMPLEMENT_DYNAMIC(class_name, base_class_name)                                                       \
    COREKIT_IMPLEMENT_RECORD(class_name, base_class_name, nullptr)

#define IMPLEMENT_DYNCREATE(class_name, base_class_name)                                                     \
    CObject* class_name::CreateObject() { return new (std::nothrow) class_name; }                            \
    COREKIT_IMPLEMENT_RECORD(class_name, base_class_name, &class_name::CreateObject)

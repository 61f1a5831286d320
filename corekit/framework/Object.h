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
//
//     if (object->IsKindOf(RUNTIME_CLASS(CThing))) ...
//     CObject* const made = CRuntimeClass::FromName("CThing")->CreateObject(); // with DECLARE_DYNCREATE
#pragma once

#include "corekit/platform/Export.h"
#include "corekit/platform/Types.h"

#include <new>

class CArchive; // named in signatures only
class CDumpContext;
class CObject;

// A place in a container; null is the end.
using POSITION = struct __POSITION*;

// One record a class, in the module that has the class; never made by hand.
struct COREKIT_API CRuntimeClass {
    const char* m_lpszClassName;           // as the source spells it
    int m_nObjectSize;                     // bytes of one object
    UINT m_wSchema;                        // 65535: not for archives
    CObject* (*m_pfnCreateObject)();       // null unless declared with DECLARE_DYNCREATE
    CRuntimeClass* (*m_pfnGetBaseClass)(); // null for CObject only
    CRuntimeClass* m_pNextClass;           // guarded by the list's own lock

    // A new object for the caller to delete; null if the class has no creation function or memory is out.
    // Made with new and the default constructor.
    CObject* CreateObject() const;
    // True for the class itself as well. Walks up the bases; two records of one name in different modules
    // are two classes.
    bool IsDerivedFrom(const CRuntimeClass* base) const;
    // The base's record, null for CObject.
    CRuntimeClass* GetBaseClass() const;
    // The loaded class of that name, or null. Case counts. Of several classes of one name the one whose
    // module was loaded last.
    static CRuntimeClass* FromName(const char* className);
};

// The virtual table opens GetRuntimeClass, destructor, Serialize, AssertValid, Dump, in this order.
// Objects are not copied unless a class says how.
class COREKIT_API CObject {
public:
    virtual CRuntimeClass* GetRuntimeClass() const; // of the object's own class
    virtual ~CObject() = default;
    virtual void Serialize(CArchive& archive);   // does nothing
    virtual void AssertValid() const;            // does nothing
    virtual void Dump(CDumpContext& dump) const; // does nothing

    // Never true of a class declared by the macros below.
    bool IsSerializable() const;                    // whether its class takes part in archives
    bool IsKindOf(const CRuntimeClass* base) const; // its class is that one or derived from it

    CObject(const CObject&) = delete;
    CObject& operator=(const CObject&) = delete;

    // What RUNTIME_CLASS gives.
    static CRuntimeClass* GetThisClass() { return &classCObject; }
    static CRuntimeClass classCObject; // CObject's own record

protected:
    CObject() = default;
    static CRuntimeClass* _GetBaseClass() { return nullptr; }
};

// Links one record for as long as the module that holds it is loaded. Made by the IMPLEMENT macros alone.
class COREKIT_API AFX_CLASSINIT {
public:
    // Takes the list's lock, as does the destructor. The record is not owned.
    explicit AFX_CLASSINIT(CRuntimeClass* record);
    ~AFX_CLASSINIT();
    AFX_CLASSINIT(const AFX_CLASSINIT&) = delete;
    AFX_CLASSINIT& operator=(const AFX_CLASSINIT&) = delete;

private:
    CRuntimeClass* m_record;
};

// The record of a class by its name in the source; costs nothing.
#define RUNTIME_CLASS(class_name) (class_name::GetThisClass())

// At the beginning of the class. Members that follow are public.
#define DECLARE_DYNAMIC(class_name)                                                                          \
protected:                                                                                                   \
    static CRuntimeClass* _GetBaseClass();                                                                   \
                                                                                                             \
public:                                                                                                      \
    static CRuntimeClass class##class_name;                                                                  \
    static CRuntimeClass* GetThisClass() { return &class##class_name; }                                      \
    CRuntimeClass* GetRuntimeClass() const override;

// Also for CRuntimeClass::CreateObject; the class needs a default constructor.
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

// In one source file, outside of every function.
#define IMPLEMENT_DYNAMIC(class_name, base_class_name)                                                       \
    COREKIT_IMPLEMENT_RECORD(class_name, base_class_name, nullptr)

#define IMPLEMENT_DYNCREATE(class_name, base_class_name)                                                     \
    CObject* class_name::CreateObject() { return new (std::nothrow) class_name; }                            \
    COREKIT_IMPLEMENT_RECORD(class_name, base_class_name, &class_name::CreateObject)

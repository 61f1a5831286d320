#include "corekit/framework/Object.h"

#include <cstring>
#include <mutex>

namespace {
// Both are filled at compile time and never destroyed, so modules may come and go at any moment.
constinit std::mutex listLock;
constinit CRuntimeClass* listHead = nullptr;
} // namespace

constinit CRuntimeClass CObject::classCObject = {"CObject", sizeof(CObject), 0xFFFF,
                                                 nullptr,   nullptr,         nullptr};
[[gnu::init_priority(1000)]] static const AFX_CLASSINIT init_CObject(CObject::GetThisClass());

CRuntimeClass* CObject::GetRuntimeClass() const { return &classCObject; }
void CObject::Serialize(CArchive&) {}
void CObject::AssertValid() const {}
void CObject::Dump(CDumpContext&) const {}
bool CObject::IsSerializable() const { return GetRuntimeClass()->m_wSchema != 0xFFFF; }
bool CObject::IsKindOf(const CRuntimeClass* base) const { return GetRuntimeClass()->IsDerivedFrom(base); }

CObject* CRuntimeClass::CreateObject() const { return m_pfnCreateObject ? m_pfnCreateObject() : nullptr; }
CRuntimeClass* CRuntimeClass::GetBaseClass() const
{
    return m_pfnGetBaseClass ? m_pfnGetBaseClass() : nullptr;
}

bool CRuntimeClass::IsDerivedFrom(const CRuntimeClass* base) const
{
    for (const CRuntimeClass* record = this; record; record = record->GetBaseClass())
        if (record == base) return true;
    return false;
}

CRuntimeClass* CRuntimeClass::FromName(const char* className)
{
    if (!className) return nullptr;
    const std::lock_guard guard(listLock);
    for (CRuntimeClass* record = listHead; record; record = record->m_pNextClass)
        if (std::strcmp(record->m_lpszClassName, className) == 0) return record;
    return nullptr;
}

AFX_CLASSINIT::AFX_CLASSINIT(CRuntimeClass* record) : m_record(record)
{
    const std::lock_guard guard(listLock);
    record->m_pNextClass = listHead;
    listHead = record;
}

AFX_CLASSINIT::~AFX_CLASSINIT()
{
    const std::lock_guard guard(listLock);
    for (CRuntimeClass** link = &listHead; *link; link = &(*link)->m_pNextClass) {
        if (*link != m_record) continue;
        *link = m_record->m_pNextClass;
        return;
    }
}

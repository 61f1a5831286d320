#include "corekit/framework/Array.h"
#include "corekit/framework/CmdTarget.h"
#include "corekit/framework/Module.h"

#include <gtest/gtest.h>

#include <cstring>
#include <memory>
#include <thread>

namespace {
class CBase : public CObject {
    DECLARE_DYNAMIC(CBase)
};
class CDerived : public CBase {
    DECLARE_DYNAMIC(CDerived)
public:
    static bool BaseIsCBase() { return _GetBaseClass() == RUNTIME_CLASS(CBase); }
    char payload[40] = {};
};
class CMakeable : public CObject {
    DECLARE_DYNCREATE(CMakeable)
};
IMPLEMENT_DYNAMIC(CBase, CObject)
IMPLEMENT_DYNAMIC(CDerived, CBase)
IMPLEMENT_DYNCREATE(CMakeable, CObject)

class CTarget : public CCmdTarget {
public:
    void OnFirst() {}
    DECLARE_MESSAGE_MAP()
};
class CSubTarget : public CTarget {
public:
    void OnRange() {}
    DECLARE_MESSAGE_MAP()
};
BEGIN_MESSAGE_MAP(CTarget, CCmdTarget){0x111, 0, 10, 10, 1, static_cast<AFX_PMSG>(&CTarget::OnFirst)},
    END_MESSAGE_MAP() BEGIN_MESSAGE_MAP(CSubTarget, CTarget){
        0x111, 0, 20, 29, 2, static_cast<AFX_PMSG>(&CSubTarget::OnRange)},
    END_MESSAGE_MAP()
} // namespace

TEST(ClassRecord, HoldsNameSizeSchemaAndBase)
{
    const CDerived object;
    const CRuntimeClass* record = object.GetRuntimeClass();
    EXPECT_STREQ(record->m_lpszClassName, "CDerived");
    EXPECT_EQ(record->m_nObjectSize, static_cast<int>(sizeof(CDerived)));
    EXPECT_EQ(record->m_wSchema, 65535u);
    EXPECT_EQ(record->m_pfnCreateObject, nullptr);
    EXPECT_EQ(record->CreateObject(), nullptr);
    EXPECT_FALSE(object.IsSerializable());
    EXPECT_TRUE(CDerived::BaseIsCBase());
    EXPECT_EQ(RUNTIME_CLASS(CObject)->GetBaseClass(), nullptr);
}

TEST(ClassRecord, KindGoesUpTheTreeOnly)
{
    const CDerived derived;
    const CBase base;
    EXPECT_TRUE(derived.IsKindOf(RUNTIME_CLASS(CDerived)));
    EXPECT_TRUE(derived.IsKindOf(RUNTIME_CLASS(CBase)));
    EXPECT_TRUE(derived.IsKindOf(RUNTIME_CLASS(CObject)));
    EXPECT_FALSE(base.IsKindOf(RUNTIME_CLASS(CDerived)));
    EXPECT_FALSE(base.IsKindOf(nullptr));
}

TEST(ClassRecord, IsFoundByNameAcrossModules)
{
    EXPECT_EQ(CRuntimeClass::FromName("CDerived"), RUNTIME_CLASS(CDerived));
    EXPECT_EQ(CRuntimeClass::FromName("CDynLinkLibrary"), RUNTIME_CLASS(CDynLinkLibrary));
    EXPECT_EQ(CRuntimeClass::FromName("cderived"), nullptr);
    EXPECT_EQ(CRuntimeClass::FromName(nullptr), nullptr);
}

TEST(ClassRecord, CreatesOnlyWhereDeclared)
{
    const std::unique_ptr<CObject> made(CRuntimeClass::FromName("CMakeable")->CreateObject());
    ASSERT_NE(made, nullptr);
    EXPECT_EQ(made->GetRuntimeClass(), RUNTIME_CLASS(CMakeable));
}

TEST(ClassRecord, ListSurvivesModulesThatComeAndGoInThreads)
{
    const auto work = [] {
        for (int i = 0; i < 500; ++i) {
            CRuntimeClass record{"CPassing", 8, 0xFFFF, nullptr, nullptr, nullptr};
            const AFX_CLASSINIT link(&record);
            EXPECT_NE(CRuntimeClass::FromName("CPassing"), nullptr);
            EXPECT_EQ(CRuntimeClass::FromName("CBase"), RUNTIME_CLASS(CBase));
        }
    };
    std::thread first(work), second(work);
    first.join();
    second.join();
    EXPECT_EQ(CRuntimeClass::FromName("CPassing"), nullptr);
}

// The order of the first virtual operations is a contract with compiled callers; the destructor takes two
// places.
TEST(Object, VirtualTableOpensInTheDocumentedOrder)
{
    struct Spy : CObject {
        CRuntimeClass* GetRuntimeClass() const override { return RUNTIME_CLASS(CMakeable); }
        void AssertValid() const override { ++asserted; }
        mutable int asserted = 0;
    };
    const Spy spy;
    void* (*const* table)(const CObject*);
    std::memcpy(static_cast<void*>(&table), static_cast<const void*>(&spy), sizeof table);
    EXPECT_EQ(table[0](&spy), RUNTIME_CLASS(CMakeable));
    using Plain = void (*)(const CObject*);
    Plain assertValid;
    std::memcpy(&assertValid, &table[4], sizeof assertValid);
    assertValid(&spy);
    EXPECT_EQ(spy.asserted, 1);
}

TEST(MessageMap, NearestClassWithAFittingRowAnswers)
{
    const CSubTarget target;
    struct {
        UINT message, code, id;
        UINT_PTR signature;
    } const cases[] = {
        {0x111, 0, 10, 1}, {0x111, 0, 20, 2}, {0x111, 0, 29, 2}, {0x111, 0, 30, 0}, {0x112, 0, 10, 0}};
    for (const auto& c : cases) {
        const AFX_MSGMAP_ENTRY* entry = target.FindMessageEntry(c.message, c.code, c.id);
        EXPECT_EQ(entry ? entry->nSig : 0, c.signature) << c.id;
    }
}

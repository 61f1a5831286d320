#include "corekit/framework/Exception.h"

#include "corekit/framework/MessageBox.h"
#include "tests/support/Thrown.h"

#include <gtest/gtest.h>

namespace {
std::string shown;
}

TEST(FrameworkException, ThrownObjectsKnowTheirKindAndMayBeDeleted)
{
    for (int round = 0; round < 2; ++round) {
        try {
            AfxThrowMemoryException();
        } catch (CException* e) {
            char text[8];
            EXPECT_TRUE(e->IsKindOf(RUNTIME_CLASS(CMemoryException)));
            EXPECT_TRUE(e->GetErrorMessage(text, sizeof text));
            EXPECT_STREQ(text, "Out of ");
            e->Delete();
        }
        EXPECT_EQ(ThrownClass(AfxThrowUserException), RUNTIME_CLASS(CUserException));
        EXPECT_EQ(ThrownClass(AfxThrowNotSupportedException), RUNTIME_CLASS(CNotSupportedException));
    }
}

TEST(FrameworkException, ReportFallsBackToTheGivenMessage)
{
    const auto old = SetMessageBoxHandler([](CWnd*, const char* text, UINT flags) {
        shown = text;
        return static_cast<int>(flags);
    });
    auto* e = new CUserException;
    EXPECT_EQ(e->ReportError(nullptr, MB_OKCANCEL, 4147), static_cast<int>(MB_OKCANCEL));
    EXPECT_EQ(shown, "Data is corrupt.");
    e->ReportError();
    EXPECT_EQ(shown, "No error message is available.");
    e->Delete();
    SetMessageBoxHandler(old);
}

// Calls through null pointers, which these classes allow. Compiled without the check for them.
#include "corekit/logging/AlertSink.h"
#include "corekit/logging/ProgressSink.h"

#include <gtest/gtest.h>

namespace {

// As a caller sees it who was handed no sink.
template <class Sink>
Sink* Nobody()
{
    static Sink* volatile none = nullptr;
    return none;
}

TEST(NullSinks, AnAlertVanishes)
{
    CAlertSink* const sink = Nobody<CAlertSink>();
    CException* const none = nullptr;
    sink->Alert(alertWarning, "text");
    sink->Alert(alertWarning, 4113u);
    sink->Alert(alertWarning, "title", "detail");
    sink->AlertSysError(alertWarning, "text");
    sink->AlertSysError(alertWarning, 4113u);
    sink->AlertException(alertWarning, "text", none);
    sink->AlertException(alertWarning, "text", 5u);
    CAlertSink::Alert(sink, alertWarning, "text");
}

TEST(NullSinks, ProgressGoesNowhereAndAnswersZero)
{
    CProgressSink* const sink = Nobody<CProgressSink>();
    CException* const none = nullptr;
    sink->SetStatus("text");
    sink->SetStatus(4113u);
    sink->SetStatus1(4113u, "1");
    sink->SetStatus2(4113u, "1", "2");
    sink->SetRange(0, 10);
    sink->SetPos(1);
    sink->SetStep(1);
    sink->StepIt();
    EXPECT_EQ(sink->MessageBoxA("text", 0), 0);
    EXPECT_EQ(sink->MessageBoxA(4113u, 0), 0);
    EXPECT_EQ(sink->MessageBoxA(none, 0), 0);
    EXPECT_EQ(sink->GetDialogOwnerWnd(), nullptr);
    EXPECT_EQ(sink->CancelPressed(), 0);
    CProgressSink::SetPos(sink, 1);
    EXPECT_EQ(CProgressSink::CancelPressed(sink), 0);
}

} // namespace

#include "tests/logging/LogFolder.h"

#include "corekit/foundation/ChainedException.h"
#include "corekit/logging/AlertSink.h"
#include "corekit/logging/ProgressSink.h"
#include "corekit/platform/Errors.h"
#include "tests/support/Thrown.h"

#include <thread>

namespace {

std::vector<std::string> heard;
CAlertSink* current = nullptr;

void Hear(eAlertCategory category, const char* text)
{
    heard.push_back(std::to_string(category) + " " + text);
}
void HearLouder(eAlertCategory, const char*) { heard.push_back("!"); }
void RegisterLouder(eAlertCategory, const char*) { current->RegisterHook(HearLouder); }
void Refuse(eAlertCategory, const char*) { ThrowChainedException(nullptr, "refused"); }

class AlertSink : public LogFolder {
protected:
    void SetUp() override
    {
        heard.clear();
        current = &sink;
    }
    // What the log says, after its first line and without the time.
    std::vector<std::string> Logged() const
    {
        std::vector<std::string> logged;
        for (const std::string& line : Lines("Alerts.log"))
            logged.push_back(line.substr(std::min<std::size_t>(line.size(), 21)));
        logged.erase(logged.begin());
        return logged;
    }
    void OpenLog()
    {
        ASSERT_TRUE(log.CreateLogFile("Alerts", folder.Path().c_str(), 0));
        sink.SetLogTarget(&log);
    }

    CLogTarget log;
    CAlertSink sink;
};

TEST_F(AlertSink, HooksHearInOrderThenTheLog)
{
    OpenLog();
    sink.RegisterHook(Hear);
    sink.RegisterHook([](eAlertCategory, const char*) {
        heard.push_back("log has " + std::to_string(current != nullptr));
    });
    sink.RegisterHook(Hear);
    sink.Alert(alertInformation, "text");
    EXPECT_EQ(heard, (std::vector<std::string>{"0 text", "log has 1", "0 text"}));
    EXPECT_EQ(Logged(), std::vector<std::string>{"Information       text"});
}

TEST_F(AlertSink, AHookMayRegisterAnother)
{
    sink.RegisterHook(RegisterLouder);
    sink.Alert(alertWarning, "text");
    EXPECT_EQ(heard, std::vector<std::string>{"!"});
}

TEST_F(AlertSink, WhatAHookThrowsComesOutBeforeTheLogIsWritten)
{
    OpenLog();
    sink.RegisterHook(Refuse);
    EXPECT_NE(Thrown([&] { sink.Alert(alertWarning, "text"); }), "nothing");
    EXPECT_TRUE(Logged().empty());
}

TEST_F(AlertSink, EveryCategoryHasItsLevel)
{
    OpenLog();
    for (const int category : {0, 1, 2, 3, 99, -1}) sink.Alert(static_cast<eAlertCategory>(category), "x");
    EXPECT_EQ(Logged(), (std::vector<std::string>{"Information       x", "Warning           x",
                                                  "MajorError        x", "MinorError        x",
                                                  "MinorError        x", "MinorError        x"}));
}

TEST_F(AlertSink, TextsAreComposed)
{
    sink.RegisterHook(Hear);
    EXPECT_EQ(sink.Initialise(CAlertSinkConfig(), "Server"), 1);
    sink.Alert(alertWarning, "a", "b");
    sink.Alert(alertWarning, 4113u);
    SetLastError(ERROR_ACCESS_DENIED);
    const std::string denied = GetSystemErrorString(ERROR_ACCESS_DENIED).GetString();
    sink.AlertSysError(alertMajorError, "a");
    sink.AlertSysError(alertMajorError, 4113u);
    SetLastError(0);
    sink.AlertSysError(alertMajorError, "a");
    CChainedException* const e = new CChainedException("e", nullptr);
    sink.AlertException(alertMinorError, "a", e);
    e->Delete();
    sink.AlertException(alertMinorError, "a", 0xC0000005u);
    const std::string message = "[Memory Stream] Read past end of buffer";
    EXPECT_EQ(heard, (std::vector<std::string>{"1 a\nb", "1 " + message, "2 a\n" + denied,
                                               "2 " + message + "\n" + denied,
                                               "2 a\n" + std::string(GetSystemErrorString(0).GetString()),
                                               "3 a\ne", "3 a\nStructured Exception code 0xC0000005"}));
}

TEST_F(AlertSink, ManyThreadsMayAlert)
{
    OpenLog();
    std::vector<std::thread> threads;
    for (int t = 0; t < 8; ++t)
        threads.emplace_back([this] {
            for (int i = 0; i < 100; ++i) sink.Alert(alertWarning, "first", "second");
        });
    for (std::thread& thread : threads) thread.join();
    EXPECT_EQ(Logged().size(), 1600u);
}

// Notes every call.
class NotingSink : public CProgressSink {
public:
    std::string said;
    int answer = 0;

protected:
    void DoSetStatus(const char* text) override { said += std::string("[") + text + "]"; }
    void DoSetRange(int lower, int upper) override
    {
        said += std::to_string(lower) + ".." + std::to_string(upper) + " ";
    }
    void DoSetPos(int position) override { said += "@" + std::to_string(position); }
    void DoSetStep(int step) override { said += "+" + std::to_string(step); }
    void DoStepIt() override { said += ">"; }
    int DoMessageBox(const char* text, unsigned int flags) override
    {
        said += "{" + std::string(text) + " " + std::to_string(flags) + "}";
        return answer;
    }
    CWnd* DoGetDialogOwnerWnd() override { return nullptr; }
    int DoCancelPressed() override { return answer; }
};

TEST(ProgressSink, PassesEveryOperationOn)
{
    NotingSink noting;
    CProgressSink* const sink = &noting;
    sink->SetStatus("a");
    sink->SetStatus(4113u);
    sink->SetStatus1(4175u, "f");
    sink->SetStatus2(4102u, "X", "Y");
    sink->SetRange(1, 9);
    sink->SetPos(5);
    sink->SetStep(2);
    sink->StepIt();
    EXPECT_EQ(noting.said,
              "[a][[Memory Stream] Read past end of buffer][Delete file failed, file=f]"
              "[Invalid object version found.  Object=[X], version found=Y, max supported version=?]"
              "1..9 @5+2>");
    noting.said.clear();
    noting.answer = 6;
    CChainedException* const e = new CChainedException("why", new CChainedException("because", nullptr));
    EXPECT_EQ(sink->MessageBoxA("q", 4), 6);
    EXPECT_EQ(sink->MessageBoxA(4113u, 0), 6);
    EXPECT_EQ(sink->MessageBoxA(e, 0x10), 6);
    EXPECT_EQ(sink->CancelPressed(), 6);
    e->Delete();
    EXPECT_EQ(noting.said, "{q 4}{[Memory Stream] Read past end of buffer 0}{why\nbecause 16}");
}

} // namespace

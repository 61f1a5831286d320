#include "corekit/foundation/ChainedException.h"

#include "corekit/framework/MessageBox.h"
#include "corekit/platform/Errors.h"

#include <gtest/gtest.h>

#include <cstring>
#include <string>

namespace {
// Counts the objects alive and says a long text.
class CSaid : public CException {
public:
    CSaid() { ++alive; }
    ~CSaid() override { --alive; }
    BOOL GetErrorMessage(char* buffer, UINT size, UINT*) override
    {
        limit = size;
        std::memset(buffer, 't', size - 1);
        buffer[size - 1] = 0;
        return TRUE;
    }
    static inline int alive = 0;
    static inline UINT limit = 0;
};

template <class Throw>
CChainedException* Caught(Throw thrower)
{
    try {
        thrower();
    } catch (CChainedException* e) {
        return e;
    }
    return nullptr;
}

CString Message(CException* e)
{
    CString text = GetExceptionMsg(e);
    e->Delete();
    return text;
}

// Records the box instead of showing it.
class Boxes : public testing::Test {
protected:
    void SetUp() override
    {
        shown.clear();
        old = SetMessageBoxHandler([](CWnd*, const char* text, UINT flags) {
            shown = text;
            return static_cast<int>(flags) + 100;
        });
    }
    void TearDown() override { SetMessageBoxHandler(old); }
    MessageBoxHandler old = nullptr;
    static inline std::string shown;
};
} // namespace

TEST(ChainedException, OneLineForEachLevelOutermostFirst)
{
    auto* e = new CChainedException(
        "top", new CChainedException("middle", new CChainedException("bottom", nullptr)));
    EXPECT_EQ(e->BuildMessageString(), "top\nmiddle\nbottom");
    // Each level keeps what it appended, so a second call repeats the tail.
    EXPECT_EQ(e->BuildMessageString(), "top\nmiddle\nbottom\nmiddle\nbottom\nbottom");
    e->Delete();
}

TEST(ChainedException, ForeignCauseIsAskedForAThousandCharactersAndNotKept)
{
    auto* e = new CChainedException("top", new CSaid);
    const CString first = e->BuildMessageString();
    EXPECT_EQ(CSaid::limit, 1024u);
    EXPECT_EQ(first.GetLength(), 4 + 1023);
    EXPECT_EQ(e->BuildMessageString(), first);
    EXPECT_EQ(CSaid::alive, 1);
    e->Delete();
    EXPECT_EQ(CSaid::alive, 0);
}

TEST(ChainedException, MessageIsCutToTheBuffer)
{
    CChainedException* e = Caught([] { ThrowChainedException(nullptr, "abcdef"); });
    char buffer[8] = "#######";
    UINT help = 5;
    EXPECT_EQ(e->GetErrorMessage(buffer, 4, &help), 1);
    EXPECT_STREQ(buffer, "abc");
    EXPECT_EQ(buffer[4], '#');
    EXPECT_EQ(help, 5u);
    EXPECT_EQ(e->GetErrorMessage(buffer, 1), 1);
    EXPECT_STREQ(buffer, "");
    EXPECT_EQ(e->GetErrorMessage(buffer, 0), 1);
    e->Delete();
}

TEST(ChainedException, TextsComeByNumberWithInserts)
{
    EXPECT_EQ(Message(Caught([] { ThrowChainedException(nullptr, 4147u); })), "Data is corrupt.");
    EXPECT_EQ(Message(Caught([] { ThrowChainedException(new CSaid, 9999u); })).Left(3), "\ntt");
    EXPECT_EQ(Message(Caught([] { ThrowChainedException(nullptr, 4154, "Courier"); })),
              "[UniRender] Font \"Courier\" is not supported on this machine.");
    EXPECT_EQ(Message(Caught([] { ThrowChainedException(nullptr, 4102, "CThing", "1"); })),
              "Invalid object version found.  Object=[CThing], version found=1, max supported version=?");
    EXPECT_EQ(
        Message(Caught([] { ThrowInvalidVersionException("CThing", 0x0205, 0x0103); })),
        "Invalid object version found.  Object=[CThing], version found=2.05, max supported version=1.03");
    EXPECT_EQ(Message(Caught([] { ThrowInvalidVersionException("%1!", 0xFFFF1263, 0); })),
              "Invalid object version found.  Object=[%1!], version found=18.99, max supported version=0.00");
}

TEST(ChainedException, SystemFailureRendersAsTwoLines)
{
    SetLastError(ERROR_FILE_NOT_FOUND);
    CChainedException* e = Caught([] { ThrowChainedException(GetLastErrorException(), 4104u); });
    const CString system = GetSystemErrorString(ERROR_FILE_NOT_FOUND);
    EXPECT_FALSE(system.IsEmpty());
    EXPECT_NE(system, GetSystemErrorString(ERROR_ACCESS_DENIED));
    EXPECT_EQ(Message(e), "[File Stream] Unable to read from file\n" + system);
    EXPECT_FALSE(GetSystemErrorString(0xDEADBEEF).IsEmpty());
}

TEST(ChainedException, CodesPrintAsEightUpperCaseDigits)
{
    EXPECT_EQ(GetExceptionMsg(0xC5u), "Structured Exception code 0x000000C5");
    EXPECT_EQ(GetExceptionMsg(static_cast<CException*>(nullptr)), "");
}

TEST_F(Boxes, CancellationIsSilent)
{
    auto* e = new CUserException;
    EXPECT_EQ(ExceptionMessageBox(nullptr, "prefix", e, MB_OKCANCEL), 1);
    EXPECT_EQ(shown, "");
    e->Delete();
}

TEST_F(Boxes, PrefixStandsOnALineOfItsOwn)
{
    auto* e = new CChainedException("what", nullptr);
    EXPECT_EQ(ExceptionMessageBox(nullptr, e, MB_YESNO), 104);
    EXPECT_EQ(shown, "what");
    ExceptionMessageBox(nullptr, "prefix", e, MB_OK);
    EXPECT_EQ(shown, "prefix\nwhat");
    ExceptionMessageBox(nullptr, 4147, e, MB_OK);
    EXPECT_EQ(shown, "Data is corrupt.\nwhat");
    ExceptionMessageBox(nullptr, 4154, "Courier", e, MB_OK);
    EXPECT_EQ(shown, "[UniRender] Font \"Courier\" is not supported on this machine.\nwhat");
    EXPECT_EQ(e->ReportError(nullptr, MB_RETRYCANCEL), 105);
    EXPECT_EQ(shown, "what");
    e->Delete();
    auto* foreign = new CSaid;
    ExceptionMessageBox(nullptr, foreign, MB_OK);
    EXPECT_EQ(shown.size(), 1023u);
    foreign->Delete();
}
TEST(ResourceText, SameTextInAllThreeStringClasses)
{
    EXPECT_EQ(LoadResourceString(4147), "Data is corrupt.");
    EXPECT_TRUE(LoadResourceStringA(4147) == "Data is corrupt.");
    EXPECT_TRUE(LoadResourceStringW(4147) == u"Data is corrupt.");
    EXPECT_TRUE(LoadResourceStringA(9999).IsEmpty());
    EXPECT_EQ(LoadResourceString(4098), "[PropertyStore] Entry type is unknown");
}

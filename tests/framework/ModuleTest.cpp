#include "corekit/framework/Module.h"

#include "corekit/framework/MessageBox.h"
#include "corekit/framework/String.h"
#include "corekit/WireUp.h"

#include <gtest/gtest.h>

#include <thread>

namespace {
constexpr ResourceString older[] = {{300, "older"}, {301, "only in older"}};
constexpr ResourceString newer[] = {{300, "newer"}, {310, "%2 of %1, %3 and 100%"}};
constexpr ResourceString program[] = {{300, "program"}};

struct Library {
    explicit Library(std::span<const ResourceString> strings)
    {
        module.strings = strings;
        if (AfxInitExtensionModule(module, nullptr)) new CDynLinkLibrary(module);
    }
    ~Library() { AfxTermExtensionModule(module); }
    AFX_EXTENSION_MODULE module;
};

CString Text(UINT id)
{
    CString text("stale");
    text.LoadString(id);
    return text;
}

int ChainLength()
{
    int count = 0;
    CDynLinkLibrary::Visit([&count](const CDynLinkLibrary&) { return ++count < 0; });
    return count;
}
} // namespace

TEST(Module, ProgramFirstThenNewestLibrary)
{
    const Library first(older);
    EXPECT_EQ(Text(300), "older");
    {
        const Library second(newer);
        EXPECT_EQ(Text(300), "newer");
        EXPECT_EQ(Text(301), "only in older");
        ASSERT_TRUE(AfxSetResourceStrings(program));
        EXPECT_EQ(Text(300), "program");
        AfxSetResourceStrings({});
    }
    EXPECT_EQ(Text(300), "older");
    EXPECT_EQ(Text(310), "");
}

TEST(Module, TableOutOfOrderIsRefused)
{
    static constexpr ResourceString twice[] = {{1, "a"}, {2, "b"}, {2, "c"}};
    const Library library(twice);
    EXPECT_FALSE(library.module.bInitialized);
    EXPECT_FALSE(AfxSetResourceStrings(twice));
    EXPECT_EQ(Text(1), "");
}

TEST(Module, LibraryTextsAreThereAndEachWireUpAddsOneEntry)
{
    EXPECT_EQ(Text(4101), "[FileStream] Set End Of File failed");
    EXPECT_EQ(Text(4295), "No language");
    EXPECT_EQ(Text(4349), "Farsi (Persian)");
    EXPECT_EQ(Text(4169), "Indic Urdu");
    EXPECT_EQ(Text(9999), "");
    const int before = ChainLength();
    WireUp_CoreKit();
    WireUp_CoreKit();
    EXPECT_EQ(ChainLength(), before + 2);
}

TEST(Module, LoadStringIsCutToTheBuffer)
{
    char buffer[6] = "xxxxx";
    EXPECT_EQ(AfxLoadString(4147, buffer, sizeof buffer), 5);
    EXPECT_STREQ(buffer, "Data ");
    EXPECT_EQ(AfxLoadString(9999, buffer, sizeof buffer), 0);
    EXPECT_STREQ(buffer, "");
    EXPECT_EQ(AfxLoadString(4147, buffer, 0), 0);
}

TEST(Module, InsertsGoByNumber)
{
    const Library library(newer);
    CString text;
    AfxFormatString2(text, 310, "one%2", "two");
    EXPECT_EQ(text, "two of one%2, ? and 100%");
    AfxFormatString1(text, 310, nullptr);
    EXPECT_EQ(text, "? of , ? and 100%");
    AfxFormatString1(text, 9999, "x");
    EXPECT_TRUE(text.IsEmpty());
}

TEST(Module, LookupsGoOnWhileLibrariesComeAndGo)
{
    std::thread loader([] {
        for (int i = 0; i < 300; ++i) const Library library(newer);
    });
    for (int i = 0; i < 300; ++i) EXPECT_EQ(Text(4102).Left(7), "Invalid");
    loader.join();
}

TEST(MessageBox, WithoutAHandlerTheAnswerIsCautious)
{
    struct {
        UINT flags;
        int answer;
    } const cases[] = {{MB_OK | MB_ICONSTOP, IDOK},        {MB_OKCANCEL, IDCANCEL},
                       {MB_YESNO | MB_ICONQUESTION, IDNO}, {MB_YESNOCANCEL, IDCANCEL},
                       {MB_RETRYCANCEL, IDCANCEL},         {MB_ABORTRETRYIGNORE, IDABORT}};
    for (const auto& c : cases) {
        testing::internal::CaptureStderr();
        EXPECT_EQ(StockMessageBox(nullptr, 4147u, c.flags), c.answer);
        EXPECT_EQ(testing::internal::GetCapturedStderr(), "Data is corrupt.\n");
    }
}

TEST(MessageBox, HandlerGetsTextAndFlagsAndDecides)
{
    static std::string seen;
    const auto old = SetMessageBoxHandler([](CWnd*, const char* text, UINT flags) {
        seen = std::to_string(flags) + text;
        return IDYES;
    });
    EXPECT_EQ(AfxMessageBox("Save?", MB_YESNO), IDYES);
    EXPECT_EQ(seen, "4Save?");
    SetMessageBoxHandler(old);
}

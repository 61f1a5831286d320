#include "corekit/platform/CriticalSection.h"
#include "corekit/platform/Errors.h"
#include "corekit/platform/Interlocked.h"
#include "corekit/platform/Threads.h"

#include "tests/TempFolder.h"

#include <gtest/gtest.h>
#include <regex>
#include <string>
#include <string_view>
#include <thread>
#include <vector>

namespace {

TEST(LastError, BelongsToTheThread)
{
    SetLastError(5);
    std::thread([] {
        EXPECT_EQ(GetLastError(), 0u);
        SetLastError(6);
    }).join();
    EXPECT_EQ(GetLastError(), 5u);
}

TEST(ErrorTexts, EveryNumberHasALineAndShortBuffersAreRefused)
{
    char text[256];
    for (const DWORD code : {0u, 2u, 32u, 112u, 258u, 10054u, 10061u, 54321u, 0xFFFFFFFFu}) {
        const DWORD length =
            FormatMessageA(FORMAT_MESSAGE_FROM_SYSTEM, nullptr, code, 0, text, sizeof text, nullptr);
        ASSERT_GT(length, 2u) << code;
        EXPECT_EQ(std::string_view(text).size(), length);
        EXPECT_EQ(std::string_view(text).substr(length - 2), "\r\n");
    }
    EXPECT_STREQ(text, "Unknown error 4294967295\r\n");
    const DWORD length =
        FormatMessageA(FORMAT_MESSAGE_FROM_SYSTEM, nullptr, 5, 0, text, sizeof text, nullptr);
    EXPECT_EQ(FormatMessageA(FORMAT_MESSAGE_FROM_SYSTEM, nullptr, 5, 0, text, length, nullptr), 0u);
    EXPECT_EQ(GetLastError(), ERROR_INSUFFICIENT_BUFFER);
    EXPECT_EQ(FormatMessageA(0x400, "x", 0, 0, text, sizeof text, nullptr), 0u);
    EXPECT_EQ(GetLastError(), ERROR_INVALID_PARAMETER);
}

// Every number that a header or a source of the platform names.
TEST(ErrorTexts, EveryNumberOfThePlatformHasOne)
{
    const std::regex constant(R"(\b((?:ERROR_|WSA[A-Z]|WSA_E|WAIT_TIMEOUT|STG_E_)\w*) = )"
                              R"((?:static_cast<HRESULT>\()?(0x[0-9A-Fa-f]+|\d+))");
    int found = 0;
    for (const auto& entry :
         std::filesystem::recursive_directory_iterator(TEST_DATA "/../../corekit/platform")) {
        if (!entry.is_regular_file()) continue;
        const std::string source = ReadWhole(entry.path());
        for (std::sregex_iterator row(source.begin(), source.end(), constant), end; row != end;
             ++row, ++found) {
            const auto code = static_cast<DWORD>(std::stoul((*row)[2], nullptr, 0));
            char text[256];
            FormatMessageA(FORMAT_MESSAGE_FROM_SYSTEM, nullptr, code, 0, text, sizeof text, nullptr);
            EXPECT_EQ(std::string_view(text).substr(0, 13) == "Unknown error", false) << (*row)[1];
        }
    }
    EXPECT_GT(found, 90);
}

TEST(Interlocked, CountsSurviveManyThreads)
{
    volatile LONG count = 0;
    std::vector<std::thread> threads;
    for (int i = 0; i < 4; ++i)
        threads.emplace_back([&] {
            for (int turn = 0; turn < 5000; ++turn) {
                InterlockedIncrement(&count);
                InterlockedExchangeAdd(&count, 2);
                InterlockedDecrement(&count);
            }
        });
    for (std::thread& thread : threads) thread.join();
    EXPECT_EQ(count, 4 * 5000 * 2);
    EXPECT_EQ(InterlockedCompareExchange(&count, 1, 0), 40000);
    EXPECT_EQ(InterlockedCompareExchange(&count, 1, 40000), 40000);
    EXPECT_EQ(InterlockedExchange(&count, 9), 1);
    EXPECT_EQ(InterlockedIncrement(&count), 10);
}

TEST(CriticalSection, CountsFollowEntriesOfTheHolder)
{
    CRITICAL_SECTION section;
    InitializeCriticalSection(&section);
    EXPECT_EQ(section.LockCount, -1);
    EnterCriticalSection(&section);
    EXPECT_EQ(section.LockCount, 0);
    EXPECT_TRUE(TryEnterCriticalSection(&section));
    EXPECT_EQ(section.LockCount, 1);
    EXPECT_EQ(section.RecursionCount, 2);
    EXPECT_EQ(section.OwningThread, GetCurrentThreadId());
    std::thread([&] {
        EXPECT_FALSE(TryEnterCriticalSection(&section));
        LeaveCriticalSection(&section); // not inside: no effect
    }).join();
    LeaveCriticalSection(&section);
    LeaveCriticalSection(&section);
    EXPECT_EQ(section.LockCount, -1);
    EXPECT_EQ(section.OwningThread, 0u);
    std::thread([&] {
        EXPECT_TRUE(TryEnterCriticalSection(&section));
        LeaveCriticalSection(&section);
    }).join();
    DeleteCriticalSection(&section);
}

} // namespace

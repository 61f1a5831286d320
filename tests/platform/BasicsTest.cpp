#include "corekit/platform/CriticalSection.h"
#include "corekit/platform/Errors.h"
#include "corekit/platform/Interlocked.h"
#include "corekit/platform/Threads.h"

#include "tests/support/TempFolder.h"

#include <algorithm>
#include <cctype>
#include <cstdlib>
#include <gtest/gtest.h>
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

// Constants such as "ERROR_BUSY = 170", name and number, from `at` on; nothing is left of the text at the
// end.
struct NamedNumber {
    std::string name;
    DWORD number;
};
bool NextErrorConstant(const std::string& source, std::size_t& at, NamedNumber& found)
{
    constexpr std::string_view beginnings[] = {"ERROR_", "WSA", "WAIT_TIMEOUT", "STG_E_"};
    constexpr std::string_view cast = "static_cast<HRESULT>(";
    while ((at = source.find(" = ", at)) != source.npos) {
        std::size_t name = at;
        while (name > 0 &&
               (std::isalnum(static_cast<unsigned char>(source[name - 1])) || source[name - 1] == '_'))
            --name;
        found.name = source.substr(name, at - name);
        std::size_t number = at + 3;
        if (source.compare(number, cast.size(), cast) == 0) number += cast.size();
        at += 3;
        const bool isError =
            std::ranges::any_of(beginnings, [&](auto b) { return found.name.starts_with(b); });
        if (!isError || !std::isdigit(static_cast<unsigned char>(source[number]))) continue;
        found.number = static_cast<DWORD>(std::strtoul(source.c_str() + number, nullptr, 0));
        return true;
    }
    return false;
}

// Every number that a header or a source of the platform names.
TEST(ErrorTexts, EveryNumberOfThePlatformHasOne)
{
    int count = 0;
    for (const auto& entry :
         std::filesystem::recursive_directory_iterator(TEST_DATA "/../../corekit/platform")) {
        if (!entry.is_regular_file()) continue;
        const std::string source = ReadWhole(entry.path());
        NamedNumber constant;
        for (std::size_t at = 0; NextErrorConstant(source, at, constant); ++count) {
            char text[256];
            FormatMessageA(FORMAT_MESSAGE_FROM_SYSTEM, nullptr, constant.number, 0, text, sizeof text,
                           nullptr);
            EXPECT_FALSE(std::string_view(text).starts_with("Unknown error")) << constant.name;
        }
    }
    EXPECT_GT(count, 90);
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

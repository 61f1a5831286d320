// Handles, threads, formats, folders, the system's answers and version records.
#include "corekit/foundation/SystemHelpers.h"
#include "corekit/foundation/ChainedException.h"
#include "corekit/foundation/ShellHelpers.h"
#include "corekit/foundation/SystemInfo.h"
#include "corekit/foundation/VersionData.h"
#include "corekit/framework/Module.h"
#include "corekit/platform/Libraries.h"
#include "corekit/platform/Overlapped.h"
#include "tests/support/Forked.h"
#include "tests/support/TempFolder.h"
#include "tests/support/Thrown.h"

#include <cstring>
#include <gtest/gtest.h>
#include <sys/utsname.h>

namespace {
class Variable {
public:
    Variable(const char* name, const std::string& value) : m_name(name)
    {
        if (const char* old = std::getenv(name)) m_old = old;
        value.empty() ? unsetenv(name) : setenv(name, value.c_str(), 1);
    }
    ~Variable() { m_old.empty() ? unsetenv(m_name) : setenv(m_name, m_old.c_str(), 1); }

private:
    const char* m_name;
    std::string m_old;
};

UINT Raise(void* event) { return SetEvent(event) ? 7 : 0; }
} // namespace

TEST(SystemHelpers, ADuplicateKeepsTheObjectAlive)
{
    void* const event = scCreateEvent(nullptr, 1, 0, nullptr);
    void* const copy = scDuplicateHandle(event);
    EXPECT_NE(copy, event);
    EXPECT_TRUE(CloseHandle(event));
    EXPECT_EQ(WaitForSingleObject(copy, 0), WAIT_TIMEOUT);
    CWinThread* const thread = scBeginThread(&Raise, copy, THREAD_PRIORITY_NORMAL, 0, CREATE_SUSPENDED);
    void* const running = scDuplicateHandle(thread->m_hThread);
    thread->ResumeThread();
    EXPECT_EQ(WaitForSingleObject(running, 60'000), WAIT_OBJECT_0);
    DWORD code = 0;
    EXPECT_TRUE(GetExitCodeThread(running, &code));
    EXPECT_EQ(code, 7u);
    EXPECT_EQ(WaitForSingleObject(copy, 0), WAIT_OBJECT_0);
    EXPECT_TRUE(CloseHandle(running) && CloseHandle(copy));
    EXPECT_FALSE(CloseHandle(copy));
    for (void* wrong : {static_cast<void*>(nullptr), event})
        EXPECT_EQ(ThrownLine([wrong] { scDuplicateHandle(wrong); }),
                  "Attempt to duplicate an operating system handle failed.");
    void* const mutex = CreateMutexA(nullptr, 0, "a mutex has this name");
    EXPECT_NE(ThrownLine([] { scCreateEvent(nullptr, 0, 0, "a mutex has this name"); }), "nothing");
    CloseHandle(mutex);
}

TEST(SystemHelpers, AnOverlappedTransferThatTakesTooLongTimesOut)
{
    OVERLAPPED transfer;
    transfer.hEvent = scCreateEvent(nullptr, 1, 0, nullptr);
    transfer.Internal = STATUS_PENDING;
    DWORD moved = 1;
    EXPECT_EQ(GetOverlappedResultWithTimeout(nullptr, &transfer, &moved, 1), 0);
    EXPECT_EQ(GetLastError(), 1460u);
    transfer.Internal = 0;
    transfer.InternalHigh = 12;
    SetEvent(transfer.hEvent);
    EXPECT_EQ(GetOverlappedResultWithTimeout(nullptr, &transfer, &moved, 1), 1);
    EXPECT_EQ(moved, 12u);
    transfer.Internal = ERROR_HANDLE_EOF;
    EXPECT_EQ(GetOverlappedResultWithTimeout(nullptr, &transfer, &moved, 1), 0);
    EXPECT_EQ(GetLastError(), ERROR_HANDLE_EOF);
    CloseHandle(transfer.hEvent);
}

TEST(SystemHelpers, TextsAndIdentifiersAreFormattedAndRead)
{
    EXPECT_STREQ(scFormatString("%s %d", "a", 7), "a 7");
    EXPECT_STREQ(scFormatString(4189u), "Shell Error");
    EXPECT_STREQ(static_cast<const char*>(scFormatStringA("%03d", 7)), "007");
    EXPECT_TRUE(scFormatStringW(u"%d", 7) == u"7");
    EXPECT_STREQ(scFormatHex32(0xABCDEF), "00ABCDEF");
    EXPECT_STREQ(static_cast<const char*>(scFormatHex32A(0xFFFFFFFF)), "FFFFFFFF");
    EXPECT_TRUE(scFormatHex32W(1) == u"00000001");
    const _GUID id{0x12345678, 0x9ABC, 0xDEF0, {1, 2, 3, 4, 5, 6, 7, 8}};
    EXPECT_STREQ(StringFromClassID(id), "{12345678-9ABC-DEF0-0102-030405060708}");
    EXPECT_EQ(ClassIDFromString("{12345678-9abc-def0-0102-030405060708}"), id);
    for (const char* wrong : {"", "{12345678-9abc-def0-0102-030405060708}x", "nonsense"})
        EXPECT_EQ(ClassIDFromString(wrong), _GUID{}) << wrong;
    EXPECT_EQ(ClassIDFromString(nullptr), _GUID{});
    CVersionData object;
    EXPECT_STREQ(scGetClassName(&object), "CVersionData");
}

TEST(SystemHelpers, ResourcesComeFromTheProgramOrTheNewestModule)
{
    static constexpr std::byte first[] = {std::byte{1}, std::byte{2}, std::byte{3}},
                               second[] = {std::byte{9}};
    static constexpr BinaryResource ofLibrary[] = {{"WAVE", "Bell", first}, {"#10", "#101", second}};
    static constexpr BinaryResource ofProgram[] = {{"wave", "BELL", second}, {"wave", "none", {}}};
    AFX_EXTENSION_MODULE module;
    module.resources = ofLibrary;
    ASSERT_TRUE(AfxInitExtensionModule(module, nullptr));
    new CDynLinkLibrary(module);
    CByteArray data;
    EXPECT_EQ(scLoadResource("bell", "Wave", data), 1);
    EXPECT_EQ(data.GetSize(), 3);
    EXPECT_EQ(data.GetAt(2), 3);
    const auto number = [](std::uintptr_t id) { return reinterpret_cast<const char*>(id); };
    EXPECT_EQ(scLoadResource(number(101), number(10), data), 1);
    EXPECT_EQ(data.GetSize() * 10 + data.GetAt(0), 19);
    EXPECT_EQ(scLoadResource("bell", "picture", data), 0);
    EXPECT_EQ(data.GetSize(), 1);
    AfxSetResources(ofProgram);
    EXPECT_EQ(scLoadResource("Bell", "WAVE", data) * 10 + data.GetSize(), 11);
    EXPECT_EQ(scLoadResource("none", "WAVE", data) * 10 + data.GetSize(), 10);
    AfxSetResources({});
    AfxTermExtensionModule(module);
    EXPECT_EQ(scLoadResource("bell", "wave", data), 0);
}

TEST(SystemInfo, ARemoteSessionIsNamedBehindTheComputer)
{
    DWORD session = 99;
    EXPECT_TRUE(ProcessIdToSessionId(GetCurrentProcessId(), &session));
    EXPECT_FALSE(ProcessIdToSessionId(0x7FFFFFFF, &session));
    EXPECT_EQ(GetLastError(), ERROR_INVALID_PARAMETER);
    const Variable here[] = {{"XRDP_SESSION", ""}, {"X2GO_SESSION", ""}};
    const CString plain = CSystemInfo().GetComputerNameA();
    EXPECT_FALSE(CSystemInfo().IsTerminalServer());
    const Variable remote("XRDP_SESSION", "1");
    const CSystemInfo info;
    EXPECT_EQ(info.IsTerminalServer(), session != 0);
    EXPECT_STREQ(info.GetComputerNameA(),
                 session ? scFormatString("%s_%u", plain.GetString(), session) : plain);
}

TEST(ShellFolders, UserFoldersComeFromTheirFile)
{
    const TempFolder home;
    const Variable set[] = {{"HOME", home.Path()},
                            {"XDG_CONFIG_HOME", ""},
                            {"XDG_DATA_HOME", "relative"},
                            {"XDG_DOCUMENTS_DIR", ""},
                            {"XDG_MUSIC_DIR", ""}};
    EXPECT_STREQ(ShellGetSpecialFolder(CSIDL_PERSONAL), (home / "Documents").c_str());
    std::filesystem::create_directory(home / ".config");
    WriteWhole(
        home / ".config/user-dirs.dirs",
        "# mine\nXDG_DOCUMENTS_DIR=\"$HOME/Papers\"\nXDG_MUSIC_DIR=\"/srv/music\"\nXDG_VIDEOS_DIR=\"bad\"\n");
    EXPECT_STREQ(ShellGetSpecialFolder(CSIDL_PERSONAL), (home / "Papers").c_str());
    EXPECT_STREQ(ShellGetSpecialFolder(CSIDL_MYMUSIC), "/srv/music");
    EXPECT_STREQ(ShellGetSpecialFolder(CSIDL_MYVIDEO), (home / "Videos").c_str());
    EXPECT_STREQ(ShellGetSpecialFolder(CSIDL_APPDATA), (home / ".config").c_str());
    EXPECT_STREQ(ShellGetSpecialFolder(CSIDL_LOCAL_APPDATA), (home / ".local/share").c_str());
    const Variable far("XDG_DATA_HOME", "/" + std::string(300, 'x'));
    EXPECT_EQ(ThrownLine([] { ShellGetSpecialFolder(CSIDL_LOCAL_APPDATA); }), "Shell Error");
    EXPECT_EQ(ThrownLine([] { ShellGetSpecialFolder(0x7777); }), "Shell Error");
}

TEST(ShellFolders, AControlThatCannotRegisterIsNamed)
{
    for (const char* path : {"/no/such.so", "libm.so.6"})
        EXPECT_EQ(ThrownLine([path] { scRegisterOleControl(path); }),
                  "Error: OLE Control cannot be registered - module \"" + std::string(path) +
                      "\" is missing or invalid.");
}

TEST(SystemInfo, AnswersAreThoseOfThisMachine)
{
    const CSystemInfo& info = SysInfo();
    utsname system;
    uname(&system);
    unsigned major = 0, minor = 0;
    std::sscanf(system.release, "%u.%u", &major, &minor);
    EXPECT_EQ(info.GetOSVersion(), major * 256 + minor);
    EXPECT_TRUE(info.IsPlatformWindowsNT() && info.IsPlatformUnicode() && info.IsNewWindowsUI());
    EXPECT_FALSE(info.IsPlatformWindows95() || info.IsPlatformWin32s() || info.IsOldWindowsUI());
    EXPECT_GE(info.GetProcessorCount(), 1);
    EXPECT_EQ(std::string(system.nodename).rfind(info.GetComputerNameA(), 0), 0u);
    EXPECT_STREQ(info.GetSystem16BitDirectory(),
                 (std::string(info.GetWindowsDirectoryA()) + "\\System").c_str());
    EXPECT_NE(std::string(info.GetTempDirectory()).back(), '/');
    EXPECT_EQ(info.GetWorkAreaSize(), CSize(640, 480)); // nothing here has a screen
    EXPECT_FALSE(info.IsTerminalServer());
}

TEST(SystemInfo, ServicePacksHaveOneFigure)
{
    EXPECT_EQ(CSystemInfo::ServicePackLevelOf(""), 0);
    EXPECT_EQ(CSystemInfo::ServicePackLevelOf("Service Pack 6a"), 6);
    EXPECT_EQ(CSystemInfo::ServicePackLevelOf("Service Pack 12"), 1);
    EXPECT_EQ(CSystemInfo::ServicePackLevelOf("Service Pack "), 0);
    EXPECT_EQ(CSystemInfo::ServicePackLevelOf("Release 6"), -1);
}

TEST(VersionRecord, TheProgramHoldsItsOwn)
{
    CVersionData data;
    ASSERT_EQ(data.Initialise(static_cast<HINSTANCE>(nullptr)), 1);
    DWORDLONG version = 0;
    EXPECT_EQ(data.GetFileVersion(version), 1);
    EXPECT_EQ(version, 0x0001000200030004u);
    EXPECT_EQ(data.GetProductVersion(version), 1);
    EXPECT_EQ(version, 0x0005000000000000u);
    CString text = "old";
    EXPECT_EQ(data.GetFileVersion(text), 1);
    EXPECT_STREQ(text, "1.2.3.4");
    EXPECT_EQ(data.GetFileDescription(text), 1);
    EXPECT_STREQ(text, "Tests \"of\" the; found\xC3\xA4tion\\");
    EXPECT_EQ(data.GetSpecialBuild(text), 0);
    EXPECT_STREQ(text, "Tests \"of\" the; found\xC3\xA4tion\\");
}

TEST(VersionRecord, WhatIsNoRecordIsRefusedAtEveryLength)
{
    const TempFolder folder;
    CVersionData data;
    DWORDLONG version = 0;
    EXPECT_EQ(data.Initialise("/no/such/file"), 0);
    EXPECT_EQ(data.Initialise(reinterpret_cast<HINSTANCE>(&version)), 0); // the stack is no module
    EXPECT_EQ(data.GetFileVersion(version), 0);
    const std::string sound = ReadWhole(TEST_DATA "/../../fuzz/seeds/VersionRecord/sound");
    ASSERT_FALSE(sound.empty());
    for (std::size_t length = 0; length <= sound.size(); ++length) {
        WriteWhole(folder / "cut", sound.substr(0, length));
        EXPECT_EQ(data.Initialise((folder / "cut").c_str()), length == sound.size()) << length;
    }
}

#ifndef COREKIT_SANITIZED // whose own memory no limit suits
TEST(SystemHelpers, AThreadThatCannotStartIsThrown)
{
    EXPECT_EQ(InChild([] {
                  LimitTo(RLIMIT_AS, 1u << 30);
                  const std::string text = ThrownLine([] { scBeginThread(&Raise, nullptr, 0, 3u << 30); });
                  return text == "There is not enough memory." ? 7 : 0;
              }),
              7);
}
#endif

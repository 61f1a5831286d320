#include "tests/devices/Line.h"

#include "corekit/devices/SerialPort.h"
#include "corekit/platform/Errors.h"
#include "corekit/platform/Overlapped.h"
#include "corekit/platform/Threads.h"
#include "corekit/platform/Waits.h"
#include "corekit/stores/RegistryKey.h"

#include <chrono>
#include <numeric>
#include <thread>

namespace {

using Clock = std::chrono::steady_clock;

class SerialPort : public Line {
protected:
    std::string Read(unsigned long size)
    {
        std::string bytes(size, '\0');
        unsigned long received = 0;
        if (!port.ReadSynchronous(bytes.data(), size, received))
            return "error " + std::to_string(GetLastError());
        return bytes.substr(0, received);
    }

    CSerialPort port;
};

TEST_F(SerialPort, EverySettingReachesTheLine)
{
    const struct {
        int rate, stopBits;
        eFlowControlMode flow;
        speed_t speed;
        bool twoStopBits, hardware, software;
    } cases[] = {
        {9600, 0, flowHardware, B9600, false, true, false},
        {50, 1, flowNone, B50, true, false, false},
        {460800, 2, flowSoftware, B460800, true, false, true},
        {115200, 0, static_cast<eFlowControlMode>(9), B115200, false, false, false},
    };
    for (const auto& set : cases) {
        SCOPED_TRACE(set.rate);
        ASSERT_TRUE(port.OpenPort(number, set.rate, 0, 8, set.stopBits, set.flow, nullptr));
        const termios line = Seen();
        EXPECT_EQ(cfgetospeed(&line), set.speed);
        EXPECT_EQ(cfgetispeed(&line), set.speed);
        EXPECT_EQ((line.c_cflag & CSTOPB) != 0, set.twoStopBits);
        EXPECT_EQ((line.c_cflag & CRTSCTS) != 0, set.hardware);
        EXPECT_EQ((line.c_iflag & IXON) != 0, set.software);
        EXPECT_EQ((line.c_iflag & IXOFF) != 0, set.software);
        EXPECT_EQ(line.c_lflag & (ICANON | ECHO | ISIG), 0u);
        if (set.software) {
            EXPECT_EQ(line.c_cc[VSTART], 17);
            EXPECT_EQ(line.c_cc[VSTOP], 19);
        }
        port.Close();
    }
}

// A pseudo-terminal has always eight bits and no parity bit; of a parity it keeps its kind.
TEST_F(SerialPort, ParitiesReachTheLineAndWrongSettingsAreRefused)
{
    for (const int parity : {1, 2, 3, 4}) {
        ASSERT_TRUE(port.OpenPort(number, 9600, parity, 7, 0, flowNone, nullptr));
        const termios line = Seen();
        EXPECT_EQ((line.c_cflag & PARODD) != 0, parity == 1 || parity == 3) << parity;
        EXPECT_EQ((line.c_cflag & CMSPAR) != 0, parity >= 3) << parity;
        EXPECT_NE(line.c_iflag & INPCK, 0u) << parity;
    }
    const int wrong[][3] = {{5, 8, 0}, {-1, 8, 0}, {0, 4, 0}, {0, 9, 0}, {0, 8, 3}, {256, 8, 0}, {0, 264, 0}};
    for (const auto& [parity, dataBits, stopBits] : wrong) {
        EXPECT_FALSE(port.OpenPort(number, 9600, parity, dataBits, stopBits, flowNone, nullptr));
        EXPECT_EQ(GetLastError(), ERROR_INVALID_PARAMETER);
        EXPECT_FALSE(port.IsOpen());
    }
    EXPECT_FALSE(port.OpenPort(number, 0, 0, 8, 0, flowNone, nullptr));
}

TEST_F(SerialPort, OpeningAloneLeavesTheLineAsItWas)
{
    termios before = Seen();
    cfsetspeed(&before, B4800);
    before.c_cflag |= CSTOPB;
    before.c_iflag |= IXOFF;
    tcsetattr(other, TCSANOW, &before);
    ASSERT_TRUE(port.OpenPort(number, nullptr));
    EXPECT_STREQ(port.GetPortName(), "\\\\.\\COM7");
    EXPECT_EQ(Seen().c_cflag | CLOCAL, before.c_cflag | CLOCAL);
    EXPECT_NE(Seen().c_iflag & IXOFF, 0u);
    DCB dcb{};
    ASSERT_TRUE(GetCommState(port, &dcb));
    EXPECT_EQ(dcb.BaudRate, 4800u);
    EXPECT_EQ(dcb.StopBits, TWOSTOPBITS);
    dcb.BaudRate = 31250; // a rate that has no name
    ASSERT_TRUE(port.SetCommState(dcb));
    ASSERT_TRUE(GetCommState(port, &dcb));
    EXPECT_EQ(dcb.BaudRate, 31250u);
}

TEST_F(SerialPort, WhatCannotBeOpenedSaysWhy)
{
    WriteWhole(folder / "dev/COM8", "a file");
    ASSERT_TRUE(port.OpenPort(number, nullptr));
    const struct {
        int number;
        DWORD error;
    } cases[] = {{0, ERROR_FILE_NOT_FOUND},  {3, ERROR_FILE_NOT_FOUND},   {9999, ERROR_FILE_NOT_FOUND},
                 {-1, ERROR_FILE_NOT_FOUND}, {8, ERROR_INVALID_FUNCTION}, {number, ERROR_ACCESS_DENIED}};
    for (const auto& wrong : cases) {
        CSerialPort second;
        EXPECT_FALSE(second.OpenPort(wrong.number, nullptr));
        EXPECT_EQ(GetLastError(), wrong.error) << wrong.number;
        unsigned long received = 0;
        EXPECT_FALSE(second.ReadSynchronous(&received, 1, received));
        EXPECT_FALSE(second.WriteSynchronous("x", 1));
    }
    port.Close();
    EXPECT_TRUE(port.OpenPort(number, nullptr)); // again, at once
}

TEST_F(SerialPort, TimeoutsEndAReadWithWhatHasCome)
{
    ASSERT_TRUE(port.OpenPort(number, nullptr));
    const struct {
        COMMTIMEOUTS timeouts;
        std::string sent;
        int leastMs, mostMs;
    } cases[] = {
        {{INFINITE, 0, 0, 0, 0}, "", 0, 500},
        {{INFINITE, 0, 0, 0, 0}, "abc", 0, 500},
        {{INFINITE, INFINITE, 80, 0, 0}, "", 80, 2000},
        {{INFINITE, INFINITE, 5000, 0, 0}, "abc", 0, 2000},
        {{0, 0, 100, 0, 0}, "abc", 100, 2000},
        {{0, 10, 0, 0, 0}, "", 80, 2000},
        {{60, 0, 0, 0, 0}, "abc", 60, 2000},
        {{0, 0, 0, 0, 0}, "abcdefgh", 0, 2000},
    };
    for (const auto& limit : cases) {
        SCOPED_TRACE(&limit - cases);
        COMMTIMEOUTS timeouts = limit.timeouts;
        ASSERT_TRUE(port.SetCommTimeouts(timeouts));
        Send(limit.sent);
        if (!limit.sent.empty()) usleep(30000); // so that it has arrived
        const auto begun = Clock::now();
        EXPECT_EQ(Read(8), limit.sent);
        const auto took = std::chrono::duration_cast<std::chrono::milliseconds>(Clock::now() - begun).count();
        EXPECT_GE(took, limit.leastMs);
        EXPECT_LE(took, limit.mostMs);
    }
}

// Nobody takes what is written: the buffers fill, the time is over, and nothing more is taken.
TEST_F(SerialPort, AFullBufferEndsAWriteThatHasALimit)
{
    ASSERT_TRUE(port.OpenPort(number, 9600, 0, 8, 0, flowNone, nullptr));
    COMMTIMEOUTS timeouts{0, 0, 0, 0, 50};
    port.SetCommTimeouts(timeouts);
    const std::string much(1 << 20, 'x');
    EXPECT_FALSE(port.WriteSynchronous(much.data(), much.size()));
    EXPECT_TRUE(port.FlushPort(1, 0));
    EXPECT_TRUE(port.WriteSynchronous("", 0));
}

TEST_F(SerialPort, TheEventWakesWaitersOnOtherThreads)
{
    ASSERT_TRUE(port.OpenPort(number, nullptr));
    char buffer[4] = {};
    OVERLAPPED overlapped;
    overlapped.hEvent = CreateEventA(nullptr, TRUE, FALSE, nullptr);
    DWORD moved = 0;
    EXPECT_FALSE(ReadFile(port, buffer, 4, &moved, &overlapped));
    EXPECT_EQ(GetLastError(), ERROR_IO_PENDING);
    EXPECT_EQ(WaitForSingleObject(overlapped.hEvent, 20), WAIT_TIMEOUT);
    Send("ab");
    Send("cd");
    EXPECT_EQ(WaitForSingleObject(overlapped.hEvent, 10000), WAIT_OBJECT_0);
    EXPECT_TRUE(GetOverlappedResult(port, &overlapped, &moved, FALSE));
    EXPECT_EQ(std::string(buffer, moved), "abcd");
    ReadFile(port, buffer, 4, &moved, &overlapped);
    port.PurgeComm(PURGE_RXABORT);
    EXPECT_FALSE(GetOverlappedResult(port, &overlapped, &moved, TRUE));
    EXPECT_EQ(GetLastError(), ERROR_OPERATION_ABORTED);
    CloseHandle(overlapped.hEvent);
}

TEST_F(SerialPort, AbortEndsAReadThatWaits)
{
    ASSERT_TRUE(port.OpenPort(number, nullptr));
    std::thread ender([this] {
        usleep(50000);
        port.PurgeComm(PURGE_RXABORT);
    });
    EXPECT_EQ(Read(1), "error 995");
    ender.join();
}

TEST_F(SerialPort, AHangUpInTheMiddleLosesNothingAndIsReported)
{
    ASSERT_TRUE(port.OpenPort(number, nullptr));
    Send("abc");
    std::thread ender([this] {
        usleep(100000);
        HangUp();
    });
    EXPECT_EQ(Read(8), "abc");
    ender.join();
    EXPECT_EQ(Read(8), "error 1117");
    EXPECT_FALSE(port.WriteSynchronous("x", 1));
    EXPECT_EQ(GetLastError(), ERROR_IO_DEVICE);
}

// One thread reads while another writes; the other side sends back what it gets.
TEST_F(SerialPort, SixteenMegabytesPassBothWaysUnchanged)
{
    ASSERT_TRUE(port.OpenPort(number, 115200, 0, 8, 0, flowNone, nullptr));
    constexpr std::size_t total = std::size_t{16} << 20;
    std::string sent(total, '\0');
    std::uint32_t state = 1;
    for (char& c : sent) c = static_cast<char>((state = state * 1664525 + 1013904223) >> 24);
    std::thread mirror([this] {
        std::size_t left = total;
        for (std::string part; left > 0; left -= part.size()) {
            part = Receive(std::min<std::size_t>(left, 1024));
            if (part.empty()) return;
            Send(part);
        }
    });
    std::thread writer([&] { EXPECT_TRUE(port.WriteSynchronous(sent.data(), sent.size())); });
    std::string received(total, '\0');
    unsigned long count = 0;
    EXPECT_TRUE(port.ReadSynchronous(received.data(), total, count));
    writer.join();
    mirror.join();
    EXPECT_EQ(count, total);
    EXPECT_TRUE(received == sent);
}

TEST_F(SerialPort, PortsAreListedFromWhatTheKernelShows)
{
    const std::string classes = folder / "sys/class/tty/";
    const auto add = [&](const std::string& name, const std::string& type) {
        std::filesystem::create_directories(classes + name + "/device");
        if (!type.empty()) WriteWhole(classes + name + "/type", type + "\n");
    };
    add("ttyS0", "4");
    add("ttyS1", "0"); // provided for, not found
    add("ttyUSB2", "");
    std::filesystem::create_directories(classes + "tty5"); // a screen
    std::filesystem::create_directory_symlink("gone",
                                              classes + "ttyS3"); // unplugged while the folder is read
    WriteWhole(classes + "ttyUSB2/device/product", "Prompter Link\n");
    CArray<int, int> ports;
    ports.Add(99);
    CSerialPort::GetPortList(ports);
    ASSERT_EQ(ports.GetSize(), 3);
    EXPECT_EQ(ports[0], number);
    EXPECT_EQ(ports[1], 1);
    EXPECT_EQ(ports[2], 35);
    EXPECT_EQ(ListSerialPorts().back().description, "Prompter Link");

    // What is unplugged goes; what others have entered stays.
    CRegistryKey map;
    ASSERT_TRUE(map.Open(HKEY_LOCAL_MACHINE, "Hardware\\DeviceMap\\SerialComm"));
    map.SetValue("\\Device\\Serial9", "COM10");
    std::filesystem::remove_all(classes + "ttyUSB2");
    CSerialPort::GetPortList(ports);
    ASSERT_EQ(ports.GetSize(), 3);
    EXPECT_EQ(ports[1], 1);
    EXPECT_EQ(ports[2], 10);
}

} // namespace

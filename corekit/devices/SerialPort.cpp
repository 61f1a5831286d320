#include "corekit/devices/SerialPort.h"

#include "corekit/foundation/SystemHelpers.h"
#include "corekit/foundation/SystemInfo.h"
#include "corekit/platform/Overlapped.h"
#include "corekit/stores/RegistryKey.h"

#include <algorithm>
#include <cstdlib>
#include <utility>

IMPLEMENT_DYNAMIC(CSerialPort, CObject)

namespace {
constexpr char xon = 17, xoff = 19;
constexpr DWORD readAndWrite = 0x2001F;

DCB lineOf(int baudRate, int parity, int dataBits, int stopBits, eFlowControlMode flow)
{
    DCB dcb{};
    dcb.BaudRate = static_cast<DWORD>(baudRate);
    dcb.ByteSize = static_cast<BYTE>(dataBits);
    dcb.Parity = static_cast<BYTE>(parity);
    dcb.StopBits = static_cast<BYTE>(stopBits);
    dcb.fBinary = 1;
    dcb.fParity = parity != NOPARITY;
    dcb.fDtrControl = DTR_CONTROL_ENABLE;
    dcb.fTXContinueOnXoff = 1;
    dcb.fOutxCtsFlow = flow == flowHardware;
    dcb.fRtsControl = (flow == flowHardware ? RTS_CONTROL_HANDSHAKE : RTS_CONTROL_ENABLE) & 3;
    dcb.fOutX = dcb.fInX = flow == flowSoftware;
    dcb.XonLim = 2;
    dcb.XoffLim = 4;
    dcb.XonChar = xon;
    dcb.XoffChar = xoff;
    return dcb;
}

// Of a transfer, the bytes that one call takes.
DWORD atOnce(unsigned long size) { return static_cast<DWORD>(std::min(size, 0xFFFFFFFFul)); }

// What DCB holds in a byte must not be cut to one that is allowed.
bool fitsBytes(int parity, int dataBits, int stopBits)
{
    return ((parity | dataBits | stopBits) & ~0xFF) == 0;
}
} // namespace

CSerialPort::~CSerialPort()
{
    if (IsOpen()) Close();
}

int CSerialPort::OpenPort(int port, CProgressSink*)
{
    if (IsOpen()) Close();
    m_name.Format("\\\\.\\COM%d", port);
    m_file = CreateFileA(m_name, GENERIC_READ | GENERIC_WRITE, 0, nullptr, OPEN_EXISTING,
                         FILE_FLAG_OVERLAPPED, nullptr);
    if (!IsOpen()) return 0;
    try {
        m_writeEvent = scCreateEvent(nullptr, 1, 0, nullptr);
        m_readEvent = scCreateEvent(nullptr, 1, 0, nullptr);
    } catch (...) {
        Close();
        throw;
    }
    return 1;
}

int CSerialPort::OpenPort(const CSerialPortConfig& config, CProgressSink* progress)
{
    return OpenPort(config.GetPortNumber(), config.GetBaudRate(), config.GetParity(), config.GetDataBits(),
                    config.GetStopBits(), config.GetFlowControl(), progress);
}

int CSerialPort::OpenPort(int port, int baudRate, int parity, int dataBits, int stopBits,
                          eFlowControlMode flow, CProgressSink* progress)
{
    if (!OpenPort(port, progress)) return 0;
    DCB dcb = lineOf(baudRate, parity, dataBits, stopBits, flow);
    const bool fits = fitsBytes(parity, dataBits, stopBits);
    if (fits && SetCommState(dcb)) return 1;
    const DWORD reason = fits ? GetLastError() : ERROR_INVALID_PARAMETER;
    Close();
    SetLastError(reason);
    return 0;
}

void CSerialPort::Close()
{
    CloseHandle(std::exchange(m_file, INVALID_HANDLE_VALUE));
    CloseHandle(std::exchange(m_writeEvent, nullptr));
    CloseHandle(std::exchange(m_readEvent, nullptr));
    m_name.Empty();
}

int CSerialPort::GetCommModemStatus(unsigned long* status)
{
    DWORD signals = 0;
    const int done = ::GetCommModemStatus(m_file, status ? &signals : nullptr);
    if (done) *status = signals;
    return done;
}

void CSerialPort::EscapeCommFunction(unsigned long function)
{
    ::EscapeCommFunction(m_file, static_cast<DWORD>(function));
}

void CSerialPort::PurgeComm(unsigned long flags) { ::PurgeComm(m_file, static_cast<DWORD>(flags)); }

int CSerialPort::SetCommState(_DCB& dcb)
{
    dcb.DCBlength = sizeof dcb;
    return ::SetCommState(m_file, &dcb);
}

int CSerialPort::FlushPort(int clearOutput, int clearInput)
{
    return ::PurgeComm(m_file, (clearOutput ? PURGE_TXCLEAR : 0) | (clearInput ? PURGE_RXCLEAR : 0));
}

int CSerialPort::ReadSynchronous(void* data, unsigned long size, unsigned long& received)
{
    const WaitsAtOnce waits;
    OVERLAPPED overlapped;
    overlapped.hEvent = m_readEvent;
    ResetEvent(m_readEvent);
    DWORD moved = 0;
    int done = ReadFile(m_file, data, atOnce(size), &moved, &overlapped);
    if (!done && GetLastError() == ERROR_IO_PENDING)
        done = GetOverlappedResult(m_file, &overlapped, &moved, TRUE);
    received = moved;
    return done;
}

int CSerialPort::WriteSynchronous(const void* data, unsigned long size)
{
    const WaitsAtOnce waits;
    const char* rest = static_cast<const char*>(data);
    while (size > 0) {
        OVERLAPPED overlapped;
        overlapped.hEvent = m_writeEvent;
        ResetEvent(m_writeEvent);
        DWORD moved = 0;
        int done = WriteFile(m_file, rest, atOnce(size), &moved, &overlapped);
        if (!done && GetLastError() == ERROR_IO_PENDING)
            done = GetOverlappedResult(m_file, &overlapped, &moved, TRUE);
        if (!done || moved == 0) return 0;
        rest += moved;
        size -= moved;
    }
    return 1;
}

void CSerialPort::GetPortList(CArray<int, int>& ports)
{
    ports.RemoveAll();
    UpdateSerialDeviceMap();
    CRegistryKey key;
    if (!key.Open(HKEY_LOCAL_MACHINE, "Hardware\\DeviceMap\\SerialComm", KEY_READ)) return;
    CString name, port;
    DWORD type = 0;
    for (int index = 0; key.EnumValue(index, name, type); ++index)
        if (key.GetValue(name, port)) ports.Add(std::atoi(port.Mid(3)));
    if (SysInfo().IsPlatformWindows95()) GetHandConfiguredPorts(ports);
}

void CSerialPort::GetHandConfiguredPorts(CArray<int, int>& ports)
{
    CRegistryKey key;
    key.Create(HKEY_LOCAL_MACHINE, "Software\\Corvane\\Hardware Device Map\\Serial Ports",
               REG_OPTION_NON_VOLATILE, readAndWrite);
    int count = 0;
    key.GetValue("Count", count);
    for (int index = 0; index < count; ++index) {
        int port = 0;
        if (key.GetValue(scFormatString("Port %d", index), port)) ports.Add(port);
    }
}

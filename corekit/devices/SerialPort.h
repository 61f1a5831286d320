// CSerialPort: one serial port, opened with all its settings, read and written by waiting.
//
//     CSerialPort port;
//     if (!port.OpenPort(CSerialPortConfig(), nullptr)) return GetLastErrorString();
//     COMMTIMEOUTS limits{50, 0, 1000, 0, 0};
//     port.SetCommTimeouts(limits);
//     unsigned long received = 0;
//     if (port.WriteSynchronous("R\r", 2) && port.ReadSynchronous(answer, sizeof answer, received)) ...
//
// The port is open for this object alone; platform/SerialPorts.h tells which device a number stands for. One
// thread may read while another writes; two reads, or two writes, at a time are not allowed, nor is closing
// meanwhile. Operations give nonzero for success, else 0 with the reason as the thread's last error; on a
// closed port they fail with 6.
#pragma once

#include "corekit/devices/SerialPortConfig.h"
#include "corekit/framework/Array.h"
#include "corekit/framework/Object.h"
#include "corekit/framework/String.h"
#include "corekit/platform/SerialPorts.h"

class CProgressSink;
class CWnd;

class COREKIT_API CSerialPort : public CObject {
    DECLARE_DYNAMIC(CSerialPort)
public:
    CSerialPort() = default;
    CSerialPort(const CSerialPort&) = delete;
    CSerialPort& operator=(const CSerialPort&) = delete;
    ~CSerialPort() override; // closes

    // The first leaves the line as it was, the others set all of it; where that fails the port is closed
    // again. The sink is not used and may be null. A port that is open is closed first. Throws the system's
    // reason when there are no events to wait with.
    int OpenPort(int port, CProgressSink* progress);
    int OpenPort(const CSerialPortConfig& config, CProgressSink* progress);
    // `parity` and `stopBits` are the platform's values (EVENPARITY, TWOSTOPBITS).
    int OpenPort(int port, int baudRate, int parity, int dataBits, int stopBits, eFlowControlMode flow,
                 CProgressSink* progress);
    void Close();

    int IsOpen() const { return m_file != INVALID_HANDLE_VALUE; }
    operator void*() const { return m_file; }
    // The device's name that was opened, as in "\\.\COM1".
    CString GetPortName() const { return m_name; }

    int SetCommTimeouts(_COMMTIMEOUTS& timeouts) { return ::SetCommTimeouts(m_file, &timeouts); }
    // The state of the incoming signals, MS_ or-ed together.
    int GetCommModemStatus(unsigned long* status);
    // Sets or clears an outgoing signal or a break (SETDTR and its neighbours); drops what waits (PURGE_).
    // A failure shows only as the last error.
    void EscapeCommFunction(unsigned long function);
    void PurgeComm(unsigned long flags);
    // Sets the structure's length field, too.
    int SetCommState(_DCB& dcb);
    // Drops what is buffered for sending, what has been received, or both.
    int FlushPort(int clearOutput, int clearInput);

    // Waits until all bytes are there, or until the time-outs end it: then it succeeds with fewer, or none.
    int ReadSynchronous(void* data, unsigned long size, unsigned long& received);
    // Waits until all is written. 0 also when a time-out ends it with nothing written.
    int WriteSynchronous(const void* data, unsigned long size);

    // The numbers of the machine's ports, in the order in which they became known.
    static void GetPortList(CArray<int, int>& ports);
    // Shows what program this is, where ports are to be set up by hand; that box's result. Needs the window
    // library; the parent is not used.
    static int ModifyHandConfiguredPorts(CWnd* parent);

private:
    static void GetHandConfiguredPorts(CArray<int, int>& ports);

    CString m_name;
    HANDLE m_file = INVALID_HANDLE_VALUE;
    HANDLE m_writeEvent = nullptr;
    HANDLE m_readEvent = nullptr;
};

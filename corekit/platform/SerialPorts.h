// Serial ports.
//
// A port is opened as a file named "\\.\COM3", for itself alone and for overlapped transfers:
//
//     HANDLE port = CreateFileA("\\\\.\\COM3", GENERIC_READ | GENERIC_WRITE, 0, nullptr, OPEN_EXISTING,
//                               FILE_FLAG_OVERLAPPED, nullptr);
//
// COM1 to COM32 are the devices ttyS0 to ttyS31, COM33 to COM64 ttyUSB0 and up, COM65 to COM96 ttyACM0 and
// up, COM97 to COM128 ttyAMA0 and up. A file of the very name ("COM3") in the folder of devices, such as a
// link that the machine's owner has made, goes before that. Opening fails with 2 where there is no such
// device, with 5 where another program or handle has it open, with 1 for what is no serial port.
//
// Opening leaves rate, bits and flow control as they were. Bytes pass as they are: no line is edited, nothing
// is echoed. A line that is hung up ends the read under way with what has come, and what follows fails
// with 1117.
#pragma once

#include "corekit/platform/Files.h"

#include <string>
#include <vector>

// Parity bits and stop bits of a frame; 1.5 stop bits go with five data bits.
inline constexpr BYTE NOPARITY = 0, ODDPARITY = 1, EVENPARITY = 2, MARKPARITY = 3, SPACEPARITY = 4;
inline constexpr BYTE ONESTOPBIT = 0, ONE5STOPBITS = 1, TWOSTOPBITS = 2;
inline constexpr DWORD DTR_CONTROL_DISABLE = 0, DTR_CONTROL_ENABLE = 1; // signal off, or on
// Off, on, or by what the buffer holds.
inline constexpr DWORD RTS_CONTROL_DISABLE = 0, RTS_CONTROL_ENABLE = 1, RTS_CONTROL_HANDSHAKE = 2;

// The settings of a line.
struct _DCB {
    DWORD DCBlength;        // 28
    DWORD BaudRate;         // bits per second
    DWORD fBinary : 1;      // 1
    DWORD fParity : 1;      // check what is received
    DWORD fOutxCtsFlow : 1; // CTS off stops sending
    DWORD fOutxDsrFlow : 1;
    DWORD fDtrControl : 2; // DTR_CONTROL_
    DWORD fDsrSensitivity : 1;
    DWORD fTXContinueOnXoff : 1;
    DWORD fOutX : 1; // XOFF from the other side stops sending
    DWORD fInX : 1;  // XOFF is sent when too much has come in
    DWORD fErrorChar : 1;
    DWORD fNull : 1;
    DWORD fRtsControl : 2; // RTS_CONTROL_
    DWORD fAbortOnError : 1;
    DWORD fDummy2 : 17;
    WORD wReserved;
    WORD XonLim;
    WORD XoffLim;
    BYTE ByteSize; // 5 to 8
    BYTE Parity;   // 0 to 4
    BYTE StopBits; // 0 to 2
    char XonChar;  // what goes on, and stops, sending
    char XoffChar;
    char ErrorChar;
    char EofChar;
    char EvtChar;
    WORD wReserved1;
};
using DCB = _DCB;
static_assert(sizeof(DCB) == 28 && offsetof(DCB, ByteSize) == 18 && offsetof(DCB, XonChar) == 21);

// When a transfer ends without all of its bytes, which is no failure. Milliseconds; zeros wait for all.
struct _COMMTIMEOUTS {
    DWORD ReadIntervalTimeout;         // between two bytes. INFINITE, the others 0: take what is there;
                                       // with a multiplier of INFINITE: the first bytes within the constant
    DWORD ReadTotalTimeoutMultiplier;  // for each byte asked for
    DWORD ReadTotalTimeoutConstant;    // and once
    DWORD WriteTotalTimeoutMultiplier; // likewise
    DWORD WriteTotalTimeoutConstant;
};
using COMMTIMEOUTS = _COMMTIMEOUTS;
static_assert(sizeof(COMMTIMEOUTS) == 20);

// Sets the line at once. 0 with error 87, and no change, for what the line cannot be: sizes, parities and
// rates out of range, and settings that the device does not take. Signals that a device does not have are
// passed over. The limits of the buffers and fDsrSensitivity, fOutxDsrFlow, fErrorChar, fNull and
// fAbortOnError are not used.
COREKIT_API BOOL SetCommState(HANDLE port, DCB* dcb);
COREKIT_API BOOL GetCommState(HANDLE port, DCB* dcb);
// For transfers that begin from now on.
COREKIT_API BOOL SetCommTimeouts(HANDLE port, COMMTIMEOUTS* timeouts);

inline constexpr DWORD MS_CTS_ON = 0x10, MS_DSR_ON = 0x20, MS_RING_ON = 0x40, MS_RLSD_ON = 0x80;
// Which of the other side's signals are on; 0 with error 1 for a device without signals.
COREKIT_API BOOL GetCommModemStatus(HANDLE port, DWORD* status);

inline constexpr DWORD SETXOFF = 1, SETXON = 2, SETRTS = 3, CLRRTS = 4, SETDTR = 5, CLRDTR = 6, SETBREAK = 8,
                       CLRBREAK = 9;
COREKIT_API BOOL EscapeCommFunction(HANDLE port, DWORD function);

inline constexpr DWORD PURGE_TXABORT = 1, PURGE_RXABORT = 2, PURGE_TXCLEAR = 4, PURGE_RXCLEAR = 8;
// Ends transfers under way with error 995, and drops what is buffered.
COREKIT_API BOOL PurgeComm(HANDLE port, DWORD flags);

// What the machine has; any thread.
struct SerialPortFacts {
    int number;              // as in "COM3"
    std::string device;      // the device file
    std::string driver;      // empty where the kernel does not tell
    std::string description; // what the device says of itself; may be empty
};
// By number. Ports that the kernel provides for but does not find are left out.
COREKIT_API std::vector<SerialPortFacts> ListSerialPorts();
// Brings the key Hardware\DeviceMap\SerialComm of this machine up to date: for each port a value named by its
// device file, whose text is the port's name. Values of other names are left alone.
COREKIT_API void UpdateSerialDeviceMap();

// CSerialPortConfig: the settings of a serial line, to be kept.
//
// They are kept in the registry and in a property store as six integers ("Port Number", "Baud Rate",
// "Parity", "Data Bits", "Stop Bits", "Flow Control"), and in a stream as 28 bytes: the version 256 and the
// six in that order. What is read back is not judged; opening the port does that. One thread at a time.
#pragma once

#include "corekit/foundation/Stream.h"
#include "corekit/framework/Object.h"
#include "corekit/platform/Registry.h"

class CAXPropertySheet;
class CPropertyStore;

// Who may hold the other side up: nobody, the RTS and CTS signals, or the characters XON (17) and XOFF
// (19).
enum eFlowControlMode : int { flowNone = 0, flowHardware = 1, flowSoftware = 2 };

class COREKIT_API CSerialPortConfig : public CObject {
    DECLARE_DYNAMIC(CSerialPortConfig)
public:
    // COM1, 9600 bits per second, 8 data bits, no parity, one stop bit, hardware flow control.
    CSerialPortConfig() = default;
    // A copy is independent of the original.
    CSerialPortConfig(const CSerialPortConfig& other) : CObject() { CopyHelper(other); }
    CSerialPortConfig& operator=(const CSerialPortConfig& other)
    {
        CopyHelper(other);
        return *this;
    }
    // Equal if all six settings are.
    bool operator==(const CSerialPortConfig& other) const { return m_line == other.m_line; }

    int GetPortNumber() const { return m_line.port; }   // 1 is COM1
    int GetBaudRate() const { return m_line.baudRate; } // bits per second
    int GetParity() const { return m_line.parity; }     // 0 none, 1 odd, 2 even, 3 mark, 4 space
    int GetDataBits() const { return m_line.dataBits; } // 5 to 8
    int GetStopBits() const { return m_line.stopBits; } // 0 one, 1 one and a half, 2 two
    eFlowControlMode GetFlowControl() const { return m_line.flow; }
    // Values are kept as they are given.
    void SetPortNumber(int port) { m_line.port = port; }
    void SetData(int port, int baudRate, int parity, int dataBits, int stopBits, eFlowControlMode flow)
    {
        m_line = {port, baudRate, parity, dataBits, stopBits, flow};
    }

    // Another version throws message::invalidVersion before anything has changed.
    void ReadStream(CStream& stream);
    // Writes 28 bytes at the stream's position.
    void WriteStream(CStream& stream);
    // 0 at the first value that is missing; those before it have been read. The key below `root` is made if
    // need be; what fails throws message::createKeyFailed or message::setValueFailed.
    int LoadFromRegistry(HKEY root, const char* subKey);
    // Writes all six, making the key if need be.
    void SaveToRegistry(HKEY root, const char* subKey);
    // 0 at the first value that is missing; those before it have been read.
    int LoadFromPropertyStore(CPropertyStore* store);
    // Both stores are the caller's and not null.
    void SaveToPropertyStore(CPropertyStore* store);

    // Adds the page on which a user changes this object, which must outlive the sheet. The page offers the
    // machine's ports, or with `allPorts` nonzero COM1 to COM99. Needs the window library.
    void AddPropertyPages(CAXPropertySheet& sheet, unsigned int captionId, int allPorts);

private:
    // What is kept, with the settings of a new object.
    struct Line {
        int port = 1;        // COM1
        int baudRate = 9600; // bits per second
        int parity = 0;      // none
        int dataBits = 8;    // 5 to 8
        int stopBits = 0;    // one
        eFlowControlMode flow = flowHardware;

        bool operator==(const Line&) const = default;
    };

    void CopyHelper(const CSerialPortConfig& other) { m_line = other.m_line; } // all six settings
    // Calls visit with the name and the value of each setting until it gives false; whether it never did.
    template <class Visit>
    static bool EachField(Line& line, Visit visit);

    Line m_line;
};

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

enum eFlowControlMode : int { flowNone = 0, flowHardware = 1, flowSoftware = 2 };

class COREKIT_API CSerialPortConfig : public CObject {
    DECLARE_DYNAMIC(CSerialPortConfig)
public:
    // COM1, 9600 bits per second, 8 data bits, no parity, one stop bit, hardware flow control.
    CSerialPortConfig() = default;
    CSerialPortConfig(const CSerialPortConfig& other) : CObject() { CopyHelper(other); }
    CSerialPortConfig& operator=(const CSerialPortConfig& other)
    {
        CopyHelper(other);
        return *this;
    }
    bool operator==(const CSerialPortConfig& other) const { return m_line == other.m_line; }

    int GetPortNumber() const { return m_line.port; }
    int GetBaudRate() const { return m_line.baudRate; }
    int GetParity() const { return m_line.parity; }     // 0 none, 1 odd, 2 even, 3 mark, 4 space
    int GetDataBits() const { return m_line.dataBits; } // 5 to 8
    int GetStopBits() const { return m_line.stopBits; } // 0 one, 1 one and a half, 2 two
    eFlowControlMode GetFlowControl() const { return m_line.flow; }
    void SetPortNumber(int port) { m_line.port = port; }
    void SetData(int port, int baudRate, int parity, int dataBits, int stopBits, eFlowControlMode flow)
    {
        m_line = {port, baudRate, parity, dataBits, stopBits, flow};
    }

    // Another version throws message::invalidVersion before anything has changed.
    void ReadStream(CStream& stream);
    void WriteStream(CStream& stream);
    // 0 at the first value that is missing; those before it have been read. The key is made if need be; what
    // fails throws.
    int LoadFromRegistry(HKEY root, const char* subKey);
    void SaveToRegistry(HKEY root, const char* subKey);
    // 0 at the first value that is missing; those before it have been read.
    int LoadFromPropertyStore(CPropertyStore* store);
    void SaveToPropertyStore(CPropertyStore* store);

    // Adds the page on which a user changes this object, which must outlive the sheet. The page offers the
    // machine's ports, or with `allPorts` nonzero COM1 to COM99. Needs the window library.
    void AddPropertyPages(CAXPropertySheet& sheet, unsigned int captionId, int allPorts);

private:
    struct Line {
        int port = 1;
        int baudRate = 9600;
        int parity = 0;
        int dataBits = 8;
        int stopBits = 0;
        eFlowControlMode flow = flowHardware;

        bool operator==(const Line&) const = default;
    };

    void CopyHelper(const CSerialPortConfig& other) { m_line = other.m_line; }
    template <class Visit>
    static bool EachField(Line& line, Visit visit);

    Line m_line;
};

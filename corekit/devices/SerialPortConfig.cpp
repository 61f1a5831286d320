#include "corekit/devices/SerialPortConfig.h"

#include "corekit/foundation/ChainedException.h"
#include "corekit/stores/PropertyStore.h"
#include "corekit/stores/RegistryKey.h"

IMPLEMENT_DYNAMIC(CSerialPortConfig, CObject)

namespace {
constexpr DWORD formVersion = 256;
}

// Calls visit(name, value) for each field, as it is kept, until it gives false; whether it never did.
template <class Visit>
bool CSerialPortConfig::EachField(Line& line, Visit visit)
{
    int flow = line.flow;
    const bool all = visit("Port Number", line.port) && visit("Baud Rate", line.baudRate) &&
                     visit("Parity", line.parity) && visit("Data Bits", line.dataBits) &&
                     visit("Stop Bits", line.stopBits) && visit("Flow Control", flow);
    line.flow = static_cast<eFlowControlMode>(flow);
    return all;
}

void CSerialPortConfig::ReadStream(CStream& stream)
{
    const DWORD version = stream.read_DWORD();
    if (version != formVersion) ThrowInvalidVersionException("CSerialPortConfig", version, formVersion);
    EachField(m_line, [&](const char*, int& value) {
        value = stream.read_int32();
        return true;
    });
}

void CSerialPortConfig::WriteStream(CStream& stream)
{
    stream.write_DWORD(formVersion);
    EachField(m_line, [&](const char*, int value) {
        stream.write_int32(value);
        return true;
    });
}

int CSerialPortConfig::LoadFromRegistry(HKEY root, const char* subKey)
{
    CRegistryKey key;
    key.Create(root, subKey);
    return EachField(m_line, [&](const char* name, int& value) { return key.GetValue(name, value) != 0; });
}

void CSerialPortConfig::SaveToRegistry(HKEY root, const char* subKey)
{
    CRegistryKey key;
    key.Create(root, subKey);
    EachField(m_line, [&](const char* name, int value) {
        key.SetValue(name, value);
        return true;
    });
}

int CSerialPortConfig::LoadFromPropertyStore(CPropertyStore* store)
{
    return EachField(m_line, [&](const char* name, int& value) { return store->GetValue(name, value) != 0; });
}

void CSerialPortConfig::SaveToPropertyStore(CPropertyStore* store)
{
    EachField(m_line, [&](const char* name, int value) {
        store->SetValue(name, value);
        return true;
    });
}

#include "tests/support/RegistryHome.h"

#include "corekit/devices/SerialPortConfig.h"
#include "corekit/framework/Exception.h"
#include "corekit/stores/MemoryStream.h"
#include "corekit/stores/PropertyStore.h"
#include "corekit/stores/RegistryKey.h"
#include "tests/support/Thrown.h"

namespace {

class SerialPortConfig : public RegistryHome {
protected:
    SerialPortConfig() { config.SetData(12, 14400, 4, 5, 2, flowSoftware); }

    CSerialPortConfig config;
};

TEST_F(SerialPortConfig, EveryFormBringsBackWhatWasKept)
{
    CSerialPortConfig back;
    EXPECT_EQ(back.GetBaudRate(), 9600);
    EXPECT_EQ(back.GetFlowControl(), flowHardware);

    config.SaveToRegistry(HKEY_LOCAL_MACHINE, "Software\\Test\\Line");
    EXPECT_TRUE(back.LoadFromRegistry(HKEY_LOCAL_MACHINE, "Software\\Test\\Line"));
    EXPECT_TRUE(back == config);

    CPropertyStore store;
    config.SaveToPropertyStore(&store);
    CSerialPortConfig fromStore;
    EXPECT_TRUE(fromStore.LoadFromPropertyStore(&store));
    EXPECT_TRUE(fromStore == config);

    CMemoryStream stream(64, 64);
    config.WriteStream(stream);
    EXPECT_EQ(stream.GetSize(), 28u);
    stream.SeekToPos(0);
    const DWORD fields[] = {256, 12, 14400, 4, 5, 2, 2};
    for (const DWORD field : fields) EXPECT_EQ(stream.read_DWORD(), field);
    stream.SeekToPos(0);
    CSerialPortConfig fromStream;
    fromStream.ReadStream(stream);
    EXPECT_TRUE(fromStream == config);
    fromStream.SetData(12, 14400, 4, 5, 2, flowNone);
    EXPECT_FALSE(fromStream == config);
}

TEST_F(SerialPortConfig, AnotherVersionChangesNothing)
{
    CMemoryStream stream(64, 64);
    stream.write_DWORD(257);
    for (int i = 0; i < 6; ++i) stream.write_DWORD(1);
    stream.SeekToPos(0);
    const CSerialPortConfig before = config;
    EXPECT_NE(Thrown([&] { config.ReadStream(stream); }), "nothing");
    EXPECT_TRUE(config == before);
}

TEST_F(SerialPortConfig, AMissingValueEndsTheLoadAfterThoseBeforeIt)
{
    config.SaveToRegistry(HKEY_LOCAL_MACHINE, "Software\\Test\\Line");
    CRegistryKey key;
    ASSERT_TRUE(key.Open(HKEY_LOCAL_MACHINE, "Software\\Test\\Line"));
    key.DeleteValue("Flow Control");
    CSerialPortConfig back;
    EXPECT_FALSE(back.LoadFromRegistry(HKEY_LOCAL_MACHINE, "Software\\Test\\Line"));
    EXPECT_EQ(back.GetStopBits(), 2);
    EXPECT_EQ(back.GetFlowControl(), flowHardware);
}

} // namespace

#include "tests/devices/ScriptedScsi.h"

#include "corekit/devices/Scsi.h"
#include "corekit/devices/ScsiAspi.h"
#include "corekit/devices/ScsiInquiry.h"
#include "corekit/devices/ScsiPassThrough.h"
#include "corekit/platform/Errors.h"
#include "corekit/platform/Libraries.h"
#include "corekit/platform/ScsiPorts.h"

#include <algorithm>
#include <cstring>
#include <gtest/gtest.h>
#include <memory>
#include <vector>

namespace {

class Scsi : public testing::Test {
protected:
    // A prompter that keeps what it is sent, on the second bus of the machine's second host.
    void AddPrompter()
    {
        machine.AddUnit("2:0:0:0", 0, "ATA", "DISK", true);
        machine.AddUnit("7:1:5:1", 3, "CORVANE", "PROMPTER LINK");
        machine.AddFile("7:1:5:1", "sg4", [this](sg_io_hdr& command) {
            commands.emplace_back(command.cmdp, command.cmdp + command.cmd_len);
            timeout = command.timeout;
            char* const bytes = static_cast<char*>(command.dxferp);
            if (command.dxfer_direction == SG_DXFER_TO_DEV) {
                kept.assign(bytes, command.dxfer_len);
            } else {
                std::copy_n(kept.begin(), std::min<std::size_t>(kept.size(), command.dxfer_len), bytes);
                command.resid = static_cast<int>(command.dxfer_len - kept.size());
            }
            return 0;
        });
    }

    ScriptedScsi machine;
    std::vector<std::vector<BYTE>> commands;
    std::string kept;
    unsigned timeout = 0;
};

TEST_F(Scsi, DevicesAreFoundByTypeVendorAndProduct)
{
    AddPrompter();
    unsigned long address = 0;
    int claimed = -1;
    ASSERT_TRUE(scsiFindDevice(3, "CORVANE", "PROMPTER LINK", address, claimed));
    EXPECT_EQ(address, 0x01010501u); // the second adaptor, although the kernel calls it 7
    EXPECT_EQ(claimed, 0);
    ASSERT_TRUE(scsiFindDevice(0, "ATA", "DISK", address, claimed));
    EXPECT_EQ(address, 0u);
    EXPECT_EQ(claimed, 1);
    EXPECT_FALSE(scsiFindDevice(3, "CORVANE ", "PROMPTER LINK", address, claimed)); // blanks are cut here
    EXPECT_FALSE(scsiFindDevice(0, "CORVANE", "PROMPTER LINK", address, claimed));
}

TEST_F(Scsi, AnAdaptorReportsItsLimitsAndDevices)
{
    AddPrompter();
    const std::unique_ptr<CScsiAdaptor> adaptor(scsiOpenAdaptor(1));
    ASSERT_TRUE(adaptor);
    EXPECT_EQ(adaptor->GetBusCount(), 2);
    EXPECT_EQ(adaptor->GetTargetCount(0), 16);
    EXPECT_EQ(adaptor->GetMaxTransfer(), 2u * 4096);
    CScsiDeviceInfo info;
    EXPECT_FALSE(adaptor->GetDeviceInfo(0, 5, 1, info));
    EXPECT_FALSE(adaptor->GetDeviceInfo(1, 5, 0, info));
    EXPECT_FALSE(adaptor->GetDeviceInfo(9, 5, 1, info));
    ASSERT_TRUE(adaptor->GetDeviceInfo(1, 5, 1, info));
    EXPECT_EQ(info.m_revision, "1.02");
    EXPECT_EQ(scsiOpenAdaptor(2), nullptr);
    EXPECT_EQ(scsiOpenAdaptor(-1), nullptr);
}

TEST_F(Scsi, AnAdaptorWithMoreDevicesThanItCanTellHidesNoOther)
{
    for (int unit = 0; unit < 180; ++unit)
        machine.AddUnit("1:0:" + std::to_string(unit / 8) + ":" + std::to_string(unit % 8), 0, "ATA", "DISK");
    AddPrompter();
    unsigned long address = 0;
    int claimed = 0;
    EXPECT_TRUE(scsiFindDevice(3, "CORVANE", "PROMPTER LINK", address, claimed));
    EXPECT_EQ(address, 0x02010501u);
}

TEST_F(Scsi, BlocksGoOutAndComeBackByTheCommandsOfAProcessor)
{
    AddPrompter();
    const std::unique_ptr<CScsiDevice> device(scsiCreateDeviceHandler(1, 1, 5));
    ASSERT_TRUE(device);
    std::string script(0x012345, 's');
    ASSERT_TRUE(device->Write(1, script.data(), script.size()));
    EXPECT_EQ(commands.back(), (std::vector<BYTE>{0x0A, 0, 0x01, 0x23, 0x45, 0}));
    EXPECT_EQ(timeout, 5000u * 1000);
    std::string back(script.size(), ' ');
    ASSERT_TRUE(device->Read(1, back.data(), back.size()));
    EXPECT_EQ(commands.back(), (std::vector<BYTE>{0x08, 0, 0x01, 0x23, 0x45, 0}));
    EXPECT_TRUE(back == script);
    EXPECT_FALSE(device->Read(0, back.data(), 1)); // no such unit
    EXPECT_EQ(GetLastError(), ERROR_FILE_NOT_FOUND);
    EXPECT_FALSE(device->Write(1, script.data(), 0x1000000));
    EXPECT_FALSE(device->Write(0x101, script.data(), 1)) << "no other unit instead";
    const std::unique_ptr<CScsiDevice> absent(scsiCreateDeviceHandler(1, 1, 0x105));
    ASSERT_TRUE(absent);
    EXPECT_FALSE(absent->Write(1, script.data(), 1));
}

// A device that refuses has answered; one that does not answer in time, or cannot be reached, has not.
TEST_F(Scsi, RefusalsAreAnswersAndTimeoutsAreNot)
{
    const struct {
        int result;
        unsigned char status, senseKey;
        unsigned short host;
        int done;
        DWORD error;
    } cases[] = {{0, 2, 5, 0, 1, 0},
                 {0, 8, 0, 0, 1, 0}, // busy
                 {0, 0, 0, 3, 0, ERROR_TIMEOUT},
                 {0, 0, 0, 1, 0, ERROR_IO_DEVICE},
                 {ENODEV, 0, 0, 0, 0, ERROR_DEV_NOT_EXIST},
                 {EACCES, 0, 0, 0, 0, ERROR_ACCESS_DENIED}};
    int turn = 0;
    const std::string path = machine.AddFile("0:0:0:0", "sg0", [&](sg_io_hdr& command) {
        const auto& row = cases[turn];
        command.status = row.status;
        command.host_status = row.host;
        if (row.senseKey != 0) {
            const unsigned char sense[18] = {0x70, 0, row.senseKey};
            std::copy_n(sense, sizeof sense, command.sbp);
            command.sb_len_wr = sizeof sense;
        }
        return row.result;
    });
    const std::unique_ptr<CScsiDevice> device(scsiCreateDeviceHandlerDirect(path.c_str()));
    ASSERT_TRUE(device);
    char block[16];
    for (turn = 0; turn < static_cast<int>(std::size(cases)); ++turn) {
        EXPECT_EQ(device->Read(0, block, sizeof block), cases[turn].done) << turn;
        EXPECT_EQ(cases[turn].done ? 0 : GetLastError(), cases[turn].error) << turn;
    }
    EXPECT_EQ(scsiCreateDeviceHandlerDirect((machine.folder / "dev/sg9").c_str()), nullptr);
}

TEST_F(Scsi, TheAspiLayerDoesTheSame)
{
    CSA_Aspi without;
    EXPECT_FALSE(without.Open(0)); // there is none yet
    ASSERT_TRUE(LoadLibraryA(FAKE_ASPI));
    CSA_Aspi adaptor, second, third;
    ASSERT_TRUE(adaptor.Open(0));
    ASSERT_TRUE(second.Open(1));
    EXPECT_FALSE(third.Open(2));
    EXPECT_EQ(adaptor.GetTargetCount(0), 8);
    EXPECT_EQ(second.GetTargetCount(0), 16);
    EXPECT_EQ(adaptor.GetMaxTransfer(), 0x10000u);
    CScsiDeviceInfo info;
    ASSERT_TRUE(adaptor.GetDeviceInfo(0, 3, 0, info));
    EXPECT_EQ(info.m_type, 3);
    EXPECT_EQ(info.m_typeModifier, 1);
    EXPECT_EQ(info.m_removable, 1);
    EXPECT_EQ(info.m_vendor, "CORVANE ");
    EXPECT_EQ(info.m_product, "PROMPTER LINK   ");
    EXPECT_FALSE(adaptor.GetDeviceInfo(0, 4, 0, info));
    EXPECT_FALSE(adaptor.GetDeviceInfo(0, 0x103, 0, info));
    EXPECT_FALSE(second.GetDeviceInfo(0, 3, 0, info));

    CSD_Aspi device;
    ASSERT_TRUE(device.Open(0, 0, 3));
    std::string script(0x0203, 's'), back(script.size(), ' ');
    EXPECT_TRUE(device.Write(0, script.data(), script.size()));
    EXPECT_TRUE(device.Read(0, back.data(), back.size()));
    EXPECT_EQ(back, script);
    EXPECT_FALSE(device.Read(1, back.data(), back.size()));
    EXPECT_FALSE(device.Read(0x100, back.data(), back.size()));
}

TEST(ScsiAddress, TextsGoThereAndBackWithTheLunCutToItsField)
{
    CScsiAddress address;
    address.DecodeRawString("1.0.13.15");
    EXPECT_EQ(address.MakeAddressString(), "Adaptor=1, bus=0, id=13, lun=15");
    EXPECT_EQ(address.MakeRawString(), "1.0.13.15");
    address.DecodeRawString("1.0.3.15");
    EXPECT_EQ(address.MakeRawString(), "1.0.3.1");
    for (const char* text : {"", "4", "4.", "....", "4.x.y.z"}) {
        address.DecodeRawString(text);
        EXPECT_EQ(address.m_adaptor, *text == '4' ? 4 : 0) << text;
        EXPECT_EQ(address.m_lun, 0) << text;
    }
}

TEST(ScsiInquiry, ShortAnswersHaveEmptyFields)
{
    using namespace corekit::detail;
    std::vector<BYTE> answer(36, ' ');
    std::memcpy(answer.data(), "\x23\x80\0\0\0\0\0\0MAKER", 13);
    CScsiDeviceInfo info;
    decodeInquiry(std::span(answer).first(11), FieldPadding::keep, info);
    EXPECT_EQ(info.m_type, 3);
    EXPECT_EQ(info.m_removable, 1);
    EXPECT_EQ(info.m_vendor, "MAK");
    EXPECT_TRUE(info.m_product.IsEmpty());
    decodeInquiry({}, FieldPadding::trim, info);
    EXPECT_EQ(info.m_type, 0);

    // A chain that goes in a circle, and one that leads outside.
    std::vector<BYTE> data(64);
    data[0] = 1;
    data[8] = 12;
    data[12 + 1] = 9;
    InquiryRecord record;
    for (const BYTE next : {BYTE{12}, BYTE{60}, BYTE{255}}) {
        data[12 + 8] = next;
        EXPECT_FALSE(findInquiryRecord(data, 0, 3, 0, record));
    }
    data[12 + 4] = 200; // longer than there is room for
    ASSERT_TRUE(findInquiryRecord(data, 0, 9, 0, record));
    EXPECT_EQ(record.answer.size(), 64u - 24);
}

} // namespace

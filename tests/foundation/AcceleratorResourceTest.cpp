#include "corekit/foundation/AcceleratorResource.h"

#include "corekit/framework/Module.h"
#include "corekit/platform/Keyboard.h"

#include <gtest/gtest.h>

#include <vector>

namespace {

std::vector<WORD> Commands(HACCEL table)
{
    std::vector<ACCEL> rows(static_cast<std::size_t>(CopyAcceleratorTableA(table, nullptr, 0)));
    CopyAcceleratorTableA(table, rows.data(), static_cast<int>(rows.size()));
    std::vector<WORD> commands;
    for (const ACCEL& row : rows) commands.push_back(row.cmd);
    DestroyAcceleratorTable(table);
    return commands;
}

using Words = std::vector<WORD>;

TEST(AcceleratorResource, ComesByNumberOrNameFromTheModuleThatHasIt)
{
    static constexpr ACCEL keys[] = {{FVIRTKEY | FALT, 0x70, 0x1234}, {0, 'x', 0xFFFF}};
    static constexpr auto table = AcceleratorResource(keys);
    EXPECT_EQ(table[8], std::byte{lastAcceleratorFlag}) << "the last row is flagged";
    static constexpr std::byte unflagged[17] = {{}, {}, {}, {}, std::byte{7}}; // two rows, half a third
    static constexpr BinaryResource resources[] = {
        {"#9", "#902", table}, {"#9", "Keys", unflagged}, {"#9", "empty", {}}, {"#2", "bitmap", table}};
    AFX_EXTENSION_MODULE module;
    module.resources = resources;
    ASSERT_TRUE(AfxInitExtensionModule(module, nullptr));
    new CDynLinkLibrary(module);
    const HACCEL loaded = AfxLoadAccelerators(902u);
    ACCEL first{};
    EXPECT_EQ(CopyAcceleratorTableA(loaded, &first, 1), 1);
    EXPECT_EQ(first.fVirt, FVIRTKEY | FALT);
    EXPECT_EQ(first.key, 0x70);
    EXPECT_EQ(Commands(loaded), (Words{0x1234, 0xFFFF}));
    EXPECT_EQ(Commands(AfxLoadAccelerators("KEYS")), (Words{7, 0}));
    EXPECT_EQ(AfxLoadAccelerators("empty"), nullptr);
    EXPECT_EQ(AfxLoadAccelerators("bitmap"), nullptr);
    AfxTermExtensionModule(module);
    EXPECT_EQ(AfxLoadAccelerators(902u), nullptr);
}

} // namespace

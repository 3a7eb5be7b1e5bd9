// The user-space platform: what tests and the tool rely on to see leaks, bad pointers and
// unbalanced interrupt masks.

#include "platform/bus.h"
#include "platform/host/host_os.h"

#include <gtest/gtest.h>
#include <cerrno>
#include <cstring>
#include <string>

namespace ldsdk::model_test {

namespace {

TEST(HostOs, PrintsWholeTextsToTheSink)
{
    std::string got;
    Os_HostSetSink([](const char *text, void *user) { *static_cast<std::string *>(user) += text; },
                   &got);
    EXPECT_EQ(16, Os_Print("a %u 0x%08x\r\n", 1u, 2u));
    const std::string longer(5000, 'z');
    EXPECT_EQ(5000, Os_Print("%s", longer.c_str()));
    Os_HostSetSink(nullptr, nullptr);
    EXPECT_EQ("a 1 0x00000002\r\n" + longer, got);
    char text[6];
    EXPECT_EQ(8, Os_Format(text, sizeof text, "%s", "abcdefgh"));
    EXPECT_STREQ("abcde", text);
}

TEST(HostOs, CountsBlocksAndBytes)
{
    OsHostMemory before;
    OsHostMemory now;
    Os_HostMemoryGet(&before);
    auto *block = static_cast<uint8_t *>(Os_Alloc(100));
    auto *empty = static_cast<uint8_t *>(Os_Alloc(0));
    ASSERT_NE(nullptr, block);
    ASSERT_NE(nullptr, empty);
    for (int at = 0; at < 100; at++) {
        ASSERT_EQ(0, block[at]);
    }
    EXPECT_EQ(0u, reinterpret_cast<uintptr_t>(block) % alignof(std::max_align_t));
    Os_HostMemoryGet(&now);
    EXPECT_EQ(before.ulBlocks + 2, now.ulBlocks);
    EXPECT_EQ(before.ulBytes + 100, now.ulBytes);
    Os_Free(block);
    Os_Free(empty);
    Os_Free(nullptr);
    alignas(16) uint8_t foreign[64] = {};
    Os_Free(foreign + 32);
    EXPECT_EQ(nullptr, Os_Alloc(SIZE_MAX));
    Os_HostMemoryGet(&now);
    EXPECT_EQ(before.ulBlocks, now.ulBlocks);
    EXPECT_EQ(before.ulBytes, now.ulBytes);
    EXPECT_EQ(before.ulBadFrees + 1, now.ulBadFrees);
    EXPECT_EQ(before.ulRefused + 1, now.ulRefused);
}

TEST(HostOs, AsksTheBusBeforeEachAllocation)
{
    OsBus bus = {};
    bus.pfnAllocFails = [](uintptr_t size) { return size == 7 ? 1 : 0; };
    Os_BusAttach(&bus);
    EXPECT_EQ(nullptr, Os_Alloc(7));
    void *block = Os_Alloc(8);
    EXPECT_NE(nullptr, block);
    Os_Free(block);
    Os_BusAttach(nullptr);
}

TEST(HostOs, ChecksAndCutsCopiesFromTheCaller)
{
    char from[8] = {'a', 'b', 'c', 'd', 'e', 'f', 'g', 'h'};
    char to[8] = {};
    EXPECT_TRUE(Os_UserRangeOk(from, 8));
    EXPECT_FALSE(Os_UserRangeOk(from, SIZE_MAX));
    Os_HostSetUserLimit(reinterpret_cast<uintptr_t>(from) + 8);
    EXPECT_TRUE(Os_UserRangeOk(from, 8));
    EXPECT_FALSE(Os_UserRangeOk(from, 9));
    const uintptr_t behind = reinterpret_cast<uintptr_t>(from) + 9;
    EXPECT_FALSE(Os_UserRangeOk(reinterpret_cast<const void *>(behind), 0));
    Os_HostSetUserLimit(0);
    EXPECT_EQ(0u, Os_CopyFromUser(to, from, 8));
    EXPECT_EQ(0, std::memcmp(to, from, 8));
    std::memset(to, 0, sizeof to);
    Os_HostSetCopyFault(5);
    EXPECT_EQ(3u, Os_CopyFromUser(to, from, 8));
    EXPECT_EQ(0, std::memcmp(to, "abcde\0\0\0", 8));
    EXPECT_EQ(0u, Os_CopyFromUser(to, from, 5));
    Os_HostSetCopyFault(SIZE_MAX);
    EXPECT_EQ(8u, Os_CopyFromUser(to, nullptr, 8));
}

TEST(HostOs, ShowsUnbalancedAndSleepingCallers)
{
    OsHostIrq irq;
    Os_HostIrqReset();
    uint32_t slept = 0;
    Os_HostSetSleepHook([](uint32_t ms, void *user) { *static_cast<uint32_t *>(user) += ms; },
                        &slept);
    const uintptr_t outer = Os_IrqSave();
    const uintptr_t inner = Os_IrqSave();
    Os_HostIrqGet(&irq);
    EXPECT_EQ(2u, irq.ulDepth);
    Os_IrqRestore(inner);
    Os_IrqRestore(outer);
    Os_Sleep(30);
    Os_Schedule();
    Os_HostIrqGet(&irq);
    EXPECT_EQ(0u, irq.ulDepth);
    EXPECT_EQ(2u, irq.ulSaves);
    EXPECT_EQ(0u, irq.ulUnbalanced + irq.ulAsleep);

    Os_IrqRestore(outer);  // twice
    Os_HostIrqGet(&irq);
    EXPECT_EQ(1u, irq.ulUnbalanced);
    const uintptr_t first = Os_IrqSave();
    Os_IrqSave();
    Os_Sleep(12);
    Os_Schedule();
    Os_IrqRestore(first);  // the inner one is missing
    Os_HostIrqGet(&irq);
    EXPECT_EQ(2u, irq.ulUnbalanced);
    EXPECT_EQ(2u, irq.ulAsleep);
    EXPECT_EQ(42u, slept);
    Os_HostSetSleepHook(nullptr, nullptr);
    Os_HostIrqReset();
}

TEST(HostOs, KeepsMiscDevicesByName)
{
    static const OsMiscOps ops = {};
    EXPECT_EQ(nullptr, Os_HostMisc("one"));
    EXPECT_EQ(0, Os_MiscRegister("one", &ops));
    EXPECT_EQ(-EEXIST, Os_MiscRegister("one", &ops));
    EXPECT_EQ(&ops, Os_HostMisc("one"));
    Os_HostSetMiscFault(-12);
    EXPECT_EQ(-12, Os_MiscRegister("two", &ops));
    Os_HostSetMiscFault(0);
    EXPECT_EQ(nullptr, Os_HostMisc("two"));
    Os_MiscDeregister("one");
    EXPECT_EQ(nullptr, Os_HostMisc("one"));
}

TEST(HostOs, WithoutABusNothingIsMapped)
{
    Os_BusAttach(nullptr);
    EXPECT_EQ(0u, Os_IoMap(0x60200000, 16));
    EXPECT_EQ(nullptr, Os_IoExtraMap());
    EXPECT_EQ(0u, Os_IoRead32(0x1000));
    EXPECT_EQ(0u, Os_IoRead16(0x1000));
    Os_IoWrite32(0x1000, 1);
    Os_IoWrite16(0x1000, 1);
    Os_IoClear(0x1000, 16);
    void *block = Os_Alloc(1);
    EXPECT_NE(nullptr, block);
    Os_Free(block);
}

}  // namespace

}  // namespace ldsdk::model_test

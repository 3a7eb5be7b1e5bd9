// The slave bus, faults at both doors, and the journal of what crossed them.

#include "chipmodel/debug.h"
#include "tests/model_support.h"

#include <cstring>
#include <string>
#include <vector>

namespace ldsdk::model_test {

namespace {

using SlaveBusTest = ModelTest;
using FaultTest = ModelTest;
using JournalTest = ModelTest;

// ---- slave bus ----------------------------------------------------------------------------------

// A host's side of the bus: register numbers 2 to 9, 2 or 4 bytes apart.
class BusHost {
  public:
    BusHost(uint32_t chip, uint32_t shift)
        : base_(model::slave_base(chip) | (shift < 32 ? 0x20000u << shift : 0)),
          step_(shift == 0 ? 2 : 4)
    {
    }

    uint16_t get(uint32_t number) const
    {
        return Os_IoRead16(base_ + number * step_);
    }
    void put(uint32_t number, uint32_t value) const
    {
        Os_IoWrite16(base_ + number * step_, static_cast<uint16_t>(value));
    }
    // Status reads that found the bus busy; at most `bound`.
    int poll(int bound = 100) const
    {
        int busy = 0;
        while (busy < bound && (get(9) & 1) != 0) {
            busy++;
        }
        return busy;
    }
    void address(uint32_t address) const
    {
        put(2, address >> 16);
        put(3, address);
    }
    void write(uint32_t where, uint32_t value) const
    {
        address(where);
        put(4, value >> 16);
        put(5, value);
        put(8, 0);
        put(8, 2);
    }
    void start_read(uint32_t where) const
    {
        address(where);
        put(8, 0);
        put(8, 1);
    }
    uint32_t data() const
    {
        return static_cast<uint32_t>(get(6)) << 16 | get(7);
    }

  private:
    uintptr_t base_;
    uint32_t step_;
};

TEST_F(SlaveBusTest, ReadsAndWritesWithEveryShift)
{
    ASSERT_EQ(0u, model::attach(1));
    for (const uint32_t shift : {0u, 1u, 2u, 7u, 11u, 12u, 14u, 32u, 40u}) {
        SCOPED_TRACE(shift);
        const BusHost host(1, shift);
        host.write(0x64000000, 0x89abcdef + shift);
        EXPECT_EQ(1, host.poll());
        EXPECT_EQ(0x89abcdef + shift, peek(0x64000000, 1));
        EXPECT_EQ(0u, peek(0x64000000, 0));
        model::poke(1, 0x78900324, 0x13572468 + shift);
        host.start_read(0x78900324);
        EXPECT_EQ(1, host.poll());
        EXPECT_EQ(0x13572468 + shift, host.data());
    }
}

TEST_F(SlaveBusTest, DataArrivesWhenTheBusIsIdleAgain)
{
    ASSERT_EQ(0u, model::attach(3));
    ASSERT_EQ(0u, model::bus_polls_set(3, 5));
    const BusHost host(3, 0);
    model::poke(3, 0x60200000, 0x11112222);
    host.start_read(0x60200000);
    EXPECT_EQ(0u, host.data());
    EXPECT_EQ(5, host.poll());
    EXPECT_EQ(0x11112222u, host.data());
    // A command starts only on the way from 0.
    model::poke(3, 0x60200000, 0x33334444);
    host.put(8, 1);
    EXPECT_EQ(0, host.poll());
    EXPECT_EQ(0x11112222u, host.data());
    // Nothing there: reads 0.
    host.start_read(0x50000000);
    host.poll();
    EXPECT_EQ(0u, host.data());
}

TEST_F(SlaveBusTest, AnEmptyBusStaysBusyAndCountsAsStray)
{
    const uint64_t stray = model::stray_accesses();
    const BusHost host(2, 0);
    host.write(0x60200000, 1);
    EXPECT_EQ(100, host.poll());
    EXPECT_EQ(stray + 106, model::stray_accesses());
    ASSERT_EQ(0u, model::attach(2));
    EXPECT_EQ(0xffff, Os_IoRead16(model::slave_base(2) | 0x20000));        // no register 0
    EXPECT_EQ(0xffff, Os_IoRead16((model::slave_base(2) | 0x20000) + 7));  // between two
    EXPECT_EQ(0u, peek(0x60200000, 2));
}

// ---- faults -------------------------------------------------------------------------------------

TEST_F(FaultTest, CodesHitTheCountedCalls)
{
    ASSERT_TRUE(model::faults_set("Qd_PBA_AtomModeSet nth=2 count=2 code=0x5", nullptr));
    const uint32_t expected[] = {0, 5, 5, 0};
    for (const uint32_t code : expected) {
        EXPECT_EQ(code, Qd_PBA_AtomModeSet(0, 0, 3));
    }
    // A call that fails changes nothing.
    model::faults_clear();
    ASSERT_TRUE(model::faults_set("Qd_PBA_AtomModeSet count=0 code=7", nullptr));
    for (int call = 0; call < 5; call++) {
        EXPECT_EQ(7u, Qd_PBA_AtomModeSet(0, 1, 3));
    }
    uint32_t mode = 9;
    ASSERT_EQ(0u, model::atom_mode_get(0, 1, &mode));
    EXPECT_EQ(0u, mode);
    // Without a code; and only from when it was set.
    ASSERT_TRUE(model::faults_set("clear", nullptr));
    EXPECT_EQ(0u, model::faults_count());
    ASSERT_TRUE(model::faults_set("Qd_PBA_AtomModeSet", nullptr));
    EXPECT_EQ(model::kErrFault, Qd_PBA_AtomModeSet(0, 1, 3));
    EXPECT_EQ(0u, Qd_PBA_AtomModeSet(0, 1, 3));
}

TEST_F(FaultTest, CommandsFailByStatusByCodeAndByName)
{
    const Frame read = plain(0x100000, 0, 1, 1);
    const Frame write = plain(0x100000, 0, 3, 1, {{24, 1}});
    ASSERT_TRUE(model::faults_set("rba op=write nth=2 status=2; rba nth=4 code=7", nullptr));
    EXPECT_EQ(0u, send(read).status);
    EXPECT_EQ(0u, send(write).status);
    EXPECT_EQ(2u, send(write).status);
    EXPECT_EQ(7u, send(read).code);
    EXPECT_EQ(0u, send(read).code);
}

TEST_F(FaultTest, TheFaultSetFirstDecides)
{
    const Frame write = plain(0x100000, 0, 3, 1, {{24, 1}});
    ASSERT_TRUE(model::faults_set("rba op=write status=2; rba code=7 count=2", nullptr));
    Outcome outcome = send(write);
    EXPECT_EQ(0u, outcome.code);
    EXPECT_EQ(2u, outcome.status);
    EXPECT_EQ(0u, peek(0x60200000));  // not carried out
    EXPECT_EQ(7u, send(write).code);
    EXPECT_EQ(0u, send(write).code);
    EXPECT_EQ(1u, peek(0x60200000));
}

TEST_F(FaultTest, ASemaphoreStaysTaken)
{
    const Frame build = frame({{3, 0x02}, {4, 0xb0}, {6, 3}});
    ASSERT_TRUE(model::faults_set("semaphore count=8", nullptr));
    for (int call = 0; call < 8; call++) {
        const Outcome outcome = send(build);
        ASSERT_EQ(0u, outcome.code);
        ASSERT_EQ(5u, outcome.status);
    }
    EXPECT_NE(5u, send(build).status);
}

TEST_F(FaultTest, EveryDriverFunctionCanFail)
{
    for (uint32_t row = 0; row < static_cast<uint32_t>(model::Op::kDriverOpNum); row++) {
        const std::string name = model::op_info(static_cast<model::Op>(row)).name;
        EXPECT_TRUE(model::faults_set((name + " code=1").c_str(), nullptr)) << name;
        model::faults_clear();
    }
    EXPECT_EQ(61u, static_cast<uint32_t>(model::Op::kDriverOpNum));
    uint32_t word = 0;
    ASSERT_TRUE(model::faults_set("Qd_OE_StatGet code=0x77; QD_PORT_PowerGateEnableGet code=0x78",
                                  nullptr));
    EXPECT_EQ(0x77u, Qd_OE_StatGet(0, 1, &word));
    EXPECT_EQ(0x78u, QD_PORT_PowerGateEnableGet(0, 5, 0, 0, &word));
}

TEST_F(FaultTest, AllocationsAndTheBus)
{
    ASSERT_TRUE(model::faults_set("alloc nth=2", nullptr));
    void *first = Os_Alloc(8);
    EXPECT_NE(nullptr, first);
    EXPECT_EQ(nullptr, Os_Alloc(8));
    void *third = Os_Alloc(8);
    EXPECT_NE(nullptr, third);
    Os_Free(first);
    Os_Free(third);

    ASSERT_TRUE(model::faults_set("bus busy nth=2", nullptr));
    ASSERT_EQ(0u, model::attach(1));
    const BusHost host(1, 0);
    host.write(0x60200000, 1);
    EXPECT_EQ(1, host.poll());
    host.write(0x60200000, 2);
    EXPECT_EQ(100, host.poll());
    EXPECT_EQ(1u, peek(0x60200000, 1));
    model::faults_clear();
    host.write(0x60200000, 3);
    EXPECT_EQ(1, host.poll());
    EXPECT_EQ(3u, peek(0x60200000, 1));
}

TEST_F(FaultTest, MistakesAreNamedAndAddNothing)
{
    const struct {
        const char *text;
        size_t at;
        const char *reason;
    } rows[] = {
        {"", 0, "operation expected"},
        {"rba status=1;", 13, "operation expected"},
        {"Qd_Nothing code=1", 0, "unknown operation"},
        {"rba op=walk", 7, "unknown command"},
        {"rba nth=0", 8, "number from 1 expected"},
        {"rba nth=x", 8, "number from 1 expected"},
        {"rba count=", 10, "number expected"},
        {"rba code=0x", 9, "number from 1 expected"},
        {"rba code=0x123456789", 9, "number from 1 expected"},
        {"rba status=12a", 11, "number expected"},
        {"alloc code=1", 6, "only a driver function has a code"},
        {"Qd_PE_StatGet status=1", 14, "only rba has a status"},
        {"Qd_PE_StatGet op=read", 14, "only rba has commands"},
        {"alloc busy", 6, "only bus can be busy"},
        {"bus slow", 4, "unknown word"},
        {"clear now", 6, "nothing may follow clear"},
        {"alloc; alloc; bogus", 14, "unknown operation"},
    };
    for (const auto &row : rows) {
        model::FaultError error = {};
        EXPECT_FALSE(model::faults_set(row.text, &error)) << row.text;
        EXPECT_EQ(row.text + row.at, error.at) << row.text;
        EXPECT_STREQ(row.reason, error.reason) << row.text;
    }
    EXPECT_EQ(0u, model::faults_count());
    for (uint32_t fault = 0; fault < model::kFaultNum; fault++) {
        EXPECT_TRUE(model::faults_set(" alloc\tnth=9 ", nullptr));
    }
    model::FaultError error = {};
    EXPECT_FALSE(model::faults_set("alloc", &error));
    EXPECT_STREQ("too many faults", error.reason);
    EXPECT_TRUE(model::faults_set("clear; rba code=2", nullptr));
    EXPECT_EQ(1u, model::faults_count());
    EXPECT_TRUE(model::faults_set(nullptr, nullptr));
    EXPECT_EQ(0u, model::faults_count());
}

TEST_F(FaultTest, AFaultIsToldAsATextThatMakesIt)
{
    const std::pair<const char *, const char *> rows[] = {
        {"rba op=write nth=2 status=2", "rba op=write nth=2 count=1 status=0x2"},
        {"semaphore count=8", "rba op=search_update_build nth=1 count=8 status=0x5"},
        {"Qd_PBA_AtomModeSet count=0 code=0x77", "Qd_PBA_AtomModeSet nth=1 count=0 code=0x77"},
        {"Qd_OE_StatGet nth=4294967295", "Qd_OE_StatGet nth=4294967295 count=1 code=0xe0000006"},
        {"alloc nth=3", "alloc nth=3 count=1"},
        {"bus busy", "bus nth=1 count=0"},
    };
    char text[128];
    for (const auto &[given, told] : rows) {
        for (const char *way : {given, told}) {
            ASSERT_TRUE(model::faults_set("clear", nullptr) && model::faults_set(way, nullptr));
            ASSERT_EQ(0u, model::fault_format(0, text, sizeof text));
            EXPECT_EQ(std::string(told) + " calls=0", text);
        }
    }
    EXPECT_EQ(model::kErrParam, model::fault_format(1, text, sizeof text));
    ASSERT_TRUE(model::faults_set("clear; Qd_PBA_AtomModeSet nth=9", nullptr));
    Qd_PBA_AtomModeSet(0, 0, 3);
    ASSERT_EQ(0u, model::fault_format(0, text, 8));
    EXPECT_STREQ("Qd_PBA_", text);
    ASSERT_EQ(0u, model::fault_format(0, text, sizeof text));
    EXPECT_NE(nullptr, std::strstr(text, " calls=1"));
}

// ---- the debug door as calls --------------------------------------------------------------------

using DebugTest = ModelTest;

// What a call answers, and the record behind it.
std::pair<uint32_t, LdDebugCall> debug(LdDebugOp op, uint32_t number = 0, uint32_t value = 0,
                                       const std::string &text = "")
{
    LdDebugCall call = {};
    call.op = op;
    call.number = number;
    call.value = value;
    text.copy(call.text, sizeof call.text);
    const uint32_t status = Ld_Debug(&call);
    return {status, call};
}

TEST_F(DebugTest, CallsReachTheModel)
{
    EXPECT_EQ(0u, debug(LD_DEBUG_POKE, 0x60200000, 0x12345678).first);
    EXPECT_EQ(0x12345678u, debug(LD_DEBUG_PEEK, 0x60200000).second.value);
    LdDebugCall advance = {};
    advance.op = LD_DEBUG_ADVANCE;
    advance.wide = 0x123456789;
    EXPECT_EQ(0u, Ld_Debug(&advance));
    EXPECT_EQ(0x123456789u, model::clock_now(0));

    EXPECT_EQ(0u, debug(LD_DEBUG_FAULT_SET, 0, 0, "Qd_PBA_AtomModeSet code=5").first);
    debug(LD_DEBUG_JOURNAL_CLEAR);
    debug(LD_DEBUG_JOURNAL_SET, 0, 1);
    EXPECT_EQ(5u, Qd_PBA_AtomModeSet(0, 0, 3));
    debug(LD_DEBUG_JOURNAL_SET, 0, 0);
    EXPECT_EQ(0u, Qd_PBA_AtomModeSet(0, 0, 3));
    const LdDebugCall state = debug(LD_DEBUG_JOURNAL_STATE).second;
    EXPECT_EQ(1u, state.number);
    EXPECT_EQ(0u, state.value);
    EXPECT_STREQ("4886718345 chip 0 Qd_PBA_AtomModeSet(0, 0x0, 0x3) = 0x5",
                 debug(LD_DEBUG_JOURNAL_SHOW, 0).second.text);

    const QdCputrAutoInfo info = {99, 0, 0};
    const QdCputrSendPkt packet = {{1u << 29, 5}, 0, nullptr};
    ASSERT_EQ(0u, Qd_CPUTR_AutoSendInfoSet(0, 18, &info, &packet));
    ASSERT_EQ(0u, Qd_CPUTR_AutoSendChannelEnableSet(0, 18, 1));
    const LdDebugCall channel = debug(LD_DEBUG_CHANNEL, 18).second;
    EXPECT_EQ(1u, channel.value);
    EXPECT_EQ(100u, channel.wide);
    EXPECT_STRNE("", channel.text);
    EXPECT_EQ(0u, debug(LD_DEBUG_ENGINE).second.value);
    EXPECT_STREQ("heartbeats lost", debug(LD_DEBUG_STANDIN_COUNT, 10).second.text);
}

TEST_F(DebugTest, WrongCallsAreAnswered)
{
    const struct {
        LdDebugOp op;
        uint32_t number;
        uint32_t status;
    } rows[] = {
        {LD_DEBUG_OP_NUM, 0, model::kErrNotModelled},
        {LD_DEBUG_PEEK, 0xfffffffc, model::kErrAddress},
        {LD_DEBUG_POKE, 0x60200001, model::kErrAddress},
        {LD_DEBUG_FAULT_SHOW, 0, model::kErrParam},
        {LD_DEBUG_JOURNAL_SHOW, 0x7fffffff, model::kErrParam},
        {LD_DEBUG_FEED_SET, model::kAtomNum, model::kErrParam},
        {LD_DEBUG_CHANNEL, 0, model::kErrEmpty},
        {LD_DEBUG_CHANNEL, model::kAutoChannelNum, model::kErrParam},
        {LD_DEBUG_SENT, 0, model::kErrParam},
        {LD_DEBUG_STANDIN_COUNT, 11, model::kErrParam},
    };
    for (const auto &row : rows) {
        EXPECT_EQ(row.status, debug(row.op, row.number).first) << row.op;
    }
    EXPECT_EQ(model::kErrNull, Ld_Debug(nullptr));
    for (const LdDebugOp op : {LD_DEBUG_PEEK, LD_DEBUG_ADVANCE, LD_DEBUG_STANDIN_SET,
                               LD_DEBUG_LOOP_SET, LD_DEBUG_SENT, LD_DEBUG_CHANNEL, LD_DEBUG_ENGINE,
                               LD_DEBUG_SENT_COUNT, LD_DEBUG_FEED_SET, LD_DEBUG_STANDIN_COUNT}) {
        LdDebugCall call = {};
        call.op = op;
        call.chip = 7;
        EXPECT_EQ(model::kErrNoChip, Ld_Debug(&call)) << op;
    }
    const auto [status, call] = debug(LD_DEBUG_FAULT_SET, 0, 0, "alloc; Qd_Nothing code=1");
    EXPECT_EQ(model::kErrParam, status);
    EXPECT_STREQ("unknown operation at \"Qd_Nothing\" (column 8)", call.text);
    // A text without an end, of one long word, is cut.
    EXPECT_EQ(model::kErrParam,
              debug(LD_DEBUG_FAULT_SET, 0, 0, std::string(LD_DEBUG_TEXT, 'x')).first);
    EXPECT_EQ(0u, model::faults_count());
}

// ---- journal ------------------------------------------------------------------------------------

std::vector<std::string> journal_lines()
{
    std::vector<std::string> lines;
    for (uint32_t at = 0; at < model::journal_count(); at++) {
        char line[160];
        const size_t length = model::journal_format(*model::journal_record(at), line, sizeof line);
        EXPECT_LT(length, sizeof line);
        EXPECT_EQ(length, std::strlen(line));
        lines.emplace_back(line);
    }
    return lines;
}

TEST_F(JournalTest, KeepsBothDoorsInOneOrder)
{
    ASSERT_EQ(0u, model::attach(1));
    const uintptr_t window = Os_IoMap(0x60200000, 0x80000);
    Os_IoWrite32(window, 1);  // before recording
    model::journal_enable(true);
    model::advance(0, 12);
    Os_IoClear(window, 0x80000);
    Qd_PBA_AtomModeSet(0, 2, 3);
    send(plain(0x108000, 0, 3, 1, {{24, 0x0a}, {27, 0x0b}}));
    Os_IoRead32(window + 0x10000);
    Os_IoWrite32(window + 0x10004, 0x55);
    model::peek(0, 0x60210000, nullptr);
    send(plain(0x108000, 0, 1, 2));
    Os_IoWrite16(model::slave_base(1) + (0x20000 + 16), 2);
    Os_IoRead16(model::slave_base(1) + (0x20000 + 18));
    Qd_GLB_PortParamCheck(1, 6, 17, 127, 0);
    send(plain(0x108000, 0, 7, 2));
    model::faults_set("rba code=0x9", nullptr);
    send(plain(0x108000, 1, 3, 1));
    model::journal_enable(false);
    Os_IoRead32(window);

    const std::vector<std::string> expected = {
        "12 chip 0 clear 0x60200000 524288 bytes",
        "12 chip 0 Qd_PBA_AtomModeSet(0, 0x2, 0x3) = 0x0",
        "12 chip 0 rba write addr=0x00108000 ctrl=0x0100 class=3 status=0 "
        "data=0000000000000000000000000a00000b",
        "12 chip 0 read32 0x60210000 0x0b00000a",
        "12 chip 0 write32 0x60210004 0x00000055",
        "12 chip 0 rba read addr=0x00108000 ctrl=0x0200 class=1 status=0 "
        "data=00000000000000000a00000b55000000",
        "0 chip 1 write16 0x00000008 0x0002",
        "0 chip 1 read16 0x00000009 0x0000",
        "0 chip 1 Qd_GLB_PortParamCheck(1, 0x6, 0x11, 0x7f, 0x0) = 0x0",
        "12 chip 0 rba unknown addr=0x00108000 ctrl=0x0200 class=7 status=18 "
        "data=00000000000000000000000000000000",
        "12 chip 0 rba add addr=0x00108000 ctrl=0x0110 class=3 = 0x00000009",
    };
    EXPECT_EQ(expected, journal_lines());
}

TEST_F(JournalTest, TheOldestRecordsGiveWay)
{
    const uintptr_t window = Os_IoMap(0x60200000, 0x80000);
    model::journal_enable(true);
    for (uint32_t at = 0; at < model::kJournalSize + 3; at++) {
        Os_IoWrite32(window, at);
    }
    EXPECT_EQ(model::kJournalSize, model::journal_count());
    EXPECT_EQ(3u, model::journal_lost());
    EXPECT_EQ(3u, model::journal_record(0)->value);
    EXPECT_EQ(model::kJournalSize + 2, model::journal_record(model::kJournalSize - 1)->value);
    EXPECT_EQ(nullptr, model::journal_record(model::kJournalSize));
    model::journal_clear();
    EXPECT_EQ(0u, model::journal_count());
    EXPECT_EQ(nullptr, model::journal_record(0));
    EXPECT_TRUE(model::journal_enabled());
}

TEST_F(JournalTest, ALineIsCutToItsBuffer)
{
    model::journal_enable(true);
    Qd_PBA_AtomModeSet(0, 2, 3);
    const model::Record &record = *model::journal_record(0);
    char whole[160];
    const size_t length = model::journal_format(record, whole, sizeof whole);
    for (size_t size = 1; size <= length + 1; size++) {
        char cut[160];
        std::memset(cut, 'x', sizeof cut);
        EXPECT_EQ(length, model::journal_format(record, cut, size));
        EXPECT_EQ(std::string(whole, size - 1), std::string(cut));
        EXPECT_EQ('x', cut[size]);
    }
    EXPECT_EQ(length, model::journal_format(record, nullptr, 0));
}

}  // namespace

}  // namespace ldsdk::model_test

// Port configurations: rows as they lie in chip memory, and what is refused.
#include "tests/shell.h"

#include "sdk/tables/port.h"

namespace ldsdk::test {

namespace {

using testing::EndsWith;
using testing::HasSubstr;
using Words = std::vector<uint32_t>;

constexpr uint32_t kRows = 0x60226800;
constexpr NpPortID kXaui = {9, 0, 38, 1};  // number 64 + 38
constexpr uint32_t kXauiRow = kRows + 16 * 102;

using Word = uint32_t NpPortPct::*;
struct Value {
    Word field;
    uint32_t value;
};

class PortTables : public ShellUp {
  protected:
    static Words stored()
    {
        return {peek(kXauiRow), peek(kXauiRow + 4), peek(kXauiRow + 8), peek(kXauiRow + 12)};
    }
};

TEST_F(PortTables, ConfigurationsLieByTheirPort)
{
    using P = NpPortPct;
    struct Case {
        std::vector<Value> fields;
        Words words;
    };
    // Fields without a check are cut to what they have room for.
    const Case cases[] = {
        {{{&P::ulUserID, 0x1ff}, {&P::ulMacFilter, 3}, {&P::ulProtocolTempletId, 0x1fe}},
         {0x00fe07ff, 0, 0, 0}},
        {{{&P::ulRole, 3}, {&P::ulL2encIdx, 0x3f}, {&P::ulVlanCheckID, 5}}, {0xfd001800, 0, 0, 0}},
        {{{&P::ulHS, 0x1ee}}, {0, 0xee000000, 0, 0}},
        {{{&P::ulD2W, 1}, {&P::ullrn, 1}, {&P::ulMacLimitToCpu, 1}, {&P::ulMacLimitFwd, 2}},
         {0, 0x00d00000, 0, 0}},
        {{{&P::ulCarProfile, 0xaa}, {&P::ulCarID, 0xbb}, {&P::ulMirrorID, 12}, {&P::ulGmtMode, 13}},
         {0, 0, 0x00cdbbaa, 0}},
        {{{&P::ul3AhCnID, 14}, {&P::ulLagID, 15}}, {0, 0, 0xef000000, 0}},
        {{{&P::ulPfeEnable, 1}, {&P::ulCas, 1}, {&P::ulL3Enable, 1}, {&P::ulClass, 2}},
         {0, 0, 0, 0x000000d8}},
        {{{&P::ulMpls, 1}, {&P::ulDfxEnable, 1}, {&P::ulL2c, 1}}, {0, 0, 0, 0x00000007}},
        {{{&P::ul3ahLoopEnable, 1}, {&P::ulBlockEnable, 1}, {&P::ulCarEnable, 1}, {&P::ulMode, 2}},
         {0, 0, 0, 0x0000aa00}},
        {{{&P::ul1xEnable, 1}, {&P::ulVlanSenseEnable, 1}, {&P::ulCarMode, 1}},
         {0, 0, 0, 0x00005100}},
        {{{&P::ulPctPortType, 14}}, {0, 0, 0, 0x00e00000}},
        {{{&P::ulPctPortType, 15}}, {0, 0, 0, 0x00f00000}},
        {{{&P::ulPctPortType, 19}}, {0, 0, 0, 0x00f40000}},
        {{{&P::ulValid, 1}, {&P::ulMirrorEnable, 1}, {&P::ulLmEnable, 1}, {&P::ulPvtMode, 3}},
         {0, 0, 0, 0xae000000}},
        {{{&P::ul3AhEnable, 1}, {&P::ulTlsEnable, 1}, {&P::ulSlotID, 7}, {&P::ulChid, 9}},
         {0, 0, 0, 0x41000000}},
    };
    for (const Case &row : cases) {
        NpPortPct pct = {};
        for (const Value &value : row.fields) {
            pct.*value.field = value.value;
        }
        ASSERT_EQ(Np_PctTbl_Set(0, &kXaui, &pct), NP_OK);
        EXPECT_EQ(stored(), row.words);
        NpPortPct back;
        std::memset(&back, 0xa5, sizeof(back));
        ASSERT_EQ(Np_PctTbl_Get(0, &kXaui, &back), NP_OK);
        EXPECT_EQ(back.ulPctPortType, pct.ulPctPortType);
        EXPECT_EQ(back.ulChid, 0xa5a5a5a5u) << "what the row has not, stays";
    }
    NpPortPct pct = {};
    pct.stNativeVlan = {5, 1, 0xabc};
    ASSERT_EQ(Np_PctTbl_Set(0, &kXaui, &pct), NP_OK);
    EXPECT_EQ(stored(), (Words{0, 0x0000babc, 0, 0}));

    const std::string port = "port xaui portid 0 subportid 38 pri 1";
    EXPECT_THAT(run("micro port pct set " + port +
                    " pctporttype voip l2c 1 mode access bondingport fe portid 3 end"),
                EndsWith("Command execute success!"));
    EXPECT_EQ(stored(), (Words{0, 0x0000babc, 0, 0x00f10801}));
    EXPECT_THAT(run("micro port pct get " + port), HasSubstr("ulPctPortType            :   voip"));
    EXPECT_THAT(run("micro port pct set " + port + " l2c 0"), Not(HasSubstr("success")));
    EXPECT_THAT(run("micro port pct set port xaui portid 0 subportid 128 pri 1 l2c 0 end"),
                Not(HasSubstr("success")));
    EXPECT_EQ(stored(), (Words{0, 0x0000babc, 0, 0x00f10801}));
}

TEST_F(PortTables, BadConfigurationsAreRefusedInOrder)
{
    // Bad values, from the last test to the first.
    NpPortPct pct = {};
    const std::string arg = "param error! (pstPort->";
    struct Bad {
        uint32_t *field;
        uint32_t value;
        std::string message;
    };
    const Bad bad[] = {
        {&pct.ul3AhCnID, 16, arg + "ul3ahCnID)="},
        {&pct.ulLagID, 16, arg + "ulLagID)="},
        {&pct.ulMirrorID, 16, arg + "ulMirrorID)="},
        {&pct.ulCarID, 256, arg + "ulCarID)="},
        {&pct.ulCarProfile, 257, arg + "ulCarProfile)="},
        {&pct.ulUserID, 0x200, arg + "ulUserID)="},
        {&pct.stNativeVlan.ulCfi, 2, arg + "stNativeVlan.ulCfi)="},
        {&pct.stNativeVlan.ulPri, 8, arg + "stNativeVlan.ulPri)="},
        {&pct.stNativeVlan.ulVlanID, 4096, arg + "stNativeVlan.ulVlanID)="},
        {&pct.ulVlanCheckID, 8, arg + "ulVlanCheckID)="},
        {&pct.ulGmtMode, 16, arg + "ulGmtMode)="},
        {&pct.ulSlotID, 8, arg + "ulSlotID)="},
        {&pct.ulPvtMode, 4, arg + "ulPvtMode)="},
        {&pct.ulPctPortType, 20, arg + "ulPctPortType)="},
        {&pct.ulMode, 4, arg + "ulMode)="},
        {&pct.ulRole, 5, arg + "ulRole)="},
        {&pct.ulCarMode, 2, arg + "ulCarMode)="},
        {&pct.ulClass, 6, arg + "ulClass)="},
        {&pct.ulMacFilter, 7, arg + "ulMacFilter)="},
        {&pct.ulValid, 8, "valid Para error: "},
        {&pct.ulBlockEnable, 9, "enable Para error: "},
        {&pct.ul3ahLoopEnable, 10, "enable Para error: "},
        {&pct.ul1xEnable, 11, "enable Para error: "},
        {&pct.ul3AhEnable, 12, "enable Para error: "},
        {&pct.ulMirrorEnable, 13, "enable Para error: "},
        {&pct.ulVlanSenseEnable, 14, "enable Para error: "},
        {&pct.ulTlsEnable, 15, "enable Para error: "},
        {&pct.ulLmEnable, 16, "enable Para error: "},
        {&pct.ulCarEnable, 17, "enable Para error: "},
        {&pct.ulL3Enable, 18, "enable Para error: "},
        {&pct.ulPfeEnable, 19, "enable Para error: "},
        {&pct.ulL2c, 20, "enable Para error: "},
        {&pct.ulDfxEnable, 21, "enable Para error: "},
        {&pct.ulD2W, 22, "enable Para error: "},
        {&pct.ullrn, 23, "enable Para error: "},
        {&pct.ulCas, 24, "true/false Para error: "},
        {&pct.ulMpls, 25, "true/false Para error: "},
    };
    const auto before = store();
    for (size_t k = std::size(bad); k-- > 0;) {
        *bad[k].field = bad[k].value;
        trace_errors(NP_M_PORT);
        out.take();
        EXPECT_EQ(Np_PctTbl_Set(0, &kXaui, &pct), NP_ERR_PARAM);
        char value[16];
        std::snprintf(value, sizeof(value), "0x%08x", bad[k].value);
        EXPECT_THAT(out.take(), HasSubstr("]: " + bad[k].message + value));
    }
    const NpPortID none = {16, 0, 0, 0};
    NpPortPct back = {};
    EXPECT_EQ(Np_PctTbl_Get(0, &none, &back), NP_ERR_PARAM);
    EXPECT_EQ(Np_PctTbl_Get(0, nullptr, &back), NP_ERR_NULL_PTR);
    EXPECT_EQ(store(), before);
}

}  // namespace

}  // namespace ldsdk::test

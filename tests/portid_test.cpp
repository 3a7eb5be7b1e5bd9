// Port records and phy ids, on a scripted driver.
#include "tests/driver_tap.h"
#include "tests/fixture.h"

#include "sdk/access/portid.h"
#include "sdk/frame/base/service.h"

namespace {

using ldsdk::test::ChipUp;
using ldsdk::test::DriverTap;
using testing::ElementsAre;
using testing::HasSubstr;

class PortIds : public ChipUp {
  protected:
    PortIds()
    {
        trace_errors(NP_M_COMM);
    }

    DriverTap tap;
};

testing::Matcher<NpPortID> port(uint32_t type, uint32_t id, uint32_t sub, uint32_t pri)
{
    return testing::AllOf(
        testing::Field(&NpPortID::ulPortType, type), testing::Field(&NpPortID::ulPortID, id),
        testing::Field(&NpPortID::ulSubPortID, sub), testing::Field(&NpPortID::ulPri, pri));
}

TEST_F(PortIds, XauiRangeNeedsNoDriver)
{
    for (uint32_t sub = 0; sub < 64; sub++) {
        const NpPortID xaui = {9, 0, sub, 1};
        uint32_t phy = 0;
        ASSERT_EQ(Np_PortID2PhyID(0, &xaui, &phy), NP_OK);
        EXPECT_EQ(phy, 64 + sub);
        NpPortID back = {};
        ASSERT_EQ(Np_IngressPhyID2PortID(0, phy, &back), NP_OK);
        EXPECT_THAT(back, port(9, 0, sub, 1));
    }
    uint32_t phy = 0;
    const NpPortID high = {9, 0, 64, 1};
    ASSERT_EQ(Np_PortID2PhyID(0, &high, &phy), NP_OK);
    EXPECT_EQ(phy, 64u) << "the sub-port's high bits are lost";
    EXPECT_EQ(tap.take_names(), "");

    // Beside the range, and in the variant without it, the driver decides.
    const NpPortID plain = {9, 0, 5, 0};
    ASSERT_EQ(Np_PortID2PhyID(0, &plain, &phy), NP_OK);
    EXPECT_EQ(phy, 512u + 9);
    EXPECT_THAT(tap.take().at(0).numbers, ElementsAre(9, 0, 5, 0));
    ASSERT_EQ(Np_TarnA_PortID2PhyID(0, &high, &phy), NP_OK);
    EXPECT_THAT(tap.take().at(0).numbers, ElementsAre(9, 0, 64, 1));
    NpPortID back = {};
    for (const uint32_t number : {63u, 128u, 1023u}) {
        ASSERT_EQ(Np_IngressPhyID2PortID(0, number, &back), NP_OK);
        EXPECT_THAT(back, port(number & 15, number >> 4, 0, 0));
    }
    ASSERT_EQ(Np_TarnA_IngressPhyID2PortID(0, 70, &back), NP_OK);
    EXPECT_THAT(back, port(6, 4, 0, 0));
}

TEST_F(PortIds, RefusalsReachNoDriver)
{
    const NpPortID bad = {16, 0, 0, 0};
    const NpPortID good = {};
    NpPortID back = {};
    uint32_t phy = 7;
    const std::string type = "param error! ulPortType=0x00000010\r\n";
    struct Case {
        std::function<uint32_t()> call;
        uint32_t code;
        std::string text;
    };
    const std::string null = "Para null ptr\r\n";
    const std::vector<Case> cases = {
        {[&] { return Np_Tarn_PortParaCheck(0, nullptr); }, NP_ERR_NULL_PTR, null},
        {[&] { return Np_Tarn_PortParaCheck(0, &bad); }, NP_ERR_PARAM, type},
        {[&] { return Np_PortID2PhyID(0, nullptr, &phy); }, NP_ERR_NULL_PTR, null},
        {[&] { return Np_PortID2PhyID(0, &good, nullptr); }, NP_ERR_NULL_PTR, null},
        {[&] { return Np_PortID2PhyID(0, &bad, &phy); }, NP_ERR_PARAM, type},
        {[&] { return Np_TarnA_PortID2PhyID(0, &bad, &phy); }, NP_ERR_PARAM, type},
        {[&] { return Np_IngressPhyID2PortID(0, 70, nullptr); }, NP_ERR_NULL_PTR, null},
        {[&] { return Np_Tarn_EgressPhyID2PortID(0, 1, nullptr); }, NP_ERR_NULL_PTR, null},
        {[&] { return Np_PortID2PhyID(1, &good, &phy); }, NP_ERR_CHIP_ID, "ChipID not register"},
        {[&] { return Np_IngressPhyID2PortID(4, 1, &back); }, NP_ERR_CHIP_ID, "ChipID Error"},
    };
    for (const Case &each : cases) {
        EXPECT_EQ(each.call(), each.code);
        EXPECT_THAT(out.take(), HasSubstr(each.text));
    }
    EXPECT_EQ(phy, 7u);
    EXPECT_EQ(tap.take_names(), "");
}

uint32_t g_recorded = 0;
void record(uint32_t code, uint32_t)
{
    g_recorded = code;
}

TEST_F(PortIds, DriverFailures)
{
    Np_Glb_RecordErrInfoHook(0, record);
    const NpPortID ge = {6, 3, 0, 0};
    NpPortID back = {1, 2, 3, 4};
    uint32_t phy = 7;
    tap.fail(1, 0x55);
    EXPECT_EQ(Np_Tarn_PortParaCheck(0, &ge), 0x55u);
    EXPECT_THAT(out.take(), HasSubstr("Qd_GLB_PortParamCheck return(0x00000055) error\r\n"));
    tap.fail(1, 0x56);
    EXPECT_EQ(Np_PortID2PhyID(0, &ge, &phy), 0x56u);
    EXPECT_THAT(out.take(),
                HasSubstr("Qd_GLB_PortParamToIngressPhyID return error 0x00000056\r\n"));
    tap.fail(1, 0x57);
    EXPECT_EQ(Np_Tarn_EgressPhyID2PortID(0, 9, &back), 0x57u);
    EXPECT_THAT(out.take(),
                HasSubstr("Qd_GLB_EgressPhyIDToPortParam return(0x00000057) error\r\n"));
    EXPECT_THAT(back, port(1, 2, 3, 4));
    EXPECT_EQ(g_recorded, 0u);
    tap.fail(1, 0x58);  // an unknown ingress number lets a row be read to its end
    EXPECT_EQ(Np_IngressPhyID2PortID(0, 9, &back), NP_OK);
    EXPECT_THAT(out.take(),
                HasSubstr("Qd_GLB_IngressPhyIDToPortParam return(0x00000058) error\r\n"));
    EXPECT_THAT(back, port(17, 0, 0, 0));
    EXPECT_EQ(g_recorded, 0x58u);
    EXPECT_EQ(Np_Tarn_PortParaCheck(0, &ge), NP_OK);
    EXPECT_EQ(Np_Tarn_EgressPhyID2PortID(0, 0x35, &back), NP_OK);
    EXPECT_THAT(back, port(5, 3, 0, 0));
}

}  // namespace

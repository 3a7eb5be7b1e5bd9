// Counters by type and index, on the chip model's search memory.
#include "tests/fixture.h"

#include "sdk/access/counter.h"

#include <algorithm>
#include <functional>
#include <random>

namespace {

using ldsdk::test::ChipUp;
using ldsdk::test::frame;
using ldsdk::test::FrameTap;
using testing::HasSubstr;

// Chip address of byte 0 of the counters' bank.
constexpr uint32_t kBank = 0x60200000;

class Counters : public ChipUp {
  protected:
    Counters()
    {
        trace_errors(NP_M_COMM);
    }
};

// Every counter that there is: type, index, first byte, bytes.
struct Place {
    uint32_t type, id, first, width;
};

std::vector<Place> all_counters()
{
    std::vector<Place> places;
    for (uint32_t type = 0; type < NP_CNT_TYPE_NUM; type++) {
        const NpCntConfigDesc &row = g_asttarnNpCntConfigDesc_TarnB[type];
        for (uint32_t id = 0; id < row.ulCntNum; id++) {
            places.push_back(
                {type, id, row.ulBaseAddr + (row.ulCntWidth + row.ulGap) * id, row.ulCntWidth});
        }
    }
    return places;
}

TEST_F(Counters, NoTwoShareAByte)
{
    std::vector<Place> places = all_counters();
    std::sort(places.begin(), places.end(),
              [](const Place &a, const Place &b) { return a.first < b.first; });
    for (size_t i = 1; i < places.size(); i++) {
        EXPECT_GE(places[i].first, places[i - 1].first + places[i - 1].width)
            << places[i].type << " and " << places[i - 1].type;
    }
}

// Set lands at the counter's bytes alone, least significant word last; read, read-clear and clear
// see the same.
TEST_F(Counters, EachHoldsItsValueAtItsPlace)
{
    std::mt19937 random(5);
    for (const auto &[type, id, first, width] : all_counters()) {
        if (id > 2 && id + 1 < g_asttarnNpCntConfigDesc_TarnB[type].ulCntNum) {
            continue;
        }
        SCOPED_TRACE(testing::Message() << type << "/" << id);
        const uint32_t at = kBank + first;
        std::vector<uint8_t> expected = memory(at - 16, width + 32);
        NpCntValue value = {};
        std::generate(std::begin(value.aulCntVal), std::end(value.aulCntVal), std::ref(random));
        ASSERT_EQ(Np_Tarn_CntSet(0, type, id, &value), NP_OK);
        for (uint32_t k = 0; k < width; k++) {
            const uint32_t word = width < 4 ? 0 : width / 4 - 1 - k / 4;
            expected[16 + k] = static_cast<uint8_t>(value.aulCntVal[word] >> (8 * (k % 4)));
        }
        EXPECT_EQ(memory(at - 16, width + 32), expected);

        for (uint32_t word = 0; word < NP_CNT_WORDS; word++) {
            value.aulCntVal[word] = 4 * word >= width ? 0
                                    : width == 2      ? value.aulCntVal[word] & 0xffff
                                                      : value.aulCntVal[word];
        }
        NpCntValue got = {{1, 2, 3, 4}};
        ASSERT_EQ(Np_Tarn_CntRead(0, type, id, &got), NP_OK);
        EXPECT_THAT(got.aulCntVal, testing::ElementsAreArray(value.aulCntVal));
        got = {{1, 2, 3, 4}};
        ASSERT_EQ(Np_Tarn_CntReadClear(0, type, id, &got), NP_OK);
        EXPECT_THAT(got.aulCntVal, testing::ElementsAreArray(value.aulCntVal));
        std::fill_n(expected.begin() + 16, width, 0);
        EXPECT_EQ(memory(at - 16, width + 32), expected);
        ASSERT_EQ(Np_Tarn_CntSet(0, type, id, &value), NP_OK);
        ASSERT_EQ(Np_Tarn_CntClear(0, type, id), NP_OK);
        EXPECT_EQ(memory(at - 16, width + 32), expected);
    }
}

TEST_F(Counters, KnownPlacesAndWords)
{
    poke(kBank + 0x46008, 0x12345678);  // type 4 has gaps
    NpCntValue value = {};
    ASSERT_EQ(Np_Tarn_CntRead(0, 4, 1, &value), NP_OK);
    EXPECT_EQ(value.aulCntVal[0], 0x12345678u);
    poke(kBank + 0x4f000 + 8 * 3, 7);  // 64 bits: the high word comes first
    poke(kBank + 0x4f000 + 8 * 3 + 4, 9);
    ASSERT_EQ(Np_Tarn_CntRead(0, 9, 3, &value), NP_OK);
    EXPECT_THAT(value.aulCntVal, testing::ElementsAre(9, 7, 0, 0));
    poke(kBank + 0x4a000, 0xbeef1234);  // two counters of 16 bits
    ASSERT_EQ(Np_Tarn_CntRead(0, 10, 1, &value), NP_OK);
    EXPECT_THAT(value.aulCntVal, testing::ElementsAre(0xbeef, 0, 0, 0));
}

// What is refused is refused before a command goes out.
TEST_F(Counters, Refusals)
{
    FrameTap tap;
    NpCntValue value = {};
    uint32_t one = 1;
    const std::string null = "Para null ptr\r\n";
    EXPECT_EQ(Np_Tarn_CntRead(0, 0, 0, nullptr), NP_ERR_NULL_PTR);
    EXPECT_EQ(Np_Tarn_CntReadClear(0, 0, 0, nullptr), NP_ERR_NULL_PTR);
    EXPECT_EQ(Np_Tarn_CntSet(0, 0, 0, nullptr), NP_ERR_NULL_PTR);
    EXPECT_EQ(Np_Tarn_CntAdd(0, 1, 0, nullptr), NP_ERR_NULL_PTR);
    EXPECT_EQ(Np_Tarn_CntSub(0, 1, 0, nullptr), NP_ERR_NULL_PTR);
    EXPECT_THAT(out.take(), HasSubstr(null));

    const std::vector<std::function<uint32_t(uint32_t, uint32_t)>> plain = {
        [&](uint32_t type, uint32_t id) { return Np_Tarn_CntRead(0, type, id, &value); },
        [&](uint32_t type, uint32_t id) { return Np_Tarn_CntReadClear(0, type, id, &value); },
        [&](uint32_t type, uint32_t id) { return Np_Tarn_CntSet(0, type, id, &value); },
        [&](uint32_t type, uint32_t id) { return Np_Tarn_CntClear(0, type, id); },
    };
    for (const auto &call : plain) {
        EXPECT_EQ(call(29, 0), NP_ERR_PARAM);
        EXPECT_THAT(out.take(), HasSubstr("param error! ulCntType=0x0000001d\r\n"));
        for (uint32_t type = 0; type < 29; type++) {
            const uint32_t id = g_asttarnNpCntConfigDesc_TarnB[type].ulCntNum;
            Np_PrintLevelSet(NP_M_COMM, NP_PRINT_ERROR, 1);
            EXPECT_EQ(call(type, id), NP_ERR_PARAM) << type;
            char text[64];
            snprintf(text, sizeof(text), "cnt id error! cntid = 0x%08x\r\n", id);
            EXPECT_THAT(out.take(), HasSubstr(text));
        }
    }
    for (uint32_t type = 0; type <= 29; type++) {
        Np_PrintLevelSet(NP_M_COMM, NP_PRINT_ERROR, 1);
        char add[64], sub[64];
        snprintf(add, sizeof(add), "cnt id error! ulCntType = 0x%08x\r\n", type);
        snprintf(sub, sizeof(sub), "cnt id error! cntid = 0x%08x\r\n", type);
        if (type == 29) {
            snprintf(add, sizeof(add), "param error! ulCntType=0x0000001d\r\n");
            snprintf(sub, sizeof(sub), "param error! ulCntType=0x0000001d\r\n");
        }
        if (type != 0 && type != 1 && type != 18) {
            EXPECT_EQ(Np_Tarn_CntSub(0, type, 0, &one), NP_ERR_PARAM) << type;
            EXPECT_THAT(out.take(), HasSubstr(sub));
        }
        if (type != 0 && type != 1 && type != 18 && type != 27 && type != 28) {
            EXPECT_EQ(Np_Tarn_CntAdd(0, type, 0, &one), NP_ERR_PARAM) << type;
            EXPECT_THAT(out.take(), HasSubstr(add));
        }
    }
    EXPECT_EQ(tap.take_count(), 0u);
}

// Expected frames: address word, command half-word (operation 1, width code 1, bit 13 subtracts),
// access class 3, limit, amount.
TEST_F(Counters, AddAndSubAreOneAtomicCommand)
{
    poke(kBank + 0x45000 + 4 * 5, 100);
    FrameTap tap;
    uint32_t value = 1;
    ASSERT_EQ(Np_Tarn_CntAdd(0, 1, 5, &value), NP_OK);
    EXPECT_EQ(value, 101u);
    EXPECT_EQ(tap.take(), frame({{0, {0x0a, 0x28, 0x12, 0x00}},
                                 {4, {0x10, 0x01}},
                                 {6, {3}},
                                 {20, {0xff, 0xff, 0xff, 0xff}},
                                 {26, {1, 0}}}));
    value = 3;
    ASSERT_EQ(Np_Tarn_CntSub(0, 1, 5, &value), NP_OK);
    EXPECT_EQ(value, 98u);
    EXPECT_EQ(tap.take(), frame({{0, {0x0a, 0x28, 0x12, 0x00}},
                                 {4, {0x10, 0x21}},
                                 {6, {3}},
                                 {20, {0xff, 0xff, 0xff, 0xff}},
                                 {26, {3, 0}}}));
    EXPECT_EQ(peek(kBank + 0x45000 + 4 * 5), 98u);
    // Flows, bundles and the chip begin with no credit, ports with nothing.
    for (const auto &[type, begin] : std::initializer_list<std::pair<uint32_t, uint32_t>>{
             {0, 0x80000000}, {1, 0x80000000}, {18, 0x80000000}, {27, 0}, {28, 0}}) {
        value = 2;
        EXPECT_EQ(Np_Tarn_CntAdd(0, type, 0, &value), NP_OK) << type;
        EXPECT_EQ(value, begin + 2) << type;
    }
    // A counter of another width leaves the amount as it was.
    NpCntConfigDesc other[NP_CNT_TYPE_NUM];
    std::copy(std::begin(g_asttarnNpCntConfigDesc_TarnB), std::end(g_asttarnNpCntConfigDesc_TarnB),
              other);
    other[1] = other[9];
    g_asttarnNpCntConfigDesc[0] = other;
    value = 6;
    EXPECT_EQ(Np_Tarn_CntAdd(0, 1, 5, &value), NP_OK);
    EXPECT_EQ(value, 6u);
    EXPECT_EQ(peek(kBank + 0x4f000 + 8 * 5 + 4), 6u);
    g_asttarnNpCntConfigDesc[0] = g_asttarnNpCntConfigDesc_TarnB;
}

TEST_F(Counters, FailuresOfTheCommand)
{
    NpCntValue value = {};
    uint32_t one = 1;
    struct Case {
        std::function<uint32_t()> call;
        uint32_t code;
        std::string on_code, on_status;
    };
    const std::vector<Case> cases = {
        {[&] { return Np_Tarn_CntRead(0, 1, 0, &value); }, NP_ERR_SMEM_READ,
         "smem read failed! ulReturn = 0x00000077, ulStatus=0x00000000\r\n",
         "smem read failed! ulStatus=0x00000003\r\n"},
        {[&] { return Np_Tarn_CntReadClear(0, 1, 0, &value); }, NP_ERR_SMEM_READ,
         "smem read failed! ulReturn = 0x00000077, ulStatus=0x00000000\r\n",
         "smem read failed! ulStatus=0x00000003\r\n"},
        {[&] { return Np_Tarn_CntSet(0, 1, 0, &value); }, NP_ERR_SMEM_WRITE,
         "smem write failed! ulReturn = 0x00000077\r\n",
         "smem write failed! ulReturn = 0x9a00003a\r\n"},
        {[&] { return Np_Tarn_CntClear(0, 1, 0); }, NP_ERR_SMEM_CLEAR,
         "smem clear failed! ulReturn = 0x00000077\r\n",
         "smem clear failed! ulReturn = 0x9a00003a\r\n"},
        {[&] { return Np_Tarn_CntAdd(0, 1, 0, &one); }, NP_ERR_SMEM_OP,
         "add failed! ulReturn = 0x00000077, ulStatus=0x00000000\r\n",
         "cnt add failed! ulStatus=0x00000003\r\n"},
        {[&] { return Np_Tarn_CntSub(0, 1, 0, &one); }, NP_ERR_SMEM_OP,
         "sub failed! ulReturn = 0x00000077, ulStatus=0x00000000\r\n",
         "smem sub failed! ulStatus=0x00000003\r\n"},
    };
    for (const Case &each : cases) {
        set_fault("rba code=0x77");
        EXPECT_EQ(each.call(), each.code);
        EXPECT_THAT(out.take(), HasSubstr(each.on_code));
        set_fault("rba status=3");
        EXPECT_EQ(each.call(), each.code);
        EXPECT_THAT(out.take(), HasSubstr(each.on_status));
        EXPECT_EQ(one, 1u);
        EXPECT_EQ(each.call(), NP_OK);
        one = 1;
        EXPECT_EQ(Np_Tarn_CntClear(0, 1, 0), NP_OK);
    }
}

}  // namespace

// The MAC table and the LAN MAC table: items as they lie in chip memory, what is refused, and what
// an entry that changes or goes gives back.
#include "tests/shell.h"

#include "sdk/tables/arl.h"
#include "sdk/tables/secu.h"

#include <functional>

namespace ldsdk::test {

namespace {

using testing::HasSubstr;
using Words = std::vector<uint32_t>;

constexpr uint32_t kMacItems = 0x60268000;
constexpr uint32_t kLanItems = 0x60260000;
constexpr uint32_t kFlowLimit = 0x60245000;
constexpr uint32_t kBundleLimit = 0x6024b400;
constexpr uint32_t kGlobalLimit = 0x60222288;
constexpr uint32_t kPortLimit = 0x6024b000;
constexpr uint32_t kLanLimit = 0x6024b100;
constexpr uint32_t kLimitSwitch = 0x7a101a40;
constexpr uint32_t kUserMacs = 0x6020e000;
constexpr uint32_t kCollision = 0x60222294;
constexpr uint32_t kBase = 0x80000400;  // a counter with credit

// A port that the row of port configurations has, and whose number a key has the bits for.
constexpr NpPortID kXaui = {9, 0, 38, 1};  // number 64 + 38, 0x66

NpArlKey key_of(uint32_t type, uint32_t last = 6)
{
    NpArlKey key = {};
    key.ulType = type;
    key.ulSvlanID = 0xabc;
    key.ulCvlanID = 0x123;
    key.ulSvlan1p = 6;
    key.ulCvlan1p = 7;
    key.ulSip = 0x0a0bcdef;
    key.ulDip = 0xc1234567;
    key.ulSessionID = 0x4567;
    key.stPort = kXaui;
    key.ulVsi = 5;
    key.ulScUnMode = 2;
    key.ulAoeCtrlWord = 0xffff;
    for (uint32_t i = 0; i < 6; i++) {
        key.aucMacAddr[i] = static_cast<uint8_t>(i == 5 ? last : i + 1);
    }
    return key;
}

NpArlData data_of(uint32_t operation, uint32_t interface)
{
    NpArlData data = {};
    data.stLearnData = {operation, interface};
    return data;
}

class Arl : public ShellUp {
  protected:
    Arl()
    {
        for (const uint32_t counter : {kFlowLimit + 4 * 7, kBundleLimit + 4 * 7, kGlobalLimit,
                                       kPortLimit + 4 * 7, kLanLimit}) {
            poke(counter, kBase);
        }
    }

    // Words of the item at a place, as they lie in chip memory.
    static Words item_at(uint32_t items, uint32_t index)
    {
        Words words;
        for (uint32_t i = 0; i < 4; i++) {
            words.push_back(peek(items + 16 * index + 4 * i));
        }
        return words;
    }
    static uint32_t entries_left()
    {
        uint32_t left = 0;
        for (uint32_t index = 0; index < 0x800; index++) {
            left += peek(kMacItems + 16 * index + 12) >> 28 != 0;
        }
        return left;
    }
    static NpArlInfo info_of(const NpArlKey &key, uint32_t result = NP_OK)
    {
        NpArlData data;
        NpArlInfo info = {99, 99, 99};
        EXPECT_EQ(Np_ArlTbl_Get(0, &key, &data, &info), result);
        return info;
    }
    // Lets the microcode learn an entry.
    static void learn(const NpArlKey &key, const NpArlData &data)
    {
        const NpDynamicLrn entry = {key, data};
        ASSERT_EQ(Np_ArlTbl_DynamicArlLrn(0, &entry), NP_OK);
        NpDynamicLrnState state;
        ASSERT_EQ(Np_ArlTbl_DynamicArlLrnStateTbl_Get(0, 0, &state), NP_OK);
        ASSERT_EQ(state.ulDone, 1u);
        ASSERT_EQ(state.ulLrnResult, 0u);
    }
    static uint32_t user_flags(uint32_t row)
    {
        return peek(kUserMacs + 16 * row + 12) >> 28;
    }
    // A user MAC row, its user MAC ending in `last`.
    static void user_row(uint32_t row, uint32_t last, uint32_t flags)
    {
        const NpUvt uvt = {flags >> 3 & 1,
                           flags >> 2 & 1,
                           flags >> 1 & 1,
                           flags & 1,
                           {2, 0, 0, 0, 0, static_cast<uint8_t>(row)},
                           {1, 2, 3, 4, 5, static_cast<uint8_t>(last)}};
        ASSERT_EQ(Np_UvtTbl_Set(0, row, &uvt), NP_OK);
    }
    std::vector<std::string> failures(const std::function<uint32_t()> &call, uint32_t result)
    {
        return ShellUp::failures(NP_M_ARL, call, result);
    }
};

// ---- items --------------------------------------------------------------------------------------

// Key and data share an item, each with its own bits; tests/rows.txt has the fields' places.
TEST_F(Arl, KeyAndDataTakeTheirOwnBits)
{
    NpArlData data = data_of(5, 0x1abc);
    data.ulVmac = 1;
    data.ulVmacID = 0x123;
    data.ulIftID = 0x13ff;
    for (uint32_t type = 0; type < 16; type++) {
        SCOPED_TRACE(type);
        const NpArlKey key = key_of(type);
        Words item(4);
        ASSERT_EQ(Np_Tarn_Arl_ArlTblKeyBulid(0, &key, item.data()), NP_OK);
        EXPECT_EQ(item[3] >> 24, 0xf0 | type);
        Words full(4, 0xffffffff);
        ASSERT_EQ(Np_Tarn_Arl_ArlTblKeyBulid(0, &key, full.data()), NP_OK);
        EXPECT_EQ(full, (Words{0xffffffff, item[1] | 0xfffff, item[2], item[3]}));
        ASSERT_EQ(Np_Tarn_Arl_ArlTblAdBulid(0, &data, full.data()), NP_OK);
        EXPECT_EQ(full, (Words{0x3ff01232, item[1] | 0xbabc1, item[2], item[3]}));

        NpArlKey back;
        std::memset(&back, 0xa5, sizeof(back));
        ASSERT_EQ(Np_Tarn_Arl_ArlTblKeyParse(0, item.data(), &back), NP_OK);
        Words again(4);
        ASSERT_EQ(Np_Tarn_Arl_ArlTblKeyBulid(0, &back, again.data()), NP_OK);
        EXPECT_EQ(again, item) << "what the type has, comes back";
        EXPECT_EQ(back.ulCvlan1p | back.ulAoeCtrlWord, 0u);
        EXPECT_EQ(back.aucMacAddr[0], type == 0 || type == 6 || type == 8 || type >= 14 ? 1 : 0);
        uint32_t status = 0;
        NpArlData read;
        ASSERT_EQ(Np_Tarn_Arl_ArlTblAdParse(0, full.data(), &status, &read), NP_OK);
        EXPECT_EQ(status, 15u);
        EXPECT_EQ(read.ulVmacID, 0x123u);
        EXPECT_EQ(read.ulMdiEnable | read.ulMdiID | read.ulMcnID, 0u);
    }
    // A number that no port has.
    Words item = {0, 0xf0000000, 0x0000000f, 0x0f000000};
    NpArlKey back;
    ASSERT_EQ(Np_Tarn_Arl_ArlTblKeyParse(0, item.data(), &back), NP_OK);
    EXPECT_EQ(back.stPort.ulPortType, 17u);

    const NpLanMacKey lan = {0xabc, {1, 2, 3, 4, 5, 6}};
    const NpLanMacData port = {0x1f};
    item.assign(4, 0);
    ASSERT_EQ(Np_Tarn_Arl_LanMacTblKeyBulid(0, &lan, item.data()), NP_OK);
    ASSERT_EQ(Np_Tarn_Arl_LanMacTblAdBulid(0, &port, item.data()), NP_OK);
    EXPECT_EQ(item, (Words{0, 0xc001f000, 0x040506ab, 0xf0010203}));
}

// ---- what is refused ----------------------------------------------------------------------------

// The key is tested before the data, by all that take it, and nothing is sent or stored.
TEST_F(Arl, BadRecordsAreRefusedInOrderAndChangeNothing)
{
    NpDynamicLrn entry = {};
    NpArlKey &key = entry.stArlKey;
    NpArlData &data = entry.stArlData;
    const auto before = store();
    FrameTap frames;
    const auto expect = [&](const std::string &message, bool in_key) {
        const std::vector<std::string> lines = {message};
        NpArlInfo info;
        EXPECT_EQ(failures([&] { return Np_ArlTbl_Add(0, &key, &data); }, NP_ERR_PARAM), lines);
        EXPECT_EQ(failures([&] { return Np_ArlTbl_DynamicArlLrn(0, &entry); }, NP_ERR_PARAM),
                  lines);
        if (in_key) {
            EXPECT_EQ(failures([&] { return Np_ArlTbl_Get(0, &key, &data, &info); }, NP_ERR_PARAM),
                      lines);
            EXPECT_EQ(failures([&] { return Np_ArlTbl_Del(0, 2, &key); }, NP_ERR_PARAM), lines);
        }
    };
    data.ulVmac = 2;  // no other flag is known
    expect("enable Para error: 0x00000002 \r\n", false);
    data.stLearnData.ulOpCode = 8;
    expect("param error! (pstArlData->stLearnData.ulOpCode)=0x00000008\r\n", false);
    key.ulScUnMode = 4;
    expect("param error! (pstArlKey->ulScUnMode)=0x00000004\r\n", true);
    EXPECT_EQ(frames.take_count(), 0u);
    EXPECT_EQ(store(), before);
}

#define CALL(expression) [&] { return expression; }

TEST_F(Arl, OtherBadRequestsAreRefusedAndChangeNothing)
{
    const NpArlKey key = key_of(0);
    const NpLanMacKey lan = {4096, {}};
    NpArlKey found;
    NpArlData data = {};
    NpArlInfo info;
    NpLanMacInfo lan_info;
    NpLanMacKey lan_found;
    NpLanMacData lan_data = {0x20};
    const NpLanMacKey lan_good = {1, {}};
    uint32_t number;
    NpUvmacInfoAd listed[32];
    NpUvmacInfoKey query = {0, kXaui, {0, 0}};
    NpArlAgeModeKey mode = {kXaui, {}, {}, 16};
    const auto age = [](uint32_t enable, uint32_t time) {
        const NpNormalAge request = {enable, time};
        return Np_ArlTbl_NormalAge(0, &request);
    };
    const auto force = [](uint32_t bitmap, uint32_t id) {
        const NpForceAge request = {bitmap, id};
        return Np_ArlTbl_ForceAge(0, &request);
    };
    const auto ask = [&](uint32_t type, uint32_t operation, uint32_t interface) {
        query.ulType = type;
        query.stLearnData = {operation, interface};
        return Np_UVMacInfo_Get(0, &query, &number, listed);
    };
    struct Case {
        std::function<uint32_t()> call;
        const char *message;
    };
    const Case cases[] = {
        {CALL(Np_ArlTbl_Del(0, 3, &key)), "param error! (ulMacDelType)=0x00000003\r\n"},
        {CALL(Np_ArlTbl_DelByIndex(0, 0x800)), "param error! (ulIndex)=0x00000800\r\n"},
        {CALL(Np_ArlTbl_GetByIndex(0, 0x800, &found, &data, &info)),
         "param error! (ulIndex)=0x00000800\r\n"},
        {CALL(Np_ArlTbl_DynamicArlLrnStateTbl_Clear(0, 1)),
         "param error! (ulIndex)=0x00000001\r\n"},
        {CALL(Np_LanMacTbl_Add(0, &lan, &lan_data)),
         "param error! (pstLanMacKey->ulSvlanID)=0x00001000\r\n"},
        {CALL(Np_LanMacTbl_Add(0, &lan_good, &lan_data)),
         "param error! (pstLanMacData->ulL2encId)=0x00000020\r\n"},
        {CALL(Np_LanMacTbl_Del(0, 4, &lan_good)), "param error! (ulMacDelType)=0x00000004\r\n"},
        {CALL(Np_LanMacTbl_DelByIndex(0, 0x800)), "param error! (ulIndex)=0x00000800\r\n"},
        {CALL(Np_LanMacTbl_GetByIndex(0, 0x801, &lan_found, &lan_data, &lan_info)),
         "param error! (ulIndex)=0x00000801\r\n"},
        {CALL(age(2, 0)), "enable Para error: 0x00000002 \r\n"},
        {CALL(age(1, 0x13c681)), "param error! (pstNormalAge->ulAgeTime)=0x0013c681\r\n"},
        {CALL(force(0x100, 0)), "param error! (pstForceAge->ulForceAgeIDBitmap)=0x00000100\r\n"},
        {CALL(force(64, 4)), "param error! (pstForceAge->ulForceAgeID)=0x00000004\r\n"},
        {CALL(force(16, 16)), "param error! (pstForceAge->ulForceAgeID)=0x00000010\r\n"},
        {CALL(force(4, 4096)), "param error! (pstForceAge->ulForceAgeID)=0x00001000\r\n"},
        {CALL(force(1, 0x400)), "param error! (pstForceAge->ulForceAgeID)=0x00000400\r\n"},
        {CALL(force(2, 0x20)), "param error! (pstForceAge->ulForceAgeID)=0x00000020\r\n"},
        {CALL(force(8, 0x100)), "param error! (pstForceAge->ulForceAgeID)=0x00000100\r\n"},
        {CALL(force(32, 0x400)), "param error! (pstForceAge->ulForceAgeID)=0x00000400\r\n"},
        {CALL(force(1 | 16, 0x20)), "param error! (pstForceAge->ulForceAgeID)=0x00000020\r\n"},
        {CALL(Np_ArlTbl_AgeModeSet(0, &mode, 3)), "param error! (ulAgeMode)=0x00000003\r\n"},
        {CALL(Np_ArlTbl_AgeModeSet(0, &mode, 2)),
         "param error! (pstArlAgeModeKey->ulVsi)=0x00000010\r\n"},
        {CALL(ask(2, 8, 0)), "param error! (pstUvmacInfoKey->ulType)=0x00000002\r\n"},
        {CALL(ask(1, 8, 0x2000)),
         "param error! (pstUvmacInfoKey->stLearnData.ulOpCode)=0x00000008\r\n"},
        {CALL(ask(1, 7, 0x2000)),
         "param error! (pstUvmacInfoKey->stLearnData.ulIntfID)=0x00002000\r\n"},
    };
    const auto before = store();
    FrameTap frames;
    for (const Case &row : cases) {
        EXPECT_EQ(failures(row.call, NP_ERR_PARAM), std::vector<std::string>{row.message});
    }
    const std::function<uint32_t()> nulls[] = {
        CALL(Np_ArlTbl_Add(0, nullptr, &data)),
        CALL(Np_ArlTbl_Add(0, &key, nullptr)),
        CALL(Np_ArlTbl_Del(0, 2, nullptr)),
        CALL(Np_ArlTbl_Get(0, &key, &data, nullptr)),
        CALL(Np_ArlTbl_GetByIndex(0, 0, &found, nullptr, &info)),
        CALL(Np_ArlTbl_DynamicArlLrn(0, nullptr)),
        CALL(Np_ArlTbl_DynamicArlLrnStateTbl_Get(0, 0, nullptr)),
        CALL(Np_ArlTbl_HashCrashRecord_Read(0, &found, &data, nullptr)),
        CALL(Np_ArlTbl_NormalAge(0, nullptr)),
        CALL(Np_ArlTbl_ForceAge(0, nullptr)),
        CALL(Np_ArlTbl_AgeModeSet(0, nullptr, 0)),
        CALL(Np_UVMacInfo_Get(0, &query, nullptr, listed)),
        CALL(Np_LanMacTbl_Get(0, &lan_good, &lan_data, nullptr)),
        CALL(Np_LanMacTbl_GetByIndex(0, 0, nullptr, &lan_data, &lan_info)),
    };
    for (const auto &call : nulls) {
        EXPECT_EQ(failures(call, NP_ERR_NULL_PTR), std::vector<std::string>{"Para null ptr\r\n"});
    }
    EXPECT_EQ(frames.take_count(), 0u);
    EXPECT_EQ(store(), before);
    // Only the first of flow, bundle, group and marked flow is tested; an empty map passes.
    EXPECT_EQ(force(1 | 2, 0x3ff), NP_OK);
    EXPECT_EQ(force(0, 0xffffffff), NP_OK);
}

// ---- entries ------------------------------------------------------------------------------------

TEST_F(Arl, StaticEntriesStandWhereTheyAreFound)
{
    const NpArlKey key = key_of(0);
    NpArlData data = data_of(0, 7);
    ASSERT_EQ(Np_ArlTbl_Add(0, &key, &data), NP_OK);
    const NpArlInfo info = info_of(key);
    EXPECT_EQ(info.ulMacType, 0u);
    EXPECT_EQ(info.ulVas, 15u);
    EXPECT_EQ(item_at(kMacItems, info.ulKeyIndex), (Words{0, 0xc5000070, 0x040506ab, 0xf0010203}));

    // Rewritten, it loses what the old data had, and no counter moves.
    data = data_of(2, 7);
    data.ulVmac = 1;
    data.ulVmacID = 0xfff;
    ASSERT_EQ(Np_ArlTbl_Add(0, &key, &data), NP_OK);
    data = data_of(2, 7);
    data.ulMcnID = 1;
    ASSERT_EQ(Np_ArlTbl_Add(0, &key, &data), NP_OK);
    EXPECT_EQ(item_at(kMacItems, info.ulKeyIndex),
              (Words{0x00000800, 0xc5040070, 0x040506ab, 0xf0010203}));
    NpArlKey found;
    NpArlData read;
    NpArlInfo place;
    ASSERT_EQ(Np_ArlTbl_GetByIndex(0, info.ulKeyIndex, &found, &read, &place), NP_OK);
    EXPECT_EQ(place.ulKeyIndex, info.ulKeyIndex);
    EXPECT_EQ(found.ulSvlanID, 0xabcu);
    set_fault("rba code=0x77");
    EXPECT_EQ(Np_ArlTbl_DelAll(), NP_ERR_DELETE);
    model::faults_clear();
    EXPECT_EQ(read.ulMcnID, 1u);
    ASSERT_EQ(Np_ArlTbl_Del(0, 0, &key), NP_OK);
    info_of(key, NP_ERR_NOT_EXIST);
    ASSERT_EQ(Np_ArlTbl_GetByIndex(0, info.ulKeyIndex, &found, &read, &place), NP_OK);
    EXPECT_EQ(place.ulMacType, 2u) << "an empty place is no failure";
    EXPECT_EQ(place.ulVas, 0u);
    EXPECT_EQ(Np_ArlTbl_Del(0, 2, &key), NP_OK) << "nor is an absent key";
    EXPECT_EQ(peek(kFlowLimit + 4 * 7), kBase);
    EXPECT_EQ(peek(kBundleLimit + 4 * 7), kBase);
}

// How an entry that was learned changes or goes.
enum class Way { kAdd, kDelStatic, kDelDynamic, kDelAny, kDelByIndex };

TEST_F(Arl, LearnedEntriesGiveTheirCreditBack)
{
    struct Case {
        uint32_t type, operation, interface;
        uint32_t own;  // counter, 0 for none
        bool global;
    };
    const Case cases[] = {
        {0, 0, 7, kFlowLimit + 4 * 7, false},
        {14, 0, 7, kFlowLimit + 4 * 7, true},
        {6, 2, 7, kBundleLimit + 4 * 7, true},
        {0, 1, 7, 0, true},
        {0, 3, 7, 0, true},
        {0, 0, 0x1fff, 0, false},
        {15, 0, 7, 0, true},
    };
    for (const Case &row : cases) {
        for (const Way way :
             {Way::kAdd, Way::kDelStatic, Way::kDelDynamic, Way::kDelAny, Way::kDelByIndex}) {
            SCOPED_TRACE(testing::Message()
                         << row.type << " " << row.operation << " way " << static_cast<int>(way));
            poke(kLimitSwitch, row.global ? 1 : 0);
            const NpArlKey key = key_of(row.type);
            const NpArlData data = data_of(row.operation, row.interface);
            learn(key, data);
            const NpArlInfo info = info_of(key);
            EXPECT_EQ(info.ulMacType, 1u);
            EXPECT_EQ(info.ulVas, 5u);
            const auto before = store();
            const uint32_t own = row.own != 0 ? peek(row.own) : 0;
            const uint32_t global = peek(kGlobalLimit);
            uint32_t back = 1;
            switch (way) {
                case Way::kAdd: {
                    // The old target gets it, not the new one.
                    const NpArlData other = data_of(2, 3);
                    ASSERT_EQ(Np_ArlTbl_Add(0, &key, &other), NP_OK);
                    EXPECT_EQ(info_of(key).ulVas, 15u);
                    break;
                }
                case Way::kDelStatic:
                    ASSERT_EQ(Np_ArlTbl_Del(0, 0, &key), NP_OK);
                    EXPECT_EQ(store(), before) << "it stays, and so does its credit";
                    back = 0;
                    break;
                case Way::kDelDynamic:
                    ASSERT_EQ(Np_ArlTbl_Del(0, 1, &key), NP_OK);
                    break;
                case Way::kDelAny:
                    ASSERT_EQ(Np_ArlTbl_Del(0, 2, &key), NP_OK);
                    break;
                case Way::kDelByIndex:
                    ASSERT_EQ(Np_ArlTbl_DelByIndex(0, info.ulKeyIndex), NP_OK);
                    break;
            }
            if (row.own != 0) {
                EXPECT_EQ(peek(row.own), own + back);
            }
            EXPECT_EQ(peek(kGlobalLimit), global + (row.global && row.type != 15 ? back : 0));
            EXPECT_EQ(peek(kBundleLimit + 4 * 3), 0x80000000u);
            ASSERT_EQ(Np_ArlTbl_Del(0, 2, &key), NP_OK);
            info_of(key, NP_ERR_NOT_EXIST);
        }
    }
}

TEST_F(Arl, LanEntriesGiveBackToTheirPort)
{
    // The microcode learns these by itself; here a static one is made dynamic in its place.
    const NpLanMacKey key = {9, {1, 2, 3, 4, 5, 6}};
    struct Case {
        uint32_t stored;
        uint32_t counter;
    };
    for (const Case &row :
         {Case{7, kPortLimit + 4 * 7}, Case{63, kPortLimit + 4 * 63}, Case{64, 0}, Case{255, 0}}) {
        for (const Way way : {Way::kAdd, Way::kDelAny, Way::kDelByIndex}) {
            SCOPED_TRACE(row.stored);
            const NpLanMacData data = {1};
            ASSERT_EQ(Np_LanMacTbl_Add(0, &key, &data), NP_OK);
            NpLanMacData read;
            NpLanMacInfo info;
            ASSERT_EQ(Np_LanMacTbl_Get(0, &key, &read, &info), NP_OK);
            const uint32_t item = kLanItems + 16 * info.ulKeyIndex;
            poke(item + 4, (peek(item + 4) & ~0xff000u) | row.stored << 12);
            poke(item + 12, (peek(item + 12) & 0x0fffffff) | 1u << 28);
            const uint32_t all = peek(kLanLimit);
            const uint32_t own = row.counter != 0 ? peek(row.counter) : 0;
            const auto past = memory(kLanLimit + 4, 0x200);
            ASSERT_EQ(way == Way::kAdd      ? Np_LanMacTbl_Add(0, &key, &data)
                      : way == Way::kDelAny ? Np_LanMacTbl_Del(0, 2, &key)
                                            : Np_LanMacTbl_DelByIndex(0, info.ulKeyIndex),
                      NP_OK);
            EXPECT_EQ(peek(kLanLimit), all + 1);
            if (row.counter != 0) {
                EXPECT_EQ(peek(row.counter), own + 1);
            }
            EXPECT_EQ(memory(kLanLimit + 4, 0x200), past) << "no other table was reached";
            ASSERT_EQ(Np_LanMacTbl_Del(0, 2, &key), NP_OK);
        }
    }
}

TEST_F(Arl, EntriesThatGoFreeTheirUserMacRow)
{
    struct Case {
        uint32_t type, row;
        uint32_t left;  // of flags 0xf
    };
    for (const Case &c : {Case{15, 3, 0x7}, Case{0, 511, 0xb}}) {
        SCOPED_TRACE(c.type);
        const NpArlKey key = key_of(c.type);
        NpArlData data = data_of(1, 0);
        data.ulVmac = 1;
        data.ulVmacID = c.row;
        for (const bool by_index : {false, true}) {
            user_row(c.row, 6, 0xf);
            learn(key, data);
            const uint32_t index = info_of(key).ulKeyIndex;
            ASSERT_EQ(by_index ? Np_ArlTbl_DelByIndex(0, index) : Np_ArlTbl_Del(0, 1, &key), NP_OK);
            EXPECT_EQ(user_flags(c.row), c.left);
        }
        // One that is made static stays, and a static one that goes has set no flag.
        user_row(c.row, 6, 0xf);
        learn(key, data);
        ASSERT_EQ(Np_ArlTbl_Add(0, &key, &data), NP_OK);
        EXPECT_EQ(user_flags(c.row), 0xfu);
        ASSERT_EQ(Np_ArlTbl_Del(0, 2, &key), NP_OK);
        EXPECT_EQ(user_flags(c.row), 0xfu);
    }
    // A number past the user MACs reaches nothing.
    const NpArlKey key = key_of(0);
    NpArlData data = data_of(1, 0);
    data.ulVmac = 1;
    data.ulVmacID = 0xfff;
    learn(key, data);
    const auto behind = memory(0x60210000, 0x10000);
    ASSERT_EQ(Np_ArlTbl_Del(0, 2, &key), NP_OK);
    EXPECT_EQ(memory(0x60210000, 0x10000), behind);
}

// ---- learning and ageing ------------------------------------------------------------------------

TEST_F(Arl, TheCollisionRecordIsReadOnce)
{
    poke(kCollision, 0x3ff0123a);
    poke(kCollision + 4, 0xc50babcc);
    poke(kCollision + 8, 0x040506ab);
    poke(kCollision + 12, 0x5e010203);
    NpArlKey key;
    NpArlData data;
    NpArlInfo info;
    ASSERT_EQ(Np_ArlTbl_HashCrashRecord_Read(0, &key, &data, &info), NP_OK);
    EXPECT_EQ(key.ulType, 14u);
    EXPECT_EQ(key.aucMacAddr[5], 6u);
    EXPECT_EQ(data.stLearnData.ulIntfID, 0x1abcu);
    EXPECT_EQ(info.ulMacType, 1u);
    EXPECT_EQ(info.ulVas, 5u);
    EXPECT_EQ(info.ulKeyIndex, 0u);
    EXPECT_EQ(memory(kCollision, 16), std::vector<uint8_t>(16));
    ASSERT_EQ(Np_ArlTbl_HashCrashRecord_Read(0, &key, &data, &info), NP_OK);
    EXPECT_EQ(info.ulVas, 0u);
}

TEST_F(Arl, EntriesAgeAndFreeTheirUserMacRow)
{
    const NpArlKey user = key_of(15);
    NpArlData data = data_of(0, 7);
    data.ulVmac = 1;
    data.ulVmacID = 4;
    user_row(4, 6, 0);
    learn(user, data);
    EXPECT_EQ(user_flags(4), 0x8u) << "the user MAC has an entry";
    const NpNormalAge age = {1, 8};
    ASSERT_EQ(Np_ArlTbl_NormalAge(0, &age), NP_OK);
    EXPECT_EQ(peek(0x60222200) >> 28, 5u) << "what a used entry gets";
    // Every second a message, every second message a walk; status 5 is gone with the fifth.
    EXPECT_EQ(model::advance(0, 9 * 10000), 0u);
    EXPECT_EQ(info_of(user).ulVas, 1u);
    EXPECT_EQ(model::advance(0, 10000), 0u);
    info_of(user, NP_ERR_NOT_EXIST);
    EXPECT_EQ(user_flags(4), 0u);
    const NpNormalAge stop = {0, 0};
    ASSERT_EQ(Np_ArlTbl_NormalAge(0, &stop), NP_OK);
    learn(user, data);
    EXPECT_EQ(model::advance(0, 100000), 0u);
    EXPECT_EQ(info_of(user).ulVas, 5u);
}

// ---- user MACs ----------------------------------------------------------------------------------

TEST_F(Arl, AgeModesAreStatusesOfUserMacs)
{
    const NpArlKey key = key_of(15);
    NpArlData data = data_of(0, 7);
    data.ulVmac = 1;
    data.ulVmacID = 4;
    user_row(4, 6, 0xf);
    NpArlAgeModeKey mode = {kXaui, {1, 2, 3, 4, 5, 6}, {2, 0, 0, 0, 0, 4}, 5};
    EXPECT_EQ(Np_ArlTbl_AgeModeSet(0, &mode, 0), NP_ERR_NOT_EXIST);
    learn(key, data);
    const uint32_t index = info_of(key).ulKeyIndex;
    const uint32_t valid = peek(kMacItems + 16 * index + 4);

    mode.aucVmacAddr[5] = 5;
    EXPECT_EQ(
        failures([&] { return Np_ArlTbl_AgeModeSet(0, &mode, 0); }, NP_ERR_FAIL),
        (std::vector<std::string>{"[ERROR] Vmac Compare Failed!!! ulVmacIndex=0x00000004 \r\n",
                                  "pstArlAgeModeKey->aucVmacAddr= 0x(02-00-00-00-00-05)\r\n",
                                  "stUvt.aucVmac= 0x(02-00-00-00-00-04)\r\n"}));
    EXPECT_EQ(info_of(key).ulVas, 5u);
    mode.aucVmacAddr[5] = 4;
    ASSERT_EQ(Np_ArlTbl_AgeModeSet(0, &mode, 0), NP_OK);
    EXPECT_EQ(info_of(key).ulVas, 15u);
    poke(0x60222200, 3u << 28 | 0x123);
    ASSERT_EQ(Np_ArlTbl_AgeModeSet(0, &mode, 1), NP_OK);
    EXPECT_EQ(info_of(key).ulVas, 3u);
    EXPECT_EQ(peek(kMacItems + 16 * index + 4), valid) << "the rest stays";
    const uint32_t credit = peek(kFlowLimit + 4 * 7);
    ASSERT_EQ(Np_ArlTbl_AgeModeSet(0, &mode, 2), NP_OK);
    info_of(key, NP_ERR_NOT_EXIST);
    EXPECT_EQ(user_flags(4), 0xfu) << "a status, not a delete";
    EXPECT_EQ(peek(kFlowLimit + 4 * 7), credit);
}

TEST_F(Arl, UserMacsOfAPortAreListed)
{
    NpPortPct pct = {};
    pct.ulValid = 1;
    pct.ulUserID = 9;
    ASSERT_EQ(Np_PctTbl_Set(0, &kXaui, &pct), NP_OK);
    const NpPortVmacInfo range = {100, 5};
    ASSERT_EQ(Np_VmacInfoTbl_Set(0, 9, &range), NP_OK);
    // used and found, used and not found, static and not found, found and not used, found too
    user_row(100, 10, 0x8);
    user_row(101, 11, 0x8);
    user_row(102, 12, 0x1);
    user_row(103, 13, 0x0);
    user_row(104, 14, 0x8);
    user_row(105, 15, 0x8);  // past the range
    for (const uint32_t last : {10u, 13u, 14u, 15u}) {
        NpArlKey key = key_of(15, last);
        key.ulVsi = 0;
        const NpArlData data = data_of(last == 14 ? 2 : 0, last);
        ASSERT_EQ(Np_ArlTbl_Add(0, &key, &data), NP_OK);
    }
    NpUvmacInfoKey query = {0, kXaui, {0, 10}};
    NpUvmacInfoAd found[32] = {};
    uint32_t number = 99;
    const auto text = [&] {
        std::string list;
        for (uint32_t i = 0; i < number; i++) {
            const NpUvmac &row = found[i].stUvmac;
            list += std::to_string(row.aucUmac[5]) + "-" + std::to_string(row.aucVmac[5]) + ":" +
                    std::to_string(row.ulOpCode) + "/" + std::to_string(row.ulIntfID) + " ";
        }
        return list;
    };
    ASSERT_EQ(Np_UVMacInfo_Get(0, &query, &number, found), NP_OK);
    EXPECT_EQ(text(), "10-100:0/10 12-102:0/0 14-104:2/14 ");
    query.ulType = 1;
    ASSERT_EQ(Np_UVMacInfo_Get(0, &query, &number, found), NP_OK);
    EXPECT_EQ(text(), "10-100:0/10 ");
    query.stLearnData = {2, 14};
    ASSERT_EQ(Np_UVMacInfo_Get(0, &query, &number, found), NP_OK);
    EXPECT_EQ(text(), "14-104:2/14 ");
    EXPECT_THAT(run("micro arl arltbl uvmacinfo type 1 port xaui portid 0 subportid 38 pri 1 "
                    "opcode 2 intfid 14"),
                testing::AllOf(HasSubstr("aucUmac                  :   01-02-03-04-05-0e"),
                               HasSubstr("     total :     1")));

    // A range that leaves the user MACs, and a row of ranges that isn't there.
    const NpPortVmacInfo wild = {510, 4};
    ASSERT_EQ(Np_VmacInfoTbl_Set(0, 9, &wild), NP_OK);
    number = 99;
    EXPECT_EQ(Np_UVMacInfo_Get(0, &query, &number, found), NP_ERR_PARAM);
    pct.ulUserID = 32;
    ASSERT_EQ(Np_PctTbl_Set(0, &kXaui, &pct), NP_OK);
    EXPECT_EQ(Np_UVMacInfo_Get(0, &query, &number, found), NP_ERR_PARAM);
    EXPECT_EQ(number, 99u);
}

TEST_F(Arl, TheStaticFlagChangesAlone)
{
    poke(kUserMacs + 16 * 511 + 12, 0xe1234567);
    ASSERT_EQ(Np_UvtTblStaticFlag_Set(0, 511, 1), NP_OK);
    EXPECT_EQ(peek(kUserMacs + 16 * 511 + 12), 0xf1234567u);
    EXPECT_THAT(run("micro uvt staticflagset index 511 staticflag 0"), HasSubstr("success"));
    EXPECT_EQ(peek(kUserMacs + 16 * 511 + 12), 0xe1234567u);
    EXPECT_EQ(Np_UvtTblStaticFlag_Set(0, 512, 1), NP_ERR_PARAM);
    EXPECT_EQ(Np_UvtTblStaticFlag_Set(0, 511, 2), NP_ERR_PARAM);
    set_fault("rba status=2");
    EXPECT_EQ(Np_UvtTblStaticFlag_Set(0, 511, 1), NP_ERR_SMEM_OP);
}

// ---- the command line ---------------------------------------------------------------------------

constexpr char kLine[] =
    "\n\r ----------------------------------------------------------------------";
constexpr char kDone[] = "\n\r Command execute success!";

TEST_F(Arl, CommandsShowTheWholeTable)
{
    EXPECT_EQ(run("micro dfx mac display"),
              std::string(kLine) +
                  "\r\n     static :     0,    dynamic :     0"
                  "\r\n   lowclass :     0,  highclass :     0,     unknow :     0"
                  "\r\n       vmac :     0, umac+sport :     0,       umac :     0"
                  "\r\n      total :     0" +
                  kDone);
    run("micro arl arltbl set ulType 0 ulSvlanID 100 ulVsi 0 aucMacAddr 00-11-22-33-44-55 "
        "ulClass low ulL3 1");
    const std::string index = std::to_string(
        info_of({0, 100, 0, 0, 0, 0, 0, 0, {}, 0, 0, 0, {0, 0x11, 0x22, 0x33, 0x44, 0x55}})
            .ulKeyIndex);
    EXPECT_EQ(run("micro dfx mac display"),
              std::string(kLine) + "\r\n mac_type=static, vas=15, index=" + index +
                  "\r\n type=dmac+svlan(MC), mac=00-11-22-33-44-55, svlan=100"
                  "\r\n opcode=0, intfid=0, class=1, iftid=0\r\n l3_fwd=enable" +
                  kLine +
                  "\r\n     static :     1,    dynamic :     0"
                  "\r\n   lowclass :     1,  highclass :     0,     unknow :     0"
                  "\r\n       vmac :     0, umac+sport :     0,       umac :     1"
                  "\r\n      total :     1" +
                  kDone);
    run("micro arl arltbl dynamic add type 15 port xaui portid 0 subportid 38 pri 1 vsi 0 macaddr "
        "00-11-22-33-44-66 class high");
    run("micro arl arltbl dynamic add type 15 port xaui portid 0 subportid 38 pri 1 vsi 0 macaddr "
        "00-11-22-33-44-77 vmac 1 vmacid 3");
    run("micro arl arltbl set type 12 svlanid 5 cvlanid 6 vsi 0 scunmode 1 vmac 1 vmacid 4");
    EXPECT_EQ(run("micro dfx mac num"),
              std::string(kLine) +
                  "\r\n     static :     2,    dynamic :     2"
                  "\r\n   lowclass :     1,  highclass :     1,     unknow :     2"
                  "\r\n       vmac :     1, umac+sport :     1,       umac :     1"
                  "\r\n         dynamic umac+sport mac :     1"
                  "\r\n      total :     4" +
                  kDone);
    EXPECT_THAT(run("micro dfx mac display"),
                testing::AllOf(HasSubstr("\r\n type=svlan+cvlan(UC), svlan=5, cvlan=6 unmode=1"),
                               HasSubstr("\r\n porttype=xaui, portid=0, subportid=38 pri=1"),
                               HasSubstr("\r\n vmac=enable, vmacid=3, l3_fwd=disable")));
    EXPECT_EQ(run("micro dfx mac num 1"), "\n\r Command execute error!");
    EXPECT_EQ(run("micro dfx mac del_all"), kDone);
    EXPECT_EQ(entries_left(), 0u);

    run("micro arl lanmactbl set ulSvlanID 7 aucMacAddr 00-11-22-33-44-55 ulL2encId 30");
    const std::string lan = run("micro dfx lanmac display");
    EXPECT_THAT(lan, HasSubstr("\r\n type=dmac+svlan(MC), mac=00-11-22-33-44-55, svlan=7"
                               "\r\n L2encId=30 "));
    EXPECT_THAT(lan,
                HasSubstr("\r\n     static :     1,    dynamic :     0\r\n      total :     1"));
    EXPECT_EQ(run("micro dfx lanmac del_all"), kDone);
    EXPECT_THAT(run("micro dfx lanmac num"), HasSubstr("      total :     0"));
}

TEST_F(Arl, CommandsDoWhatTheFunctionsDo)
{
    const std::string key = "type 6 macaddr 00-11-22-33-44-55";
    EXPECT_EQ(run("micro arl arltbl set " + key + " opcode 2 intfid 7 iftid 9"), kDone);
    EXPECT_EQ(run("micro arl arltbl set " + key + " intfid 8"), kDone);
    const std::string shown = run("micro arl arltbl get bykey " + key);
    EXPECT_THAT(shown, HasSubstr("ulIntfID                 :   8  "));
    EXPECT_THAT(shown, HasSubstr("ulIftID                  :   9  ")) << "kept";
    EXPECT_EQ(run("micro arl arltbl del bykey macdeltype dynamic " + key), kDone);
    EXPECT_THAT(run("micro arl arltbl get bykey " + key), HasSubstr("static"));
    EXPECT_EQ(run("micro arl arltbl del bykey macdeltype all " + key), kDone);
    EXPECT_THAT(run("micro arl arltbl get bykey " + key), HasSubstr("ulReturn = 0x9a000015("));

    run("micro arl arltbl dynamic add " + key + " opcode 0 intfid 7");
    EXPECT_THAT(run("micro arl arltbl dynamic state_get index 0"),
                HasSubstr("ulDone                   :   1 "));
    EXPECT_EQ(run("micro arl arltbl dynamic state_clear index 0"), kDone);
    EXPECT_EQ(run("micro arl arltbl age normalpara ageenable 1 agetime 4 ageclass 9 basetime 100 "
                  "threshold 0"),
              kDone);
    EXPECT_EQ(peek(0x60222200) >> 28, 9u);
    EXPECT_EQ(model::advance(0, 200), 0u);
    EXPECT_THAT(run("micro arl arltbl get bykey " + key),
                HasSubstr("ulVas                    :   3"));
    EXPECT_EQ(run("micro arl arltbl age normal ageenable 0 agetime 0"), kDone);
    EXPECT_EQ(run("micro arl arltbl age forcepara forceageidbitmap 0 forceageid 0 startsessionid "
                  "256"),
              kDone)
        << "the LAN table's buckets";
    EXPECT_THAT(run("micro arl arltbl get bykey " + key), HasSubstr("dynamic"));
    EXPECT_EQ(run("micro arl arltbl age burstforce forceageidbitmap 64 forceageid 3 "
                  "forceageidbitmap 1 forceageid 7"),
              kDone);
    EXPECT_THAT(run("micro arl arltbl get bykey " + key), HasSubstr("0x9a000015"));
    poke(kCollision + 12, 0x5e010203);
    EXPECT_THAT(run("micro arl mac_crash_read"), HasSubstr("01-02-03-00-00-00"));

    // What is wrong on a line leaves everything as it was.
    run("micro arl arltbl dynamic add " + key);
    const auto before = store();
    const std::string lines[] = {
        "arltbl set type 16",
        "arltbl set type 6",
        "arltbl set " + key + " intfid 8192",
        "arltbl set " + key + " intfid",
        "arltbl set " + key + " vmacid 3",
        "arltbl set svlanid 1 " + key,
        "arltbl set " + key + " end",
        "arltbl set type 6 macaddr 00-11-22-33-44",
        "arltbl del bykey " + key,
        "arltbl del bykey macdeltype 3 " + key,
        "arltbl del byindex index 2048",
        "arltbl get byindex index",
        "arltbl age burstforce forceageidbitmap 0 forceageid 0 forceageidbitmap 4 "
        "forceageid 4096",
        "arltbl age burstforce forceageidbitmap 0 forceageid 0 forceageidbitmap",
        "arltbl age forcepara forceageidbitmap 0 forceageid 0 number 65536",
        "arltbl age normalpara ageenable 1 agetime 4 ageclass 15",
        "arltbl dynamic add type 6",
        "lanmactbl set svlanid 5",
        "portmaclmttbl set index 64 limitnum 1",
        "glblanMaclmttbl set index 0 limitnum 1025",
        "vmacoffsettbl set index 0 vmacoffset0 256 end",
        "vmacoffsettbl set index 0 vmacoffset0 25"};
    for (const std::string &line : lines) {
        EXPECT_THAT(run("micro arl " + line), testing::Not(HasSubstr("success"))) << line;
    }
    EXPECT_EQ(store(), before);
}

}  // namespace

}  // namespace ldsdk::test

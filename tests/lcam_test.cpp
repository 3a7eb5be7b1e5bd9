// The local CAM: frames on the wire, geometry, and what a search finds at every step.

#include "sdk/lookup/lcam.h"

#include "tests/fixture.h"

#include <array>
#include <functional>
#include <map>
#include <optional>
#include <random>
#include <set>

namespace ldsdk::test {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using Bytes = std::vector<uint8_t>;

std::vector<std::pair<uint32_t, uint32_t>> g_recorded;
uint32_t g_watchdogs;

void record(uint32_t code, uint32_t info)
{
    g_recorded.emplace_back(code, info);
}

void watchdog()
{
    g_watchdogs++;
}

// Chip 0 registered, the CAM initialised, nothing else.
class Lcam : public Module {
  protected:
    Lcam()
    {
        EXPECT_EQ(Np_GLB_ChipRegister(0, 1, 0, 0), NP_OK);
        EXPECT_EQ(Np_Tarn_LCAM_Init(0), NP_OK);
        EXPECT_EQ(Np_Glb_RecordErrInfoHook(0, record), NP_OK);
        g_recorded.clear();
    }
    ~Lcam() override
    {
        g_pFnNpClearWatchDog = nullptr;
    }
};

// A frame for the local CAM: address word, command half-word, access class, width class.
Bytes lcam_frame(uint32_t address, uint32_t command, int access, int width = 0,
                 std::vector<std::pair<size_t, Bytes>> payload = {})
{
    const auto byte = [](uint32_t value, int at) { return static_cast<uint8_t>(value >> 8 * at); };
    payload.push_back(
        {0, {byte(address, 0), byte(address, 1), byte(address, 2), byte(address, 3)}});
    payload.push_back(
        {4, {byte(command, 0), byte(command, 1), byte(static_cast<uint32_t>(access), 0)}});
    payload.push_back({8, {byte(static_cast<uint32_t>(width), 0)}});
    return frame(payload);
}

std::vector<Bytes> taken(FrameTap &tap)
{
    std::vector<Bytes> frames;
    for (Bytes next = tap.take(); !next.empty(); next = tap.take()) {
        frames.push_back(next);
    }
    return frames;
}

Bytes filled(size_t size, uint8_t first)
{
    Bytes bytes(size);
    for (uint8_t &byte : bytes) {
        byte = first++;
    }
    return bytes;
}

Bytes part(const Bytes &bytes, size_t from, size_t to)
{
    return {bytes.begin() + static_cast<ptrdiff_t>(from),
            bytes.begin() + static_cast<ptrdiff_t>(to)};
}

// ---- frames -------------------------------------------------------------------------------------

// Flee bucket, 80 bits, block 2, TCAM 0, identifier 8.
TEST_F(Lcam, WriteSendsDataBehindTheValidBitAndTheAdBeforeBoth)
{
    const Bytes key = {0x21, 0x43, 0x65, 0x87, 0xa9, 0xcb, 0xed, 0x0f, 0x32, 0xf4};
    const Bytes mask(10, 0xff);
    const Bytes ad = {1, 2, 3, 4, 5, 6, 7, 8};
    // The key moves up by four bits; its top nibble goes.
    const Bytes x = {0x10, 0x32, 0x54, 0x76, 0x98, 0xba, 0xdc, 0xfe, 0x20, 0x43};
    const Bytes y = {0xe0, 0xcd, 0xab, 0x89, 0x67, 0x45, 0x23, 0x01, 0xdf, 0xbc};
    const Bytes write_ad = lcam_frame(0x28800005, 0x4840, 3, 0, {{20, ad}});
    const Bytes valid_down = lcam_frame(0x28800005, 0x4850, 3);
    const Bytes data = lcam_frame(0x28800005, 0x4831, 3, 0, {{18, x}});
    const Bytes masks = lcam_frame(0x28800005, 0x4821, 3, 0, {{18, y}});

    FrameTap tap;
    EXPECT_EQ(Np_Tarn_LCAM_TcamWrite(0, 4, 5, key.data(), mask.data(), ad.data()), NP_OK);
    EXPECT_THAT(taken(tap), ElementsAre(write_ad, valid_down, data, masks));
    EXPECT_EQ(Np_Tarn_LCAM_TcamWrite(0, 4, 5, key.data(), mask.data(), nullptr), NP_OK);
    EXPECT_THAT(taken(tap), ElementsAre(valid_down, data, masks));
    EXPECT_EQ(Np_Tarn_LCAM_TcamWrite(0, 4, 5, nullptr, nullptr, ad.data()), NP_OK);
    EXPECT_THAT(taken(tap), ElementsAre(write_ad));
}

TEST_F(Lcam, OtherCommandsOnTheWire)
{
    FrameTap tap;
    uint8_t key[40];
    uint8_t ad[16];
    // TPID, 40 bits, block 2, TCAM 2, row 0x40 + 0x1f, identifier 4.
    EXPECT_EQ(Np_Tarn_LCAM_TcamRead(0, 5, 0x1f, key, nullptr, ad), NP_OK);
    EXPECT_THAT(taken(tap),
                ElementsAre(lcam_frame(0x2480005f, 0x4210, 1), lcam_frame(0x2480005f, 0x4200, 1),
                            lcam_frame(0x2480005f, 0x4240, 1)));
    // L2PA, 80 bits, block 0, TCAM 4, row 0x78 + 0x7f, identifier 1.
    EXPECT_EQ(Np_Tarn_LCAM_TcamDelete(0, 1, 0x7f), NP_OK);
    EXPECT_THAT(taken(tap),
                ElementsAre(lcam_frame(0x218000f7, 0x0a11, 3), lcam_frame(0x218000f7, 0x0a01, 3)));
    EXPECT_EQ(Np_Tarn_LCAM_TcamEnableSet(0, 1, 0x7f, 1), NP_OK);
    EXPECT_EQ(Np_Tarn_LCAM_TcamEnableSet(0, 1, 0x7f, 0), NP_OK);
    EXPECT_THAT(taken(tap),
                ElementsAre(lcam_frame(0x218000f7, 0x0a60, 3), lcam_frame(0x218000f7, 0x0a50, 3)));
    // The frame that the heartbeat sends: associated data, 80 bits, block 2, TCAM 4, row 255.
    const NpLcamAccessInfo beat = {1, 2, 4, 255, 1};
    EXPECT_EQ(Np_Tarn_LCAM_AdRbaRead(0, &beat, ad), NP_OK);
    EXPECT_THAT(taken(tap), ElementsAre(lcam_frame(0x218000ff, 0x4a40, 1)));
}

// No table of the family is that wide, so entries are named by their place.
TEST_F(Lcam, WideEntriesFillGroupsFromTheirEnd)
{
    FrameTap tap;
    const Bytes none(40, 0);
    Bytes x = filled(40, 0x10);  // bytes 0x10, 0x11, ...: up by four bits 0x00, 0x11, 0x21, ...
    Bytes moved(40);
    for (size_t i = 0; i < moved.size(); i++) {
        moved[i] = static_cast<uint8_t>(x[i] << 4 | (i == 0 ? 0 : x[i - 1] >> 4));
    }
    const NpLcamAccessInfo four = {2, 1, 4, 3, 7};
    EXPECT_EQ(Np_Tarn_LCAM_TcamRbaWrite(0, &four, x.data(), none.data()), NP_OK);
    EXPECT_THAT(taken(tap),
                ElementsAre(lcam_frame(0x27800003, 0x2d50, 3),
                            lcam_frame(0x27800003, 0x2d32, 3, 1,
                                       {{12, part(moved, 4, 20)}, {40, part(moved, 0, 4)}}),
                            lcam_frame(0x27800003, 0x2d22, 3, 1)));
    const NpLcamAccessInfo eight = {3, 3, 0, 511, 15};
    EXPECT_EQ(Np_Tarn_LCAM_TcamRbaWrite(0, &eight, x.data(), none.data()), NP_OK);
    EXPECT_THAT(taken(tap), ElementsAre(lcam_frame(0x2f8001ff, 0x6e50, 3),
                                        lcam_frame(0x2f8001ff, 0x6e34, 3, 2,
                                                   {{12, part(moved, 24, 40)},
                                                    {28, part(moved, 8, 24)},
                                                    {52, part(moved, 0, 8)}}),
                                        lcam_frame(0x2f8001ff, 0x6e24, 3, 2)));
    EXPECT_EQ(Np_Tarn_LCAM_TcamRbaClear(0, &four), NP_OK);
    EXPECT_THAT(taken(tap), ElementsAre(lcam_frame(0x27800003, 0x2d12, 3, 1),
                                        lcam_frame(0x27800003, 0x2d02, 3, 1)));
    uint8_t back_x[40];
    uint8_t back_y[40];
    EXPECT_EQ(Np_Tarn_LCAM_TcamRbaRead(0, &eight, back_x, back_y), NP_OK);
    std::vector<Bytes> pairs;
    for (uint32_t pair = 0; pair < 4; pair++) {
        pairs.push_back(lcam_frame(0x2f8001ff, 0x6811 + (pair << 8), 1));
        pairs.push_back(lcam_frame(0x2f8001ff, 0x6801 + (pair << 8), 1));
    }
    EXPECT_EQ(taken(tap), pairs);
    x[39] &= 0xf;
    EXPECT_EQ(Bytes(back_x, back_x + 40), x);
    EXPECT_EQ(part(Bytes(back_y, back_y + 40), 1, 39), part(none, 1, 39));

    const Bytes ad = filled(16, 0x80);
    Bytes back_ad(16);
    EXPECT_EQ(Np_Tarn_LCAM_AdRbaWrite(0, &eight, ad.data()), NP_OK);
    EXPECT_EQ(Np_Tarn_LCAM_AdRbaRead(0, &eight, back_ad.data()), NP_OK);
    EXPECT_THAT(taken(tap), ElementsAre(lcam_frame(0x2f8001ff, 0x6e41, 3, 0, {{12, ad}}),
                                        lcam_frame(0x2f8001ff, 0x6e41, 1)));
    EXPECT_EQ(back_ad, ad);
}

// ---- geometry -----------------------------------------------------------------------------------

TEST_F(Lcam, OffsetsLieWhereTheTablesSay)
{
    struct Case {
        uint32_t table, offset, type, block, tcam, row, cid;
    };
    const Case cases[] = {
        {0, 0, 0, 2, 4, 0, 3},        {0, 0xff, 0, 2, 4, 0xff, 3}, {0, 0x100, 0, 2, 5, 0, 3},
        {0, 0x3ff, 0, 2, 7, 0xff, 3}, {1, 0, 1, 0, 4, 0x78, 1},    {1, 0x7f, 1, 0, 4, 0xf7, 1},
        {2, 0x3f, 1, 2, 2, 0x3f, 2},  {3, 0x10, 1, 0, 6, 0x88, 5}, {4, 0x1f, 1, 2, 0, 0x1f, 8},
        {5, 0, 0, 2, 2, 0x40, 4},     {8, 0x7f, 0, 0, 0, 0xf7, 9}, {8, 0x80, 0, 0, 1, 0x78, 9},
        {8, 0x1ff, 0, 0, 3, 0xf7, 9},
    };
    for (const Case &c : cases) {
        NpLcamAccessInfo info = {};
        ASSERT_EQ(Np_Tarn_LCAM_AccessInfoBulid(0, c.table, c.offset, &info), NP_OK);
        EXPECT_THAT((std::array{info.ulType, info.ulBlock, info.ulTcam, info.ulDepth, info.ulCid}),
                    ElementsAre(c.type, c.block, c.tcam, c.row, c.cid))
            << c.table << " " << c.offset;
    }
    // Every entry of every table has TCAMs of its own, inside the chip.
    std::set<uint32_t> cells;
    uint32_t entries = 0;
    for (uint32_t table = 0; table < NP_LCAM_TABLE_NUM; table++) {
        NpLcamAccessInfo info = {};
        for (uint32_t at = 0; Np_Tarn_LCAM_AccessInfoBulid(0, table, at, &info) == NP_OK; at++) {
            ASSERT_EQ(Np_Tarn_LCAM_AccessInfoCheck(&info), NP_OK);
            for (uint32_t tcam = info.ulTcam; tcam < info.ulTcam + (1u << info.ulType); tcam++) {
                EXPECT_TRUE(cells.insert((info.ulBlock * 8 + tcam) * 512 + info.ulDepth).second)
                    << table << " " << at;
            }
            entries++;
        }
    }
    EXPECT_EQ(entries, 0x400u + 0x80 + 0x40 + 0x80 + 0x20 + 0x20 + 0x200);
}

TEST_F(Lcam, ScatteredTableContinuesInItsNextBlock)
{
    const NpLcamAddrBlock stretches[] = {{2, 4, 0, 0x10, 0x20}, {1, 0, 0x100, 0x40, 0x40}};
    NpLcamAddrConfig scattered[NP_LCAM_ADDR_NUM] = {};
    scattered[0] = {2, stretches};
    g_pstNpLcamAddrConfig[0] = scattered;
    NpLcamAccessInfo info = {};
    EXPECT_EQ(Np_Tarn_LCAM_AccessInfoBulid(0, 0, 0x1f, &info), NP_OK);
    EXPECT_THAT((std::array{info.ulBlock, info.ulTcam, info.ulDepth}), ElementsAre(2, 5, 0xf));
    EXPECT_EQ(Np_Tarn_LCAM_AccessInfoBulid(0, 0, 0x21, &info), NP_OK);
    EXPECT_THAT((std::array{info.ulBlock, info.ulTcam, info.ulDepth}), ElementsAre(1, 0, 0x101));
    EXPECT_EQ(info.ulCid, 3u);
    EXPECT_EQ(Np_Tarn_LCAM_AccessInfoBulid(0, 0, 0x60, &info), NP_ERR_PARAM);
    g_pstNpLcamAddrConfig[0] = g_pstNpLcamAddrConfig_TarnB;
}

// ---- refusals -----------------------------------------------------------------------------------

#define CALL(expression) [&] { return expression; }

TEST_F(Lcam, RefusalsSayWhyAndSendNothing)
{
    uint8_t bytes[40] = {};
    struct Case {
        std::function<uint32_t()> call;
        uint32_t code;
        const char *text;
    };
    const Case cases[] = {
        {CALL(Np_Tarn_LCAM_TcamWrite(0, 9, 0, bytes, bytes, bytes)), NP_ERR_PARAM,
         "param error! (ulTableID)=0x00000009\r\n"},
        {CALL(Np_Tarn_LCAM_TcamWrite(0, 4, 0x20, bytes, bytes, bytes)), NP_ERR_PARAM,
         "param error! ulOffset=0x00000020\r\n"},
        {CALL(Np_Tarn_LCAM_TcamRead(0, 6, 0, bytes, bytes, bytes)), NP_ERR_PARAM,
         "param error! ulOffset=0x00000000\r\n"},  // a table without entries
        {CALL(Np_Tarn_LCAM_TcamWrite(0, 0, 0, nullptr, nullptr, nullptr)), NP_ERR_NULL_PTR,
         "[ERROR] null ptr error pvKey=0x00000000 pvMask=0x00000000 pvAd=0x00000000\r\n"},
        {CALL(Np_Tarn_LCAM_TcamWrite(0, 0, 0, bytes, nullptr, bytes)), NP_ERR_NULL_PTR,
         "[ERROR] null ptr error pvKey=0x"},
        {CALL(Np_Tarn_LCAM_TcamWrite(0, 0, 0, nullptr, bytes, bytes)), NP_ERR_NULL_PTR,
         "[ERROR] null ptr error pvKey=0x00000000 pvMask=0x"},
        {CALL(Np_Tarn_LCAM_TcamRead(0, 0, 0, nullptr, nullptr, nullptr)), NP_ERR_NULL_PTR,
         "[ERROR] null ptr error! pvKey=0x00000000 pvMask=0x00000000  pvAd=0x00000000\r\n"},
        {CALL(Np_Tarn_LCAM_TcamEnableSet(0, 0, 0, 2)), NP_ERR_PARAM,
         "enable Para error: 0x00000002 \r\n"},
        {CALL(Np_Tarn_LCAM_TcamEnableGet(0, 0, 0, nullptr)), NP_ERR_NULL_PTR, "Para null ptr\r\n"},
        {CALL(Np_Tarn_LCAM_TcamMove(0, 9, 0, 1)), NP_ERR_PARAM,
         "param error! (ulTableID)=0x00000009\r\n"},
        {CALL(Np_Tarn_LCAM_TcamMove(0, 4, 0x20, 0x21)), NP_ERR_PARAM,
         "param error! ulSrcOffsetID=0x00000020\r\n"},
        {CALL(Np_Tarn_LCAM_TcamMove(0, 4, 1, 0x21)), NP_ERR_PARAM,
         "param error! ulDstOffsetID=0x00000021\r\n"},
        {CALL(Np_Tarn_LCAM_TcamMoveUp(0, 4, 1, 2)), NP_ERR_PARAM,
         "param error! ulDstOffsetID=0xffffffff\r\n"},
        {CALL(Np_Tarn_LCAM_TcamMoveDown(0, 4, 0x1f, 1)), NP_ERR_PARAM,
         "param error! ulDstOffsetID=0x00000020\r\n"},
        {CALL(Np_Tarn_LCAM_TcamMoveDown(0, 4, 4, 0xfffffffe)), NP_ERR_PARAM,
         "param error! ulDstOffsetID=0xffffffff\r\n"},
        {CALL(Np_Tarn_LCAM_TcamBlockMoveUp(0, 9, 0, 0, 0)), NP_ERR_PARAM,
         "param error! (ulTableID)=0x00000009\r\n"},
        {CALL(Np_Tarn_LCAM_TcamBlockMoveUp(0, 4, 0x1e, 3, 1)), NP_ERR_PARAM,
         "param error! (ulOffset + ulBlockNum - 1)=0x00000020\r\n"},
        {CALL(Np_Tarn_LCAM_TcamBlockMoveUp(0, 4, 2, 0xffffffff, 1)), NP_ERR_PARAM,
         "param error! (ulOffset + ulBlockNum - 1)=0x00000000\r\n"},
        {CALL(Np_Tarn_LCAM_TcamBlockMoveUp(0, 4, 2, 3, 3)), NP_ERR_PARAM,
         "[ERROR] ulOffset=0x00000002 ulMoveStep=0x00000003\r\n"},
        {CALL(Np_Tarn_LCAM_TcamBlockMoveDown(0, 4, 0x1c, 3, 2)), NP_ERR_PARAM,
         "param error! (ulOffset + ulBlockNum + ulMoveStep - 1)=0x00000020\r\n"},
        {CALL(Np_Tarn_LCAM_TcamBlockMoveDown(0, 4, 0, 1, 0xffffffff)), NP_ERR_PARAM,
         "param error! (ulOffset + ulBlockNum + ulMoveStep - 1)=0xffffffff\r\n"},
    };
    for (const Case &c : cases) {
        Np_PrintLevelSet(NP_M_LCAM, NP_PRINT_ERROR, 1);
        out.take();
        FrameTap tap;
        EXPECT_EQ(c.call(), c.code) << c.text;
        EXPECT_THAT(out.take(), HasSubstr(c.text));
        EXPECT_EQ(tap.take_count(), 0u) << c.text;
    }
    FrameTap tap;
    EXPECT_EQ(Np_Tarn_LCAM_TcamBlockMoveUp(0, 4, 0, 0, 5), NP_OK);
    EXPECT_EQ(Np_Tarn_LCAM_TcamBlockMoveDown(0, 4, 99, 0, 5), NP_OK);
    NpRbaReqCmd request = {};
    EXPECT_EQ(Np_Tarn_LCAM_BuildReqData(324, bytes, &request), NP_ERR_PARAM);
    EXPECT_EQ(tap.take_count(), 0u);
}

TEST_F(Lcam, PlacesOutsideTheChipAreRefused)
{
    struct Case {
        NpLcamAccessInfo info;
        const char *text;
    };
    const Case cases[] = {
        {{4, 0, 0, 0, 0}, "Para error, type = 0x4 \r\n"},
        {{0, 4, 0, 0, 0}, "Para error, block = 0x4 \r\n"},
        {{0, 0, 8, 0, 0}, "Para error, tcam = 0x8 \r\n"},
        {{0, 0, 0, 512, 0}, "Para error, depth = 0x200 \r\n"},
        {{1, 0, 3, 0, 0}, "Para error, ulType = 0x1. ulTcam = 0x3 \r\n"},
        {{3, 0, 4, 0, 0}, "Para error, ulType = 0x3. ulTcam = 0x4 \r\n"},
    };
    uint8_t x[40] = {};
    uint8_t y[40] = {};
    for (const Case &c : cases) {
        Np_PrintLevelSet(NP_M_LCAM, NP_PRINT_ERROR, 1);
        out.take();
        FrameTap tap;
        EXPECT_EQ(Np_Tarn_LCAM_TcamRbaWrite(0, &c.info, x, y), NP_ERR_PARAM);
        EXPECT_THAT(out.take(), HasSubstr(c.text));
        EXPECT_EQ(Np_Tarn_LCAM_TcamRbaRead(0, &c.info, x, y), NP_ERR_PARAM);
        EXPECT_EQ(Np_Tarn_LCAM_TcamRbaClear(0, &c.info), NP_ERR_PARAM);
        EXPECT_EQ(Np_Tarn_LCAM_AdRbaRead(0, &c.info, x), NP_ERR_PARAM);
        EXPECT_EQ(Np_Tarn_LCAM_AdRbaWrite(0, &c.info, x), NP_ERR_PARAM);
        EXPECT_EQ(Np_Tarn_LCAM_WriteTcamVbit(0, &c.info, 1), NP_ERR_PARAM);
        EXPECT_EQ(tap.take_count(), 0u);
    }
}

// ---- against a reference ------------------------------------------------------------------------

struct Entry {
    Bytes key;
    Bytes mask;
    Bytes ad;
    bool valid = false;
};

// What a table ought to hold, in the caller's terms.
class Reference {
  public:
    explicit Reference(uint32_t table) : table_(table), config_(g_stNpLcamConfig_TarnB[table])
    {
        const uint32_t size = Np_LcamKeyBytes(config_.ulType);
        entries_.assign(config_.ulEntryNum,
                        {Bytes(size), Bytes(size), Bytes(Np_LcamAdBytes(config_.ulType)), false});
    }

    std::vector<Entry> &entries()
    {
        return entries_;
    }
    const NpLcamConfig &config() const
    {
        return config_;
    }

    // Few bits differ, so that rules overlap. The top nibble is noise that nobody stores.
    Entry random_entry(std::mt19937 &random) const
    {
        Entry entry = entries_[0];
        for (uint8_t &byte : entry.ad) {
            byte = static_cast<uint8_t>(random());
        }
        const size_t last = entry.key.size() - 1;
        for (size_t i = 0; i <= last; i++) {
            entry.key[i] = 0x5a;
            entry.mask[i] = 0xff;
        }
        for (const size_t i : {size_t{0}, last}) {
            entry.key[i] = static_cast<uint8_t>(random());
            entry.mask[i] = static_cast<uint8_t>(random());
        }
        entry.mask[0] |= 0xf0;
        entry.valid = true;
        return entry;
    }
    Bytes random_key(std::mt19937 &random) const
    {
        const Entry &like = entries_[random() % entries_.size()];
        Bytes key = like.valid ? like.key : random_entry(random).key;
        key[0] ^= static_cast<uint8_t>(random() & 3);
        return key;
    }

    // As it reads back: no bits under a 0 mask, no top nibble.
    static Entry stored(Entry entry)
    {
        entry.mask.back() &= 0x0f;
        for (size_t i = 0; i < entry.key.size(); i++) {
            entry.key[i] &= entry.mask[i];
        }
        return entry;
    }
    static bool matches(const Entry &entry, const Bytes &key)
    {
        for (size_t i = 0; i < key.size(); i++) {
            const uint8_t cut = i + 1 == key.size() ? 0x0f : 0xff;
            if (((key[i] ^ entry.key[i]) & entry.mask[i] & cut) != 0) {
                return false;
            }
        }
        return entry.valid;
    }
    // The lowest offset that matches wins.
    std::optional<uint32_t> winner(const Bytes &key) const
    {
        for (uint32_t at = 0; at < entries_.size(); at++) {
            if (matches(entries_[at], key)) {
                return at;
            }
        }
        return {};
    }

    void expect_entry(uint32_t at, uint32_t chip = 0) const
    {
        const Entry want = stored(entries_[at]);
        Entry got = want;
        uint32_t enable = 2;
        ASSERT_EQ(
            Np_Tarn_LCAM_TcamRead(chip, table_, at, got.key.data(), got.mask.data(), got.ad.data()),
            NP_OK);
        ASSERT_EQ(Np_Tarn_LCAM_TcamEnableGet(chip, table_, at, &enable), NP_OK);
        ASSERT_EQ(got.key, want.key) << "offset " << at;
        ASSERT_EQ(got.mask, want.mask) << "offset " << at;
        ASSERT_EQ(got.ad, want.ad) << "offset " << at;
        ASSERT_EQ(enable, want.valid ? 1u : 0u) << "offset " << at;
    }
    // What a packet finds.
    static model::LcamResult lookup(const NpLcamConfig &config, const Bytes &key, uint32_t chip = 0)
    {
        const model::LcamQuery query = {config.ulType, config.ulBlock, config.ulCid, key.data()};
        model::LcamResult result = {};
        EXPECT_EQ(model::lookup_lcam(chip, query, &result), model::kOk);
        return result;
    }
    void expect_lookup(const Bytes &key) const
    {
        const model::LcamResult got = lookup(config_, key);
        const std::optional<uint32_t> want = winner(key);
        ASSERT_EQ(got.hit, want.has_value());
        if (want) {
            NpLcamAccessInfo info = {};
            ASSERT_EQ(Np_Tarn_LCAM_AccessInfoBulid(0, table_, *want, &info), NP_OK);
            ASSERT_EQ(got.place.tcam, info.ulTcam);
            ASSERT_EQ(got.place.row, info.ulDepth);
            ASSERT_EQ(Bytes(got.ad, got.ad + got.ad_bytes), entries_[*want].ad);
        }
    }

  private:
    uint32_t table_;
    NpLcamConfig config_;
    std::vector<Entry> entries_;
};

// Takes an entry to another offset as a move does.
void reference_move(std::vector<Entry> &entries, uint32_t from, uint32_t to)
{
    if (from == to) {
        return;
    }
    const Entry entry = Reference::stored(entries[from]);
    entries[to] = entry;
    entries[from].key.assign(entry.key.size(), 0);
    entries[from].mask.assign(entry.key.size(), 0);
    entries[from].valid = false;
}

TEST_F(Lcam, RandomOperationsAgreeWithAReference)
{
    for (const uint32_t table : {0u, 1u, 2u, 4u, 5u, 8u}) {
        const uint32_t seed = 100 + table;
        SCOPED_TRACE("table " + std::to_string(table) + " seed " + std::to_string(seed));
        std::mt19937 random(seed);
        Reference reference(table);
        std::vector<Entry> &entries = reference.entries();
        const uint32_t num = static_cast<uint32_t>(entries.size());
        for (uint32_t step = 0; step < 3000; step++) {
            const uint32_t at = random() % num;
            const uint32_t to = random() % num;
            const Entry fresh = reference.random_entry(random);
            const uint32_t run = random() % std::min(num - std::max(at, to), 6u);
            switch (random() % 12) {
                case 0:
                case 1:
                case 2:
                    ASSERT_EQ(Np_Tarn_LCAM_TcamWrite(0, table, at, fresh.key.data(),
                                                     fresh.mask.data(), fresh.ad.data()),
                              NP_OK);
                    entries[at] = fresh;
                    break;
                case 3:
                    ASSERT_EQ(Np_Tarn_LCAM_TcamWrite(0, table, at, fresh.key.data(),
                                                     fresh.mask.data(), nullptr),
                              NP_OK);
                    entries[at] = {fresh.key, fresh.mask, entries[at].ad, true};
                    break;
                case 4:
                    ASSERT_EQ(
                        Np_Tarn_LCAM_TcamWrite(0, table, at, nullptr, nullptr, fresh.ad.data()),
                        NP_OK);
                    entries[at].ad = fresh.ad;
                    break;
                case 5:
                    ASSERT_EQ(Np_Tarn_LCAM_TcamDelete(0, table, at), NP_OK);
                    entries[at] = {Bytes(fresh.key.size()), Bytes(fresh.key.size()), entries[at].ad,
                                   false};
                    break;
                case 6:
                    ASSERT_EQ(Np_Tarn_LCAM_TcamEnableSet(0, table, at, 0), NP_OK);
                    entries[at].valid = false;
                    break;
                case 7:
                    if (Reference::stored(entries[at]).mask == Bytes(fresh.mask.size())) {
                        break;  // an empty entry that is made valid would match in every table
                    }
                    ASSERT_EQ(Np_Tarn_LCAM_TcamEnableSet(0, table, at, 1), NP_OK);
                    entries[at].valid = true;
                    break;
                case 8:
                    ASSERT_EQ(Np_Tarn_LCAM_TcamMove(0, table, at, to), NP_OK);
                    reference_move(entries, at, to);
                    break;
                case 9:
                    ASSERT_EQ(to < at ? Np_Tarn_LCAM_TcamMoveUp(0, table, at, at - to)
                                      : Np_Tarn_LCAM_TcamMoveDown(0, table, at, to - at),
                              NP_OK);
                    reference_move(entries, at, to);
                    break;
                case 10:
                    if (to > at) {
                        break;
                    }
                    ASSERT_EQ(Np_Tarn_LCAM_TcamBlockMoveUp(0, table, at, run, at - to), NP_OK);
                    for (uint32_t i = 0; i < run; i++) {
                        reference_move(entries, at + i, to + i);
                    }
                    break;
                default:
                    if (to < at) {
                        break;
                    }
                    ASSERT_EQ(Np_Tarn_LCAM_TcamBlockMoveDown(0, table, at, run, to - at), NP_OK);
                    for (uint32_t i = run; i > 0; i--) {
                        reference_move(entries, at + i - 1, to + i - 1);
                    }
                    break;
            }
            reference.expect_entry(at);
            reference.expect_entry(to);
            reference.expect_lookup(reference.random_key(random));
            if (HasFailure()) {
                FAIL() << "step " << step;
            }
        }
        for (uint32_t at = 0; at < num; at++) {
            reference.expect_entry(at);
        }
    }
    // The tables lay beside each other all the time; one sweep empties them all.
    EXPECT_EQ(Np_Tarn_LCAM_TcamDeleteAll(0), NP_OK);
    for (const uint32_t table : {0u, 1u, 2u, 4u, 5u, 8u}) {
        for (uint32_t at = 0; at < g_stNpLcamConfig_TarnB[table].ulEntryNum; at++) {
            uint32_t enable = 1;
            ASSERT_EQ(Np_Tarn_LCAM_TcamEnableGet(0, table, at, &enable), NP_OK);
            ASSERT_EQ(enable, 0u);
        }
    }
}

TEST_F(Lcam, MirrorCopyIsKeptInStep)
{
    constexpr uint32_t kTable = 8;
    const NpLcamConfig &config = g_stNpLcamConfig_TarnB[kTable];
    ASSERT_EQ(model::lcam_mirror_set(0, config.ulCid, true), model::kOk);
    const Bytes key = filled(5, 1);
    const Bytes mask(5, 0xff);
    const Bytes ad = filled(4, 9);
    FrameTap tap;
    ASSERT_EQ(Np_Tarn_LCAM_TcamWrite(0, kTable, 7, key.data(), mask.data(), ad.data()), NP_OK);
    // Both copies of the AD, then one whole copy of the rule after the other.
    std::vector<uint32_t> commands;
    for (const Bytes &sent : taken(tap)) {
        commands.push_back(sent[4] | static_cast<uint32_t>(sent[5]) << 8);
    }
    EXPECT_THAT(commands,
                ElementsAre(0x0040, 0x4040, 0x0050, 0x0030, 0x0020, 0x4050, 0x4030, 0x4020));
}

TEST_F(Lcam, BlockMovesServeTheWatchdog)
{
    ASSERT_EQ(Np_GLB_ClearWatchDogHook(watchdog), NP_OK);
    g_watchdogs = 0;
    ASSERT_EQ(Np_Tarn_LCAM_TcamBlockMoveUp(0, 0, 1, 1001, 1), NP_OK);
    EXPECT_EQ(g_watchdogs, 3u);
    g_watchdogs = 0;
    ASSERT_EQ(Np_Tarn_LCAM_TcamBlockMoveDown(0, 0, 0, 500, 1), NP_OK);
    EXPECT_EQ(g_watchdogs, 1u);
    ASSERT_EQ(Np_Tarn_LCAM_TcamDeleteAll(0), NP_OK);
    EXPECT_GT(g_watchdogs, 3u);
}

// ---- faults -------------------------------------------------------------------------------------

// Every call of the driver that an operation makes fails once: the code is the one of the step, the
// text says so, and the operation goes through when it is repeated.
TEST_F(Lcam, EachFailingDriverCallGivesTheCodeOfItsStep)
{
    constexpr uint32_t kTable = 2;
    static const Bytes key = filled(10, 1);
    static const Bytes mask(10, 0x3f);
    static const Bytes ad = filled(8, 0x31);
    using Call = uint32_t (*)();
    struct Fault {
        const char *driver;
        std::vector<uint32_t> codes;  // of the first, second, ... call that fails
    };
    struct Case {
        const char *name;
        Call call;
        std::vector<Fault> faults;
    };
    constexpr uint32_t kAd = NP_ERR_LCAM_AD_WRITE;
    constexpr uint32_t kWrite = NP_ERR_TCAM_WRITE;
    constexpr uint32_t kRead = NP_ERR_TCAM_READ;
    constexpr uint32_t kClear = NP_ERR_TCAM_CLEAR;
    const Case cases[] = {
        {"init",
         [] { return Np_Tarn_LCAM_Init(0); },
         {{"Qd_LCAM_CamIdModeSet", {NP_ERR_CAM_ID_MODE}}}},
        {"write",
         [] { return Np_Tarn_LCAM_TcamWrite(0, kTable, 9, key.data(), mask.data(), ad.data()); },
         {{"rba", {kAd, kAd, kWrite, kWrite, kWrite, kWrite, kWrite, kWrite}},
          {"Qd_LCAM_CamIdModeGet", {kWrite}},
          {"Qd_LCAM_MirrorEnableGet", {kAd, kWrite}}}},
        {"read",
         [] {
             uint8_t bytes[3][10];
             return Np_Tarn_LCAM_TcamRead(0, kTable, 9, bytes[0], bytes[1], bytes[2]);
         },
         {{"rba", {kRead, kRead, NP_ERR_LCAM_AD_READ}}, {"Qd_LCAM_CamIdModeGet", {kRead}}}},
        {"delete",
         [] { return Np_Tarn_LCAM_TcamDelete(0, kTable, 9); },
         {{"rba", {kClear, kClear, kClear, kClear}},
          {"Qd_LCAM_CamIdModeGet", {kClear}},
          {"Qd_LCAM_MirrorEnableGet", {kClear}}}},
        {"enable",
         [] { return Np_Tarn_LCAM_TcamEnableSet(0, kTable, 9, 1); },
         {{"rba", {NP_ERR_TCAM_ENABLE_SET}}}},
        {"enabled",
         [] {
             uint32_t enable = 0;
             return Np_Tarn_LCAM_TcamEnableGet(0, kTable, 9, &enable);
         },
         {{"Qd_LCAM_TcamEnableGet", {NP_ERR_TCAM_ENABLE_GET}}}},
        {"delete all",
         [] { return Np_Tarn_LCAM_TcamDeleteAll(0); },
         {{"rba", {kClear, kClear, kClear}}}},
    };
    // What a step says of its failure; behind that of a write stands the place.
    const std::map<uint32_t, const char *> texts = {
        {kAd, "[ERROR] Np_Tarn_LCAM_AdRbaWrite ERROR , ulReturn=0x"},
        {kWrite, "[ERROR] Np_Tarn_LCAM_TcamRbaWrite ERROR , ulReturn=0x"},
        {kRead, "[ERROR] Np_Tarn_LCAM_TcamRbaRead ERROR, ulReturn=0x"},
        {kClear, "[ERROR] Np_Tarn_LCAM_TcamRbaClear ERROR , ulReturn=0x"},
        {NP_ERR_LCAM_AD_READ, "[ERROR] Qd_LCAM_AdRead ERROR , ulReturn=0x"},
        {NP_ERR_TCAM_ENABLE_SET, "[ERROR] Np_Tarn_LCAM_WriteTcamVbit ERROR, ulReturn=0x"},
        {NP_ERR_TCAM_ENABLE_GET, "Func error return: 0x0000dead \r\n"},
        {NP_ERR_CAM_ID_MODE, "Func error return: 0x0000dead \r\n"},
    };
    const char *place =
        "ulType=0x00000001 ulBlock=0x00000002 ulTcam=0x00000002ulDepth=0x00000009 "
        "ulCid=0x00000002 \r\n";
    ASSERT_EQ(model::lcam_mirror_set(0, g_stNpLcamConfig_TarnB[kTable].ulCid, true), model::kOk);
    for (const Case &c : cases) {
        for (const Fault &f : c.faults) {
            for (size_t n = 0; n < f.codes.size(); n++) {
                for (const char *how : {"code=0xdead", "status=0x12"}) {
                    if (how[0] == 's' && f.driver != std::string("rba")) {
                        continue;
                    }
                    SCOPED_TRACE(std::string(c.name) + " " + f.driver + " " +
                                 std::to_string(n + 1) + " " + how);
                    set_fault(std::string(f.driver) + " nth=" + std::to_string(n + 1) + " " + how);
                    Np_PrintLevelSet(NP_M_LCAM, NP_PRINT_ERROR, 1);
                    out.take();
                    g_recorded.clear();
                    EXPECT_EQ(c.call(), f.codes[n]);
                    const std::string text = out.take();
                    if (f.driver == std::string("rba")) {
                        EXPECT_THAT(
                            text,
                            HasSubstr(how[0] == 's'
                                          ? "error!, ulStatus = 0x00000012\r\n"
                                          : "rba command send failed! ulreturn = 0x0000dead\r\n"));
                    }
                    EXPECT_THAT(text, HasSubstr(texts.at(f.codes[n])));
                    if (f.codes[n] == kAd || f.codes[n] == kWrite) {
                        EXPECT_THAT(text, HasSubstr(place));
                    }
                    // What the driver says of an AD read, a data or a mask goes to the recorder.
                    const bool vbit = c.name == std::string("write") && (n == 2 || n == 5);
                    const bool recorded = f.driver == std::string("rba") &&
                                          ((f.codes[n] == kWrite && !vbit && how[0] == 'c') ||
                                           f.codes[n] == NP_ERR_LCAM_AD_READ);
                    EXPECT_EQ(g_recorded.size(), recorded ? 1u : 0u);
                    EXPECT_EQ(c.call(), NP_OK);
                }
            }
            // One more call is not made.
            if (c.name != std::string("delete all")) {
                set_fault(std::string(f.driver) + " nth=" + std::to_string(f.codes.size() + 1));
                EXPECT_EQ(c.call(), NP_OK) << c.name << " " << f.driver;
            }
        }
    }
}

}  // namespace
}  // namespace ldsdk::test

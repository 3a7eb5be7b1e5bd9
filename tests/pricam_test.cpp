// Priority blocks: placement on a plain array, and the same through the LCAM on the model.

#include "sdk/lookup/pricam.h"

#include "sdk/lookup/lcam.h"
#include "tests/fixture.h"

#include <map>
#include <optional>
#include <random>

namespace ldsdk::test {
namespace {

using testing::HasSubstr;

constexpr uint32_t kStoreError = 0x9a000027;

// Soft tables of a table with `entries` offsets and as many key numbers, and what has to be in it.
struct Table {
    std::vector<NpPriCamKeyInfo> keys;
    std::vector<uint32_t> tcam;
    std::vector<NpPriBlockPoint> points;
    uint32_t used = 0;
    std::map<uint32_t, uint32_t> rules;  // key number to priority
    uint32_t table_id = NP_LCAM_L3PA;
    NpPriCamSoftInfo soft = {};

    Table(uint32_t entries, const std::vector<uint32_t> &percent)
        : keys(entries, {NP_PRICAM_NONE, 0}), tcam(entries, NP_PRICAM_NONE), points(percent.size())
    {
        NpPriBlock block = {};
        block.ulMaxPriNum = static_cast<uint32_t>(percent.size());
        std::copy(percent.begin(), percent.end(), block.ulPriPercent);
        EXPECT_EQ(Np_Tarn_PriCam_BlockAssign(0, max_entry(), &block, points.data()), NP_OK);
        soft = {keys.data(), tcam.data(), points.data(), &used};
    }
    Table(const Table &) = delete;
    Table &operator=(const Table &) = delete;

    uint32_t max_entry() const
    {
        return static_cast<uint32_t>(tcam.size()) - 1;
    }
    uint32_t max_pri() const
    {
        return static_cast<uint32_t>(points.size()) - 1;
    }
    NpPriCamEntryInfo entry(uint32_t key, uint32_t pri) const
    {
        return {table_id, key, max_pri(), max_entry(), pri};
    }

    // Soft tables, count and rules agree; blocks lie in order and are dense but for `holes` rows at
    // most, lost to deletes that failed half-way.
    void check(uint32_t holes = 0) const
    {
        ASSERT_EQ(used, rules.size() + holes);
        size_t stored = 0;
        for (uint32_t key = 0; key < keys.size(); key++) {
            const auto rule = rules.find(key);
            if (rule == rules.end()) {
                ASSERT_EQ(keys[key].ulCamEntry, NP_PRICAM_NONE) << "key " << key;
                continue;
            }
            ASSERT_LT(keys[key].ulCamEntry, tcam.size()) << "key " << key;
            ASSERT_EQ(keys[key].ulPri, rule->second);
            ASSERT_EQ(tcam[keys[key].ulCamEntry], key);
        }
        for (const uint32_t key : tcam) {
            stored += key != NP_PRICAM_NONE;
        }
        ASSERT_EQ(stored, rules.size());

        // Pointers as signed numbers: -1 is below offset 0.
        int32_t above = static_cast<int32_t>(max_entry());
        ASSERT_EQ(static_cast<int32_t>(points[0].ulBotPoint), above);
        uint32_t free_in_blocks = 0;
        for (uint32_t pri = 0; pri < points.size(); pri++) {
            const auto top = static_cast<int32_t>(points[pri].ulTopPoint);
            const auto bot = static_cast<int32_t>(points[pri].ulBotPoint);
            ASSERT_LE(bot, above) << "priority " << pri;
            ASSERT_LE(top, bot) << "priority " << pri;
            ASSERT_GE(top, -1);
            for (int32_t at = top + 1; at <= bot; at++) {
                const uint32_t key = tcam[static_cast<size_t>(at)];
                if (key == NP_PRICAM_NONE) {
                    free_in_blocks++;
                    continue;
                }
                ASSERT_EQ(keys[key].ulPri, pri) << "offset " << at;
            }
            above = top;
        }
        ASSERT_LE(free_in_blocks, holes);
    }
};

// The store as an array: a row holds a key number. Checks what is asked of it.
struct PlainStore {
    explicit PlainStore(const Table &table_)
        : table(table_), rows(table_.tcam.size(), NP_PRICAM_NONE)
    {
        store = {write, move, del, 0, 0, this};
    }
    PlainStore(const PlainStore &) = delete;
    PlainStore &operator=(const PlainStore &) = delete;

    static PlainStore &self(const NpPriCamStore *store)
    {
        return *static_cast<PlainStore *>(store->pvUser);
    }
    bool fails()
    {
        calls++;
        return calls == fail_at;
    }

    static uint32_t write(const NpPriCamStore *store, uint32_t at, const NpKeyMaskAdInfo *info)
    {
        PlainStore &s = self(store);
        if (s.fails()) {
            return kStoreError;
        }
        s.rows.at(at) = *static_cast<const uint32_t *>(info->pvKey);
        return NP_OK;
    }
    static uint32_t move(const NpPriCamStore *store, uint32_t from, uint32_t to)
    {
        PlainStore &s = self(store);
        s.moves.emplace_back(from, to);
        if (s.fails()) {
            return kStoreError;
        }
        EXPECT_NE(s.rows.at(from), NP_PRICAM_NONE) << "nothing at " << from;
        EXPECT_EQ(s.rows.at(to), NP_PRICAM_NONE) << "overwrites " << to;
        s.rows.at(to) = std::exchange(s.rows.at(from), NP_PRICAM_NONE);
        s.check_order();
        return NP_OK;
    }
    static uint32_t del(const NpPriCamStore *store, uint32_t at)
    {
        PlainStore &s = self(store);
        if (s.fails()) {
            return kStoreError;
        }
        EXPECT_NE(s.rows.at(at), NP_PRICAM_NONE);
        s.rows.at(at) = NP_PRICAM_NONE;
        return NP_OK;
    }

    // Greater priority numbers have lower offsets, in the middle of an operation too.
    void check_order() const
    {
        uint32_t before = UINT32_MAX;
        for (const uint32_t key : rows) {
            if (key == NP_PRICAM_NONE) {
                continue;
            }
            EXPECT_LE(table.keys[key].ulPri, before);
            before = table.keys[key].ulPri;
        }
    }

    const Table &table;
    std::vector<uint32_t> rows;
    std::vector<std::pair<uint32_t, uint32_t>> moves;
    uint64_t calls = 0;
    uint64_t fail_at = 0;
    NpPriCamStore store = {};
};

// A table over a plain array, as its owner uses it.
struct PlainTable {
    PlainTable(uint32_t entries, const std::vector<uint32_t> &percent)
        : table(entries, percent), plain(table)
    {
    }

    uint32_t add(uint32_t key, uint32_t pri)
    {
        const NpPriCamEntryInfo entry = table.entry(key, pri);
        const NpKeyMaskAdInfo info = {&key, &key, &key};
        plain.moves.clear();
        const uint32_t result = Np_Placement_Set(&plain.store, &entry, &table.soft, &info);
        if (result == NP_OK) {
            table.rules[key] = pri;
        }
        return result;
    }
    uint32_t remove(uint32_t key)
    {
        const NpPriCamEntryInfo entry = table.entry(key, 0);
        plain.moves.clear();
        const uint32_t result = Np_Placement_Del(&plain.store, &entry, &table.soft);
        if (result == NP_OK || table.keys[key].ulCamEntry == NP_PRICAM_NONE) {
            table.rules.erase(key);
        }
        return result;
    }
    void check(uint32_t holes = 0)
    {
        ASSERT_NO_FATAL_FAILURE(table.check(holes));
        ASSERT_EQ(plain.rows, table.tcam);
        plain.check_order();
    }

    Table table;
    PlainStore plain;
};

class PriCam : public Module {};

TEST_F(PriCam, LayoutFollowsThePercentages)
{
    struct Case {
        uint32_t entries;
        std::vector<uint32_t> percent;
        std::vector<uint32_t> starts;
    };
    const std::vector<Case> cases = {
        {128, {50, 50}, {127, 63}},    {100, {33, 33, 34}, {99, 66, 33}},
        {128, {0, 100}, {127, 127}},    // a share of 0 starts where the next one starts
        {64, {100, 0, 0}, {63, 0, 0}},  // the last blocks have nowhere to start but offset 0
        {10, {15, 15, 70}, {9, 8, 7}},  // 1.5 rows are 1
        {1024, {100}, {1023}},
    };
    for (const Case &c : cases) {
        const Table table(c.entries, c.percent);
        for (size_t pri = 0; pri < c.starts.size(); pri++) {
            EXPECT_EQ(table.points[pri].ulTopPoint, c.starts[pri]) << c.entries << " " << pri;
            EXPECT_EQ(table.points[pri].ulBotPoint, c.starts[pri]);
            EXPECT_EQ(table.points[pri].ulPercent, c.percent[pri]);
        }
    }
}

TEST_F(PriCam, RefusesWhatIsNoLayoutOrNoRule)
{
    trace_errors(NP_M_PRICAM);
    static NpPriBlock block;
    NpPriBlockPoint points[NP_PRICAM_PRI_MAX] = {};
    const auto assign = [&](uint32_t num, std::vector<uint32_t> percent) {
        block = {};
        block.ulMaxPriNum = num;
        std::copy(percent.begin(), percent.end(), block.ulPriPercent);
        return Np_Tarn_PriCam_BlockAssign(2, 63, &block, points);
    };
    EXPECT_EQ(assign(0, {100}), NP_ERR_PARAM);
    EXPECT_THAT(out.take(), HasSubstr("ulChipID=0x00000002, ulMaxPriNum=0x00000000 \r\n"));
    EXPECT_EQ(assign(257, {100}), NP_ERR_PARAM);
    EXPECT_EQ(assign(256, {100}), NP_OK);
    out.take();
    EXPECT_EQ(assign(2, {50, 51}), NP_ERR_PARAM);
    EXPECT_THAT(out.take(), HasSubstr("ulChipID=0x00000002, ulTotalPriPercent=0x00000065 \r\n"));
    EXPECT_EQ(assign(2, {101, 0xffffffff}), NP_ERR_PARAM) << "the sum is 100 in 32 bits";
    out.take();
    EXPECT_EQ(Np_Tarn_PriCam_BlockAssign(0, 63, nullptr, points), NP_ERR_NULL_PTR);
    EXPECT_EQ(Np_Tarn_PriCam_BlockAssign(0, 63, &block, nullptr), NP_ERR_NULL_PTR);

    Table table(64, {100});
    const NpPriCamEntryInfo entry = table.entry(1, 0);
    const uint8_t bytes[16] = {};
    const NpKeyMaskAdInfo rule = {bytes, bytes, bytes};
    const auto set = [&](const NpPriCamEntryInfo *e, const NpPriCamSoftInfo *s,
                         const NpKeyMaskAdInfo *r) {
        return Np_Tarn_PriCam_KeyAdInfo_Set(0, e, s, r);
    };
    uint32_t offset = 0;
    EXPECT_EQ(set(nullptr, &table.soft, &rule), NP_ERR_NULL_PTR);
    EXPECT_EQ(set(&entry, nullptr, &rule), NP_ERR_NULL_PTR);
    EXPECT_EQ(set(&entry, &table.soft, nullptr), NP_ERR_NULL_PTR);
    for (const NpKeyMaskAdInfo &part :
         {NpKeyMaskAdInfo{nullptr, bytes, bytes}, NpKeyMaskAdInfo{bytes, nullptr, bytes},
          NpKeyMaskAdInfo{bytes, bytes, nullptr}}) {
        EXPECT_EQ(set(&entry, &table.soft, &part), NP_ERR_NULL_PTR);
    }
    const NpPriCamSoftInfo &whole = table.soft;
    for (const NpPriCamSoftInfo &soft :
         {NpPriCamSoftInfo{nullptr, whole.pulTcamInfo, whole.pstPriPoint, whole.pulUsedNum},
          NpPriCamSoftInfo{whole.pstKeyInfo, nullptr, whole.pstPriPoint, whole.pulUsedNum},
          NpPriCamSoftInfo{whole.pstKeyInfo, whole.pulTcamInfo, nullptr, whole.pulUsedNum},
          NpPriCamSoftInfo{whole.pstKeyInfo, whole.pulTcamInfo, whole.pstPriPoint, nullptr}}) {
        EXPECT_EQ(set(&entry, &soft, &rule), NP_ERR_NULL_PTR);
        EXPECT_EQ(Np_Tarn_PriCam_Entry_Del(0, &entry, &soft), NP_ERR_NULL_PTR);
    }
    EXPECT_EQ(Np_Tarn_PriCam_Entry_Del(0, nullptr, &table.soft), NP_ERR_NULL_PTR);
    EXPECT_EQ(Np_Tarn_PriCam_KeyAssign(0, &entry, &table.soft, nullptr), NP_ERR_NULL_PTR);
    EXPECT_EQ(Np_Tarn_PriCam_KeyAssign(0, nullptr, &table.soft, &offset), NP_ERR_NULL_PTR);
    EXPECT_THAT(out.take(), HasSubstr("Para null ptr\r\n"));
}

// 9 entries start at 8, 5 and 3.
TEST_F(PriCam, FullBlocksBorrowFromTheNearestNeighbour)
{
    using Moves = std::vector<std::pair<uint32_t, uint32_t>>;
    trace_errors(NP_M_PRICAM);
    PlainTable t(9, {34, 33, 33});
    ASSERT_EQ(t.add(0, 0), NP_OK);  // at 8
    for (uint32_t key = 1; key < 3; key++) {
        ASSERT_EQ(t.add(key, 1), NP_OK);  // at 5, 4
    }
    for (uint32_t key = 3; key < 7; key++) {
        ASSERT_EQ(t.add(key, 2), NP_OK);  // at 3 to 0
        EXPECT_TRUE(t.plain.moves.empty());
    }
    EXPECT_EQ(t.table.points[2].ulTopPoint, NP_PRICAM_BELOW);
    t.check();
    out.take();

    ASSERT_EQ(t.add(7, 1), NP_OK);
    EXPECT_EQ(t.plain.moves, (Moves{{4, 6}}));
    EXPECT_EQ(t.table.keys[7].ulCamEntry, 4u);
    EXPECT_THAT(out.take(), HasSubstr("direct search fail!\r\n"));
    t.check();

    ASSERT_EQ(t.add(8, 2), NP_OK);
    EXPECT_EQ(t.plain.moves, (Moves{{4, 7}, {0, 4}}));
    EXPECT_EQ(t.table.keys[8].ulCamEntry, 0u);
    t.check();

    // Full: not even an attempt reaches the chip, and the count stays.
    t.table.keys.push_back({NP_PRICAM_NONE, 0});
    t.table.soft.pstKeyInfo = t.table.keys.data();
    const uint64_t calls = t.plain.calls;
    out.take();
    EXPECT_EQ(t.add(9, 0), NP_ERR_TABLE_FULL);
    EXPECT_THAT(out.take(), HasSubstr("KEY tbl has been use out!\r\n"));
    EXPECT_EQ(t.plain.calls, calls);
    EXPECT_EQ(t.table.used, 9u);

    // A delete keeps the block dense with one move, none at its lowest rule.
    ASSERT_EQ(t.table.keys[3].ulCamEntry, 3u);
    ASSERT_EQ(t.remove(3), NP_OK);
    EXPECT_EQ(t.plain.moves, (Moves{{0, 3}}));
    t.check();

    ASSERT_EQ(t.add(9, 0), NP_OK);
    EXPECT_EQ(t.plain.moves, (Moves{{4, 0}, {7, 4}}));
    EXPECT_EQ(t.table.keys[9].ulCamEntry, 7u);
    EXPECT_THAT(out.take(), HasSubstr("fwd search fail!\r\n"));
    t.check();

    // The last rule of a block takes no move, and both pointers are equal again.
    for (const uint32_t key : {0u, 9u}) {
        ASSERT_EQ(t.remove(key), NP_OK);
        t.check();
    }
    EXPECT_TRUE(t.plain.moves.empty());
    EXPECT_EQ(t.table.points[0].ulTopPoint, 8u);
    EXPECT_EQ(t.table.points[0].ulBotPoint, 8u);

    // A key without an entry: a success that changes nothing.
    out.take();
    EXPECT_EQ(t.remove(0), NP_OK);
    EXPECT_THAT(out.take(), HasSubstr("Delete invalid Key entry! ulKeyID=0x00000000\r\n"));
    EXPECT_EQ(t.table.used, 7u);
}

TEST_F(PriCam, EmptyBlocksMakeRoom)
{
    // Two blocks of share 0 sit on the start of the one behind.
    PlainTable t(4, {0, 0, 100});
    ASSERT_EQ(t.add(0, 0), NP_OK);
    EXPECT_EQ(t.table.keys[0].ulCamEntry, 3u);
    EXPECT_TRUE(t.plain.moves.empty());
    EXPECT_EQ(t.table.points[1].ulTopPoint, 2u);
    EXPECT_EQ(t.table.points[2].ulBotPoint, 2u);
    t.check();
    // Down to offset 0: the empty blocks go below it, and come back when a row comes free.
    for (uint32_t key = 1; key < 4; key++) {
        ASSERT_EQ(t.add(key, 0), NP_OK);
        t.check();
    }
    EXPECT_EQ(t.table.points[2].ulBotPoint, NP_PRICAM_BELOW);
    ASSERT_EQ(t.remove(0), NP_OK);
    t.check();
    ASSERT_EQ(t.add(0, 2), NP_OK);
    EXPECT_EQ(t.table.keys[0].ulCamEntry, 0u);
    t.check();
}

std::vector<uint32_t> random_percent(std::mt19937 &random, uint32_t num)
{
    std::vector<uint32_t> percent(num, 0);
    for (uint32_t i = 0; i < 100; i++) {
        // Some shapes leave most of the blocks without a share.
        percent[random() % (random() % 2 == 0 ? num : (num + 3) / 4)]++;
    }
    return percent;
}

// With failing calls of the store: an addition can be repeated; a delete that could not close its
// hole loses that row, and nothing else.
TEST_F(PriCam, RandomOperationsKeepEveryInvariant)
{
    struct Shape {
        uint32_t entries;
        uint32_t priorities;
        uint32_t steps;
        bool fails;
    };
    std::vector<Shape> shapes = {{1, 1, 200, false},    {1, 3, 500, false},    {2, 2, 1000, false},
                                 {5, 8, 8000, false},   {16, 3, 8000, false},  {64, 3, 8000, false},
                                 {64, 10, 8000, false}, {40, 256, 3000, false}};
    for (uint32_t i = 0; i < 40; i++) {
        shapes.push_back({24, 2 + i % 6, 400, true});
    }
    uint32_t seed = 20240;
    uint32_t full = 0;
    for (const Shape &shape : shapes) {
        seed++;
        SCOPED_TRACE("seed " + std::to_string(seed));
        std::mt19937 random(seed);
        PlainTable t(shape.entries, random_percent(random, shape.priorities));
        // One more key number than places.
        t.table.keys.push_back({NP_PRICAM_NONE, 0});
        t.table.soft.pstKeyInfo = t.table.keys.data();
        uint32_t add_chance = 50;
        uint32_t holes = 0;
        for (uint32_t step = 0; step < shape.steps && holes < 6; step++) {
            if (step % 512 == 0) {
                add_chance = 40 + random() % 4 * 20;  // filling up and emptying by turns
            }
            const uint32_t key = random() % (shape.entries + 1);
            const bool known = t.table.rules.contains(key);
            const uint64_t calls = t.plain.calls;
            t.plain.fail_at =
                shape.fails && random() % 3 == 0 ? t.plain.calls + 1 + random() % 4 : 0;
            uint32_t expected = NP_OK;
            uint32_t result;
            if (random() % 100 >= add_chance) {
                result = t.remove(key);
                ASSERT_LE(t.plain.moves.size(), 1u);
                holes += result != NP_OK && !t.table.rules.contains(key);
            }
            else {
                if (!known && t.table.rules.size() + holes == shape.entries) {
                    expected = NP_ERR_TABLE_FULL;
                    full++;
                }
                result = t.add(key, known ? t.table.rules[key] : random() % shape.priorities);
                ASSERT_LT(t.plain.moves.size(), known ? 1 : shape.priorities);
            }
            const bool failed = t.plain.fail_at > calls && t.plain.calls >= t.plain.fail_at;
            ASSERT_EQ(result, failed ? kStoreError : expected) << "step " << step;
            ASSERT_TRUE(result != NP_ERR_TABLE_FULL || t.plain.calls == calls);
            t.check(holes);
            if (HasFailure()) {
                FAIL() << "step " << step;
            }
        }
    }
    EXPECT_GT(full, 100u);
}

TEST_F(PriCam, CountNeverGoesBelowZero)
{
    PlainTable t(4, {100});
    ASSERT_EQ(t.add(1, 0), NP_OK);
    t.table.used = 0;  // as after a new layout while a rule stands
    ASSERT_EQ(t.remove(1), NP_OK);
    EXPECT_EQ(t.table.used, 0u);
}

// ---- through the CAM ----------------------------------------------------------------------------

// A rule in the CAM: eight bits of key and mask; the AD tells whose it is.
struct Rule {
    uint32_t pri;
    uint8_t key;
    uint8_t mask;
    bool matches(uint8_t probe) const
    {
        return ((probe ^ key) & mask) == 0;
    }
};
using Rules = std::map<uint32_t, Rule>;

class PriCamOnChip : public Module {
  protected:
    PriCamOnChip()
    {
        EXPECT_EQ(Np_GLB_ChipRegister(0, 1, 0, 0), NP_OK);
        EXPECT_EQ(Np_Tarn_LCAM_Init(0), NP_OK);
    }

    static uint32_t add(Table &table, uint32_t key, const Rule &rule)
    {
        uint8_t bytes[10] = {rule.key};
        uint8_t mask[10] = {rule.mask};
        uint8_t ad[8] = {static_cast<uint8_t>(key), 0x77};
        const NpPriCamEntryInfo entry = table.entry(key, rule.pri);
        const NpKeyMaskAdInfo info = {bytes, mask, ad};
        const uint32_t result = Np_Tarn_PriCam_KeyAdInfo_Set(0, &entry, &table.soft, &info);
        if (result == NP_OK) {
            table.rules[key] = rule.pri;
        }
        return result;
    }
    static uint32_t remove(Table &table, uint32_t key)
    {
        const NpPriCamEntryInfo entry = table.entry(key, 0);
        const uint32_t result = Np_Tarn_PriCam_Entry_Del(0, &entry, &table.soft);
        if (table.keys[key].ulCamEntry == NP_PRICAM_NONE) {
            table.rules.erase(key);
        }
        return result;
    }

    // The number of the rule that a packet finds.
    static std::optional<uint32_t> find(uint32_t chip, uint8_t probe)
    {
        const NpLcamConfig &config = g_stNpLcamConfig_TarnB[NP_LCAM_L3PA];
        const uint8_t bytes[10] = {probe};
        const model::LcamQuery query = {config.ulType, config.ulBlock, config.ulCid, bytes};
        model::LcamResult result = {};
        EXPECT_EQ(model::lookup_lcam(chip, query, &result), model::kOk);
        if (!result.hit) {
            return {};
        }
        EXPECT_EQ(result.ad[1], 0x77);
        return result.ad[0];
    }

    // The CAM holds at each offset what the soft tables say.
    static void expect_chip(const Table &table)
    {
        for (uint32_t at = 0; at <= table.max_entry(); at++) {
            uint8_t ad[8] = {};
            uint32_t enable = 2;
            ASSERT_EQ(Np_Tarn_LCAM_TcamEnableGet(0, NP_LCAM_L3PA, at, &enable), NP_OK);
            ASSERT_EQ(enable, table.tcam[at] == NP_PRICAM_NONE ? 0u : 1u) << "offset " << at;
            if (enable == 1) {
                ASSERT_EQ(Np_Tarn_LCAM_TcamRead(0, NP_LCAM_L3PA, at, nullptr, nullptr, ad), NP_OK);
                ASSERT_EQ(ad[0], table.tcam[at]) << "offset " << at;
            }
        }
    }
};

// Greatest priority among the rules that match, -1 if none does.
int best(const Rules &rules, uint8_t probe)
{
    int pri = -1;
    for (const auto &[key, rule] : rules) {
        if (rule.matches(probe)) {
            pri = std::max(pri, static_cast<int>(rule.pri));
        }
    }
    return pri;
}

// Chip 1 follows frame by frame: at no step does a search miss a rule that stays, prefer a worse
// one to it, or meet one that was never there.
TEST_F(PriCamOnChip, BetterPriorityWinsAtEveryStep)
{
    ASSERT_EQ(model::attach(1), model::kOk);
    ASSERT_EQ(Qd_LCAM_CamIdModeSet(1, 1), model::kOk);
    constexpr uint32_t kEntries = 12;
    std::mt19937 random(11);
    Table table(kEntries, {30, 30, 40, 0, 0});
    Rules rules;
    uint32_t shifted = 0;
    for (uint32_t step = 0; step < 250; step++) {
        const Rules before = rules;
        const uint32_t key = random() % kEntries;
        FrameTap tap;
        if (random() % 3 == 0) {
            ASSERT_EQ(remove(table, key), NP_OK);
            rules.erase(key);
        }
        else {
            Rule rule = {static_cast<uint32_t>(random() % 5), static_cast<uint8_t>(random() % 16),
                         static_cast<uint8_t>(random() & random() & 0xf)};
            if (rules.contains(key)) {
                rule.pri = rules[key].pri;
            }
            ASSERT_EQ(add(table, key, rule), NP_OK);
            rules[key] = rule;
        }
        ASSERT_NO_FATAL_FAILURE(table.check());
        ASSERT_NO_FATAL_FAILURE(expect_chip(table));

        Rules stable = before;
        stable.erase(key);
        std::vector<std::vector<uint8_t>> frames;
        for (std::vector<uint8_t> sent = tap.take(); !sent.empty(); sent = tap.take()) {
            frames.push_back(sent);
        }
        for (const std::vector<uint8_t> &sent : frames) {
            NpRbaReqCmd request = {};
            NpRbaRspCmd response = {};
            std::copy(sent.begin(), sent.end(), request.aucByte);
            ASSERT_EQ(Qd_RBA_CommandSend(1, &request, &response), model::kOk);
            for (uint8_t probe = 0; probe < 16; probe += 3) {
                const std::optional<uint32_t> found = find(1, probe);
                const int least = best(stable, probe);
                ASSERT_TRUE(found || least < 0) << "step " << step;
                if (!found) {
                    continue;
                }
                const bool old_rule = before.contains(*found) && before.at(*found).matches(probe);
                const bool new_rule = rules.contains(*found) && rules.at(*found).matches(probe);
                ASSERT_TRUE(old_rule || new_rule) << "step " << step;
                const Rule &rule = old_rule ? before.at(*found) : rules.at(*found);
                ASSERT_GE(static_cast<int>(rule.pri), least) << "step " << step;
            }
        }
        shifted += frames.size() > 4;
        for (uint8_t probe = 0; probe < 16; probe++) {
            const std::optional<uint32_t> found = find(0, probe);
            ASSERT_EQ(found ? static_cast<int>(rules.at(*found).pri) : -1, best(rules, probe));
        }
    }
    EXPECT_GT(shifted, 50u);
    model::detach(1);
}

// 9 entries, blocks of 1, 3 and 4 rules as far as they go; another rule of priority 2 takes a move
// of each of the two blocks at lower offsets.
TEST_F(PriCamOnChip, AnyFailingDriverCallLeavesChipAndSoftTablesInAgreement)
{
    const auto rule_of = [](uint32_t key) {
        return Rule{key == 0 ? 0u : key < 4 ? 1u : 2u, static_cast<uint8_t>(key), 0xff};
    };
    const uint32_t codes[] = {NP_ERR_TCAM_READ,  NP_ERR_LCAM_AD_READ, NP_ERR_LCAM_AD_WRITE,
                              NP_ERR_TCAM_WRITE, NP_ERR_TCAM_CLEAR,   NP_ERR_TCAM_ENABLE_GET};
    uint32_t failures = 0;
    for (const bool adding : {true, false}) {
        for (const char *driver :
             {"rba", "Qd_LCAM_CamIdModeGet", "Qd_LCAM_MirrorEnableGet", "Qd_LCAM_TcamEnableGet"}) {
            for (uint32_t n = 1;; n++) {
                SCOPED_TRACE((adding ? "add " : "remove ") + std::string(driver) + " " +
                             std::to_string(n));
                model::faults_clear();
                for (uint32_t at = 0; at < 9; at++) {
                    ASSERT_EQ(Np_Tarn_LCAM_TcamDelete(0, NP_LCAM_L3PA, at), NP_OK);
                }
                Table table(9, {34, 33, 33});
                for (const uint32_t key : {0u, 1u, 2u, 4u, 5u, 6u, 7u, 3u}) {
                    ASSERT_EQ(add(table, key, rule_of(key)), NP_OK);
                }
                set_fault(driver + std::string(" nth=") + std::to_string(n));
                const uint32_t result = adding ? add(table, 8, rule_of(8)) : remove(table, 4);
                model::faults_clear();
                if (result == NP_OK) {
                    ASSERT_NO_FATAL_FAILURE(table.check());
                    expect_chip(table);
                    break;
                }
                failures++;
                EXPECT_THAT(codes, testing::Contains(result));
                const uint32_t hole = !adding && !table.rules.contains(4);
                ASSERT_NO_FATAL_FAILURE(table.check(hole));
                if (adding || hole == 1) {
                    ASSERT_NO_FATAL_FAILURE(expect_chip(table));
                }
                // Every other rule is found, and the call can be repeated.
                for (const uint32_t key : {0u, 1u, 2u, 3u, 5u, 6u, 7u}) {
                    EXPECT_EQ(find(0, static_cast<uint8_t>(key)), key);
                }
                EXPECT_EQ(adding ? add(table, 8, rule_of(8)) : remove(table, 4), NP_OK);
                ASSERT_NO_FATAL_FAILURE(table.check(hole));
                ASSERT_NO_FATAL_FAILURE(expect_chip(table));
            }
        }
    }
    // Two moves and a write; a delete and a move. A move makes 9 commands, 3 mode and 3 mirror
    // reads and 1 look at the valid bit; a write 4, 1 and 2; a delete 2, 1 and 1.
    EXPECT_EQ(failures, (18u + 4 + 6 + 1 + 6 + 2 + 2) + (2u + 9 + 1 + 3 + 1 + 3 + 1));
}

}  // namespace
}  // namespace ldsdk::test

// The lookup engines: what an operation costs in time and in frames, how full hash tables get
// before a key finds no place, and how many moves a priority table asks for.
#include "bench/bench.h"

#include "chipmodel/model.h"
#include "ldsdk/init.h"
#include "ldsdk/l2.h"
#include "ldsdk/pa.h"
#include "ldsdk/status.h"
#include "platform/driver.h"
#include "sdk/lookup/eml.h"
#include "sdk/lookup/lcam.h"
#include "sdk/lookup/pricam.h"

#include <algorithm>
#include <array>
#include <cstring>
#include <random>
#include <set>
#include <vector>

namespace {

using ldsdk::bench::AddTarget;
using ldsdk::bench::chip_up;
using ldsdk::bench::frames_of;
using Kind = ldsdk::bench::Target::Kind;
namespace model = ldsdk::model;

using Item = std::array<uint8_t, 16>;
using Key = std::vector<uint8_t>;

constexpr uint32_t kTable = NP_EML_SMAC_BONDING;  // 32 buckets, items of 8 bytes, keys of 7
constexpr uint32_t kKeyBytes = 7;
constexpr uint32_t kKeys = 128;          // half of the table
constexpr uint32_t kCam = NP_LCAM_L2PA;  // 128 entries of 80 bits
constexpr uint32_t kFills = 100;

void lookup_up(benchmark::State &state)
{
    chip_up();
    if (Np_Tarn_LCAM_Init(0) != 0) {
        state.SkipWithError("the local CAM does not come up");
    }
}

// An item of a table from its key; the data is 0.
Item item_of(uint32_t table, const Key &key)
{
    const NpEmlConfig &config = g_stNpEmlConfig[0][table];
    Item item{};
    const size_t begin = config.ulAdLen - 1;
    for (size_t byte = 0; byte < key.size(); byte++) {
        item[begin + byte] = static_cast<uint8_t>(item[begin + byte] | key[byte] << 4);
        item[begin + byte + 1] = static_cast<uint8_t>(key[byte] >> 4);
    }
    item[begin + key.size()] |= 0xf0;
    return item;
}

std::vector<Key> random_keys(size_t count, size_t bytes, uint32_t seed)
{
    std::mt19937 random(seed);
    std::set<Key> seen;
    std::vector<Key> keys;
    while (keys.size() < count) {
        Key key(bytes);
        std::generate(key.begin(), key.end(), [&] { return static_cast<uint8_t>(random()); });
        if (seen.insert(key).second) {
            keys.push_back(key);
        }
    }
    return keys;
}

// MAC addresses that count up from a random one, in the byte order of items: the last byte of the
// address first. A seventh byte is 0.
std::vector<Key> counted_macs(size_t count, size_t bytes, uint32_t seed)
{
    std::mt19937_64 random(seed);
    const uint64_t first = (random() & 0xffffff000000) | (random() & 0x7fffff);
    std::vector<Key> keys;
    for (uint64_t number = first; number < first + count; number++) {
        Key key(bytes);
        for (size_t byte = 0; byte < 6; byte++) {
            key[bytes - 6 + byte] = static_cast<uint8_t>(number >> 8 * byte);
        }
        keys.push_back(key);
    }
    return keys;
}

std::vector<Item> bench_items()
{
    std::vector<Item> items;
    for (const Key &key : random_keys(kKeys, kKeyBytes, 1)) {
        items.push_back(item_of(kTable, key));
    }
    return items;
}

uint32_t add(uint32_t table, Item item, uint32_t &location)
{
    location = NP_EML_IN_TABLE;
    return Np_Tarn_EML_ItemAdd(0, table, &location, nullptr, item.data());
}

bool add_all(const std::vector<Item> &items)
{
    uint32_t location = 0;
    return std::all_of(items.begin(), items.end(),
                       [&](const Item &item) { return add(kTable, item, location) == 0; });
}

bool del_all(const std::vector<Item> &items, uint32_t table = kTable)
{
    return std::all_of(items.begin(), items.end(), [&](Item item) {
        return Np_Tarn_EML_ItemDel(0, table, NP_EML_DEL_ANY, item.data()) == 0;
    });
}

// The frames of an operation beside the number that it is meant to take.
void note_frames(benchmark::State &state, double frames, double documented)
{
    state.counters["frames"] = frames;
    state.counters["documented"] = documented;
}

// ---- exact match --------------------------------------------------------------------------------

// Absent keys into a table up to half full: a search, an item write, the refresh.
void eml_add(benchmark::State &state)
{
    lookup_up(state);
    const auto items = bench_items();
    uint32_t location = 0;
    size_t at = 0;
    for (auto _ : state) {
        if (at == items.size()) {
            state.PauseTiming();
            del_all(items);
            at = 0;
            state.ResumeTiming();
        }
        if (add(kTable, items[at++], location) != 0) {
            state.SkipWithError("an add fails");
        }
    }
    del_all(items);
    note_frames(state, frames_of([&] { add(kTable, items[0], location); }), 1 + 1 + 16);
    del_all(items);
}
BENCHMARK(eml_add);
const AddTarget add_target({Kind::kRateAtLeast, "eml_add", "", 200e3,
                            "hash table adds per second, placed by the host"});

void eml_hit(benchmark::State &state)
{
    lookup_up(state);
    auto items = bench_items();
    if (!add_all(items)) {
        state.SkipWithError("an add fails");
    }
    size_t at = 0;
    for (auto _ : state) {
        if (Np_Tarn_EML_ItemGet(0, kTable, nullptr, nullptr, items[at++ % kKeys].data()) != 0) {
            state.SkipWithError("a key is missing");
        }
    }
    note_frames(
        state,
        frames_of([&] { Np_Tarn_EML_ItemGet(0, kTable, nullptr, nullptr, items[0].data()); }), 1);
    del_all(items);
}
BENCHMARK(eml_hit);
const AddTarget hit_target({Kind::kRateAtLeast, "eml_hit", "", 2e6, "hash table hits per second"});

// The frame of a search, from the key on.
NpRbaReqCmd search_frame(const Item &item)
{
    NpRbaReqCmd request = {};
    request.aucByte[2] = kKeyBytes - 1;
    request.aucByte[3] = 6;     // the table at the engine
    request.aucByte[4] = 0x80;  // search
    request.aucByte[6] = 3;
    for (size_t byte = 0; byte < kKeyBytes; byte++) {
        request.aucByte[28 - kKeyBytes + byte] =
            static_cast<uint8_t>(item[byte] >> 4 | item[byte + 1] << 4);
    }
    return request;
}

void eml_hit_by_hand(benchmark::State &state)
{
    lookup_up(state);
    const auto items = bench_items();
    if (!add_all(items)) {
        state.SkipWithError("an add fails");
    }
    size_t at = 0;
    for (auto _ : state) {
        const NpRbaReqCmd request = search_frame(items[at++ % kKeys]);
        NpRbaRspCmd response = {};
        if (Qd_RBA_CommandSend(0, &request, &response) != 0 || response.aucByte[0] != 0) {
            state.SkipWithError("a key is missing");
        }
    }
    del_all(items);
}
BENCHMARK(eml_hit_by_hand);
const AddTarget lookup_target({Kind::kRatioAtMost, "eml_hit", "eml_hit_by_hand", 1.5,
                               "hash table lookup / its frame by hand"});

void eml_miss(benchmark::State &state)
{
    lookup_up(state);
    const auto items = bench_items();
    auto absent = items;
    for (Item &item : absent) {
        item[3] ^= 1;
    }
    if (!add_all(items)) {
        state.SkipWithError("an add fails");
    }
    size_t at = 0;
    const auto get = [&] {
        return Np_Tarn_EML_ItemGet(0, kTable, nullptr, nullptr, absent[at++ % kKeys].data());
    };
    for (auto _ : state) {
        if (get() != NP_ERR_NOT_EXIST) {
            state.SkipWithError("an absent key is found");
        }
    }
    note_frames(state, frames_of(get), 1);
    del_all(items);
}
BENCHMARK(eml_miss);

void eml_delete(benchmark::State &state)
{
    lookup_up(state);
    const auto items = bench_items();
    const auto del = [&](size_t number) {
        Item item = items[number];
        return Np_Tarn_EML_ItemDel(0, kTable, NP_EML_DEL_ANY, item.data());
    };
    size_t at = items.size();
    for (auto _ : state) {
        if (at == items.size()) {
            state.PauseTiming();
            add_all(items);
            at = 0;
            state.ResumeTiming();
        }
        if (del(at++) != 0) {
            state.SkipWithError("a delete fails");
        }
    }
    add_all(items);
    note_frames(state, frames_of([&] { del(0); }), 1 + 1 + 16);
    del_all(items);
}
BENCHMARK(eml_delete);

// ---- how full a table gets ----------------------------------------------------------------------

uint32_t table_of(int64_t buckets)
{
    return buckets == 16 ? NP_EML_OAM_PORT_VLAN : buckets == 32 ? kTable : NP_EML_IPV4FILTER;
}

struct Fill {
    double table = 0;  // load when the first key found no place in the hash table
    double flee = 0;   // load when the first key found no place at all
};

Fill fill_once(uint32_t table, const std::vector<Key> &keys)
{
    const double room = g_stNpEmlConfig[0][table].ulItemNum;
    std::vector<Item> items;
    Fill fill;
    for (const Key &key : keys) {
        items.push_back(item_of(table, key));
        uint32_t location = 0;
        const bool refused = add(table, items.back(), location) != 0;
        if (fill.table == 0 && (refused || location == NP_EML_IN_FLEE)) {
            fill.table = static_cast<double>(items.size() - 1) / room;
        }
        if (refused) {
            fill.flee = static_cast<double>(items.size() - 1) / room;
            break;
        }
    }
    del_all(items, table);
    return fill;
}

// Share of keys that find no place in the hash table when so many are offered.
double overflow(uint32_t table, const std::vector<Key> &keys)
{
    std::vector<Item> items;
    double over = 0;
    for (const Key &key : keys) {
        items.push_back(item_of(table, key));
        uint32_t location = 0;
        over += add(table, items.back(), location) != 0 || location == NP_EML_IN_FLEE ? 1 : 0;
    }
    del_all(items, table);
    return over / static_cast<double>(keys.size());
}

// The same placement with buckets drawn by lot: what two perfect hashes would reach.
double ideal_fill(uint32_t buckets, uint32_t seed)
{
    std::mt19937 random(seed);
    std::vector<NpEmlBucketInfo> shadow(buckets);
    const auto nothing = [](const NpEmlStore *, uint32_t, uint32_t, uint32_t, auto *) {
        return 0u;
    };
    const NpEmlStore store = {0, kTable, shadow.data(), nothing, nothing};
    Item item{};
    for (uint32_t placed = 0;; placed++) {
        NpEmlPlace place = {};
        place.ulHash1Bucket = static_cast<uint32_t>(random()) % buckets;
        place.ulHash2Bucket = static_cast<uint32_t>(random()) % buckets;
        if (Np_EmlPlaceFind(shadow.data(), &place) != 0) {
            return static_cast<double>(placed) / (buckets * 8);
        }
        if (place.ulMove != 0) {
            Np_EmlPlaceMove(&store, &place, item.data());
        }
        else {
            Np_EmlPlaceDirect(&store, &place, item.data());
        }
    }
}

void eml_fill(benchmark::State &state)
{
    lookup_up(state);
    const auto buckets = static_cast<uint32_t>(state.range(0));
    const uint32_t table = table_of(buckets);
    const NpEmlConfig &config = g_stNpEmlConfig[0][table];
    const size_t room = config.ulItemNum;
    auto &counters = state.counters;
    for (auto _ : state) {
        for (uint32_t seed = 1; seed <= kFills; seed++) {
            const auto random = random_keys(room + 40, config.ulKeyLen, seed);
            const auto macs = counted_macs(room + 40, config.ulKeyLen, seed);
            const Fill by_random = fill_once(table, random);
            const Fill by_mac = fill_once(table, macs);
            counters["random"] += by_random.table / kFills;
            counters["random+flee"] += by_random.flee / kFills;
            counters["mac"] += by_mac.table / kFills;
            counters["mac+flee"] += by_mac.flee / kFills;
            counters["ideal"] += ideal_fill(buckets, seed) / kFills;
            for (const size_t percent : {90, 95, 100}) {
                const auto offered = static_cast<ptrdiff_t>(room * percent / 100);
                const std::string name = "over" + std::to_string(percent);
                counters[name] +=
                    overflow(table, {random.begin(), random.begin() + offered}) / kFills;
                counters[name + "mac"] +=
                    overflow(table, {macs.begin(), macs.begin() + offered}) / kFills;
            }
        }
        counters["short"] = counters["ideal"] - counters["random"];
    }
}
BENCHMARK(eml_fill)->Arg(16)->Arg(32)->Arg(128)->Iterations(1)->Unit(benchmark::kNanosecond);
const AddTarget fill16_target({Kind::kCounterAtMost, "eml_fill/16", "short", 0.02,
                               "16 buckets: load short of ideal hashes"});
const AddTarget fill32_target({Kind::kCounterAtMost, "eml_fill/32", "short", 0.02,
                               "32 buckets: load short of ideal hashes"});
const AddTarget fill128_target({Kind::kCounterAtMost, "eml_fill/128", "short", 0.02,
                                "128 buckets: load short of ideal hashes"});

// ---- ternary match ------------------------------------------------------------------------------

void lcam_write(benchmark::State &state)
{
    lookup_up(state);
    std::array<uint8_t, 10> key = {1, 2, 3, 4, 5, 6, 7, 8, 9, 10};
    const std::array<uint8_t, 10> mask = {0xff, 0xff, 0xff, 0xff, 0xff};
    const std::array<uint8_t, 8> ad = {1, 2, 3};
    uint32_t offset = 0;
    const auto write = [&] {
        key[0]++;
        return Np_Tarn_LCAM_TcamWrite(0, kCam, offset++ % 128, key.data(), mask.data(), ad.data());
    };
    for (auto _ : state) {
        if (write() != 0) {
            state.SkipWithError("a write fails");
        }
    }
    note_frames(state, frames_of(write), 4);
}
BENCHMARK(lcam_write);

// The frame of a command on an entry of 80 bits, with a payload at the end of the first group.
NpRbaReqCmd cam_frame(uint32_t row, int op, int code, const uint8_t *payload, size_t bytes)
{
    NpRbaReqCmd request = {};
    request.aucByte[0] = static_cast<uint8_t>(row);
    request.aucByte[1] = static_cast<uint8_t>(row >> 8);
    request.aucByte[2] = 0x80;
    request.aucByte[3] = 0x21;  // the local CAM, identifier 1
    request.aucByte[4] = static_cast<uint8_t>(op << 4 | code);
    request.aucByte[5] = 8 + 2;  // block 0, TCAM 4 and 5
    request.aucByte[6] = 3;
    std::memcpy(request.aucByte + 28 - bytes, payload, bytes);
    return request;
}

void lcam_write_by_hand(benchmark::State &state)
{
    lookup_up(state);
    std::array<uint8_t, 10> key = {1, 2, 3, 4, 5, 6, 7, 8, 9, 10};
    const std::array<uint8_t, 10> mask = {0xff, 0xff, 0xff, 0xff, 0xff};
    const std::array<uint8_t, 8> ad = {1, 2, 3};
    uint32_t offset = 0;
    const auto send = [&](const NpRbaReqCmd &request) {
        NpRbaRspCmd response = {};
        if (Qd_RBA_CommandSend(0, &request, &response) != 0 || response.aucByte[0] != 0) {
            state.SkipWithError("a write fails");
        }
    };
    for (auto _ : state) {
        key[0]++;
        const uint32_t row = 0x78 + offset++ % 128;
        std::array<uint8_t, 10> data{};
        std::array<uint8_t, 10> care{};
        uint32_t data_carry = 0;
        uint32_t care_carry = 0;
        for (size_t byte = 0; byte < key.size(); byte++) {
            const uint32_t x = mask[byte] & key[byte];
            const uint32_t y = mask[byte] & ~key[byte];
            data[byte] = static_cast<uint8_t>(x << 4 | data_carry);
            care[byte] = static_cast<uint8_t>(y << 4 | care_carry);
            data_carry = x >> 4;
            care_carry = y >> 4;
        }
        send(cam_frame(row, 4, 0, ad.data(), ad.size()));
        send(cam_frame(row, 5, 0, nullptr, 0));
        send(cam_frame(row, 3, 1, data.data(), data.size()));
        send(cam_frame(row, 2, 1, care.data(), care.size()));
    }
}
BENCHMARK(lcam_write_by_hand);
const AddTarget write_target({Kind::kRatioAtMost, "lcam_write", "lcam_write_by_hand", 1.5,
                              "local CAM write / its frames by hand"});

// ---- priorities ---------------------------------------------------------------------------------

constexpr uint32_t kPriorities = 8;
constexpr uint32_t kRules = 1024;
constexpr uint32_t kFull = kRules * 95 / 100;

// A priority table of 1024 entries as its owner keeps it.
struct Rules {
    std::vector<NpPriCamKeyInfo> keys{kRules, {NP_PRICAM_NONE, 0}};
    std::vector<uint32_t> entries = std::vector<uint32_t>(kRules, NP_PRICAM_NONE);
    std::vector<NpPriBlockPoint> points{kPriorities};
    uint32_t used = 0;
    NpPriCamSoftInfo soft = {keys.data(), entries.data(), points.data(), &used};
    std::mt19937 random{1};

    Rules()
    {
        static constexpr NpPriBlock kRequest = {kPriorities, {10, 10, 10, 10, 10, 10, 10, 30}};
        Np_Tarn_PriCam_BlockAssign(0, kRules - 1, &kRequest, points.data());
    }
    uint32_t set(uint32_t key, uint32_t priority)
    {
        const std::array<uint8_t, 5> bits = {static_cast<uint8_t>(key),
                                             static_cast<uint8_t>(key >> 8)};
        const std::array<uint8_t, 5> mask = {0xff, 0xff};
        const std::array<uint8_t, 4> ad = {};
        const NpPriCamEntryInfo entry = {NP_LCAM_IFT_KEY, key, kPriorities - 1, kRules - 1,
                                         priority};
        const NpKeyMaskAdInfo rule = {bits.data(), mask.data(), ad.data()};
        return Np_Tarn_PriCam_KeyAdInfo_Set(0, &entry, &soft, &rule);
    }
    uint32_t del(uint32_t key)
    {
        const NpPriCamEntryInfo entry = {NP_LCAM_IFT_KEY, key, kPriorities - 1, kRules - 1, 0};
        return Np_Tarn_PriCam_Entry_Del(0, &entry, &soft);
    }
    uint32_t priority()
    {
        return static_cast<uint32_t>(random()) % kPriorities;
    }
};

// A rule of a random priority into a table that is 95 percent full; another one leaves in between.
void pri_insert(benchmark::State &state)
{
    lookup_up(state);
    Rules rules;
    for (uint32_t key = 0; key < kFull; key++) {
        if (rules.set(key, rules.priority()) != 0) {
            state.SkipWithError("an insert fails");
        }
    }
    const auto pick = [&] { return static_cast<uint32_t>(rules.random()) % kFull; };
    double moves = 0;
    double most = 0;
    constexpr uint32_t kCounted = 2000;
    for (uint32_t round = 0; round < kCounted; round++) {
        const uint32_t key = pick();
        rules.del(key);
        const uint32_t priority = rules.priority();
        // each rule that is written takes its valid bit down once, the new one too
        const double moved =
            frames_of([&] { rules.set(key, priority); }, model::RbaOp::kTcamValidClear) - 1;
        moves += moved / kCounted;
        most = std::max(most, moved);
    }
    state.counters["moves"] = moves;
    state.counters["most"] = most;
    state.counters["priorities"] = kPriorities;
    for (auto _ : state) {
        const uint32_t key = pick();
        if (rules.del(key) != 0 || rules.set(key, rules.priority()) != 0) {
            state.SkipWithError("an insert fails");
        }
    }
    for (uint32_t key = 0; key < kFull; key++) {
        rules.del(key);
    }
}
BENCHMARK(pri_insert);
const AddTarget moves_target({Kind::kCounterAtMost, "pri_insert", "most", kPriorities,
                              "most moves of an insert at 95 percent, 8 priorities"});

// ---- rules through the interface ----------------------------------------------------------------

// A priority table as its callers see it: a rule that differs from all others by its key number.
struct RuleApi {
    const char *name;
    uint32_t type;  // of its priority blocks
    uint32_t rows;
    uint32_t priorities;
    uint32_t (*set)(uint32_t key, uint32_t priority);
    uint32_t (*del)(uint32_t chip, uint32_t key);
};

uint32_t l2pa_set(uint32_t key, uint32_t priority)
{
    NpL2pa rule = {};
    rule.stKey.ulEthType = key;
    rule.stKeyMask.ulEthType = 0xffff;
    rule.ulPri = priority;
    return Np_L2paTbl_Set(0, key, &rule);
}

uint32_t service_set(uint32_t key, uint32_t priority)
{
    NpMultiService rule = {};
    rule.ulSrcIntfSelType = 1;
    rule.ulOuterVlanIDMask = 1;
    rule.ulOuterVlanID = key;
    rule.ulMutiServicePri = priority;
    return Np_MultiServiceTbl_Set(0, key, &rule);
}

constexpr RuleApi kRuleApis[] = {
    {"l2pa", 1, 127, 10, l2pa_set, Np_L2paTbl_Del},  // its last row is the default
    {"multi_service", 0, 1024, 8, service_set, Np_MultiServiceTbl_Del},
};

double g_rule_frames[std::size(kRuleApis)][100];  // of an insert with the delete before it

// A rule leaves, and one of a random priority takes its place, in a table that is so full.
void rule_insert(benchmark::State &state)
{
    lookup_up(state);
    const RuleApi &api = kRuleApis[state.range(0)];
    const uint32_t percent = static_cast<uint32_t>(state.range(1));
    NpPriBlock request = {api.priorities, {10, 10, 10, 10, 10, 10, 10, 30}};
    if (api.priorities == 10) {
        request = {10, {10, 10, 10, 10, 10, 10, 10, 10, 10, 10}};
    }
    std::mt19937 random(7);
    const uint32_t rules = api.rows * percent / 100;
    uint32_t failed = Np_INIT_PriBlockAssign(0, api.type, &request);
    for (uint32_t key = 0; key < rules; key++) {
        failed |= api.set(key, static_cast<uint32_t>(random()) % api.priorities);
    }
    const auto replace = [&] {
        const uint32_t key = static_cast<uint32_t>(random()) % rules;
        const uint32_t priority = static_cast<uint32_t>(random()) % api.priorities;
        failed |= api.del(0, key);
        failed |= api.set(key, priority);
    };
    constexpr int kCounted = 500;
    double frames = 0;
    double most = 0;
    for (int round = 0; round < kCounted; round++) {
        const uint32_t key = static_cast<uint32_t>(random()) % rules;
        const uint32_t priority = static_cast<uint32_t>(random()) % api.priorities;
        frames += frames_of([&] { failed |= api.del(0, key); }) / kCounted;
        // By turns all frames, and those that take a valid bit down: each rule that is written does
        // so once, the new one too.
        const bool all = round % 2 == 0;
        const double counted =
            frames_of([&] { failed |= api.set(key, priority); },
                      all ? model::RbaOp::kUnknown : model::RbaOp::kTcamValidClear);
        frames += all ? 2 * counted / kCounted : 0;
        most = std::max(most, all ? 0 : counted - 1);
    }
    g_rule_frames[state.range(0)][percent] = frames;
    for (auto _ : state) {
        replace();
    }
    state.counters["frames"] = frames;
    state.counters["most"] = most;
    state.counters["rate"] =
        benchmark::Counter(static_cast<double>(state.iterations()), benchmark::Counter::kIsRate);
    for (uint32_t key = 0; key < rules; key++) {
        failed |= api.del(0, key);
    }
    if (failed != 0) {
        state.SkipWithError("a rule fails");
    }
}

// As many frames of the four that write an entry, made and sent one after the other.
void rule_frames_by_hand(benchmark::State &state)
{
    lookup_up(state);
    const double frames = g_rule_frames[state.range(0)][state.range(1)];
    const std::array<uint8_t, 10> payload = {1, 2, 3, 4, 5, 6, 7, 8, 9, 10};
    double sent = 0;
    double wanted = 0;
    for (auto _ : state) {
        for (wanted += frames; sent < wanted; sent++) {
            constexpr struct {
                int op, code;
                size_t bytes;
            } kFrames[] = {{4, 0, 8}, {5, 0, 0}, {3, 1, 10}, {2, 1, 10}};
            const auto &frame = kFrames[static_cast<size_t>(sent) % std::size(kFrames)];
            const NpRbaReqCmd request =
                cam_frame(0x90, frame.op, frame.code, payload.data(), frame.bytes);
            NpRbaRspCmd response = {};
            if (Qd_RBA_CommandSend(0, &request, &response) != 0) {
                state.SkipWithError("a frame fails");
            }
        }
    }
    state.counters["frames"] = frames;
}

const bool g_rule_benches = [] {
    static std::vector<AddTarget> targets;
    for (size_t api = 0; api < std::size(kRuleApis); api++) {
        for (const int64_t percent : {50, 90, 99}) {
            const auto at = static_cast<int64_t>(api);
            benchmark::RegisterBenchmark("rule_insert", rule_insert)->Args({at, percent});
            benchmark::RegisterBenchmark("rule_frames", rule_frames_by_hand)->Args({at, percent});
            const std::string row = "/" + std::to_string(at) + "/" + std::to_string(percent);
            const std::string where = std::string(kRuleApis[api].name) + " rule replaced, " +
                                      std::to_string(percent) + " percent full";
            targets.emplace_back(ldsdk::bench::Target{Kind::kRatioAtMost, "rule_insert" + row,
                                                      "rule_frames" + row, 1.5,
                                                      where + " / as many frames by hand"});
            targets.emplace_back(ldsdk::bench::Target{
                Kind::kCounterAtMost, "rule_insert" + row, "most",
                static_cast<double>(kRuleApis[api].priorities), where + ", most moves"});
        }
    }
    return true;
}();

}  // namespace

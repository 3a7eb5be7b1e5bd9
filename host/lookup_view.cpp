#include "host/lookup_view.h"

#include "chipmodel/model.h"
#include "sdk/frame/registry.h"
#include "sdk/lookup/eml.h"
#include "sdk/lookup/flee.h"
#include "sdk/lookup/lcam.h"
#include "sdk/tables/tables.h"

#include <strings.h>
#include <algorithm>
#include <array>
#include <cstdarg>
#include <cstdio>
#include <stdexcept>

namespace ldsdk::host {

namespace {

constexpr std::array<const char *, NP_EML_TABLE_NUM> kEmlNames = {
    "GMT",
    nullptr,
    "MAC",
    "OAM_PORT_VLAN",
    "OAM_LOOK_UP",
    "IPV4FILTER",
    "SMAC_BONDING",
    "OAM_DM_OAMPKT",
    "OAM_LM_DATAPKT",
    "OAM_LM_OAMPKT",
    "CESOP_MAP",
    "CACHE_REFRESH",
    "CACHE_REFRESH_1",
    nullptr,
    nullptr,
    nullptr,
    "OAM_SL",
    "MAC_FILTER",
    "LAN_MAC",
};

constexpr std::array<const char *, NP_LCAM_ADDR_NUM> kLcamNames = {
    "IFT_KEY", "L2PA",    "L3PA", "IPV6FILTER", "FLEE_BUCKET", "TPID",
    nullptr,   "LM_FLEE", "GMT",  "ACL_RULE1",  "ACL_RULE2",
};

constexpr uint32_t kDrawnBuckets = 64;  // most buckets that are drawn item by item
constexpr uint32_t kBucketsPerLine = 6;
constexpr uint32_t kSignsPerLine = 64;

[[gnu::format(printf, 2, 3)]] void add(std::string &text, const char *format, ...)
{
    std::array<char, 256> line;
    va_list arguments;
    va_start(arguments, format);
    // NOLINTNEXTLINE(clang-analyzer-valist.Uninitialized): the line above starts it
    std::vsnprintf(line.data(), line.size(), format, arguments);
    va_end(arguments);
    text += line.data();
}

std::string hex(std::span<const uint8_t> bytes)
{
    std::string text;
    for (const uint8_t byte : bytes) {
        add(text, text.empty() ? "%02x" : " %02x", byte);
    }
    return text;
}

// "MAC (table 2)"
std::string title(LookupKind kind, uint32_t table)
{
    const char *name = lookup_table_names(kind)[table];
    const std::string number = "table " + std::to_string(table);
    return name == nullptr ? number : std::string(name) + " (" + number + ")";
}

void need(uint32_t code, const std::string &what)
{
    const char *reason = ": the chip cannot tell";
    switch (code) {
        case model::kOk:
            return;
        case model::kErrNoChip:
            reason = ": the chip is not attached";
            break;
        case model::kErrEmpty:
            reason = ": the chip was not told of the table";
            break;
        case model::kErrNotModelled:
            reason = ": the local CAM was not set up";
            break;
        default:
            break;
    }
    throw std::runtime_error(what + reason);
}

const NpEmlConfig &eml_config(uint32_t chip, uint32_t table)
{
    if (table >= NP_EML_TABLE_NUM) {
        throw std::invalid_argument("hash tables are numbered 0 to " +
                                    std::to_string(NP_EML_TABLE_NUM - 1));
    }
    if (chip >= NP_CHIP_NUM || g_stNpChipAddr[chip].ulRegistered == 0) {
        throw std::runtime_error("chip " + std::to_string(chip) + " is not registered");
    }
    const NpEmlConfig &config = g_stNpEmlConfig[chip][table];
    if (config.ulTID == NP_EML_TID_NONE) {
        throw std::invalid_argument(title(LookupKind::kEml, table) +
                                    " has no storage on this chip");
    }
    return config;
}

const NpLcamConfig &lcam_config(uint32_t chip, uint32_t table)
{
    if (chip >= NP_CHIP_NUM || g_stNpChipAddr[chip].ulRegistered == 0) {
        throw std::runtime_error("chip " + std::to_string(chip) + " is not registered");
    }
    if (table >= g_aulNpLcamTableNum[chip]) {
        throw std::invalid_argument("local CAM tables are numbered 0 to " +
                                    std::to_string(g_aulNpLcamTableNum[chip] - 1));
    }
    const NpLcamConfig &config = g_stNpLcamConfig[chip][table];
    if (config.ulEntryNum == 0) {
        throw std::invalid_argument(title(LookupKind::kLcam, table) +
                                    " has no entries on this chip");
    }
    return config;
}

model::TcamPlace place_of(const NpLcamConfig &config, uint32_t offset)
{
    return {config.ulType, config.ulBlock,
            config.ulTcam + (offset / config.ulDepthNum << config.ulType),
            config.ulDepth + offset % config.ulDepthNum};
}

// Offset of a place, none when the table doesn't reach it.
std::optional<uint32_t> offset_of(const NpLcamConfig &config, const model::TcamPlace &place)
{
    const uint32_t row = place.row - config.ulDepth;
    const uint32_t group = (place.tcam - config.ulTcam) >> config.ulType;
    if (place.row < config.ulDepth || place.tcam < config.ulTcam || row >= config.ulDepthNum) {
        return std::nullopt;
    }
    const uint32_t offset = group * config.ulDepthNum + row;
    return offset < config.ulEntryNum ? std::optional(offset) : std::nullopt;
}

void add_place(std::string &text, const NpLcamConfig &config, const model::TcamPlace &place)
{
    const auto offset = offset_of(config, place);
    add(text, "  place   %s, block %u, TCAM %u, row %u\n",
        offset ? ("entry " + std::to_string(*offset)).c_str() : "outside of the table", place.block,
        place.tcam, place.row);
}

// Where a table's overflow goes, none for a table without.
std::optional<model::FleeStore> flee_store(uint32_t chip, uint32_t table)
{
    const NpEmlConfig &config = eml_config(chip, table);
    uint32_t owner = 0;
    if (config.ulFleeEnable != 1 || config.ulMoveEnable != 1 ||
        Np_FleeExternal(table, &owner) != 0 || g_stNpLcamConfig[chip] == nullptr) {
        return std::nullopt;
    }
    const NpLcamConfig &cam =
        g_stNpLcamConfig[chip]
                        [table == NP_EML_OAM_LM_DATAPKT ? NP_LCAM_LM_FLEE : NP_LCAM_FLEE_BUCKET];
    return model::FleeStore{cam.ulType, cam.ulBlock, cam.ulCid, owner & 0xf};
}

// ---- hash tables --------------------------------------------------------------------------------

std::string lookup_eml_text(uint32_t chip, uint32_t table, std::span<const uint8_t> key)
{
    const NpEmlConfig &config = eml_config(chip, table);
    const auto flee = flee_store(chip, table);
    const auto key_bytes = static_cast<uint32_t>(key.size());
    model::EmlResult result = {};
    std::array<uint32_t, 2> bucket = {};
    need(model::lookup_eml(
             chip, {config.ulSmemID, config.ulTID, key.data(), key_bytes, flee ? &*flee : nullptr},
             &result),
         title(LookupKind::kEml, table));
    need(model::eml_buckets(chip, config.ulSmemID, config.ulTID, key.data(), key_bytes,
                            bucket.data()),
         title(LookupKind::kEml, table));

    std::string text = std::string(result.hit ? "hit" : "miss") + " in " +
                       title(LookupKind::kEml, table) +
                       (result.in_flee ? ", by way of the flee bucket\n" : "\n");
    add(text, "  key     %s\n", hex(key).c_str());
    add(text, "  buckets %u (items %u to %u) and %u (items %u to %u)%s\n", bucket[0],
        bucket[0] * 8 + 4, bucket[0] * 8 + 7, bucket[1], bucket[1] * 8, bucket[1] * 8 + 3,
        flee ? ", then the flee bucket" : "");
    if (!result.hit) {
        return text;
    }
    if (result.in_flee) {
        add_place(text, lcam_config(chip, NP_LCAM_FLEE_BUCKET), result.place);
    }
    else {
        add(text, "  place   item %u, bucket %u\n", result.item, result.item / 8);
        add(text, "  status  %u\n", result.status);
    }
    add(text, "  data    %s\n", hex({result.ad, result.ad_bytes}).c_str());
    return text;
}

// What is in use in a hash table, item by item: the status nibble, or kStray when the item's key
// belongs elsewhere.
constexpr uint8_t kStray = 16;

std::vector<uint8_t> eml_items(uint32_t chip, uint32_t table)
{
    const NpEmlConfig &config = eml_config(chip, table);
    const uint32_t size = Np_EmlItemSize(config.ulTblWidth);
    std::vector<uint8_t> items(config.ulItemNum);
    for (uint32_t number = 0; number < config.ulItemNum; number++) {
        std::array<uint8_t, model::kHashItemBytes> item = {};
        need(model::eml_item_get(chip, config.ulSmemID, config.ulTID, number, item.data()),
             title(LookupKind::kEml, table));
        items[number] = item[size - 1] >> 4;
        if (items[number] == 0) {
            continue;
        }
        std::array<uint8_t, model::kHashItemBytes> key = {};
        for (uint32_t byte = 0; byte < config.ulKeyLen; byte++) {
            const uint32_t at = config.ulAdLen - 1 + byte;
            key[byte] = static_cast<uint8_t>(item[at] >> 4 | item[at + 1] << 4);
        }
        std::array<uint32_t, 2> bucket = {};
        need(model::eml_buckets(chip, config.ulSmemID, config.ulTID, key.data(), config.ulKeyLen,
                                bucket.data()),
             title(LookupKind::kEml, table));
        if (bucket[number % 8 < 4 ? 1 : 0] != number / 8) {
            items[number] = kStray;
        }
    }
    return items;
}

char item_sign(uint8_t status)
{
    return status == kStray ? '!' : ".123456789abcdef"[status];
}

void draw_buckets(std::string &text, const std::vector<uint8_t> &items)
{
    for (uint32_t bucket = 0; bucket < items.size() / 8; bucket++) {
        add(text, "%s%3u [", bucket % kBucketsPerLine == 0 ? "" : "  ", bucket);
        for (uint32_t item = 0; item < 8; item++) {
            add(text, "%s%c", item == 4 ? "|" : "", item_sign(items[bucket * 8 + item]));
        }
        const bool last = (bucket + 1) % kBucketsPerLine == 0 || (bucket + 1) * 8 == items.size();
        text += last ? "]\n" : "]";
    }
    text +=
        "one bucket: number [items 0 to 3, of the second hash|items 4 to 7, of the first]\n"
        "one item:   . free  f static  1 to e dynamic  ! its key belongs elsewhere\n";
}

void draw_summary(std::string &text, const std::vector<uint8_t> &items)
{
    for (uint32_t bucket = 0; bucket < items.size() / 8; bucket++) {
        const auto begin = items.begin() + static_cast<ptrdiff_t>(bucket) * 8;
        const auto used = 8 - std::count(begin, begin + 8, 0);
        const bool stray = std::find(begin, begin + 8, kStray) != begin + 8;
        if (bucket % kSignsPerLine == 0) {
            add(text, "%s%5u ", bucket == 0 ? "" : "\n", bucket);
        }
        text += stray ? '!' : ".12345678"[used];
    }
    text += "\none bucket: . free  1 to 8 items in use  ! the key of one belongs elsewhere\n";
}

// Buckets whose shadow says something else than the chip; none without a shadow.
std::optional<uint32_t> shadow_differences(uint32_t chip, uint32_t table,
                                           const std::vector<uint8_t> &items)
{
    const NpEmlBucketInfo *shadow = g_pastEmlBucketInfo[Np_EmlSlotOf(chip, table)];
    if (eml_config(chip, table).ulMoveEnable != 1 || shadow == nullptr) {
        return std::nullopt;
    }
    uint32_t differences = 0;
    for (uint32_t bucket = 0; bucket < items.size() / 8; bucket++) {
        bool same = true;
        for (uint32_t item = 0; item < 8; item++) {
            const bool known = (shadow[bucket].aulItem[(item + 4) % 8] & 1) != 0;
            same = same && known == (items[bucket * 8 + item] != 0);
        }
        differences += same ? 0 : 1;
    }
    return differences;
}

// ---- local CAM ----------------------------------------------------------------------------------

// The family that keeps a table's rules by priority, null for any other table.
const NpPriTable *rules_of(uint32_t chip, uint32_t table)
{
    for (uint32_t i = 0; i < g_ulNpPriTableNum; i++) {
        const NpPriTable *owner = g_astNpPriTable[i].pstTable;
        if (owner->ucLcamTable == table && chip < NP_CHIP_NUM && Np_PriTable_IsReady(owner, chip)) {
            return owner;
        }
    }
    return nullptr;
}

// Whose rule an entry is, by the host's own tables.
void add_rule(std::string &text, uint32_t chip, uint32_t table, uint32_t offset)
{
    const NpPriTable *owner = rules_of(chip, table);
    if (owner == nullptr) {
        return;
    }
    const uint32_t number = owner->ppulEntryKey[chip][offset];
    if (number == NP_PRICAM_NONE) {
        add(text, "  rule    unknown to the host\n");
        return;
    }
    add(text, "  rule    %u, priority %u\n", number, owner->ppstKeyInfo[chip][number].ulPri);
}

std::string lookup_lcam_text(uint32_t chip, uint32_t table, std::span<const uint8_t> key)
{
    const NpLcamConfig &config = lcam_config(chip, table);
    model::LcamResult result = {};
    need(model::lookup_lcam(chip, {config.ulType, config.ulBlock, config.ulCid, key.data()},
                            &result),
         title(LookupKind::kLcam, table));
    std::string text =
        std::string(result.hit ? "hit" : "miss") + " in " + title(LookupKind::kLcam, table) + "\n";
    add(text, "  key     %s\n", hex(key).substr(0, 88).c_str());
    if (key.size() > 30) {
        add(text, "          %s\n", hex(key.subspan(30)).c_str());
    }
    if (result.hit) {
        add_place(text, config, result.place);
        if (const auto offset = offset_of(config, result.place)) {
            add_rule(text, chip, table, *offset);
        }
        add(text, "  data    %s\n", hex({result.ad, result.ad_bytes}).c_str());
    }
    return text;
}

// Which priority's used part an offset lies in; none outside of all.
std::optional<uint32_t> owner_of(std::span<const NpPriBlockPoint> blocks, uint32_t offset)
{
    for (uint32_t priority = 0; priority < blocks.size(); priority++) {
        const uint32_t first = blocks[priority].ulTopPoint + 1;  // 0 when it is below offset 0
        if (offset >= first && offset <= blocks[priority].ulBotPoint) {
            return priority;
        }
    }
    return std::nullopt;
}

char entry_sign(const model::TcamEntry &entry, uint32_t bytes, std::optional<uint32_t> priority,
                bool has_blocks)
{
    const auto set = [](uint8_t byte) { return byte != 0; };
    const bool content = std::any_of(entry.data, entry.data + bytes, set) ||
                         std::any_of(entry.mask, entry.mask + bytes, set);
    if (has_blocks && (priority ? !content : entry.valid)) {
        return '!';
    }
    if (!entry.valid) {
        return content ? '-' : '.';
    }
    if (!has_blocks) {
        return '#';
    }
    return *priority < 36 ? "0123456789abcdefghijklmnopqrstuvwxyz"[*priority] : '+';
}

void draw_priorities(std::string &text, std::span<const NpPriBlockPoint> blocks)
{
    text += "priority  percent  entries        in use  (of two that match, the lower entry wins)\n";
    for (uint32_t priority = 0; priority < blocks.size(); priority++) {
        const NpPriBlockPoint &block = blocks[priority];
        const uint32_t used = block.ulBotPoint - block.ulTopPoint;
        std::string range = "none";
        if (used != 0) {
            range =
                std::to_string(block.ulTopPoint + 1) + " to " + std::to_string(block.ulBotPoint);
        }
        add(text, "%8u  %7u  %-13s  %6u\n", priority, block.ulPercent, range.c_str(), used);
    }
}

}  // namespace

std::span<const char *const> lookup_table_names(LookupKind kind)
{
    return kind == LookupKind::kEml ? std::span<const char *const>(kEmlNames)
                                    : std::span<const char *const>(kLcamNames);
}

std::optional<uint32_t> lookup_table_number(LookupKind kind, std::string_view name)
{
    const auto names = lookup_table_names(kind);
    const std::string wanted(name);
    for (uint32_t table = 0; table < names.size(); table++) {
        if (names[table] != nullptr && strcasecmp(names[table], wanted.c_str()) == 0) {
            return table;
        }
    }
    return std::nullopt;
}

std::vector<uint8_t> parse_lookup_key(uint32_t chip, LookupKind kind, uint32_t table,
                                      std::string_view text)
{
    const size_t bytes = kind == LookupKind::kEml
                             ? eml_config(chip, table).ulKeyLen
                             : Np_LcamKeyBytes(lcam_config(chip, table).ulType);
    std::string_view rest = text;
    if (rest.starts_with("0x") || rest.starts_with("0X")) {
        rest.remove_prefix(2);
    }
    std::string digits;
    for (size_t at = 0; at < rest.size(); at++) {
        const char sign = rest[at];
        const bool between = digits.size() % 2 == 0 && !digits.empty() && rest[at - 1] != ':';
        if (sign == ':' && between && at + 1 < rest.size()) {
            continue;
        }
        if (!std::isxdigit(static_cast<unsigned char>(sign))) {
            throw std::invalid_argument("\"" + std::string(text) +
                                        "\": expected a key in hexadecimal digits");
        }
        digits += sign;
    }
    if (digits.size() != 2 * bytes) {
        throw std::invalid_argument("\"" + std::string(text) + "\": expected the " +
                                    std::to_string(bytes) + " bytes of a key of " +
                                    title(kind, table) + ", " + std::to_string(2 * bytes) +
                                    " hexadecimal digits");
    }
    std::vector<uint8_t> key;
    for (size_t at = 0; at < digits.size(); at += 2) {
        key.push_back(static_cast<uint8_t>(std::stoul(digits.substr(at, 2), nullptr, 16)));
    }
    return key;
}

std::string lookup_text(uint32_t chip, LookupKind kind, uint32_t table,
                        std::span<const uint8_t> key)
{
    return kind == LookupKind::kEml ? lookup_eml_text(chip, table, key)
                                    : lookup_lcam_text(chip, table, key);
}

std::string show_eml_text(uint32_t chip, uint32_t table)
{
    const NpEmlConfig &config = eml_config(chip, table);
    const auto items = eml_items(chip, table);
    const auto used = items.size() - static_cast<size_t>(std::count(items.begin(), items.end(), 0));
    std::string text = title(LookupKind::kEml, table);
    add(text, ": %u buckets of 8 items of %u bytes (key %u, data %u), placed by %s\n",
        config.ulItemNum / 8, Np_EmlItemSize(config.ulTblWidth), config.ulKeyLen, config.ulAdLen,
        config.ulMoveEnable == 1 ? "the host" : "the engine");
    add(text, "%zu of %u items in use, %.1f percent\n", used, config.ulItemNum,
        100.0 * static_cast<double>(used) / config.ulItemNum);
    if (config.ulItemNum / 8 <= kDrawnBuckets) {
        draw_buckets(text, items);
    }
    else {
        draw_summary(text, items);
    }
    for (const uint32_t half : {1u, 0u}) {
        std::array<uint32_t, 5> halves = {};
        for (size_t first = half * 4; first < items.size(); first += 8) {
            const auto begin = items.begin() + static_cast<ptrdiff_t>(first);
            halves[static_cast<size_t>(4 - std::count(begin, begin + 4, 0))]++;
        }
        add(text, "halves of the %-6s hash with 0 to 4 items: %u %u %u %u %u\n",
            half == 1 ? "first" : "second", halves[0], halves[1], halves[2], halves[3], halves[4]);
    }
    if (flee_store(chip, table)) {
        uint32_t fled = 0;
        for (uint32_t number = 0; number < NP_FLEE_ENTRY_NUM; number++) {
            fled += Np_FleeInUse(chip, table, number) ? 1 : 0;
        }
        add(text, "flee bucket entries: %u\n", fled);
    }
    if (const auto differences = shadow_differences(chip, table, items)) {
        add(text,
            *differences == 0 ? "the host's shadow agrees\n"
                              : "the host's shadow differs in %u buckets\n",
            *differences);
    }
    return text;
}

std::span<const NpPriBlockPoint> priority_blocks(uint32_t chip, uint32_t table)
{
    const NpPriTable *owner = rules_of(chip, table);
    if (owner == nullptr) {
        return {};
    }
    return {owner->ppstPriPoint[chip], owner->pulPriMax[chip] + 1};
}

std::string show_lcam_text(uint32_t chip, uint32_t table, std::span<const NpPriBlockPoint> blocks)
{
    const NpLcamConfig &config = lcam_config(chip, table);
    std::string map;
    uint32_t used = 0;
    for (uint32_t offset = 0; offset < config.ulEntryNum; offset++) {
        model::TcamEntry entry = {};
        need(model::tcam_entry_get(chip, place_of(config, offset), &entry),
             title(LookupKind::kLcam, table));
        used += entry.valid ? 1 : 0;
        if (offset % kSignsPerLine == 0) {
            add(map, "%s%5u ", offset == 0 ? "" : "\n", offset);
        }
        map += entry_sign(entry, Np_LcamKeyBytes(config.ulType), owner_of(blocks, offset),
                          !blocks.empty());
    }
    std::string text = title(LookupKind::kLcam, table);
    add(text, ": %u entries of %u bits, block %u, TCAM %u, rows %u to %u, identifier %u\n",
        config.ulEntryNum, 40u << config.ulType, config.ulBlock, config.ulTcam, config.ulDepth,
        config.ulDepth + config.ulDepthNum - 1, config.ulCid);
    add(text, "%u entries take part in searches, %.1f percent\n", used,
        100.0 * used / config.ulEntryNum);
    text += map + "\n";
    if (blocks.empty()) {
        text += "one entry: . free  # in use  - in use, but switched off\n";
        return text;
    }
    text +=
        "one entry: . free  0 to 9, a to z, + in use, by priority  - switched off or left over\n"
        "           ! the chip and the host's tables differ\n";
    draw_priorities(text, blocks);
    return text;
}

}  // namespace ldsdk::host

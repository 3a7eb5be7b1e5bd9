#include "host/ha_view.h"

#include "platform/driver.h"

#include <algorithm>
#include <array>
#include <cctype>
#include <cstdarg>
#include <cstdio>
#include <optional>
#include <stdexcept>
#include <tuple>

namespace ldsdk::host {

namespace {

[[gnu::format(printf, 1, 2)]] std::string line(const char *format, ...)
{
    std::array<char, 256> text;
    va_list arguments;
    va_start(arguments, format);
    // NOLINTNEXTLINE(clang-analyzer-valist.Uninitialized): the line above starts it
    std::vsnprintf(text.data(), text.size(), format, arguments);
    va_end(arguments);
    return text.data();
}

void need_chip(uint32_t chip)
{
    if (uint32_t tpid = 0; model::ha_tpid_get(chip, 0, &tpid) != model::kOk) {
        throw std::runtime_error("the chip is not attached");
    }
}

// What the commands call the filter that a rule number belongs to.
std::string filter_of(uint32_t number, const QdHaMatchRule &rule)
{
    struct Row {
        uint32_t first;
        uint32_t count;
        const char *name;
    };
    constexpr Row kRows[] = {
        {0, 8, "smac_filter"},  {8, 8, "dmac_filter"},      {16, 8, "smac_filter"},
        {24, 8, "dmac_filter"}, {32, 2, "error_sample"},    {34, 1, "acm_clock"},
        {35, 2, "illegalsmac"}, {38, 1, "specialethpkt"},   {43, 1, "l2packet"},
        {44, 4, "dmac_match"},  {49, 1, "nonbcgemportpkt"}, {50, 1, "ipv4mcpkt"},
        {51, 1, "ipv6mcpkt"},   {52, 1, "ipv4udppkt"},      {53, 1, "l2packet"},
    };
    const auto *row = std::find_if(std::begin(kRows), std::end(kRows), [&](const Row &each) {
        return number - each.first < each.count;
    });
    if (row == std::end(kRows)) {
        return "-";
    }
    std::string name = row->name;
    if (number / 4 == 11 && rule.astLink[0].ucMatchField0 == 5) {
        name = "vlan_match";  // shares the numbers
    }
    if (number == 49 && rule.ucPortType == 2) {
        name = "nonbcllidpkt";
    }
    const bool several = row->count > 1 && name != "illegalsmac";
    return several ? name + " " + std::to_string(number - row->first) : name;
}

std::string ports_of(const QdHaMatchRule &rule)
{
    if (rule.ucPortMode == 0) {
        return "any";
    }
    constexpr std::array<const char *, 16> kTypes = {
        nullptr, "gpon", "epon", nullptr,    nullptr, "dsl",     "ge",   "fe",
        "gint",  "xaui", "prbs", "loopback", "cpu",   "bonding", "xdsl", nullptr,
    };
    const char *name = rule.ucPortType < kTypes.size() ? kTypes[rule.ucPortType] : nullptr;
    std::string text = name != nullptr ? name : "type " + std::to_string(rule.ucPortType);
    const uint32_t low[] = {rule.ulPortMin, rule.ulPortMinSub, rule.ulPortMinSubPri};
    const uint32_t high[] = {rule.ulPortMax, rule.ulPortMaxSub, rule.ulPortMaxSubPri};
    for (size_t at = 0, shown = 3; at < shown; at++) {
        while (shown > 0 && low[shown - 1] == 0 && high[shown - 1] == 0) {
            shown--;
        }
        if (at < shown) {
            text += ":" + std::to_string(low[at]) + "-" + std::to_string(high[at]);
        }
    }
    return text;
}

const char *field_name(uint8_t field)
{
    switch (field) {
        case 1:
            return "dmac 0-3";
        case 2:
            return "dmac 4-5";
        case 3:
            return "smac 0-3";
        case 4:
            return "smac 4-5";
        case 5:
            return "vlan";
        case 11:
            return "tags";
        case 12:
            return "ethtype";
        case 24:
            return "ipv6dst 0-3";
        case 27:
            return "ipv4dst";
        case 36:
            return "udpdport";
        case 37:
            return "udpsport";
        case 38:
            return "channel";
        default:
            return nullptr;
    }
}

std::string comparison(uint8_t field, uint8_t mode, uint32_t value, uint32_t mask)
{
    const char *name = field_name(field);
    const std::string what = name != nullptr ? name : "field " + std::to_string(field);
    const auto number = [&](uint32_t word) {
        if (field == 27) {
            return line("%u.%u.%u.%u", word >> 24, word >> 16 & 255, word >> 8 & 255, word & 255);
        }
        return line(field == 5 || field == 11 || field >= 36 ? "%u" : "0x%x", word);
    };
    std::string text = what + (mode == 1 ? " is not " : " ") + number(value);
    if (mask != 0) {
        text += "/" + (field == 27 ? number(~mask) : line("0x%x", ~mask));
    }
    return text;
}

// A MAC address that is compared as a whole.
std::string mac_comparison(const QdHaRuleLink &link)
{
    const char *name = link.ucMatchField1 == 1 ? "dmac " : "smac ";
    const auto mac = [](uint32_t high, uint32_t low) {
        return line("%02x-%02x-%02x-%02x-%02x-%02x", high >> 24, high >> 16 & 255, high >> 8 & 255,
                    high & 255, low >> 8 & 255, low & 255);
    };
    std::string text = name + mac(link.ulKeyValue1, link.ulKeyValue0);
    if ((link.ulKeyMask0 | link.ulKeyMask1) != 0) {
        text += "/" + mac(~link.ulKeyMask1, ~link.ulKeyMask0);
    }
    return text;
}

std::string link_text(const QdHaRuleLink &link)
{
    const bool mac = (link.ucMatchField0 == 2 && link.ucMatchField1 == 1) ||
                     (link.ucMatchField0 == 4 && link.ucMatchField1 == 3);
    if (mac && link.ucKeyMode0 == 0 && link.ucKeyMode1 == 0) {
        return mac_comparison(link);
    }
    std::string text =
        comparison(link.ucMatchField0, link.ucKeyMode0, link.ulKeyValue0, link.ulKeyMask0);
    if (link.ucMatchField1 != 0) {
        text += ", " +
                comparison(link.ucMatchField1, link.ucKeyMode1, link.ulKeyValue1, link.ulKeyMask1);
    }
    return text;
}

constexpr int kIndent = 57;  // of what a rule compares
constexpr const char *kHeading =
    "rule filter          place info pri on ports             compares\n";

std::string rule_text(uint32_t number, const QdHaMatchRule &rule)
{
    const std::string place =
        std::to_string(rule.ucSubTableID) + "/" + std::to_string(rule.astLink[0].ucInnerID);
    std::string text = line("%4u %-15s %-5s %4u %3u %2u %-17s", number,
                            filter_of(number, rule).c_str(), place.c_str(), rule.ucInfoToNp,
                            rule.ucPqmpri, rule.ucFilterEnable, ports_of(rule).c_str());
    for (uint32_t at = 0; at < rule.ucLinkNum; at++) {
        text += (at == 0 ? " " : std::string(kIndent, ' ')) + link_text(rule.astLink[at]) + "\n";
    }
    return text;
}

std::optional<QdHaMatchRule> rule_at(uint32_t chip, uint32_t number)
{
    QdHaMatchRule rule = {};
    return model::ha_rule_get(chip, number, &rule) == model::kOk ? std::optional(rule)
                                                                 : std::nullopt;
}

}  // namespace

std::vector<uint8_t> parse_frame(std::string_view text)
{
    std::string digits;
    for (size_t at = text.starts_with("0x") || text.starts_with("0X") ? 2 : 0; at < text.size();
         at++) {
        const bool hex = std::isxdigit(static_cast<unsigned char>(text[at])) != 0;
        const bool between = text[at] == ':' && digits.size() % 2 == 0 && !digits.empty();
        if (!hex && !between) {
            digits.clear();
            break;
        }
        digits += hex ? std::string(1, text[at]) : "";
    }
    if (digits.empty() || digits.size() % 2 != 0) {
        throw std::invalid_argument("\"" + std::string(text) +
                                    "\": expected the bytes of a frame in hexadecimal digits, from "
                                    "the destination MAC address on");
    }
    std::vector<uint8_t> frame;
    for (size_t at = 0; at < digits.size(); at += 2) {
        frame.push_back(static_cast<uint8_t>(std::stoul(digits.substr(at, 2), nullptr, 16)));
    }
    return frame;
}

std::string lookup_ha_text(uint32_t chip, std::span<const uint8_t> frame, const model::Port &port,
                           uint32_t channel)
{
    need_chip(chip);
    model::HaResult result = {};
    const model::HaQuery query = {frame.data(), static_cast<uint32_t>(frame.size()), port, channel};
    if (model::lookup_ha(chip, query, &result) != model::kOk) {
        throw std::invalid_argument("the chip has no such port");
    }
    if (!result.hit) {
        return "miss: no rule matches\n";
    }
    std::string text = line("hit: ulHaInfo %u, queue priority %u, by %s %u\n", result.info,
                            result.queue_pri, result.fixed ? "fixed rule" : "rule", result.number);
    if (const auto rule = rule_at(chip, result.number); rule && !result.fixed) {
        text += kHeading + rule_text(result.number, *rule);
    }
    return text;
}

std::string show_ha_text(uint32_t chip)
{
    need_chip(chip);
    std::vector<std::pair<uint32_t, QdHaMatchRule>> rules;
    for (uint32_t number = 0; number < model::kHaRuleNum; number++) {
        if (const auto rule = rule_at(chip, number)) {
            rules.emplace_back(number, *rule);
        }
    }
    std::stable_sort(rules.begin(), rules.end(), [](const auto &a, const auto &b) {
        const auto rank = [](const QdHaMatchRule &rule) {
            return std::make_tuple(-int{rule.ucRulepri}, rule.ucSubTableID,
                                   rule.astLink[0].ucInnerID);
        };
        return rank(a.second) < rank(b.second);
    });
    std::string text = line("%zu of %u rules in use; of those that match, the upper one wins\n",
                            rules.size(), model::kHaRuleNum) +
                       kHeading;
    for (const auto &[number, rule] : rules) {
        text += rule_text(number, rule);
    }
    for (uint32_t type = model::kHaFixedFirst; type < model::kHaFixedNum; type++) {
        model::HaFixedRule rule = {};
        model::ha_fixed_get(chip, type, &rule);
        if (rule.set) {
            const char *ports[] = {"cpu", "cpu:0", "cpu:1"};
            text += line("fixed rule %u, packets of %s: info %u, queue %u\n", type,
                         ports[type - model::kHaFixedFirst], rule.info, rule.queue_pri);
        }
    }
    text += "outer tags:";
    for (uint32_t type = 1; type < model::kHaTpidNum; type++) {
        uint32_t tpid = 0;
        model::ha_tpid_get(chip, type, &tpid);
        text += (type == 5 ? "; inner tags:" : "") + (tpid != 0 ? line(" 0x%04x", tpid) : " -");
    }
    return text + "\n";
}

}  // namespace ldsdk::host

#include "chipmodel/ha.h"

#include "chipmodel/bytes.h"
#include "chipmodel/chip.h"
#include "chipmodel/ports.h"

namespace ldsdk::model {

namespace {

// Packet fields by the number that a link calls them.
enum Field : uint8_t {
    kDmacHigh = 1,
    kDmacLow = 2,
    kSmacHigh = 3,
    kSmacLow = 4,
    kVlan = 5,
    kTagNum = 11,
    kEthType = 12,
    kIpv6 = 24,
    kIpv4Dst = 27,
    kUdpDport = 36,
    kUdpSport = 37,
    kChannel = 38,
};

constexpr uint8_t kPortsOfType = 2;  // ucPortMode
constexpr uint8_t kMustDiffer = 1;   // ucKeyMode0, ucKeyMode1
constexpr uint32_t kMaxTags = 3;
constexpr uint32_t kCpuPort = 12;
constexpr uint32_t kFixedBoth = 2;  // fixed rule of packets from either cpu port,
constexpr uint32_t kFixedCpu = 3;   // and of those from cpu port 0; 4 is that of port 1

constexpr uint32_t kIpv4 = 0x0800;
constexpr uint32_t kIpv6Type = 0x86dd;
constexpr uint8_t kUdp = 17;

// The bytes of a frame, and where its headers begin.
class Frame {
  public:
    Frame(const HaQuery &query, const uint32_t *tpid) : query_(query)
    {
        uint32_t at = 12;
        while (tags_ < kMaxTags && has(at, 4) && is_tag(be16(at), tpid)) {
            tags_++;
            at += 4;
        }
        type_at_ = at;
        if (has(at, 2)) {
            find_udp(be16(at));
        }
    }

    // A field's value; false when the frame has no such field.
    bool field(uint8_t which, uint32_t &value) const
    {
        switch (which) {
            case kDmacHigh:
                return take(0, 4, value);
            case kDmacLow:
                return take(4, 2, value);
            case kSmacHigh:
                return take(6, 4, value);
            case kSmacLow:
                return take(10, 2, value);
            case kVlan:
                if (tags_ == 0 || !take(14, 2, value)) {
                    return false;
                }
                value &= 0xfff;
                return true;
            case kTagNum:
                value = tags_;
                return true;
            case kEthType:
                return take(type_at_, 2, value);
            case kIpv6:
                return is(kIpv6Type) && take(ip_at() + 24, 4, value);
            case kIpv4Dst:
                return is(kIpv4) && take(ip_at() + 16, 4, value);
            case kUdpSport:
                return udp_at_ != 0 && take(udp_at_, 2, value);
            case kUdpDport:
                return udp_at_ != 0 && take(udp_at_ + 2, 2, value);
            case kChannel:
                value = query_.channel;
                return value != kHaNoChannel;
            default:
                return false;
        }
    }

  private:
    bool has(uint32_t at, uint32_t bytes) const
    {
        return query_.length >= bytes && at <= query_.length - bytes;
    }
    uint32_t be16(uint32_t at) const
    {
        return static_cast<uint32_t>(query_.frame[at] << 8 | query_.frame[at + 1]);
    }
    bool take(uint32_t at, uint32_t bytes, uint32_t &value) const
    {
        if (!has(at, bytes)) {
            return false;
        }
        value = bytes == 4 ? load_be32(query_.frame + at) : be16(at);
        return true;
    }
    bool is(uint32_t type) const
    {
        return has(type_at_, 2) && be16(type_at_) == type;
    }
    uint32_t ip_at() const
    {
        return type_at_ + 2;
    }

    // Of the first tag the identifiers 1 to 4 count, of the others 5 to 8; while all of them are 0,
    // those of IEEE 802.1Q.
    bool is_tag(uint32_t type, const uint32_t *tpid) const
    {
        const uint32_t first = tags_ == 0 ? 1 : 5;
        bool told = false;
        for (uint32_t at = first; at < first + 4; at++) {
            if (tpid[at] != 0 && tpid[at] == type) {
                return true;
            }
            told = told || tpid[at] != 0;
        }
        return !told && (type == 0x8100 || (tags_ == 0 && type == 0x88a8));
    }

    void find_udp(uint32_t type)
    {
        const uint32_t ip = ip_at();
        if (type == kIpv4 && has(ip, 20) && query_.frame[ip + 9] == kUdp &&
            (be16(ip + 6) & 0x1fff) == 0) {
            udp_at_ = ip + 4 * (query_.frame[ip] & 15u);
        }
        if (type == kIpv6Type && has(ip, 40) && query_.frame[ip + 6] == kUdp) {
            udp_at_ = ip + 40;
        }
    }

    const HaQuery &query_;
    uint32_t tags_ = 0;
    uint32_t type_at_ = 0;
    uint32_t udp_at_ = 0;  // 0: no UDP header
};

bool compare(const Frame &frame, uint8_t field, uint8_t mode, uint32_t key, uint32_t mask)
{
    uint32_t value = 0;
    if (field == 0) {
        return true;
    }
    if (!frame.field(field, value)) {
        return false;
    }
    const bool same = ((value ^ key) & ~mask) == 0;
    return mode == kMustDiffer ? !same : same;
}

bool in_range(uint32_t value, uint32_t low, uint32_t high)
{
    return value >= low && value <= high;
}

bool port_matches(const QdHaMatchRule &rule, const Port &port)
{
    if (rule.ucPortMode != kPortsOfType) {
        return true;
    }
    const bool whole_type = (rule.ulPortMin | rule.ulPortMinSub | rule.ulPortMinSubPri |
                             rule.ulPortMax | rule.ulPortMaxSub | rule.ulPortMaxSubPri) == 0;
    return port.type == rule.ucPortType &&
           (whole_type || (in_range(port.id, rule.ulPortMin, rule.ulPortMax) &&
                           in_range(port.sub, rule.ulPortMinSub, rule.ulPortMaxSub) &&
                           in_range(port.pri, rule.ulPortMinSubPri, rule.ulPortMaxSubPri)));
}

bool rule_matches(const QdHaMatchRule &rule, const Frame &frame, const Port &port)
{
    for (uint32_t at = 0; at < rule.ucLinkNum; at++) {
        const QdHaRuleLink &link = rule.astLink[at];
        if (link.ucRangeMode != 0 ||
            !compare(frame, link.ucMatchField0, link.ucKeyMode0, link.ulKeyValue0,
                     link.ulKeyMask0) ||
            !compare(frame, link.ucMatchField1, link.ucKeyMode1, link.ulKeyValue1,
                     link.ulKeyMask1)) {
            return false;
        }
    }
    return port_matches(rule, port);
}

// Of two rules that match: the higher priority, then the lower sub table, then the lower inner id.
bool goes_before(const QdHaMatchRule &rule, const QdHaMatchRule &other)
{
    if (rule.ucRulepri != other.ucRulepri) {
        return rule.ucRulepri > other.ucRulepri;
    }
    if (rule.ucSubTableID != other.ucSubTableID) {
        return rule.ucSubTableID < other.ucSubTableID;
    }
    return rule.astLink[0].ucInnerID < other.astLink[0].ucInnerID;
}

void look_fixed(const HaRules &rules, const Port &port, HaResult &result)
{
    if (port.type != kCpuPort) {
        return;
    }
    const uint32_t types[] = {kFixedCpu + port.id, kFixedBoth};
    for (const uint32_t type : types) {
        if (rules.fixed[type].set) {
            result = {true, true, type, rules.fixed[type].info, rules.fixed[type].queue_pri, false};
            return;
        }
    }
}

// Works on an attached chip's rules, with something to write to.
template <typename T, typename Work>
uint32_t with_rules(uint32_t id, T *out, Work work)
{
    const Chip *chip = chip_find(id);
    if (chip == nullptr || out == nullptr) {
        return chip == nullptr ? kErrNoChip : kErrNull;
    }
    return work(chip->ha);
}

}  // namespace

uint32_t ha_rule_add(HaRules &rules, uint32_t number, const QdHaMatchRule &rule)
{
    const uint32_t links = rule.ucLinkNum;
    if (number >= kHaRuleNum || (links != 1 && links != 2 && links != kHaLinkNum) ||
        rule.ucSubTableID > 3 || rule.ucInfoToNp > 127) {
        return kErrParam;
    }
    rules.rule[number] = rule;
    rules.used[number] = true;
    return kOk;
}

uint32_t ha_rule_get(uint32_t id, uint32_t number, QdHaMatchRule *rule)
{
    return with_rules(id, rule, [&](const HaRules &rules) {
        if (number >= kHaRuleNum || !rules.used[number]) {
            return number >= kHaRuleNum ? kErrParam : kErrEmpty;
        }
        *rule = rules.rule[number];
        return kOk;
    });
}

uint32_t ha_fixed_get(uint32_t id, uint32_t type, HaFixedRule *rule)
{
    return with_rules(id, rule, [&](const HaRules &rules) {
        if (type < kHaFixedFirst || type >= kHaFixedNum) {
            return kErrParam;
        }
        *rule = rules.fixed[type];
        return kOk;
    });
}

uint32_t ha_tpid_get(uint32_t id, uint32_t type, uint32_t *tpid)
{
    return with_rules(id, tpid, [&](const HaRules &rules) {
        if (type >= kHaTpidNum) {
            return kErrParam;
        }
        *tpid = rules.tpid[type];
        return kOk;
    });
}

uint32_t lookup_ha(uint32_t id, const HaQuery &query, HaResult *result)
{
    return with_rules(id, result, [&](const HaRules &rules) {
        if (query.frame == nullptr || !port_valid(query.port)) {
            return query.frame == nullptr ? kErrNull : kErrParam;
        }
        const Frame frame(query, rules.tpid);
        const QdHaMatchRule *best = nullptr;
        *result = {};
        for (uint32_t number = 0; number < kHaRuleNum; number++) {
            const QdHaMatchRule &rule = rules.rule[number];
            if (rules.used[number] && (best == nullptr || goes_before(rule, *best)) &&
                rule_matches(rule, frame, query.port)) {
                best = &rule;
                *result = {
                    true, false, number, rule.ucInfoToNp, rule.ucPqmpri, rule.ucFilterEnable != 0};
            }
        }
        if (best == nullptr) {
            look_fixed(rules, query.port, *result);
        }
        return kOk;
    });
}

}  // namespace ldsdk::model

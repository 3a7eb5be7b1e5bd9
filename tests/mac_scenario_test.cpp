// The MAC table in use: addresses of real vendors on many VLANs, learned and set until one finds no
// place, read back, aged and deleted; first by the functions, then by a script through the tool.
#include "tests/process.h"
#include "tests/shell.h"

#include <array>
#include <cstdio>
#include <fstream>
#include <map>
#include <set>

namespace ldsdk::test {

namespace {

using testing::HasSubstr;

constexpr char kRegistry[] = "/usr/share/ieee-data/oui.txt";
constexpr size_t kHosts = 4000;
constexpr uint32_t kFlows = 64;
constexpr uint32_t kFlowLimit = 0x60245000;
constexpr uint32_t kLimitSwitch = 0x7a101a40;
constexpr uint32_t kGlobalLimit = 0x60222288;
constexpr uint32_t kCredit = 0x80000000 + 1000;

struct Host {
    std::array<uint8_t, 6> mac;
    uint32_t vlan;
    uint32_t flow;
    bool learned;  // else set by hand
};

// Hosts with the vendor prefixes that the registry assigns ("00-22-72   (hex)"), every second one
// learned.
std::vector<Host> hosts()
{
    std::vector<Host> list;
    std::ifstream file(kRegistry);
    std::string line;
    unsigned a = 0;
    unsigned b = 0;
    unsigned c = 0;
    while (list.size() < kHosts && std::getline(file, line)) {
        if (line.find("(hex)") == std::string::npos ||
            std::sscanf(line.c_str(), "%2x-%2x-%2x", &a, &b, &c) != 3) {
            continue;
        }
        const auto number = static_cast<uint32_t>(list.size());
        const uint32_t serial = number * 2654435761u;  // spread as serial numbers are not
        list.push_back({{static_cast<uint8_t>(a), static_cast<uint8_t>(b), static_cast<uint8_t>(c),
                         static_cast<uint8_t>(serial >> 24), static_cast<uint8_t>(serial >> 16),
                         static_cast<uint8_t>(serial >> 8)},
                        1 + number % 1000,
                        number % kFlows,
                        number % 2 == 0});
    }
    return list;
}

NpArlKey key_of(const Host &host)
{
    NpArlKey key = {};
    key.ulSvlanID = host.vlan;
    std::copy(host.mac.begin(), host.mac.end(), key.aucMacAddr);
    return key;
}

NpArlData data_of(const Host &host)
{
    NpArlData data = {};
    data.stLearnData.ulIntfID = host.flow;
    data.ulIftID = host.flow;
    return data;
}

std::string key_words(const Host &host)
{
    char words[120];
    std::snprintf(words, sizeof(words),
                  "ulType 0 ulSvlanID %u ulVsi 0 aucMacAddr %02x-%02x-%02x-%02x-%02x-%02x",
                  host.vlan, host.mac[0], host.mac[1], host.mac[2], host.mac[3], host.mac[4],
                  host.mac[5]);
    return words;
}

std::string fill_line(const Host &host)
{
    const std::string flow = std::to_string(host.flow);
    return std::string("micro arl arltbl ") + (host.learned ? "dynamic add " : "set ") +
           key_words(host) + " ulIntfID " + flow + " ulIftID " + flow + "\n";
}

class MacScenario : public ShellUp {
  protected:
    MacScenario()
    {
        for (uint32_t flow = 0; flow < kFlows; flow++) {
            poke(kFlowLimit + 4 * flow, kCredit);
        }
        poke(kGlobalLimit, kCredit);
        poke(kLimitSwitch, 1);
    }

    // Adds a host by its way; false when it finds no place.
    static bool add(const Host &host)
    {
        const NpDynamicLrn entry = {key_of(host), data_of(host)};
        if (!host.learned) {
            const uint32_t result = Np_ArlTbl_Add(0, &entry.stArlKey, &entry.stArlData);
            EXPECT_THAT(result, testing::AnyOf(NP_OK, NP_ERR_HASH_CONFLICT, NP_ERR_TABLE_FULL));
            return result == NP_OK;
        }
        EXPECT_EQ(Np_ArlTbl_DynamicArlLrn(0, &entry), NP_OK);
        NpDynamicLrnState state = {};
        EXPECT_EQ(Np_ArlTbl_DynamicArlLrnStateTbl_Get(0, 0, &state), NP_OK);
        EXPECT_EQ(state.ulDone, 1u);
        EXPECT_EQ(Np_ArlTbl_DynamicArlLrnStateTbl_Clear(0, 0), NP_OK);
        return state.ulLrnResult == 0;
    }

    static std::vector<uint32_t> credits()
    {
        std::vector<uint32_t> words = {peek(kGlobalLimit)};
        for (uint32_t flow = 0; flow < kFlows; flow++) {
            words.push_back(peek(kFlowLimit + 4 * flow));
        }
        return words;
    }
};

TEST_F(MacScenario, FillsAgesAndEmptiesTheTable)
{
    std::vector<Host> list = hosts();
    ASSERT_EQ(list.size(), kHosts) << kRegistry;
    const std::vector<uint32_t> before = credits();
    size_t count = 0;
    while (count < list.size() && add(list[count])) {
        count++;
    }
    ASSERT_LT(count, list.size()) << "no refusal";
    EXPECT_GT(count, 2048u / 2) << "the engine moves nothing, but has two buckets for each key";
    list.resize(count);
    const auto learned = static_cast<uint32_t>((count + 1) / 2);
    EXPECT_EQ(peek(kGlobalLimit), kCredit - learned);

    // All of them by key, each in a place of its own, and by that place.
    std::set<uint32_t> places;
    for (const Host &host : list) {
        const NpArlKey key = key_of(host);
        NpArlData data;
        NpArlInfo info;
        ASSERT_EQ(Np_ArlTbl_Get(0, &key, &data, &info), NP_OK);
        EXPECT_EQ(info.ulMacType, host.learned ? 1u : 0u);
        EXPECT_EQ(data.stLearnData.ulIntfID, host.flow);
        EXPECT_TRUE(places.insert(info.ulKeyIndex).second);
        NpArlKey found;
        ASSERT_EQ(Np_ArlTbl_GetByIndex(0, info.ulKeyIndex, &found, &data, &info), NP_OK);
        EXPECT_EQ(std::memcmp(&found, &key, sizeof(key)), 0);
        EXPECT_EQ(data.ulIftID, host.flow);
    }

    // Those that were learned age out; nothing speaks for them.
    const NpNormalAge age = {1, 4};
    ASSERT_EQ(Np_ArlTbl_NormalAge(0, &age), NP_OK);
    ASSERT_EQ(model::advance(0, 5 * 10000), 0u);
    const NpNormalAge stop = {0, 0};
    ASSERT_EQ(Np_ArlTbl_NormalAge(0, &stop), NP_OK);
    EXPECT_EQ(credits(), before) << "all credit is back";
    for (const Host &host : list) {
        const NpArlKey key = key_of(host);
        NpArlData data;
        NpArlInfo info;
        EXPECT_EQ(Np_ArlTbl_Get(0, &key, &data, &info), host.learned ? NP_ERR_NOT_EXIST : NP_OK);
    }
    const std::string left = run("micro dfx mac display");

    // A script with the same list comes to the same table; the model's clock is the tool's to turn.
    TempFolder folder;
    const std::string path = folder.path("fill.ldsdk");
    std::ofstream script(path);
    script << "micro dfx prompt set prompt off\n";
    for (const Host &host : list) {
        script << fill_line(host);
    }
    script << "micro arl arltbl age normal ulAgeEnable 1 ulAgeTime 4\n"
           << "chip advance 50000\n"
           << "micro arl arltbl age normal ulAgeEnable 0 ulAgeTime 0\n"
           << "micro dfx mac display\n"
           << "micro dfx mac del_all\n"
           << "micro dfx mac num\n";
    script.close();
    const Finished tool = ::ldsdk::test::run({LDSDK_TOOL, "--script", path});
    EXPECT_EQ(tool.status, 0) << tool.err;
    EXPECT_THAT(tool.out, HasSubstr(left));
    EXPECT_THAT(tool.out, HasSubstr("\r\n      total :     0"));

    // The rest goes by command.
    for (const Host &host : list) {
        if (!host.learned) {
            ASSERT_EQ(run("micro arl arltbl del bykey ulMacDelType all " + key_words(host)),
                      "\n\r Command execute success!");
        }
    }
    EXPECT_THAT(run("micro dfx mac num"), HasSubstr("\r\n      total :     0"));
    EXPECT_EQ(credits(), before);
}

}  // namespace

}  // namespace ldsdk::test

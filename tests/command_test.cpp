// The command tree, the readers and printers of its handlers, and the commands on the module
// itself.
#include "tests/shell.h"

#include <algorithm>
#include <fstream>
#include <map>
#include <set>

namespace {

using ldsdk::test::listed;
using ldsdk::test::Shell;
using testing::EndsWith;
using testing::HasSubstr;
using testing::Not;
using testing::StartsWith;

class Tree : public Shell {};
class Values : public Shell {};
class Commands : public Shell {};

const std::string kSuccess = "\n\r Command execute success!";
const std::string kError = "\n\r Command execute error!";
const std::string kInvalidCommand = "\n\r Invalid command!";
const std::string kInvalidParameter = "\n\r Invalid parameter!";
const std::string kSeparator = "\n\r " + std::string(70, '-');

// ---- the tree -----------------------------------------------------------------------------------

// A line of the locked list: path, help text, handler; "-" for a group.
struct Node {
    std::string path, help, handler;

    bool group() const
    {
        return handler == "-";
    }
    std::string word() const
    {
        return path.substr(path.rfind(' ') + 1);
    }
    std::string parent() const
    {
        const size_t blank = path.rfind(' ');
        return blank == std::string::npos ? "" : path.substr(0, blank);
    }
};

std::vector<Node> locked_tree()
{
    std::vector<Node> nodes;
    std::ifstream file(LDSDK_SOURCE_DIR "/tests/golden/command_tree.tsv");
    for (std::string line; std::getline(file, line);) {
        const size_t first = line.find('\t');
        const size_t second = line.find('\t', first + 1);
        nodes.push_back({line.substr(0, first), line.substr(first + 1, second - first - 1),
                         line.substr(second + 1)});
    }
    return nodes;
}

const std::map<std::string, NpCliHandler> &handlers()
{
    static const std::map<std::string, NpCliHandler> map = {
#define NP_HANDLER(name) {#name, name},
#include "sdk/module/handler_list.h"
    };
    return map;
}

const NpCliCmdEntry *record_at(const std::string &path)
{
    const NpCliCmdEntry *level = g_stNpSdkCmds;
    uint32_t count = 1;
    const NpCliCmdEntry *found = nullptr;
    std::istringstream words(path);
    for (std::string word; words >> word;) {
        found = nullptr;
        for (uint32_t i = 0; i < count && found == nullptr; i++) {
            found = word == level[i].szName ? &level[i] : nullptr;
        }
        if (found == nullptr) {
            return nullptr;
        }
        level = found->pstChildren;
        count = found->ulChildNum;
    }
    return found;
}

// Every group answers its listing through the device, and every leaf runs the handler it names.
TEST_F(Tree, IsTheLockedOne)
{
    const std::vector<Node> nodes = locked_tree();
    std::map<std::string, std::string> listings;
    for (const Node &node : nodes) {
        listings[node.parent()] += listed(node.word(), node.help);
    }
    size_t groups = 0;
    std::set<std::string> used;
    EXPECT_EQ(run(""), listings[""]);
    for (const Node &node : nodes) {
        SCOPED_TRACE(node.path);
        if (node.group()) {
            groups++;
            EXPECT_EQ(run(node.path), listings[node.path]);
            EXPECT_EQ(run(node.path + " no-such-word"), listings[node.path]);
            continue;
        }
        const NpCliCmdEntry *record = record_at(node.path);
        ASSERT_NE(record, nullptr);
        ASSERT_TRUE(handlers().contains(node.handler));
        EXPECT_EQ(record->pfnHandler, handlers().at(node.handler));
        EXPECT_EQ(record->pstChildren, nullptr);
        used.insert(node.handler);
    }
    EXPECT_EQ(groups, 189u);
    EXPECT_EQ(nodes.size() - groups, 469u);
    EXPECT_EQ(used.size(), handlers().size()) << "a handler that no command reaches";
}

TEST_F(Tree, HandlersWithoutFunctionSaySo)
{
    const std::vector<NpCliHandler> pending = {
#define NP_PENDING_HANDLER(name) name,
#include "sdk/module/pending_handlers.h"
    };
    for (const NpCliHandler handler : pending) {
        EXPECT_EQ(handler(), 1u);
        EXPECT_EQ(out.take(), kInvalidCommand);
    }
}

// ---- values -------------------------------------------------------------------------------------

constexpr NpSmdKeyItem kItems[] = {
    {21, NP_SMD_NUMBER, 1, "num", 0, 4095},   {22, NP_SMD_ENUM, 2, "mode", 0, 2},
    {23, NP_SMD_MAC, 3, "mac", 0, 0},         {24, NP_SMD_IPV4, 4, "ip", 0, 0},
    {25, NP_SMD_STRING, 0, "text", 0, 0},     {26, NP_SMD_IPV6, 5, "ip6", 0, 0},
    {27, NP_SMD_NUMBER16, 6, "half", 0, -1},  {28, NP_SMD_CHAR, 7, "char", 1, 2},
    {29, NP_SMD_SIGNED, 12, "offset", -8, 8}, {30, NP_SMD_PORT, 13, "port", 0, 0},
    {31, NP_SMD_DATA, 14, "data", 0, 4},      {32, NP_SMD_DATA + 1, 15, "2", 0, 4},
};
constexpr NpSmdKeyEnum kEnums[] = {
    {22, "off", 0}, {22, "on", 1}, {22, "5", 9}, {22, "again", 1}, {33, "off", 7},
};
constexpr NpSmdKeyTable kTable = {kItems, std::size(kItems), kEnums, std::size(kEnums)};

uint32_t index_of(uint32_t key)
{
    EXPECT_EQ(Np_PUB_SMD_KeyIndexMap(&key, &kTable), 0u);
    return key;
}

template <typename T>
std::vector<uint8_t> bytes_of(T value)
{
    std::vector<uint8_t> bytes(sizeof(value));
    std::memcpy(bytes.data(), &value, sizeof(value));
    return bytes;
}

std::vector<uint8_t> text_bytes(const std::string &text)
{
    std::vector<uint8_t> bytes(text.begin(), text.end());
    bytes.push_back(0);
    return bytes;
}

std::vector<uint8_t> words_bytes(const std::vector<uint32_t> &values)
{
    std::vector<uint8_t> bytes;
    for (const uint32_t value : values) {
        const auto part = bytes_of(value);
        bytes.insert(bytes.end(), part.begin(), part.end());
    }
    return bytes;
}

// What each type stores, how many bytes it touches, and what a bad word shows.
TEST_F(Values, ReadByType)
{
    struct Case {
        uint32_t key;
        std::string line;
        std::vector<uint8_t> stored;  // empty: refused
        std::string text;
    };
    const std::string number = "num[0, 4095]: \n";
    const std::string mac = "mac[xx-xx-xx-xx-xx-xx]<sz>:\n";
    const std::string ip = "ip[xx.xx.xx.xx]<sz>:\n";
    const std::string ip6 = "ip6[xx:xx:xx:xx:xx:xx:xx:xx]<sz>:\n";
    const std::string mode = "0:off | 1:on | 9:5 | 1:again |<sz>\n";
    const std::string sign = "sign[plus|minus]<sz>:\n";
    const std::string offset = "offset[-8, 8]: \n";
    const Case cases[] = {
        {21, "4096", bytes_of(4096u), ""},  // the range is the exported function's business
        {21, "4294967295", bytes_of(~0u), ""},
        {21, "x", {}, number},
        {21, "", {}, number},
        {22, "off", bytes_of(0u), ""},
        {22, "again", bytes_of(1u), ""},
        {22, "0", bytes_of(0u), ""},
        {22, "77", bytes_of(77u), ""},  // a number that no row has stands for itself
        {22, "1", {}, mode},            // two rows
        {22, "5", bytes_of(9u), ""},    // the text of a row comes before a number without one
        {22, "On", {}, mode},
        {22, "-1", {}, mode},
        {22, std::string(51, '1'), {}, mode},
        {22, "", {}, mode},
        {23, "1-2-3-a-B-ff", {1, 2, 3, 10, 11, 255}, ""},
        {23, "1-2-3-a-B", {}, mac},
        {23, "", {}, mac},
        {24, "10.0.2.255", bytes_of(0x0a0002ffu), ""},
        {24, "10.0.2.256", {}, ip},
        {25, "word", text_bytes("word"), ""},
        {25, std::string(60, 'q'), text_bytes(std::string(50, 'q')), ""},
        {25, "", {}, "text[please input valid cmd]<sz>:\n"},
        {26, "2001:db8::1", words_bytes({0x20010db8, 0, 0, 1}), ""},
        {26, "2001:db8:1", {}, ip6},
        {26, "0000:0000:0000:0000:0000:0000:0000:00001", {}, ip6},
        {27, "65535", bytes_of<uint16_t>(65535), ""},
        {27, "65537", bytes_of<uint16_t>(1), ""},
        {27, "no", {}, "half[0, -1]: \n"},
        {28, "7up", {'7'}, ""},
        {28, "", {}, "char[1, 2]: \n"},
        {29, "plus 5", bytes_of(5), ""},
        {29, "minus 5", bytes_of(-5), ""},
        {29, "5", {}, sign},
        {29, "", {}, sign},
        {29, "minus", {}, offset},
        {29, "plus x", {}, offset},
        {31, "0aFf", {0x0a, 0xff, 0, 0}, ""},
        {31, "123", {0x12, 0x30, 0, 0}, ""},
        {31, "01020304", {1, 2, 3, 4}, ""},
        {31, "0102030405", {}, "data\n"},
        {31, "01g2", {}, "data\n"},
        {31, "g", {}, "data\n"},
        {32, "1", {}, ""},
    };
    for (const Case &c : cases) {
        SCOPED_TRACE(testing::Message() << c.key << " '" << c.line << "'");
        words(c.line);
        std::vector<uint8_t> place(64, 0xee);
        const uint32_t result = Np_PUB_SMD_Scanf(index_of(c.key), place.data(), &kTable, c.key);
        EXPECT_EQ(out.take(), c.text);
        if (c.stored.empty()) {
            EXPECT_NE(result, 0u);
            continue;
        }
        EXPECT_EQ(result, 0u);
        EXPECT_EQ(words_left(), 0);
        std::vector<uint8_t> expected = c.stored;
        expected.resize(place.size(), 0xee);
        EXPECT_EQ(place, expected);
    }
}

TEST_F(Values, ReadWithoutTable)
{
    uint32_t value = 0;
    words("3 minus 9 aabb");
    EXPECT_EQ(Np_PUB_SMD_Scanf_ex(NP_SMD_ENUM, "plain", 0, 1, &value), 0u);
    EXPECT_EQ(value, 3u);
    EXPECT_EQ(Np_PUB_SMD_Scanf_ex(NP_SMD_SIGNED, "plain", 0, 1, &value), 0u);
    EXPECT_EQ(value, static_cast<uint32_t>(-9));
    std::array<uint8_t, 2> data{};
    EXPECT_EQ(Np_PUB_SMD_Scanf_ex(NP_SMD_DATA, "plain", 0, 2, data.data()), 0u);
    EXPECT_EQ(data, (std::array<uint8_t, 2>{0xaa, 0xbb}));
    EXPECT_EQ(Np_PUB_SMD_Scanf_ex(NP_SMD_NUMBER, "plain", -1, 1, &value), 1u);
    EXPECT_EQ(out.take(), "plain[-1, 1]: \n");
    EXPECT_EQ(Np_PUB_SMD_Scanf_ex(0, "plain", 0, 1, &value), 1u);
    std::array<uint8_t, 262> large;
    large.fill(0xee);
    words("11");
    EXPECT_EQ(Np_PUB_SMD_DataScanf("large", large.data(), 262), 1u);
    EXPECT_EQ(large[0], 0xee);
    EXPECT_EQ(Np_PUB_SMD_DataScanf("large", large.data(), 261), 0u);
    EXPECT_EQ(large[0], 0x11);
    EXPECT_EQ(large[260], 0);
    EXPECT_EQ(large[261], 0xee);
}

TEST_F(Values, PrintByType)
{
    struct Case {
        uint32_t key;
        std::vector<uint8_t> value;
        std::string text;
    };
    const auto pad = [](const std::string &text) {
        return text + std::string(25 - text.size(), ' ');
    };
    const auto line = [&](const std::string &name, const std::string &value) {
        return "\r\n    " + pad(name) + ":   " + value;
    };
    const Case cases[] = {
        {21, bytes_of(4095u), line("num", pad("4095") + "(0xfff)")},
        {21, bytes_of(~0u), line("num", pad("4294967295") + "(0xffffffff)")},
        {22, bytes_of(0u), line("mode", pad("off") + "(0x0)")},
        {22, bytes_of(~0u), line("mode", pad("-1") + "(0xffffffff)")},
        {22, bytes_of(1u), line("mode", pad("1") + "(0x1)")},  // two names: neither
        {23, {0, 1, 0x2a, 255, 4, 5}, line("mac", "00-01-2a-ff-04-05")},
        {24, bytes_of(0xc0a80101u), line("ip", "192.168.1.1")},
        {25, text_bytes("a%sb"), line("text", "a%sb")},
        {26, words_bytes({0x20010db8, 0, 0xabcd, 1}),
         line("ip6", "2001:0db8:0000:0000:0000:abcd:0000:0001")},
        {27, bytes_of<uint16_t>(65535), line("half", pad("65535") + "(0xffff)")},
        {28, {200}, line("char", pad("200") + "(0xc8)")},
        {29, bytes_of(-7), line("offset", pad("-7"))},
        {31, {0, 0xab, 9, 255}, line("data", "0x00ab09ff")},
        {30, words_bytes({1, 2, 3, 4}),
         "\r\n    porttype                 :   gpon\r\n    portid                   :   2"
         "\r\n    subportid                :   3\r\n    pri                      :   4"},
        {30, words_bytes({15, 0, 0, 0}),
         "\r\n    porttype                 :   trunk\r\n    portid                   :   0"
         "\r\n    subportid                :   0\r\n    pri                      :   0"},
        {30, words_bytes({16, 0, 0, 0}),
         "\r\n    porttype(16)             :   unknow\r\n    portid                   :   0"
         "\r\n    subportid                :   0\r\n    pri                      :   0"},
    };
    for (const Case &c : cases) {
        SCOPED_TRACE(c.text);
        EXPECT_EQ(Np_PUB_SMD_Print(index_of(c.key), c.value.data(), &kTable, c.key), 0u);
        EXPECT_EQ(out.take(), c.text);
    }
    const uint32_t value = 8;
    EXPECT_EQ(Np_PUB_SMD_Print(index_of(32), &value, &kTable, 32), 1u);
    EXPECT_EQ(Np_PUB_SMD_Print_ex(NP_SMD_NUMBER, "a-name-of-more-than-25-columns", &value), 0u);
    EXPECT_EQ(out.take(), "\r\n    a-name-of-more-than-25-columns:   " + pad("8") + "(0x8)");
    const std::vector<uint8_t> many(70, 0x5a);
    Np_PUB_SMD_DataPrint("d", many.data(), 70);
    std::string digits;
    for (int i = 0; i < 70; i++) {
        digits += "5a";
    }
    EXPECT_EQ(out.take(), line("d", "0x" + digits));
}

// Each type of port asks for its own numbers, within its own limits.
TEST_F(Values, Ports)
{
    struct Type {
        const char *word, *number;
        uint32_t type;
        int portid, subportid, pri;  // highest, -1: not asked
    };
    constexpr Type types[] = {
        {"adsl", "1", 5, 3, 63, -1},       {"vdsl", "2", 5, 3, 63, -1},
        {"fe", "3", 7, 66, -1, -1},        {"ge", "4", 6, 17, 127, -1},
        {"gint", "5", 8, 11, 255, -1},     {"gpon", "6", 1, 1, -1, -1},
        {"epon", "7", 2, 1, -1, -1},       {"xaui", "8", 9, 0, 127, 1},
        {"prbs", "9", 10, -1, -1, -1},     {"cpu", "10", 12, 1, -1, -1},
        {"bonding", "11", 13, 63, -1, -1}, {"loopback", "12", 11, -1, -1, -1},
        {"xdsl", "13", 14, 3, 63, 1},
    };
    const auto ask = [](const char *name, int value) {
        return value < 0 ? std::string() : " " + std::string(name) + " " + std::to_string(value);
    };
    const auto text = [](const char *name, int limit) {
        return std::string(name) + "[0, " + std::to_string(limit) + "]: \n" + kInvalidParameter;
    };
    for (const Type &t : types) {
        const std::string mode = t.word == std::string("vdsl") ? " atm" : "";
        for (const std::string word : {t.word, t.number}) {
            SCOPED_TRACE(word);
            words(word + mode + ask("portid", t.portid) + ask("subportid", t.subportid) +
                  ask("pri", t.pri));
            NpPortID port = {99, 99, 99, 99};
            EXPECT_EQ(Np_PUB_SMD_PortGet(0, &port), 0u);
            EXPECT_EQ(words_left(), 0);
            EXPECT_EQ(port.ulPortType, t.type);
            EXPECT_EQ(port.ulPortID, static_cast<uint32_t>(std::max(t.portid, 0)));
            EXPECT_EQ(port.ulSubPortID, static_cast<uint32_t>(std::max(t.subportid, 0)));
            EXPECT_EQ(port.ulPri, static_cast<uint32_t>(std::max(t.pri, 0)));
            EXPECT_EQ(out.take(), "");
            if (t.portid >= 0) {
                words(word + mode + ask("portid", t.portid + 1));
                EXPECT_EQ(Np_PUB_SMD_PortGet(0, &port), 1u);
                EXPECT_EQ(out.take(), text("portid", t.portid));
            }
            if (t.subportid >= 0) {
                words(word + mode + " portid 0" + ask("subportid", t.subportid + 1));
                EXPECT_EQ(Np_PUB_SMD_PortGet(0, &port), 1u);
                EXPECT_EQ(out.take(), text("subportid", t.subportid));
            }
        }
    }
    const std::string list =
        "1:adsl | 2:vdsl | 3:fe | 4:ge | 5:gint | 6:gpon | 7:epon | 8:xaui| 9:prbs | 10:cpu | "
        "11:bonding | 12:loopback | 13:xdsl<sz>\n";
    struct Bad {
        const char *line;
        std::string text;
    };
    for (const Bad &bad :
         {Bad{"", list + kError}, Bad{"14", kError + kInvalidParameter}, Bad{"fe 1", kError},
          Bad{"fe port 1", kError}, Bad{"fe portid", text("portid", 66)},
          Bad{"vdsl portid 1", kError}, Bad{"vdsl", "0:atm | 1:ptm<sz>\n" + kError},
          Bad{"xaui portid 0 subportid 0 pri 2", text("pri", 1)}}) {
        SCOPED_TRACE(bad.line);
        words(bad.line);
        NpPortID port;
        EXPECT_EQ(Np_PUB_SMD_PortGet(0, &port), 1u);
        EXPECT_EQ(out.take(), bad.text);
    }
}

TEST_F(Values, WordsOfALine)
{
    struct Case {
        const char *word, *allowed;
        uint32_t result;
    };
    for (const Case &c :
         {Case{"adsl", "1:adsl | 2:vdsl", 0}, Case{"2", "1:adsl | 2:vdsl", 0},
          Case{"vdsl", "1:adsl | 2:v d\r\nsl", 0}, Case{"3", "1:adsl | 2:vdsl", 1},
          Case{"ads", "1:adsl", 1}, Case{"adsl2", "1:adsl", 1}, Case{"adsl", "adslx|xadsl", 1},
          Case{"index", "index", 0}, Case{"", "a||b", 0}, Case{"", "a|b", 1}}) {
        SCOPED_TRACE(c.word);
        EXPECT_EQ(Np_SMD_Com_StringParamCheck(c.word, c.allowed), c.result);
    }

    char word[NP_SMD_WORD_SIZE];
    words("index next " + std::string(50, 'w') + " " + std::string(51, 'w'));
    EXPECT_EQ(Np_SMD_Com_StringParamGet("old", "index", word), 0u);
    EXPECT_STREQ(word, "index");
    EXPECT_EQ(Np_SMD_Com_StringParamGet("old", "index", word), 1u);
    EXPECT_EQ(out.take(), kError);
    EXPECT_EQ(Np_SMD_Com_StringParamGet("old", std::string(50, 'w').c_str(), word), 0u);
    EXPECT_EQ(Np_SMD_Com_StringParamGet("old", "a|b", word), 1u);
    EXPECT_STREQ(word, "old");
    EXPECT_EQ(out.take(), "a|b<sz>\n" + kError);
    EXPECT_EQ(Np_SMD_Com_StringParamGet("old", nullptr, word), 1u);
    EXPECT_EQ(Np_SMD_Com_StringParamGet(nullptr, "a", word), 1u);
    EXPECT_EQ(Np_SMD_Com_StringParamGet("old", "a", nullptr), 1u);
    EXPECT_EQ(out.take(), kError + kError + kError);

    uint32_t value = 5;
    words("4 11");
    EXPECT_EQ(Np_SMD_Com_ValueParamGet("v", 4, 10, nullptr), 1u);
    EXPECT_EQ(out.take(), kError);
    EXPECT_EQ(Np_SMD_Com_ValueParamGet("v", 4, 10, &value), 0u);
    EXPECT_EQ(value, 4u);
    EXPECT_EQ(Np_SMD_Com_ValueParamGet("v", 4, 10, &value), 1u);
    EXPECT_EQ(out.take(), "v[4, 10]: \n" + kInvalidParameter);
    EXPECT_EQ(Np_SMD_Com_ValueParamGet("v", 0, -1, &value), 0u);
    EXPECT_EQ(value, 11u);
    int32_t plain = -1;
    EXPECT_EQ(Np_SMD_Com_SignedValueParamGet("v", 0, 1, &plain), 0u);
    EXPECT_EQ(plain, -1);
}

TEST_F(Values, KeysOfATable)
{
    uint32_t key = 99;
    EXPECT_EQ(Np_PUB_SMD_KeyIndexMap(&key, &kTable), 1u);
    EXPECT_EQ(Np_PUB_SMD_KeyStrCmp("mac", 23, &kTable), 0u);
    EXPECT_EQ(Np_PUB_SMD_KeyStrCmp("mac", 22, &kTable), 1u);
    EXPECT_EQ(Np_PUB_SMD_KeyStrCmp("mac", 99, &kTable), 1u);

    struct Word {
        const char *word;
        uint32_t result;
    };
    for (const Word &w :
         {Word{"num", 0}, Word{"1", 0}, Word{"14", 0}, Word{"text", 1}, Word{"0", 1}, Word{"16", 1},
          Word{"", 1}, Word{"nu", 1}, Word{"2", 1},  // number of one, name of another
          Word{"1x", 1}}) {
        SCOPED_TRACE(w.word);
        EXPECT_EQ(Np_PUB_SMD_ValidKey(w.word, &kTable), w.result);
    }
    uint32_t value = 5;
    EXPECT_EQ(Np_PUB_SMD_atoi("0012", &value), 0u);
    EXPECT_EQ(value, 12u);
    for (const char *word : {"", "-1", "+1", "0x1", "1 "}) {
        EXPECT_EQ(Np_PUB_SMD_atoi(word, &value), 1u) << word;
    }
    EXPECT_EQ(value, 12u);

    char text[32];
    EXPECT_EQ(Np_PUB_SMD_GetKeyString(22, 1, text, sizeof(text), &kTable), 1u);
    EXPECT_EQ(Np_PUB_SMD_GetKeyString(33, 7, text, sizeof(text), &kTable), 0u);
    EXPECT_STREQ(text, "off");
    EXPECT_EQ(Np_PUB_SMD_GetKeyStringCom(33, text, 9, &kTable), 0u);
    EXPECT_STREQ(text, "7:off |");
    EXPECT_EQ(Np_PUB_SMD_GetKeyStringCom(33, text, 8, &kTable), 1u);
    EXPECT_EQ(Np_PUB_SMD_GetKeyStringCom(34, text, sizeof(text), &kTable), 1u);

    NpSmdKeyItem own = kItems[0];
    Np_PUB_SMD_SetCfg(0, "renamed", -1, 9, &own);
    EXPECT_STREQ(own.szName, "renamed");
    EXPECT_EQ(own.lMin, -1);
    EXPECT_EQ(own.lMax, 9);
    EXPECT_EQ(own.ulKeyID, 21u);
}

TEST_F(Values, Menu)
{
    const NpSmdKeyItem items[] = {
        {1, NP_SMD_NUMBER, 1, "ab", 0, 0},   // 5 characters with the number
        {2, NP_SMD_NUMBER, 2, "abc", 0, 0},  // 6
        {3, NP_SMD_NUMBER, 0, "hidden", 0, 0},
        {4, NP_SMD_NUMBER, 30, "abcdefghij", 0, 0},          // 13
        {5, NP_SMD_NUMBER, 4, "abcdefghijk", 0, 0},          // 14
        {6, NP_SMD_NUMBER, 5, "abcdefghijklmnopqr", 0, 0},   // 21
        {7, NP_SMD_NUMBER, 6, "abcdefghijklmnopqrs", 0, 0},  // 22
    };
    const NpSmdKeyTable table = {items, std::size(items), nullptr, 0};
    const std::string first = "\r\n| 01:ab\t\t\t| 02:abc\t\t| 30:abcdefghij\t\t";
    char buffer[23];
    EXPECT_EQ(Np_PUB_SMD_Prompt(buffer, sizeof(buffer), &table), 0u);
    EXPECT_EQ(out.take(), first +
                              "\r\n| 04:abcdefghijk\t| 05:abcdefghijklmnopqr\t"
                              "| 06:abcdefghijklmnopqrs\r\n| end\r\n");
    EXPECT_EQ(Np_PUB_SMD_Prompt(buffer, 14, &table), 1u);
    EXPECT_EQ(out.take(), first + "\n\r Extend max buffer length!");
    g_ulNpPubPrompt = 0;
    EXPECT_EQ(Np_PUB_SMD_Prompt(buffer, sizeof(buffer), &table), 0u);
    EXPECT_EQ(out.take(), "");
}

TEST_F(Values, ClosingLines)
{
    const char *lines[] = {"Command execute success!",  "Command execute error!",
                           "Invalid command!",          "Invalid parameter!",
                           "Parameter missed!",         "Parameter number too many!",
                           "Extend max buffer length!", "Chip not exist!"};
    for (uint32_t code = 0; code < std::size(lines); code++) {
        Np_PUB_SMD_ReturnValue(code);
        EXPECT_EQ(out.take(), std::string("\n\r ") + lines[code]);
    }
    Np_PUB_SMD_ReturnValue(8);
    EXPECT_EQ(out.take(), "");
    Np_PUB_SMD_PrintReturnValue(0x9a000005);
    EXPECT_EQ(out.take(), "\n\r ulReturn = 0x9a000005(参数错误)");
    Np_PUB_SMD_PrintReturnValue(0x9a000047);
    EXPECT_EQ(out.take(), "\n\r ulReturn = 0x9a000047( cpu收包长度错误)");
    for (const uint32_t code : {0x9a000048u, 0x9a000501u, 7u}) {
        Np_PUB_SMD_PrintReturnValue(code);
        EXPECT_THAT(out.take(), EndsWith("(unknow reason, please check more.)"));
    }
    EXPECT_EQ(Np_SMD_Report(NP_ERR_PARAM), 1u);
    EXPECT_EQ(Np_SMD_Report(NP_OK), 0u);
    EXPECT_EQ(out.take(), "\n\r ulReturn = 0x9a000005(参数错误)" + kSuccess);
}

// ---- commands -----------------------------------------------------------------------------------

TEST_F(Commands, ChipSelection)
{
    NpChipAddr chip = {};
    chip.ulRegistered = 1;
    ASSERT_EQ(Np_Chip_AddrSet(2, &chip), NP_OK);
    EXPECT_EQ(run("micro chip get"), "\n\r    Current ChipID: 0");
    EXPECT_EQ(run("micro chip set 1"), kError);
    EXPECT_EQ(run("micro chip set 2 2"), kError);
    EXPECT_EQ(run("micro chip set 4"), " ChipID\n");
    EXPECT_EQ(run("micro chip set x"), " ChipID\n");
    EXPECT_EQ(run("micro chip set"), " ChipID\n");
    EXPECT_EQ(g_ulNpCurrentChipID, 0u);
    EXPECT_EQ(run("micro chip set 2"), kSuccess);
    EXPECT_EQ(run("micro chip get"), "\n\r    Current ChipID: 2");
    EXPECT_EQ(run("micro chip get 2"), "");
}

TEST_F(Commands, PromptSwitch)
{
    const std::string list = "0:off | 1:on |<sz>\n";
    struct Case {
        const char *line;
        std::string text;
        uint32_t prompt;
    };
    for (const Case &c :
         {Case{"micro prompt off", kSuccess, 0}, Case{"micro prompt 1", kSuccess, 1},
          Case{"micro prompt 0", kSuccess, 0}, Case{"micro prompt on off", kError, 0},
          Case{"micro prompt 2", kInvalidParameter, 0}, Case{"micro prompt maybe", list, 0},
          Case{"micro prompt", list, 0}, Case{"micro dfx prompt set on", kError, 0},
          Case{"micro dfx prompt set prompt on", kSuccess, 1},
          Case{"micro dfx prompt set prompt off", kSuccess, 0},
          Case{"micro dfx prompt get on", kError, 0}}) {
        SCOPED_TRACE(c.line);
        EXPECT_EQ(run(c.line), c.text);
        EXPECT_EQ(g_ulNpPubPrompt, c.prompt);
    }
    EXPECT_EQ(run("micro dfx prompt get"),
              kSeparator + "\r\n    prompt                   :   off                      (0x0)" +
                  kSeparator + kSuccess);
}

// Which switches are on, as module * 10 + level.
std::set<uint32_t> switches_on()
{
    std::set<uint32_t> on;
    for (uint32_t module = 0; module < NP_MODULE_NUM; module++) {
        for (uint32_t word = 0; word < NP_SWITCH_WORDS; word++) {
            if (g_stNpSdkModuleSwitch[module][word] != 0) {
                on.insert(module * 10 + word);
            }
        }
    }
    return on;
}

TEST_F(Commands, TraceSwitches)
{
    const std::string heading = "\n\r    p1 : module number[0-28]   p2 : print level[0-4]";
    const std::string text = run("micro print on 17 2");
    EXPECT_THAT(text, StartsWith(heading));
    EXPECT_THAT(text, HasSubstr("10 : P_M_INTR "));
    EXPECT_THAT(text, HasSubstr("29 : NP_M_IPQAM"));
    EXPECT_THAT(text, EndsWith("4 : NP_PRINT_POLL" + kSuccess));
    EXPECT_EQ(switches_on(), std::set<uint32_t>{172});
    run("micro print on 3 0");
    EXPECT_EQ(switches_on(), (std::set<uint32_t>{31, 32, 33, 34, 172}));
    run("micro print off 0 2");
    EXPECT_EQ(switches_on(), (std::set<uint32_t>{31, 33, 34}));
    run("micro print on 0 0");
    EXPECT_EQ(switches_on().size(), 29u * 4);
    EXPECT_FALSE(switches_on().contains(1));
    run("micro print off 0 0");
    EXPECT_TRUE(switches_on().empty());

    EXPECT_THAT(run("micro print on 30 1"), EndsWith(" Moudle\n"));
    EXPECT_THAT(run("micro print on 3"), EndsWith(" PrintLevel\n"));
    EXPECT_THAT(run("micro print on 3 5"), EndsWith(" PrintLevel\n"));
    EXPECT_THAT(run("micro print on 3 1 1"), EndsWith(kError));
    EXPECT_TRUE(switches_on().empty());
}

TEST_F(Commands, FunctionMode)
{
    g_stNpSdkFuncEnable = 0;
    EXPECT_EQ(run("micro func-print on"), " func\n");
    EXPECT_EQ(run("micro func-print on " + std::string(101, 'f') + " 1"), " func\n");
    EXPECT_EQ(run("micro func-print on Np_Vlan"), " print-num\n");
    EXPECT_EQ(run("micro func-print on Np_Vlan 65536"), " print-num\n");
    EXPECT_EQ(run("micro func-print on Np_Vlan 3 3"), kError);
    EXPECT_EQ(g_stNpSdkFuncEnable, 0u);
    g_stNpSdkFuncCount = 2;
    EXPECT_EQ(run("micro func-print on Np_Vlan 3"), kSuccess);
    EXPECT_EQ(g_stNpSdkFuncEnable, 1u);
    EXPECT_EQ(g_stNpSdkFuncCount, 0u);
    EXPECT_EQ(g_ulNpSdkTraceFuncTimes, 3u);
    EXPECT_STREQ(reinterpret_cast<char *>(g_aucNpUsrFunc), "Np_Vlan");
    EXPECT_EQ(run("micro func-print on " + std::string(100, 'f') + " 20"), kSuccess);
    EXPECT_EQ(std::string(reinterpret_cast<char *>(g_aucNpUsrFunc)), std::string(99, 'f'));
    EXPECT_EQ(run("micro func-print off now"), kError);
    EXPECT_EQ(g_stNpSdkFuncEnable, 1u);
    EXPECT_EQ(run("micro func-print off"), kSuccess);
    EXPECT_EQ(g_stNpSdkFuncEnable, 0u);
}

TEST_F(Commands, VersionsAndBringUp)
{
    const std::string no_chip = "\n\r ulReturn = 0x9a000006(芯片号不存在)";
    for (const char *line : {"micro glb version sdk", "micro glb version micro",
                             "micro dfx system init", "micro dfx system destruct"}) {
        EXPECT_EQ(run(line), no_chip) << line;
        EXPECT_EQ(run(std::string(line) + " more"), kError) << line;
    }
    ASSERT_EQ(Np_GLB_ChipRegister(0, 1, 0, 0), NP_OK);
    EXPECT_EQ(run("micro glb version sdk"),
              kSeparator + "\r\n    year                     :   2015                     (0x7df)" +
                  "\r\n    month                    :   1                        (0x1)" +
                  "\r\n    day                      :   15                       (0xf)" +
                  "\r\n    version                  :   Lodestone1.3.10.0022forQA02MXU" +
                  kSeparator + kSuccess);
    g_stNpMicroVersion[0] = {};
    EXPECT_EQ(run("micro glb version micro"), "\n\r ulReturn = 0x9a000017( 芯片版本错误)");
    std::memcpy(g_stNpMicroVersion[0].aucRaw, "0001000220260101release-of-a-day", 32);
    g_stNpMicroVersion[0].ulValid = 1;
    EXPECT_EQ(run("micro glb version micro"),
              kSeparator + "\r\n    version                  :   0001000220260101release-of-a-day" +
                  kSeparator + kSuccess);
    g_stNpMicroVersion[0] = {};

    EXPECT_THAT(run("micro dfx system init"), EndsWith(kSuccess));
    EXPECT_EQ(g_aucNpInitFlag[0], 1);
    EXPECT_THAT(run("micro dfx system init"), HasSubstr("ulReturn = 0x9a000001("));
    EXPECT_THAT(run("micro dfx system destruct"), EndsWith(kSuccess));
    EXPECT_EQ(g_aucNpInitFlag[0], 0);
}

TEST_F(Commands, MicrocodePathIsCleared)
{
    EXPECT_EQ(Np_PUB_SMD_MicroPathClear(), 1u);
    EXPECT_EQ(out.take(), "\n\r Chip not exist!");
    ASSERT_EQ(Np_GLB_ChipRegister(0, 1, 0, 0), NP_OK);
    ASSERT_EQ(Np_INIT_SdkInit(0), NP_OK);
    for (uint32_t address = 0x602000f0; address < 0x60200190; address += 4) {
        poke(address, 0xa5a50000 | (address & 0xfff));
    }
    out.take();
    EXPECT_EQ(Np_PUB_SMD_MicroPathClear(), 0u);
    EXPECT_EQ(out.take(), kSuccess);
    for (uint32_t address = 0x602000f0; address < 0x60200190; address += 4) {
        const bool inside = address >= 0x60200100 && address <= 0x6020017c;
        EXPECT_EQ(peek(address), inside ? 0 : 0xa5a50000 | (address & 0xfff))
            << std::hex << address;
    }
    EXPECT_EQ(Np_INIT_SdkDestruct(0), NP_OK);
}

}  // namespace

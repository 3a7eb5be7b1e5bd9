// The command device's protocol, tracing, and the readers that turn text into values.
#include "tests/shell.h"

#include "sdk/frame/base/text.h"

#include <algorithm>
#include <cstdio>

namespace {

using ldsdk::test::command_buffer;
using ldsdk::test::CommandBuffer;
using ldsdk::test::listed;
using ldsdk::test::Shell;

class Device : public Shell {};
class Getters : public Shell {};
class Trace : public ldsdk::test::Module {};

const std::string kTooLong = "\n!!!cmd from userspace is too long!\n";

std::string listing(const NpCliCmdEntry *entries, uint32_t count)
{
    std::string text;
    for (uint32_t i = 0; i < count; i++) {
        text += listed(entries[i].szName, entries[i].szHelp);
    }
    return text;
}

std::string root_listing()
{
    return listed("micro", "<Group>micro op");
}

std::string listing_below(const char *word)
{
    const NpCliCmdEntry &root = g_stNpSdkCmds[0];
    for (uint32_t i = 0; i < root.ulChildNum; i++) {
        const NpCliCmdEntry &entry = root.pstChildren[i];
        if (std::strcmp(entry.szName, word) == 0) {
            return listing(entry.pstChildren, entry.ulChildNum);
        }
    }
    return "no such group";
}

TEST_F(Device, InstallsAndRemoves)
{
    ld_sdk_cli_unit();  // whatever stands there already
    out.take();
    EXPECT_EQ(Np_ModuleInit(), 0);
    EXPECT_EQ(out.take(), "NP cli is installed.\nNP SDK is installed.\n");
    const OsMiscOps *ops = Os_HostMisc("ldsdk");
    ASSERT_NE(ops, nullptr);
    EXPECT_EQ(ops->pfnOpen(nullptr, nullptr), 0);
    const CommandBuffer buffer = command_buffer(1, {"tool"});
    EXPECT_EQ(ops->pfnIoctl(nullptr, nullptr, 5, reinterpret_cast<uintptr_t>(buffer.data())), 0);
    EXPECT_EQ(out.take(), root_listing());
    EXPECT_EQ(ops->pfnRelease(nullptr, nullptr), 0);
    EXPECT_EQ(ld_sdk_cli_init(), 0);
    EXPECT_EQ(out.take(), "NP cli already installed...\n");
    EXPECT_EQ(Np_ModuleExit(), 0);
    EXPECT_EQ(out.take(), "NP cli is removed.\nNP SDK is removed.\n");
    EXPECT_EQ(Os_HostMisc("ldsdk"), nullptr);

    Os_HostSetMiscFault(-16);
    EXPECT_EQ(ld_sdk_cli_init(), -16);
    EXPECT_EQ(out.take(), "NP cli install failed...\n");
    EXPECT_EQ(Np_ModuleInit(), 0);
    EXPECT_EQ(out.take(), "NP cli install failed...\nNP SDK is installed.\n");
    EXPECT_EQ(Os_HostMisc("ldsdk"), nullptr);
    Os_HostSetMiscFault(0);
    EXPECT_EQ(ld_sdk_cli_init(), 0);
    ld_sdk_cli_unit();
}

TEST_F(Device, Protocol)
{
    const std::string micro = listing(g_stNpSdkCmds[0].pstChildren, g_stNpSdkCmds[0].ulChildNum);
    // Behind the count and "t": 504 bytes with a NUL are the last that fit.
    const std::string fits(505, 'x');
    const std::string overlong(506, 'x');
    const std::vector<std::string> none;
    struct Case {
        const char *what;
        CommandBuffer buffer;
        int result;
        std::string text;
    };
    const Case cases[] = {
        {"no words", command_buffer(0, none), -14, "\nError! cmd argc from userspace is 0.\n"},
        {"negative", command_buffer(-7, {"t"}), -14, "\nError! cmd argc from userspace is -7.\n"},
        {"tool name alone", command_buffer(1, {"t", "micro"}), 0, root_listing()},
        {"root", command_buffer(2, {"t", "micro"}), 0, micro},
        {"no such root", command_buffer(2, {"t", "Micro"}), 0, root_listing()},
        {"no such group", command_buffer(4, {"t", "micro", "qo", "set"}), 0, micro},
        {"no such leaf", command_buffer(5, {"t", "micro", "chip", "gets", "1"}), 0,
         listing_below("chip")},
        {"group", command_buffer(3, {"t", "micro", "acl"}), 0, listing_below("acl")},
        {"more words counted than there", command_buffer(4, {"t", "micro", "chip"}), 0,
         listing_below("chip")},
        {"fewer words counted than there", command_buffer(3, {"t", "micro", "chip", "get"}), 0,
         listing_below("chip")},
        {"ends on the last byte", command_buffer(2, {"t", fits}), 0, root_listing()},
        {"one byte more", command_buffer(2, {"t", overlong}), -14, kTooLong},
        {"a word behind the last byte", command_buffer(3, {"t", fits}), -14, kTooLong},
        {"508 empty words", command_buffer(508, none), 0, root_listing()},
        {"509 words", command_buffer(509, none), -14, kTooLong},
        {"most words", command_buffer(INT32_MAX, none), -14, kTooLong},
        {"handler", command_buffer(4, {"t", "micro", "chip", "get"}), 0,
         "\n\r    Current ChipID: 0"},
    };
    for (const Case &c : cases) {
        SCOPED_TRACE(c.what);
        for (const unsigned int number : {0u, 1u, 0xc0044c01u, 0xffffffffu}) {
            EXPECT_EQ(ioctl(c.buffer, number), c.result);
            EXPECT_EQ(out.take(), c.text);
        }
    }
}

TEST_F(Device, BadBuffersAreRefusedSilently)
{
    const CommandBuffer buffer = command_buffer(2, {"t", "micro"});
    const auto address = reinterpret_cast<uintptr_t>(buffer.data());
    EXPECT_EQ(ioctl(buffer), 0);
    out.take();
    EXPECT_EQ(ld_sdk_cli_ioctl(nullptr, nullptr, 0, 0), -14);
    EXPECT_NE(g_argb[0], 0) << "the last command's text stays";

    Os_HostSetCopyFault(511);
    EXPECT_EQ(ioctl(buffer), -14);
    EXPECT_EQ(g_argc, 0);
    Os_HostSetCopyFault(SIZE_MAX);

    Os_HostSetUserLimit(address + buffer.size());
    EXPECT_EQ(ioctl(buffer), 0);
    out.take();
    Os_HostSetUserLimit(address + buffer.size() - 1);
    EXPECT_EQ(ioctl(buffer), -14);
    EXPECT_EQ(std::string(g_argb, NP_CLI_BUFFER_SIZE), std::string(NP_CLI_BUFFER_SIZE, '\0'));
    EXPECT_EQ(ld_sdk_cli_ioctl(nullptr, nullptr, 0, UINTPTR_MAX - 100), -14) << "wraps";
    Os_HostSetUserLimit(0);
    EXPECT_EQ(out.take(), "");
}

TEST_F(Device, OneTreeIsInstalledOnce)
{
    EXPECT_EQ(Np_INIT_SdkCmdTreeInstall(), 1u);
    EXPECT_EQ(out.take(), "Installed too many cmd groups!\n");
    EXPECT_EQ(run(""), root_listing());

    g_np_cli_ctree = {};
    EXPECT_EQ(run(""), listed("", ""));
    EXPECT_EQ(run("micro"), listed("", ""));
    EXPECT_EQ(ioctl(command_buffer(2, {"t", ""})), 0);
    EXPECT_EQ(out.take(), "") << "an empty word selects the empty root";
}

TEST_F(Device, WalksByTheFirstRecordThatFits)
{
    static int calls;
    calls = 0;
    const NpCliHandler count = [] { return static_cast<uint32_t>(++calls); };
    NpCliCmdEntry below[] = {{"a", "first", nullptr, 0, count},
                             {"a", "second", nullptr, 0, nullptr}};
    NpCliCmdEntry top[] = {{"both", "handler and level", below, 2, count},
                           {"none", "neither", nullptr, 0, nullptr},
                           {"empty", "level of nothing", below, 0, count}};
    struct Case {
        const char *line;
        int calls;
        std::string text;
        int left;
    };
    for (const Case &c :
         {Case{"both", 0, listing(below, 2), 0}, Case{"both a rest", 1, "", 1},
          Case{"none", 0, "", 0}, Case{"empty", 1, "", 0}, Case{"other", 0, listing(top, 3), 1}}) {
        SCOPED_TRACE(c.line);
        calls = 0;
        words(c.line);
        ld_sdk_cli_dispatch(top, 3);
        EXPECT_EQ(calls, c.calls);
        EXPECT_EQ(out.take(), c.text);
        EXPECT_EQ(words_left(), c.left);
    }
    words("both");
    ld_sdk_cli_dispatch(top, 0);
    EXPECT_EQ(out.take(), "");
}

TEST_F(Getters, NumbersAndTheirRanges)
{
    struct Case {
        const char *word;
        uint32_t min, max;
        bool taken;
        uint32_t value;
    };
    for (const Case &c :
         {Case{"7", 0, 9, true, 7}, Case{"0", 0, 9, true, 0}, Case{"9", 0, 9, true, 9},
          Case{"10", 0, 9, false, 0}, Case{"3", 4, 9, false, 0},
          Case{"4294967295", 0, UINT32_MAX, true, ~0u}, Case{"12ab", 0, 99, true, 12},
          Case{"0x10", 0, 99, true, 0}, Case{"abc", 0, 99, false, 0},
          Case{"-1", 0, UINT32_MAX, false, 0}, Case{"", 0, 99, false, 0}}) {
        SCOPED_TRACE(c.word);
        words(c.word);
        uint32_t value = 77;
        EXPECT_EQ(CLI_CamGetParamULONG("prompt", "other", 1, &value, c.min, c.max), !c.taken);
        EXPECT_EQ(value, c.taken ? c.value : 77);
        EXPECT_EQ(out.take(), c.taken ? "" : "prompt\n");
        EXPECT_EQ(g_argp, c.taken ? 2 : 1);
    }
    words("65539 70000 x 5");
    uint16_t half = 0;
    EXPECT_EQ(CLI_CamGetParamUSHORT("p", "", 0, &half, 3, 3), 0u);
    EXPECT_EQ(half, 3);  // the low 16 bits
    EXPECT_EQ(CLI_CamGetParamUSHORT("p", "", 0, &half, 0, 4463), 1u);
    EXPECT_EQ(CLI_CamGetParamUSHORT("p", "", 0, &half, 0, 4464), 0u);
    EXPECT_EQ(CLI_CamGetParamUSHORT("p", "", 0, &half, 0, 65535), 1u);
    EXPECT_EQ(out.take(), "p\np\n");
    uint8_t code = 0;
    EXPECT_EQ(CLI_CamGetParamUCHAR("p", "", 0, &code, 0, 'w'), 1u);
    EXPECT_EQ(CLI_CamGetParamUCHAR("p", "", 0, &code, 'x', 255), 0u);
    EXPECT_EQ(code, 'x');
    EXPECT_EQ(CLI_CamIsNoParam(), 1u);
    EXPECT_EQ(CLI_CamGetParamUCHAR("p", "", 0, &code, 0, 255), 0u);
    EXPECT_EQ(code, '5');
    EXPECT_EQ(CLI_CamIsNoParam(), 0u);
    EXPECT_EQ(CLI_CamGetParamUCHAR("p", "", 0, &code, 0, 255), 1u);
    int32_t plain = -3;
    EXPECT_EQ(CLI_NpGetParamLONG("p", "", 0, &plain, 0, 0), 0u);
    EXPECT_EQ(plain, -3);
}

TEST_F(Getters, Texts)
{
    char text[8] = "old";
    uint32_t length = 9;
    words("abcdef abcdefg");
    EXPECT_EQ(CLI_CamGetParamString("%s", "", 0, text, &length, 7, 7), 1u);
    EXPECT_EQ(out.take(), "%s\n") << "a prompt is no format";
    EXPECT_STREQ(text, "old");
    EXPECT_EQ(CLI_CamGetParamString("p", "", 0, text, &length, 1, 6), 0u);
    EXPECT_STREQ(text, "abcdef");
    EXPECT_EQ(length, 6u);
    EXPECT_EQ(CLI_CamGetParamString("p", "", 0, text, &length, 1, 6), 1u);
    EXPECT_EQ(words_left(), 1);
    CLI_CamTakeWord();
    EXPECT_EQ(CLI_CamGetParamString("p", "", 0, text, &length, 0, 6), 1u) << "no word left";
    out.take();
    CLI_CamOutStringCE("english %d", "other");
    EXPECT_EQ(out.take(), "english %d\n");
}

// ---- tracing ------------------------------------------------------------------------------------

void Np_TestOne(uint32_t value)
{
    NP_TRACE(NP_M_QOS, NP_PRINT_ERROR, "value %u%%", value);
}

void Np_TOther()
{
    NP_TRACE(NP_M_QOS, NP_PRINT_ERROR, "other");
}

void Xp_Test()
{
    NP_TRACE(NP_M_QOS, NP_PRINT_ERROR, "unseen");
}

TEST_F(Trace, ASwitchClosesItselfAfterThirtyOneLines)
{
    Np_TestOne(0);
    EXPECT_EQ(out.take(), "");
    Np_PrintLevelSet(NP_M_QOS, NP_PRINT_ERROR, 1);
    for (uint32_t i = 0; i < 31; i++) {
        EXPECT_EQ(g_stNpSdkModuleSwitch[NP_M_QOS][NP_PRINT_ERROR], 1u) << i;
        Np_TestOne(i);
        char expected[80];
        std::snprintf(expected, sizeof(expected), "\r\n[Np_TestOne %05u]: value %u%%", g_ulNpLine,
                      i);
        EXPECT_EQ(out.take(), expected);
    }
    EXPECT_EQ(g_stNpSdkModuleSwitch[NP_M_QOS][NP_PRINT_ERROR], 0u);
    EXPECT_EQ(g_stNpSdkModuleSwitch[NP_M_QOS][NP_PRINT_ERROR + NP_SWITCH_COUNTER], 0u);
    Np_TestOne(99);
    EXPECT_EQ(out.take(), "");
}

TEST_F(Trace, FunctionModePrintsItsCountAndEnds)
{
    Np_PrintLevelSet(NP_M_QOS, NP_PRINT_ERROR, 1);
    std::strcpy(reinterpret_cast<char *>(g_aucNpUsrFunc), "Np_TestOther");
    g_ulNpSdkTraceFuncTimes = 3;
    g_stNpSdkFuncEnable = 1;
    Xp_Test();
    Np_TestOne(1);
    Np_TOther();  // the first four characters are all that counts
    Xp_Test();
    Np_TestOne(2);
    const std::string text = out.take();
    EXPECT_EQ(std::count(text.begin(), text.end(), '['), 3);
    EXPECT_EQ(text.find("unseen"), std::string::npos);
    Np_TestOne(3);
    EXPECT_EQ(out.take(), "") << "the line behind the last turns the mode off";
    EXPECT_EQ(g_stNpSdkFuncEnable, 0u);
    EXPECT_EQ(g_stNpSdkFuncCount, 0u);
    Np_TestOne(4);
    EXPECT_NE(out.take(), "");
    g_ulNpSdkTraceFuncTimes = 20;
}

TEST_F(Trace, SwitchesAndDumps)
{
    Np_PrintLevelSwitchAll(5, 1);
    for (uint32_t module = 0; module < NP_MODULE_NUM; module++) {
        for (uint32_t level = 1; level <= NP_LEVEL_NUM; level++) {
            EXPECT_EQ(g_stNpSdkModuleSwitch[module][level], module == 0 ? 0u : 1u);
        }
    }
    Np_ClosePrintExceptError();
    EXPECT_EQ(g_stNpSdkModuleSwitch[29][NP_PRINT_TRACE], 0u);
    EXPECT_EQ(g_stNpSdkModuleSwitch[29][NP_PRINT_ERROR], 1u);
    EXPECT_EQ(g_stNpSdkModuleSwitch[29][NP_PRINT_POLL], 0u);
    Np_PrintLevelSet(30, NP_PRINT_ERROR, 1);  // no such row
    Np_DeubgPrint(30, NP_PRINT_ERROR, "no");
    Np_DeubgPrint(29, 6, "no");
    g_stNpSdkModuleSwitch[1][NP_PRINT_DEBUG] = 2;
    Np_DeubgPrint(1, NP_PRINT_DEBUG, "no");
    EXPECT_EQ(out.take(), "");
    g_stNpSdkModuleSwitch[1][NP_PRINT_DEBUG] = 1;
    for (uint32_t i = 0; i < 40; i++) {
        Np_DeubgPrint(1, NP_PRINT_DEBUG, "%s", "dump");
    }
    EXPECT_EQ(out.take().size(), 160u) << "dumps are not counted";
    Np_DeubgPrint(1, NP_PRINT_DEBUG, "%0600u", 1u);
    EXPECT_EQ(out.take().size(), 511u);
    Np_ClearWatchDog();
    EXPECT_NE(out.take().find("]:  no reg clearwatchdog function \r\n"), std::string::npos);
}

TEST_F(Trace, HooksRefuseNull)
{
    static std::string printed;
    printed.clear();
    trace_errors(NP_M_COMM);
    EXPECT_EQ(Np_GLB_SetPrintHook(nullptr), NP_ERR_NULL_PTR);
    EXPECT_NE(out.take().find("]:  error parameter \r\n"), std::string::npos);
    const NpPrintHook kept = g_pfnNpSdkPrint;
    EXPECT_EQ(Np_GLB_SetPrintHook([](const char *text) { printed += text; }), NP_OK);
    EXPECT_EQ(Np_GLB_SlaveAddrHookRegister(
                  1, [](uint32_t, uint32_t *) { return 0u; }, nullptr),
              NP_ERR_NULL_PTR);
    EXPECT_NE(g_pFnNpSlaveAddrRead[1], nullptr);
    EXPECT_EQ(g_pFnNpSlaveAddrWrite[1], nullptr);
    EXPECT_NE(printed.find("]:  no reg slave addr write function \r\n"), std::string::npos);
    EXPECT_EQ(out.take(), "");
    g_pfnNpSdkPrint = kept;
}

// ---- text to value ------------------------------------------------------------------------------

TEST(Text, Mac)
{
    struct Case {
        const char *text;
        uint32_t code;
        std::vector<uint8_t> mac;
    };
    for (const Case &c :
         std::vector<Case>{{"00-11-22-aA-Bb-ff", NP_OK, {0, 0x11, 0x22, 0xaa, 0xbb, 0xff}},
                           {"1-2-3-4-5-6", NP_OK, {1, 2, 3, 4, 5, 6}},
                           {" 1- 2-3-4-5-6", NP_OK, {1, 2, 3, 4, 5, 6}},
                           {"1-2-3-4-5-00000000000000000006", NP_OK, {1, 2, 3, 4, 5, 6}},
                           {"1-2-3-4-5", NP_ERR_FAIL, {}},
                           {"1-2-3-4-5-", NP_ERR_FAIL, {}},
                           {"1-2-3-4-5-100", NP_ERR_FAIL, {}},
                           {"1-2-3-4-5-g", NP_ERR_FAIL, {}},
                           {"1:2:3:4:5:6", NP_ERR_FAIL, {}},
                           {"", NP_ERR_FAIL, {}},
                           {"1-2-3-4-5-0000000000000000000006", NP_ERR_FAIL, {}},  // 32 characters
                           {nullptr, NP_ERR_NULL_PTR, {}}}) {
        SCOPED_TRACE(c.text == nullptr ? "null" : c.text);
        std::vector<uint8_t> mac(6);
        EXPECT_EQ(Np_StringMacToUCharMac(c.text, mac.data()), c.code);
        if (c.code == NP_OK) {
            EXPECT_EQ(mac, c.mac);
        }
    }
}

TEST(Text, Ipv4)
{
    struct Case {
        const char *text;
        uint32_t code, ip;
    };
    for (const Case &c : {Case{"192.168.1.254", NP_OK, 0xc0a801fe}, Case{"0.0.0.0", NP_OK, 0},
                          Case{"255.255.255.255", NP_OK, ~0u}, Case{"256.0.0.0", NP_ERR_FAIL, 0},
                          Case{"1.2.3", NP_ERR_FAIL, 0}, Case{"1.2.3.-4", NP_ERR_FAIL, 0},
                          Case{"1.2.3.a", NP_ERR_FAIL, 0}, Case{"", NP_ERR_FAIL, 0},
                          Case{"1.2.3.00000000000000000000000004", NP_ERR_FAIL, 0},
                          Case{nullptr, NP_ERR_NULL_PTR, 0}}) {
        SCOPED_TRACE(c.text == nullptr ? "null" : c.text);
        uint32_t ip = 0;
        EXPECT_EQ(Np_StringIPToULongIP(c.text, &ip), c.code);
        EXPECT_EQ(ip, c.ip);
    }
    EXPECT_EQ(Np_StringIPToULongIP("1.2.3.4", nullptr), NP_ERR_NULL_PTR);
}

TEST(Text, Ipv6)
{
    using Words = std::array<uint32_t, 4>;
    struct Case {
        const char *text;
        uint32_t code;
        Words ip;
    };
    for (const Case &c :
         std::vector<Case>{{"::", NP_OK, {0, 0, 0, 0}},
                           {"1::", NP_OK, {0x10000, 0, 0, 0}},
                           {"::1", NP_OK, {0, 0, 0, 1}},
                           {"1:2:3:4:5:6:7:8", NP_OK, {0x10002, 0x30004, 0x50006, 0x70008}},
                           {"2001:Db8::8:9", NP_OK, {0x20010db8, 0, 0, 0x80009}},
                           {"1:2:3:4:5:6:7::", NP_OK, {0x10002, 0x30004, 0x50006, 0x70000}},
                           {"::2:3:4:5:6:7:8", NP_OK, {2, 0x30004, 0x50006, 0x70008}},
                           {"1:2:3:4::5:6:7:8", NP_ERR_FAIL, {}},
                           {"ffff:ffff:ffff:ffff:ffff:ffff:ffff:ffff", NP_OK, {~0u, ~0u, ~0u, ~0u}},
                           {":1", 0xffffffff, {}},
                           {"1:", 0xffffffff, {}},
                           {":", 0xffffffff, {}},
                           {"1::2::3", NP_ERR_FAIL, {}},
                           {":::", NP_ERR_FAIL, {}},
                           {"1:2:3", NP_ERR_FAIL, {}},
                           {"10000::", NP_ERR_FAIL, {}},
                           {"1::g", NP_ERR_FAIL, {}},
                           {" ::1", NP_ERR_FAIL, {}},
                           {"", NP_ERR_FAIL, {}},
                           {"ffff:ffff:ffff:ffff:ffff:ffff:ffff:00000", NP_ERR_FAIL, {}}}) {
        SCOPED_TRACE(c.text);
        std::string text = c.text;
        Words ip{};
        EXPECT_EQ(Np_StringIPv6ToULongIP(text.data(), ip.data()), c.code);
        if (c.code == NP_OK) {
            EXPECT_EQ(ip, c.ip);
        }
    }
    Words ip{};
    EXPECT_EQ(Np_StringIPv6ToULongIP(nullptr, ip.data()), NP_ERR_NULL_PTR);
}

TEST(Text, Helpers)
{
    EXPECT_STREQ(Np_GetShortFileName("/a/b\\c.cpp"), "c.cpp");
    EXPECT_STREQ(Np_GetShortFileName("plain"), "plain");
    EXPECT_EQ(Np_GetShortFileName(nullptr), nullptr);
    EXPECT_EQ(Np_StrCmp("a\x80", "a\x7f"), 1) << "bytes are unsigned";
    EXPECT_EQ(Np_StrCmp("a", "ab"), -1);
    EXPECT_EQ(Np_MemCmp("ab\0c", "ab\0d", 4), -1);
    char text[4] = {'x', 'x', 'x', 'x'};
    Np_StrNCpy(text, "ab\0d", 3);
    EXPECT_EQ(std::string(text, 4), std::string("ab\0x", 4));
}

}  // namespace

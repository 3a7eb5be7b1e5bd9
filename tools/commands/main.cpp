// Prints docs/commands.md: the command tree with what each command takes, read from the tree and
// the descriptions that the handlers themselves read.
#include "sdk/module/cli/cli.h"
#include "sdk/module/tree.h"
#include "tools/params/params.h"

#include <algorithm>
#include <cstdio>
#include <string>
#include <vector>

namespace {

using ldsdk::tool::params_of;
using ldsdk::tool::selector_of;
using ldsdk::tool::values_of;

// "downoption" and "31" for the first of 32 parameters that differ in their number only.
std::string name_of(const NpSmdParam &param)
{
    const std::string name = param.stItem.szName;
    if (param.ulRun <= 1) {
        return "`" + name + "`";
    }
    const std::string stem = name.substr(0, name.size() - 1);
    return "`" + name + "` to `" + stem + std::to_string(param.ulRun - 1) + "`";
}

// When a parameter is asked for, by the words of the one that it depends on.
std::string when_of(const NpSmdParam &param, const std::vector<NpSmdParam> &params)
{
    const NpSmdParam *selector = selector_of(param, params);
    if (selector == nullptr) {
        return param.bKey != 0 ? "key" : "";
    }
    const char *relation = param.bKey != 0       ? "key, with `"
                           : selector->bKey != 0 ? "with `"
                                                 : "behind `";
    std::string text = std::string(relation) + param.stOf.pszOf + "`";
    const bool others = param.stOf.ulRest != 0;
    text += others ? " other than" : "";
    for (uint32_t value = 0; value < 32; value++) {
        if (((param.stOf.ulMask >> value & 1) != 0) == others) {
            continue;
        }
        std::string word = std::to_string(value);
        for (uint32_t i = 0; i < selector->ulEnumNum; i++) {
            if (selector->pstEnum[i].ulValue == value) {
                word = selector->pstEnum[i].pszText;
            }
        }
        text += " " + word;
    }
    return text;
}

std::string example_value(const NpSmdParam &param)
{
    switch (param.stItem.ulType) {
        case NP_SMD_ENUM:
            return param.ulEnumNum != 0 ? param.pstEnum[0].pszText : "0";
        case NP_SMD_MAC:
            return "00-11-22-33-44-55";
        case NP_SMD_IPV4:
            return "192.0.2.1";
        case NP_SMD_IPV6:
            return "2001:db8::1";
        case NP_SMD_STRING:
            return "text";
        case NP_SMD_PORT:
            return "ge portid 1 subportid 0";
        case NP_SMD_DATA:
            return "0a0b";
        case NP_SMD_SIGNED:
            return "plus 1";
        default:
            return std::to_string(std::min<uint32_t>(
                static_cast<uint32_t>(param.stItem.lMax),
                std::max<uint32_t>(static_cast<uint32_t>(param.stItem.lMin), 1)));
    }
}

// The value that an example gives a parameter which lets others in.
uint32_t example_choice(const NpSmdParam &selector)
{
    return selector.ulEnumNum != 0 ? selector.pstEnum[0].ulValue : 0;
}

// A line that runs: the keys, the first parameter behind them, and what its value lets in.
std::string example_of(const std::string &path, NpSmdForm form,
                       const std::vector<NpSmdParam> &params)
{
    std::string line = path;
    const bool named = form != NP_FORM_VALUES;
    const bool all = form == NP_FORM_PAIRS || form == NP_FORM_VALUES || form == NP_FORM_ENTRY;
    const auto add = [&](const NpSmdParam &param) {
        const bool selects = std::any_of(
            params.begin(), params.end(),
            [&](const NpSmdParam &other) { return selector_of(other, params) == &param; });
        const std::string value = selects && param.ulEnumNum == 0
                                      ? std::to_string(example_choice(param))
                                      : example_value(param);
        line += (named ? std::string(" ") + param.stItem.szName : "") + " " + value;
    };
    const auto let_in = [&](const NpSmdParam &param) {
        const NpSmdParam *selector = selector_of(param, params);
        return selector == nullptr || (param.stOf.ulMask >> example_choice(*selector) & 1) != 0;
    };
    // Behind another parameter of the menu, and not beside it.
    const auto behind = [&](const NpSmdParam &param) {
        const NpSmdParam *selector = selector_of(param, params);
        return selector != nullptr && selector->bKey == 0;
    };
    size_t shown = 0;
    for (const NpSmdParam &param : params) {
        const bool in_order = all || param.bKey != 0;
        if (!let_in(param) || (!in_order && (behind(param) || shown++ > 0))) {
            continue;
        }
        add(param);
        for (const NpSmdParam &other : params) {
            if (!in_order && selector_of(other, params) == &param && let_in(other)) {
                add(other);
            }
        }
    }
    return form == NP_FORM_LARGE ? line + " end" : line;
}

const char *form_text(NpSmdForm form)
{
    switch (form) {
        case NP_FORM_GET:
            return "Keys; prints the row.";
        case NP_FORM_SET:
            return "Keys, then pairs in this order; what is left out keeps its value.";
        case NP_FORM_ENTRY:
            return "Keys, then pairs in this order; what is left out keeps its value, and an entry "
                   "that is not there yet takes them all.";
        case NP_FORM_LARGE:
            return "Keys, then pairs in any order, by name or menu number, up to `end`; what is "
                   "left out keeps its value.";
        case NP_FORM_PAIRS:
            return "Pairs in this order, all of them.";
        case NP_FORM_COUNTED:
            return "The pair, then as many values of the other parameter without its name.";
        default:
            return "Values in this order, without their names.";
    }
}

bool is_pending(NpCliHandler handler)
{
    static const NpCliHandler pending[] = {
#define NP_PENDING_HANDLER(Name) Name,
#include "sdk/module/pending_handlers.h"
        nullptr,
    };
    return std::find(std::begin(pending), std::end(pending), handler) != std::end(pending);
}

// What an example takes to run on a chip that was just brought up, where its parameters don't tell.
struct Need {
    NpCliHandler handler;
    std::vector<const char *> before;  // lines that have to run first
    const char *line = nullptr;        // in place of the one that was made up
    const char *refused = nullptr;     // why it can't run everywhere
};

// Commands of tables that this family has not.
constexpr NpCliHandler kAbsent[] = {
    Np_SMD_L2_CmClassTbl_Set,      Np_SMD_L2_CmClassTbl_Get,      Np_SMD_L2_CmGroupTbl_Set,
    Np_SMD_L2_CmGroupTbl_Get,      Np_SMD_L2_CmLmtTbl_Set,        Np_SMD_L2_CmLmtTbl_Get,
    Np_SMD_L2_DmacTbl_Set,         Np_SMD_L2_DmacTbl_Get,         Np_SMD_L2_SmacPoolTbl_Set,
    Np_SMD_L2_SmacPoolTbl_Get,     Np_SMD_AtmEncapTbl_Set,        Np_SMD_AtmEncapTbl_Get,
    Np_SMD_AtmEncapTblPvcItem_Set, Np_SMD_AtmEncapTblPvcItem_Get, Np_SMD_CesopMapTbl_Add,
    Np_SMD_CesopMapTbl_Get,        Np_SMD_CesopMapTbl_Del,        Np_SMD_IpUdpEncapInfoTbl_Set,
    Np_SMD_IpUdpEncapInfoTbl_Get,  Np_SMD_Stat_QueueTbl_Set,      Np_SMD_CmDosTbl_Set,
    Np_SMD_CmDosTbl_Get,           Np_SMD_CmIpBonding_Set,        Np_SMD_CmIpBonding_Get,
    Np_SMD_CmIpBonding_Del,        NP_SMD_CmIpbonding_Dump,       Np_SMD_Stat_QueueTbl_Get,
    Np_SMD_Stat_PriTbl_Set,        Np_SMD_Stat_PriTbl_Get,
};
constexpr char kRule[] =
    "micro l2 multiservicetbl set keyid 1 keypri 0 port ge portid 1 subportid 0 iftid 1 end";

constexpr char kL2pa[] = "micro l2pa set index 1 key_ethtype 2048 mask_ethtype 65535 end";
constexpr char kL3pa[] = "micro l3pa set index 1 key_encap 8 mask_encap 15 end";

// Commands of access rules, whose rows come with an option of the family.
constexpr NpCliHandler kAcl[] = {
    Np_SMD_ACL_TblSet,       Np_SMD_ACL_TblGet,       Np_SMD_ACL_TblDel,      NP_SMD_ACL_Init,
    Np_SMD_ACL_ActionTblSet, Np_SMD_ACL_ActionTblGet, Np_SMD_ACL_SoftTblDump,
};

const Need *need_of(NpCliHandler handler)
{
    static const Need acl = {{}, {}, nullptr, "it takes `--option acl`"};
    if (std::find(std::begin(kAcl), std::end(kAcl), handler) != std::end(kAcl)) {
        return &acl;
    }
    static const Need absent = {{}, {}, nullptr, "this family has no such table"};
    if (std::find(std::begin(kAbsent), std::end(kAbsent), handler) != std::end(kAbsent)) {
        return &absent;
    }
    static const Need needs[] = {
        {Np_PUB_SMD_ChipSwitchSet, {}, "micro chip set 0"},
        {Np_SMD_ATOM_Load, {}, nullptr, "there is no image at this address"},
        {Np_SMD_DFX_Cpu_CacheClear, {}, "micro dfx cache_clear cpu 0"},
        {Np_SMD_ARL_ArlTbl_AgeMode_Set,
         {"micro uvt set index 1 aucVmac 00-11-22-33-44-55",
          "micro arl arltbl set ulType 15 stPort ge portid 1 subportid 0 ulVsi 1 "
          "aucMacAddr 00-11-22-33-44-55 ulVmac 1 ulVmacID 1"}},
        {Np_SMD_ARL_ArlTbl_Get,
         {"micro arl arltbl set ulType 0 ulSvlanID 1 ulVsi 1 aucMacAddr 00-11-22-33-44-55 "
          "ulOpCode 1"}},
        {Np_SMD_ARL_LanMacTbl_Get,
         {"micro arl lanmactbl set ulSvlanID 1 aucMacAddr 00-11-22-33-44-55 ulL2encId 1"}},
        {Np_SMD_AoePktHaInfo_Set, {}, nullptr, "this family has no such rule"},
        {Np_SMD_1xSmac_Get,
         {"micro 1xsmac set port ge portid 1 subportid 0 aucMacAddr 00-11-22-33-44-55"}},
        {Np_SMD_IpFlow_Get, {"micro ipbonding ipflow set ulIpType ipv4 index 1 ulIpv4 192.0.2.1"}},
        {Np_SMD_IpFlowBundle_Get,
         {"micro ipbonding ipflowbundle set ulIpType ipv4 index 1 ulIpv4 192.0.2.1"}},
        {NP_SMD_L2_MultiServiceTbl_Set, {}, kRule},
        {NP_SMD_L2_MultiServiceTbl_Get, {kRule}},
        {NP_SMD_Pri_Init, {}, "micro l2 pri_init prinum 3 30 30 40"},
        {NP_SMD_L2_Init, {}, "micro l2 init prinum 3 30 30 40"},
        {Np_SMD_L2pa_Init, {}, "micro l2pa init prinum 3 30 30 40"},
        {Np_SMD_L3pa_Init, {}, "micro l3pa init prinum 3 30 30 40"},
        {Np_SMD_L2pa_Get, {kL2pa}},
        {Np_SMD_L2pa_SetState, {kL2pa}},
        {Np_SMD_L2pa_GetState, {kL2pa}},
        {Np_SMD_L3pa_Get, {kL3pa}},
        {Np_SMD_L3pa_SetState, {kL3pa}},
        {Np_SMD_L3pa_GetState, {kL3pa}},
        {Np_SMD_CPUTR_SendPkt, {}, "micro cputr send insert_type queue ulQID 1 pucData 0a0b end"},
    };
    const auto need = std::find_if(std::begin(needs), std::end(needs),
                                   [&](const Need &row) { return row.handler == handler; });
    return need == std::end(needs) ? nullptr : need;
}

// before: a line that has to run first, or none.
void print_example(const std::string &made_up, const Need *need, const std::string &before)
{
    if (need != nullptr && need->refused != nullptr) {
        std::printf("\nRefused as it stands: %s.\n", need->refused);
    }
    std::printf("\n");
    if (!before.empty()) {
        std::printf("    %s\n", before.c_str());
    }
    for (const char *line : need != nullptr ? need->before : std::vector<const char *>()) {
        std::printf("    %s\n", line);
    }
    const bool other = need != nullptr && need->line != nullptr;
    std::printf("    %s\n", other ? need->line : made_up.c_str());
}

// The example that makes the entry which a command of the group is to find, if entries have to be
// made.
std::string entry_made(const std::string &path, const NpCliCmdEntry &group)
{
    for (uint32_t i = 0; i < group.ulChildNum; i++) {
        const NpCliCmdEntry &child = group.pstChildren[i];
        const NpSmdForm form = Np_SMD_CommandForm(child.pfnHandler);
        if (child.ulChildNum == 0 && form == NP_FORM_ENTRY) {
            return example_of(path + " " + child.szName, form, params_of(child.pfnHandler));
        }
    }
    return "";
}

void print_command(const std::string &path, const NpCliCmdEntry &entry, const std::string &before)
{
    const std::vector<NpSmdParam> params = params_of(entry.pfnHandler);
    std::printf("\n`%s`: %s\n", path.c_str(), entry.szHelp);
    if (params.empty()) {
        return;
    }
    const NpSmdForm form = Np_SMD_CommandForm(entry.pfnHandler);
    std::printf("\n%s\n", form_text(form));
    std::printf("\n| # | parameter | values | |\n|---|---|---|---|\n");
    for (size_t i = 0; i < params.size(); i += params[i].ulRun) {
        const NpSmdParam &param = params[i];
        const uint32_t number = param.stItem.ulPromptNo;
        std::printf("| %s | %s | %s | %s |\n", number != 0 ? std::to_string(number).c_str() : "",
                    name_of(param).c_str(), values_of(param).c_str(),
                    when_of(param, params).c_str());
    }
    print_example(example_of(path, form, params), need_of(entry.pfnHandler),
                  form == NP_FORM_GET ? before : "");
}

struct Count {
    uint32_t landed;
    uint32_t pending;
};

Count count_commands(const NpCliCmdEntry &entry)
{
    if (entry.ulChildNum == 0) {
        const bool pending = is_pending(entry.pfnHandler);
        return {pending ? 0u : 1u, pending ? 1u : 0u};
    }
    Count sum = {};
    for (uint32_t i = 0; i < entry.ulChildNum; i++) {
        const Count count = count_commands(entry.pstChildren[i]);
        sum.landed += count.landed;
        sum.pending += count.pending;
    }
    return sum;
}

// The commands of a group, then its groups; of both what has landed.
void print_group(const std::string &path, const NpCliCmdEntry &entry)
{
    if (count_commands(entry).landed == 0) {
        return;
    }
    std::printf("\n## %s\n", path.c_str());
    for (uint32_t i = 0; i < entry.ulChildNum; i++) {
        const NpCliCmdEntry &child = entry.pstChildren[i];
        if (child.ulChildNum == 0 && !is_pending(child.pfnHandler)) {
            print_command(path + " " + child.szName, child, entry_made(path, entry));
        }
    }
    for (uint32_t i = 0; i < entry.ulChildNum; i++) {
        const NpCliCmdEntry &child = entry.pstChildren[i];
        if (child.ulChildNum != 0) {
            print_group(path + " " + child.szName, child);
        }
    }
}

// How many commands of each word behind the root have not landed.
void print_pending(const NpCliCmdEntry &root)
{
    const Count all = count_commands(root);
    if (all.pending == 0) {
        return;
    }
    std::printf("\n## Not there yet\n\n%u of %u commands answer \"Invalid command!\" so far:",
                all.pending, all.pending + all.landed);
    const char *between = " ";
    for (uint32_t i = 0; i < root.ulChildNum; i++) {
        const Count count = count_commands(root.pstChildren[i]);
        if (count.pending != 0) {
            const std::string name = std::string(root.szName) + " " + root.pstChildren[i].szName;
            std::printf("%s`%s` %s%u", between, name.c_str(), count.landed == 0 ? "all " : "",
                        count.pending);
            between = ", ";
        }
    }
    std::printf(".\n");
}

}  // namespace

int main()
{
    std::printf(
        "# Commands\n\n"
        "Generated from the command tree and the descriptions of the rows; `make status` writes "
        "it.\n\n"
        "A parameter is a name and a value. Where a field has no keyword of its own, its name in "
        "the record is the name; for every field that name is taken too, and so is its short form "
        "without the type prefix, in lower case (`fwd` for `ulFwd`). A value word can be given as "
        "its number. The range is that of the function behind the command, which refuses what "
        "lies outside. Numbers are decimal.\n\n"
        "The indented lines run as they stand on a chip that was just brought up, together where "
        "one needs the other.\n");
    print_group(g_stNpSdkCmds[0].szName, g_stNpSdkCmds[0]);
    print_pending(g_stNpSdkCmds[0]);
    return 0;
}

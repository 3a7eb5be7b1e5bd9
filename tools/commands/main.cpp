// Prints docs/commands.md: the command tree with what each command takes, read from the tree and
// the descriptions that the handlers themselves read.
#include "sdk/module/cli.h"
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
    std::string text = std::string(relation) + param.pszOf + "`";
    for (uint32_t value = 0; value < 32; value++) {
        if ((param.ulOfMask >> value & 1) == 0) {
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
            return std::to_string(std::min<uint32_t>(static_cast<uint32_t>(param.stItem.lMax), 1));
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
    const bool all = form == NP_FORM_PAIRS || form == NP_FORM_VALUES;
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
        return selector == nullptr || (param.ulOfMask >> example_choice(*selector) & 1) != 0;
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
        case NP_FORM_LARGE:
            return "Keys, then pairs in any order, by name or menu number, up to `end`; what is "
                   "left out keeps its value.";
        case NP_FORM_PAIRS:
            return "Pairs in this order, all of them.";
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

void print_command(const std::string &path, const NpCliCmdEntry &entry)
{
    const std::vector<NpSmdParam> params = params_of(entry.pfnHandler);
    std::printf("\n`%s`: %s\n", path.c_str(), entry.szHelp);
    if (is_pending(entry.pfnHandler)) {
        std::printf("(not there yet)\n");
    }
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
    std::printf("\n    %s\n", example_of(path, form, params).c_str());
}

// The commands of a group, then its groups.
void print_group(const std::string &path, const NpCliCmdEntry &entry)
{
    std::printf("\n## %s\n", path.c_str());
    for (uint32_t i = 0; i < entry.ulChildNum; i++) {
        const NpCliCmdEntry &child = entry.pstChildren[i];
        if (child.ulChildNum == 0) {
            print_command(path + " " + child.szName, child);
        }
    }
    for (uint32_t i = 0; i < entry.ulChildNum; i++) {
        const NpCliCmdEntry &child = entry.pstChildren[i];
        if (child.ulChildNum != 0) {
            print_group(path + " " + child.szName, child);
        }
    }
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
        "lies outside. Numbers are decimal.\n");
    print_group(g_stNpSdkCmds[0].szName, g_stNpSdkCmds[0]);
    return 0;
}

// What the module's commands take, for whoever tells people: read from the descriptions that the
// handlers themselves read.
#pragma once

#include "sdk/module/cli/params.h"

#include <span>
#include <string>
#include <vector>

namespace ldsdk::tool {

// A word that may come next on a command line. One that begins with '<' stands for any of a kind,
// such as a number of a range.
struct NextWord {
    std::string name;
    std::string help;
    bool more;  // further words follow it: it names a group
};

// What stands in place of further words, where a line may end and where none can come.
inline constexpr char kLineEnd[] = "<end of the line>";
inline constexpr char kNoWord[] = "<nothing>";
NextWord line_end();
NextWord unknown_word(const std::string &word);
NextWord surplus_word(const std::string &word);

// The parameters of a command, keys first. One that stands in several places of a row, by what it
// depends on, is one here.
std::vector<NpSmdParam> params_of(NpCliHandler handler);

// The parameter whose value decides whether this one is there, or null.
const NpSmdParam *selector_of(const NpSmdParam &param, const std::vector<NpSmdParam> &params);

// " for `op_code` 0 1", with the word given for "for"; nothing where nothing is asked.
std::string condition_of(const NpSmdOf &of, const char *relation);

// What a value may be: "0 to 4095", "`xx-xx-xx-xx-xx-xx`", "0 `off`, 1 `on`".
std::string values_of(const NpSmdParam &param);

// The words that can follow a command and the words behind it, or why none can. Runs nothing.
std::vector<NextWord> param_next_words(NpCliHandler handler, std::span<const std::string> words);

}  // namespace ldsdk::tool

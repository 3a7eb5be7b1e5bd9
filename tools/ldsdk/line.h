// Command lines: splitting into words, and reading numbers.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace ldsdk::tool {

using Words = std::vector<std::string>;

// Splits a line at blanks. "..." and '...' keep what is between them as it is, blanks included, and
// join what stands directly beside them; an unquoted # at the start of a word begins a comment.
// Throws a usage error for a quote that is not closed, and for a NUL byte, which no word can carry.
void split_line(std::string_view line, Words &words);

// The same for a line that is still being typed: the words that are complete, and what there is of
// the one at its end. Never throws.
struct TypedLine {
    Words words;
    std::string last;  // empty behind a blank
    bool open_quote = false;
};
TypedLine split_typed(std::string_view line);

// A number in decimal or, behind 0x, in hexadecimal, from low to high. Anything else throws a usage
// error that names the command, the word, and what the word should be ("address").
uint64_t read_number(const std::string &command, const std::string &word, const char *what,
                     uint64_t low, uint64_t high);

}  // namespace ldsdk::tool

#include "tools/ldsdk/line.h"

#include "tools/ldsdk/error.h"

#include <charconv>
#include <optional>

namespace ldsdk::tool {

namespace {

bool is_blank(char c)
{
    return c == ' ' || c == '\t' || c == '\r' || c == '\n' || c == '\v' || c == '\f';
}

// What a split ended on: the word in progress, if there is one, and the quote that is still open.
struct Rest {
    std::optional<std::string> word;
    size_t quote_column = 0;  // 1 up; 0 when no quote is open
};

Rest scan(std::string_view line, Words &words)
{
    words.clear();
    std::optional<std::string> word;
    size_t at = 0;
    while (at < line.size()) {
        const char c = line[at];
        if (is_blank(c)) {
            if (word) {
                words.push_back(std::move(*word));
                word.reset();
            }
            at++;
            continue;
        }
        if (c == '#' && !word) {
            return {};
        }
        if (!word) {
            word.emplace();
        }
        if (c == '"' || c == '\'') {
            const size_t end = line.find(c, at + 1);
            word->append(line.substr(at + 1, end == line.npos ? line.npos : end - at - 1));
            if (end == line.npos) {
                return {std::move(word), at + 1};
            }
            at = end + 1;
            continue;
        }
        const size_t end = line.find_first_of(" \t\r\n\v\f\"'", at);
        word->append(line.substr(at, end == line.npos ? line.npos : end - at));
        at = end == line.npos ? line.size() : end;
    }
    return {std::move(word), 0};
}

std::string hex(uint64_t value)
{
    char text[20] = "0x";
    *std::to_chars(text + 2, text + sizeof text - 1, value, 16).ptr = '\0';
    return text;
}

}  // namespace

void split_line(std::string_view line, Words &words)
{
    if (const size_t at = line.find('\0'); at != line.npos) {
        throw usage("a NUL byte in column " + std::to_string(at + 1) + "; expected text");
    }
    Rest rest = scan(line, words);
    if (rest.quote_column != 0) {
        const size_t column = rest.quote_column;
        throw usage("the quote in column " + std::to_string(column) + " is not closed; expected " +
                    line[column - 1] + " further on");
    }
    if (rest.word) {
        words.push_back(std::move(*rest.word));
    }
}

TypedLine split_typed(std::string_view line)
{
    TypedLine typed;
    Rest rest = scan(line, typed.words);
    typed.open_quote = rest.quote_column != 0;
    typed.last = std::move(rest.word).value_or("");
    return typed;
}

uint64_t read_number(const std::string &command, const std::string &word, const char *what,
                     uint64_t low, uint64_t high)
{
    const bool is_hex = word.starts_with("0x") || word.starts_with("0X");
    const char *first = word.data() + (is_hex ? 2 : 0);
    const char *end = word.data() + word.size();
    uint64_t value = 0;
    const auto [stop, code] = std::from_chars(first, end, value, is_hex ? 16 : 10);
    if (code != std::errc() || stop != end || value < low || value > high) {
        throw usage(command + ": \"" + word + "\": expected " + what + ", a number from " +
                    (is_hex ? hex(low) + " to " + hex(high)
                            : std::to_string(low) + " to " +
                                  (high > 0xffff ? hex(high) : std::to_string(high))) +
                    ", decimal or 0x hexadecimal");
    }
    return value;
}

}  // namespace ldsdk::tool

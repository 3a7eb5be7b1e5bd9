// One instruction of the atoms as text: the disassembler's own line, read back.
#pragma once

#include <cstdint>
#include <functional>
#include <optional>
#include <stdexcept>
#include <string>
#include <string_view>

namespace ldsdk::host {

inline constexpr uint64_t kNop = 0xca003df90000;        // MOV (CC0 = TRUE) VOID = 0x0
inline constexpr uint64_t kNoInstruction = 1ull << 48;  // above every instruction

inline constexpr std::string_view kByteOrderMark = "\xef\xbb\xbf";  // of UTF-8

// A word in quotes for a message; a long one is cut.
std::string in_quotes(std::string_view word);

// Something in a line is not what it should be.
struct LineError : std::runtime_error {
    LineError(size_t at, const std::string &text) : std::runtime_error(text), column(at + 1) {}
    size_t column;  // 1 for the first character
};

// Value of a name, if it has one.
using SymbolLookup = std::function<std::optional<uint64_t>(std::string_view name)>;

// Reads a line from left to right. Blanks separate words and mean nothing else; a comment begins
// with ";" or "#" outside of a string and ends with the line.
class LineReader {
  public:
    explicit LineReader(std::string_view line, const SymbolLookup *symbols = nullptr)
        : line_(line), symbols_(symbols)
    {
    }

    size_t at() const
    {
        return at_;
    }
    void move_to(size_t at)
    {
        at_ = at;
    }
    void skip_rest()
    {
        at_ = line_.size();
    }
    void skip_blanks();
    // Nothing is left but blanks and a comment.
    bool at_end();
    void expect_end();
    // Takes a character that is next, blanks skipped before it.
    bool take(char wanted);
    void expect(char wanted);
    // A word of letters, digits, "_" and a leading "."; empty if there is none.
    std::string_view word();
    std::string_view peek_word();
    // A number, a name or a sum of both: "0x20", "loop + 4". Names need symbols.
    uint64_t expression(const char *what);
    // Digits without "0x" are hexadecimal here.
    uint64_t bare_hex_expression(const char *what);
    // Text in double quotes, with \" \\ \n and \xNN.
    std::string string(const char *what);

    [[noreturn]] void fail(const std::string &expected) const;
    [[noreturn]] void fail_at(size_t at, const std::string &text) const;

  private:
    uint64_t term(const char *what, bool bare_hex);
    uint64_t sum(const char *what, bool bare_hex);
    std::string found() const;

    std::string_view line_;
    const SymbolLookup *symbols_;
    size_t at_ = 0;
};

// The 11 bits of a register by its name or alias; nothing for another word.
std::optional<uint32_t> find_register(std::string_view name);
// Whether a word is a mnemonic, NOP among them.
bool is_mnemonic(std::string_view name);

// Reads one instruction, up to the end of its operands. Throws LineError.
uint64_t read_instruction(LineReader &line);
// The same for a whole text.
uint64_t assemble_instruction(std::string_view text);
// The disassembler's text of an instruction.
std::string instruction_text(uint64_t word);

}  // namespace ldsdk::host

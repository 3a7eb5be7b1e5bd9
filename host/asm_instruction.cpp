#include "host/asm_instruction.h"

#include "sdk/micro/disasm.h"

#include <algorithm>
#include <array>
#include <bit>
#include <charconv>
#include <cstdio>
#include <vector>

namespace ldsdk::host {

namespace {

bool is_digit(char c)
{
    return c >= '0' && c <= '9';
}

bool is_letter(char c)
{
    return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || c == '_';
}

bool is_word(char c)
{
    return is_letter(c) || is_digit(c);
}

// The character that a text begins with; 0 where that is no UTF-8.
uint32_t utf8_character(std::string_view text)
{
    const auto first = static_cast<uint8_t>(text[0]);
    const int more = std::countl_one(first) - 1;
    if (more < 1 || more > 3 || text.size() <= static_cast<size_t>(more)) {
        return first < 0x80 ? first : 0;
    }
    uint32_t character = first & (0x3fu >> more);
    for (const char next : text.substr(1, static_cast<size_t>(more))) {
        if ((next & 0xc0) != 0x80) {
            return 0;
        }
        character = character << 6 | (next & 0x3f);
    }
    return character;
}

bool is_hex_digit(char c)
{
    return is_digit(c) || (c >= 'a' && c <= 'f') || (c >= 'A' && c <= 'F');
}

bool is_bare_hex(std::string_view word)
{
    return !word.empty() && std::all_of(word.begin(), word.end(), [](char c) {
        return is_digit(c) || (c >= 'a' && c <= 'f');
    });
}

// All of a text as a number.
std::optional<uint64_t> to_number(std::string_view digits, int base)
{
    uint64_t value = 0;
    const auto [end, error] =
        std::from_chars(digits.data(), digits.data() + digits.size(), value, base);
    if (error != std::errc() || end != digits.data() + digits.size() || digits.empty()) {
        return std::nullopt;
    }
    return value;
}

std::optional<uint64_t> to_number(std::string_view word)
{
    if (word.starts_with("0x") || word.starts_with("0X")) {
        return to_number(word.substr(2), 16);
    }
    return to_number(word, 10);
}

// ---- mnemonics ----------------------------------------------------------------------------------

struct Mnemonic {
    std::string_view name;
    uint64_t bits;  // the opcode and what else the name says
    uint8_t group;
};

// The opcode table by name.
const std::vector<Mnemonic> &mnemonics()
{
    static const std::vector<Mnemonic> sorted = [] {
        std::vector<Mnemonic> list;
        for (uint64_t opcode = 0; opcode < ATOM_OPCODE_NUM; opcode++) {
            const AtomOpcode &row = atom_opcode[opcode];
            list.push_back({row.pszName, opcode << ATOM_BIT_OPCODE, row.ucGroup});
            if (row.ucGroup == ATOM_GROUP_PULL) {
                list.push_back({ATOM_NAME_RESET, opcode << ATOM_BIT_OPCODE | 1ull << ATOM_BIT_RESET,
                                row.ucGroup});
            }
        }
        std::ranges::sort(list, {}, &Mnemonic::name);
        return list;
    }();
    return sorted;
}

const Mnemonic *find_mnemonic(std::string_view name)
{
    const auto &list = mnemonics();
    const auto found = std::ranges::lower_bound(list, name, {}, &Mnemonic::name);
    return found != list.end() && found->name == name ? &*found : nullptr;
}

// ---- registers ----------------------------------------------------------------------------------

struct Alias {
    std::string_view name;
    std::string_view text;
};

const std::vector<Alias> &aliases()
{
    static const std::vector<Alias> sorted = [] {
        std::vector<Alias> list;
        for (const AtomRegAlias &row : reg_name_alias) {
            list.push_back({row.pszAlias, row.pszText});
        }
        std::ranges::sort(list, {}, &Alias::name);
        return list;
    }();
    return sorted;
}

// "R17B" and the like.
std::optional<uint32_t> plain_register(std::string_view name)
{
    if (name.size() < 3 || name.size() > 5) {
        return std::nullopt;
    }
    const auto index = to_number(name.substr(1, name.size() - 2), 10);
    const std::string_view kinds = "R?PQXS";
    const std::string_view widths = "BHW";
    const size_t kind = name[0] == '?' ? kinds.npos : kinds.find(name[0]);
    const size_t width = widths.find(name.back());
    if (!index || kind == kinds.npos || width == widths.npos ||
        *index > (kind == ATOM_REG_KIND_R ? 255u : 127u) ||
        (kind == ATOM_REG_KIND_S && width != 2) || (name[1] == '0' && name.size() > 3)) {
        return std::nullopt;
    }
    return atom_asm_reg_encode(static_cast<uint32_t>(kind), static_cast<uint32_t>(width),
                               static_cast<uint32_t>(*index));
}

// ---- operands -----------------------------------------------------------------------------------

// The highest value that a field's text can have.
uint64_t field_max(const AtomField &field)
{
    return ((1ull << field.ucLen) - 1) * field.ucScale + field.ucAdd;
}

uint64_t encode_number(const LineReader &line, const AtomField &field, size_t at, uint64_t value)
{
    const bool in_range = value >= field.ucAdd && value <= field_max(field);
    if (in_range && (value - field.ucAdd) % field.ucScale == 0) {
        return (value - field.ucAdd) / field.ucScale << field.ucBit;
    }
    std::string expected = "expected ";
    if (field.ucLen == 0) {
        expected += "0";
    }
    else if (field.ucScale > 1) {
        expected += std::to_string(field.ucAdd) + ", " +
                    std::to_string(field.ucAdd + field.ucScale) + ", ... " +
                    std::to_string(field_max(field));
    }
    else {
        expected += "0 to " + std::to_string(field_max(field));
    }
    line.fail_at(at, std::to_string(value) + " does not fit; " + expected);
}

uint64_t read_register(LineReader &line, const AtomField &field)
{
    line.skip_blanks();
    const size_t at = line.at();
    const std::string_view name = line.peek_word();
    const auto reg = find_register(name);
    if (!reg) {
        line.fail("a register");
    }
    line.word();
    const uint32_t mask = (1u << field.ucLen) - 1;
    if ((*reg & ~mask) != field.usFixed) {
        line.fail_at(at, "\"" + std::string(name) + "\" cannot stand here; expected R0W to R255W");
    }
    return static_cast<uint64_t>(*reg & mask) << field.ucBit;
}

uint64_t read_condition(LineReader &line, const AtomField &field)
{
    line.skip_blanks();
    const std::string_view name = line.peek_word();
    for (uint64_t i = 0; i < std::size(atom_condition); i++) {
        if (name == atom_condition[i]) {
            line.word();
            return i << field.ucBit;
        }
    }
    std::string names;
    for (const char *condition : atom_condition) {
        names += (names.empty() ? "" : ", ") + std::string(condition);
    }
    line.fail("a condition, one of " + names);
}

// ".F" directly behind the mnemonic.
uint64_t read_suffix(LineReader &line, const AtomField &field)
{
    if (!line.take('.')) {
        return 0;
    }
    if (line.peek_word() != "F") {
        line.fail("F");
    }
    line.word();
    return 1ull << field.ucBit;
}

uint64_t read_field(LineReader &line, const AtomField &field)
{
    switch (field.enShow) {
        case ATOM_SHOW_REG:
            return read_register(line, field);
        case ATOM_SHOW_CONDITION:
            return read_condition(line, field);
        case ATOM_SHOW_SUFFIX:
            return read_suffix(line, field);
        default:
            break;
    }
    line.skip_blanks();
    const size_t at = line.at();
    const uint64_t value = field.enShow == ATOM_SHOW_HEX_BARE
                               ? line.bare_hex_expression("a hexadecimal number")
                               : line.expression("a number");
    return encode_number(line, field, at, value);
}

// Reads an operand into the word. Where it may be a register or a number, what stands there decides
// and sets the flag; otherwise the flag has been set by an operand further left.
void read_operand(LineReader &line, const AtomOperand &operand, uint64_t &word)
{
    const bool has_flag = operand.ucFlag != ATOM_NO_FLAG;
    const uint64_t flag = has_flag ? 1ull << operand.ucFlag : 0;
    if (has_flag && operand.stClear.enShow == ATOM_SHOW_REG) {
        line.skip_blanks();
        const std::string_view next = line.peek_word();
        const bool number = !find_register(next);
        if (number && next.empty()) {
            line.fail("a register or a number");
        }
        word |= number ? flag : 0;
    }
    const bool set = (word & flag) != 0;
    word |= read_field(line, set ? operand.stSet : operand.stClear);
}

}  // namespace

std::string in_quotes(std::string_view word)
{
    constexpr size_t kMost = 40;
    const bool cut = word.size() > kMost;
    return "\"" + std::string(word.substr(0, kMost)) + (cut ? "...\"" : "\"");
}

// ---- lines --------------------------------------------------------------------------------------

void LineReader::skip_blanks()
{
    while (at_ < line_.size() && (line_[at_] == ' ' || line_[at_] == '\t' || line_[at_] == '\r')) {
        at_++;
    }
}

bool LineReader::at_end()
{
    skip_blanks();
    return at_ == line_.size() || line_[at_] == ';' || line_[at_] == '#';
}

void LineReader::expect_end()
{
    if (!at_end()) {
        fail("the end of the line");
    }
}

bool LineReader::take(char wanted)
{
    skip_blanks();
    if (at_ == line_.size() || line_[at_] != wanted) {
        return false;
    }
    at_++;
    return true;
}

void LineReader::expect(char wanted)
{
    if (!take(wanted)) {
        fail(std::string("\"") + wanted + "\"");
    }
}

std::string_view LineReader::peek_word()
{
    skip_blanks();
    size_t end = at_;
    if (end < line_.size() && line_[end] == '.') {
        end++;
    }
    while (end < line_.size() && is_word(line_[end])) {
        end++;
    }
    return line_.substr(at_, end - at_);
}

std::string_view LineReader::word()
{
    const std::string_view found = peek_word();
    at_ += found.size();
    return found;
}

uint64_t LineReader::term(const char *what, bool bare_hex)
{
    const std::string_view name = peek_word();
    const auto symbol =
        name.empty() || is_digit(name[0]) || symbols_ == nullptr ? std::nullopt : (*symbols_)(name);
    if (bare_hex && is_bare_hex(name)) {
        if (symbol) {
            fail_at(at_, in_quotes(name) + " is a name and a hexadecimal number; expected 0x" +
                             std::string(name) + " or another name");
        }
        word();
        return to_number(name, 16).value_or(UINT64_MAX);
    }
    if (symbol) {
        word();
        return *symbol;
    }
    if (!name.empty() && is_digit(name[0])) {
        const auto number = to_number(name);
        if (!number) {
            fail(what);
        }
        word();
        return *number;
    }
    if (!name.empty() && is_letter(name[0]) && symbols_ != nullptr) {
        fail_at(at_, in_quotes(name) + " is not defined; expected " + what);
    }
    fail(what);
}

uint64_t LineReader::sum(const char *what, bool bare_hex)
{
    const size_t first = at_;
    uint64_t value = term(what, bare_hex);
    for (;;) {
        if (take('+')) {
            value += term(what, bare_hex);
        }
        else if (take('-')) {
            const uint64_t less = term(what, bare_hex);
            if (less > value) {
                fail_at(first, std::string("the value is below 0; expected ") + what);
            }
            value -= less;
        }
        else {
            return value;
        }
    }
}

uint64_t LineReader::expression(const char *what)
{
    skip_blanks();
    return sum(what, false);
}

uint64_t LineReader::bare_hex_expression(const char *what)
{
    skip_blanks();
    return sum(what, true);
}

std::string LineReader::string(const char *what)
{
    if (!take('"')) {
        fail(what);
    }
    std::string text;
    while (at_ < line_.size() && line_[at_] != '"') {
        if (line_[at_] != '\\') {
            text += line_[at_++];
            continue;
        }
        at_++;
        const char kind = at_ < line_.size() ? line_[at_] : '\0';
        if (kind == 'x' && at_ + 2 < line_.size() && is_hex_digit(line_[at_ + 1]) &&
            is_hex_digit(line_[at_ + 2])) {
            text += static_cast<char>(*to_number(line_.substr(at_ + 1, 2), 16));
            at_ += 3;
        }
        else if (kind == 'n' || kind == '"' || kind == '\\') {
            text += kind == 'n' ? '\n' : kind;
            at_++;
        }
        else {
            fail("\\\", \\\\, \\n or \\x with two hexadecimal digits");
        }
    }
    if (at_ == line_.size()) {
        fail("a closing \"");
    }
    at_++;
    return text;
}

// What stands here, in words that any terminal can show.
std::string LineReader::found() const
{
    const std::string_view rest = line_.substr(at_);
    if (rest.empty()) {
        return "the end of the line";
    }
    const auto first = static_cast<uint8_t>(rest[0]);
    if (first == 0) {
        return "a NUL byte";
    }
    char text[40];
    if (const uint32_t character = utf8_character(rest); character > 0x7f) {
        std::snprintf(text, sizeof text, "the non-ASCII character U+%04X", character);
        return text;
    }
    if (first < 0x20 || first > 0x7e) {
        std::snprintf(text, sizeof text, "the byte 0x%02x", first);
        return text;
    }
    size_t end = 1;
    while (end < rest.size() && is_word(rest[0]) && is_word(rest[end])) {
        end++;
    }
    return in_quotes(rest.substr(0, end));
}

void LineReader::fail(const std::string &expected) const
{
    fail_at(at_, "expected " + expected + ", found " + found());
}

void LineReader::fail_at(size_t at, const std::string &text) const
{
    throw LineError(at, text);
}

// ---- instructions -------------------------------------------------------------------------------

std::optional<uint32_t> find_register(std::string_view name)
{
    if (const auto reg = plain_register(name)) {
        return reg;
    }
    const auto found = std::ranges::lower_bound(aliases(), name, {}, &Alias::name);
    if (found == aliases().end() || found->name != name) {
        return std::nullopt;
    }
    return plain_register(found->text);
}

bool is_mnemonic(std::string_view name)
{
    return name == "NOP" || find_mnemonic(name) != nullptr;
}

uint64_t read_instruction(LineReader &line)
{
    const std::string_view name = line.peek_word();
    if (name == "NOP") {
        line.word();
        return kNop;
    }
    const Mnemonic *mnemonic = find_mnemonic(name);
    if (mnemonic == nullptr) {
        line.fail("an instruction");
    }
    line.word();
    uint64_t word = mnemonic->bits;
    for (const char *format = atom_format[mnemonic->group]; *format != '\0'; format++) {
        if (*format == ' ') {
            line.skip_blanks();
        }
        else if (*format != '%' || *++format == '%') {
            line.expect(*format);
        }
        else {
            read_operand(line, Atom_OperandGet(*format), word);
        }
    }
    return word;
}

uint64_t assemble_instruction(std::string_view text)
{
    LineReader line(text);
    const uint64_t word = read_instruction(line);
    line.expect_end();
    return word;
}

std::string instruction_text(uint64_t word)
{
    uint8_t bytes[6];
    for (int i = 0; i < 6; i++) {
        bytes[i] = static_cast<uint8_t>(word >> (40 - 8 * i));
    }
    char text[NP_DISASM_TEXT_SIZE];
    soc_np_atom_disasm_instruction(bytes, text);
    return text;
}

}  // namespace ldsdk::host

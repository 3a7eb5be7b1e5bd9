#include "host/assembler.h"

#include "host/asm_instruction.h"
#include "sdk/micro/group.h"
#include "sdk/micro/load.h"

#include <algorithm>
#include <array>
#include <map>
#include <optional>

namespace ldsdk::host {

namespace {

constexpr size_t kTrailerSize = 32;
constexpr size_t kEntrySize = sizeof(NpMicroSection);
constexpr uint64_t kMaxLength = 1 << 24;  // of an image; instruction memory has 256 KiB
constexpr uint64_t kMaxWord = 0xffffffff;

struct SectionName {
    std::string_view name;
    uint32_t code;
};
// The sections that a loader looks for, in its order.
constexpr SectionName kSectionNames[] = {
    {"instructions", NP_MICRO_INSTR_STORE},
    {"configuration", NP_MICRO_CONFIG_DATA},
    {"rules", NP_MICRO_BRANCH_RULES},
    {"data", NP_MICRO_BRANCH_ASSO_MEM},
};

struct ConfigName {
    std::string_view directive;
    std::vector<size_t> words;  // of the section, in the order of the arguments
};
const ConfigName kConfigNames[] = {
    {".startpc", {1}},
    {".maxpc", {2}},
    {".exceptpc", {3}},
    {".protect", {8, 9}},
};
constexpr size_t kConfigWords = sizeof(NpMicroConfig) / 4;
constexpr size_t kMaxPcWord = 2;

struct TrailerName {
    std::string_view directive;
    struct Field {
        size_t offset;
        size_t size;
    };
    std::vector<Field> fields;
};
const TrailerName kTrailerNames[] = {
    {".version", {{0, 4}, {4, 4}}},
    {".date", {{8, 4}, {12, 2}, {14, 2}}},
    {".user", {{16, 16}}},
};

using Words = std::array<uint32_t, NP_GROUP_WORDS>;

void put_word(std::vector<uint8_t> &bytes, uint32_t word)
{
    for (int shift = 24; shift >= 0; shift -= 8) {
        bytes.push_back(static_cast<uint8_t>(word >> shift));
    }
}

uint32_t get_word(std::span<const uint8_t> bytes, size_t at)
{
    return static_cast<uint32_t>(bytes[at]) << 24 | static_cast<uint32_t>(bytes[at + 1]) << 16 |
           static_cast<uint32_t>(bytes[at + 2]) << 8 | bytes[at + 3];
}

Words build_group(std::span<const uint64_t> instructions)
{
    Words group = {};
    for (uint32_t slot = 0; slot < NP_GROUP_INSTR; slot++) {
        Np_Micro_GroupInstrSet(group.data(), slot, instructions[slot]);
    }
    group[NP_GROUP_ECC_WORD] = Np_Micro_GroupEccGet(group.data());
    return group;
}

struct Section {
    uint32_t code;
    size_t line;                         // of the source, where it begins
    std::optional<uint32_t> place;       // offset in the image, if the source says
    std::vector<uint8_t> bytes;          // of sections of words
    std::vector<uint64_t> instructions;  // by PC
    std::map<size_t, Words> raw_groups;  // groups that are given as words, by number
};

// Reads a source twice: the first pass finds the places of the labels, the second one encodes. Both
// go on behind an error, and take what is wrong for something of the same size, so that one mistake
// makes no others.
class Assembler {
  public:
    Assembler(std::string_view source, const std::string &file) : source_(source), file_(file) {}

    Assembly run();

  private:
    using Handler = void (Assembler::*)(LineReader &);
    struct Directive {
        std::string_view name;
        Handler handler;
        bool in_first_pass;  // it moves the place of labels or decides what follows
    };
    static const Directive kDirectives[];

    void pass(bool first);
    void read_line(std::string_view text);
    void read_directive(LineReader &line, size_t at, std::string_view name);
    void define(LineReader &line, size_t at, std::string_view name, std::optional<uint64_t> value);
    void define_label(LineReader &line, size_t at, std::string_view name);
    uint64_t number(LineReader &line, const char *what, uint64_t most);
    Section &section(uint32_t code);
    bool takes_code() const;
    Section &code_section(LineReader &line, const char *what);
    std::vector<uint8_t> &data_bytes(LineReader &line);
    uint64_t &put_instruction(LineReader &line, size_t at);
    void put_all(LineReader &line, const char *what, uint64_t most, size_t size);

    void on_section(LineReader &line);
    void on_org(LineReader &line);
    void on_align(LineReader &line);
    void on_equ(LineReader &line);
    void on_word(LineReader &line);
    void on_byte(LineReader &line);
    void on_insn(LineReader &line);
    void on_group(LineReader &line);
    void on_length(LineReader &line);
    void on_raw(LineReader &line);
    bool on_config(LineReader &line, std::string_view name);
    bool on_trailer(LineReader &line, std::string_view name);

    std::vector<uint8_t> code_bytes(const Section &section) const;
    std::vector<uint8_t> config_bytes();
    void finish();
    template <typename Work>
    bool attempt(Work work);
    void report(size_t line, size_t column, const std::string &text);

    std::string_view source_;
    std::string file_;
    bool first_ = true;
    size_t line_number_ = 0;
    size_t directive_at_ = 0;
    // Nothing for a name whose definition is wrong: a line that has it is left alone.
    std::map<std::string, std::optional<uint64_t>, std::less<>> symbols_;
    std::map<std::string, size_t, std::less<>> defined_at_;  // line, in the present pass
    SymbolLookup lookup_ = [this](std::string_view name) -> std::optional<uint64_t> {
        const auto found = symbols_.find(name);
        if (found != symbols_.end() && !found->second) {
            throw LineError(0, "");
        }
        return found == symbols_.end() ? std::nullopt : found->second;
    };

    std::vector<Section> sections_;
    std::optional<size_t> current_;  // index in sections_
    bool lost_ = false;              // behind a section that cannot be: anything may stand there
    Section scratch_{};              // what stands there
    std::array<std::optional<uint32_t>, kConfigWords> config_;
    std::array<uint8_t, kTrailerSize> trailer_{};
    std::optional<uint64_t> length_;
    size_t length_line_ = 0;
    std::optional<std::vector<uint8_t>> raw_;                  // the whole image
    std::map<std::pair<size_t, size_t>, std::string> errors_;  // by line and column
    size_t new_errors_ = 0;                                    // of the present pass
    Assembly result_;
};

const Assembler::Directive Assembler::kDirectives[] = {
    {".section", &Assembler::on_section, true}, {".org", &Assembler::on_org, true},
    {".align", &Assembler::on_align, true},     {".equ", &Assembler::on_equ, true},
    {".insn", &Assembler::on_insn, true},       {".group", &Assembler::on_group, true},
    {".raw", &Assembler::on_raw, true},         {".word", &Assembler::on_word, false},
    {".byte", &Assembler::on_byte, false},      {".length", &Assembler::on_length, false},
};

// The second pass finds most errors of the first one again. An empty text stands for what another
// error explains.
void Assembler::report(size_t line, size_t column, const std::string &text)
{
    if (text.empty()) {
        return;
    }
    if (new_errors_ == kMaxErrors) {
        result_.more_errors = true;
        return;
    }
    new_errors_ += errors_.try_emplace({line, column}, text).second ? 1 : 0;
}

// False, and the error is reported, when the work meets one.
template <typename Work>
bool Assembler::attempt(Work work)
{
    try {
        work();
        return true;
    }
    catch (const LineError &error) {
        report(line_number_, error.column, error.what());
        return false;
    }
}

Assembly Assembler::run()
{
    pass(true);
    pass(false);
    finish();
    for (const auto &[place, text] : errors_) {
        if (result_.errors.size() == kMaxErrors) {
            result_.more_errors = true;
            break;
        }
        result_.errors.push_back({file_, place.first, place.second, text});
    }
    if (!errors_.empty()) {
        result_.image.clear();
    }
    return std::move(result_);
}

void Assembler::pass(bool first)
{
    first_ = first;
    line_number_ = 0;
    defined_at_.clear();
    sections_.clear();
    current_.reset();
    lost_ = false;
    scratch_ = {};
    raw_.reset();
    new_errors_ = 0;
    std::string_view rest = source_;
    if (rest.starts_with(kByteOrderMark)) {
        report(1, 1, "a byte order mark begins the source; expected text without it");
        rest.remove_prefix(kByteOrderMark.size());
    }
    while (!rest.empty()) {
        const size_t end = std::min(rest.find('\n'), rest.size());
        line_number_++;
        attempt([&] { read_line(rest.substr(0, end)); });
        rest.remove_prefix(std::min(end + 1, rest.size()));
    }
}

void Assembler::read_line(std::string_view text)
{
    LineReader line(text, &lookup_);
    if (line.at_end()) {
        return;
    }
    size_t at = line.at();
    std::string_view name = line.word();
    if (!name.empty() && line.take(':')) {
        define_label(line, at, name);
        if (line.at_end()) {
            return;
        }
        at = line.at();
        name = line.word();
    }
    if (name.starts_with('.')) {
        read_directive(line, at, name);
        return;
    }
    LineReader again(text, &lookup_);
    again.move_to(at);
    if (!is_mnemonic(name)) {
        if (takes_code()) {
            put_instruction(again, at);
        }
        again.fail("an instruction, a directive or a label");
    }
    uint64_t &word = put_instruction(again, at);
    if (!first_) {
        word = read_instruction(again);
        again.expect_end();
    }
}

void Assembler::read_directive(LineReader &line, size_t at, std::string_view name)
{
    directive_at_ = at;
    for (const Directive &directive : kDirectives) {
        if (name != directive.name) {
            continue;
        }
        if (!first_ || directive.in_first_pass) {
            (this->*directive.handler)(line);
            line.expect_end();
        }
        return;
    }
    if (on_config(line, name) || on_trailer(line, name)) {
        return;
    }
    std::string names;
    for (const Directive &directive : kDirectives) {
        names += (names.empty() ? "" : ", ") + std::string(directive.name);
    }
    for (const ConfigName &config : kConfigNames) {
        names += ", " + std::string(config.directive);
    }
    for (const TrailerName &trailer : kTrailerNames) {
        names += ", " + std::string(trailer.directive);
    }
    line.fail_at(at, "no directive " + in_quotes(name) + "; expected one of " + names);
}

void Assembler::define(LineReader &line, size_t at, std::string_view name,
                       std::optional<uint64_t> value)
{
    if (find_register(name) || is_mnemonic(name) || name[0] == '.' ||
        (name[0] >= '0' && name[0] <= '9')) {
        line.fail_at(at, in_quotes(name) +
                             " cannot be a name; expected a word that is no register, "
                             "instruction, directive or number");
    }
    const auto [before, fresh] = defined_at_.emplace(name, line_number_);
    if (!fresh) {
        line.fail_at(at, in_quotes(name) + " is defined in line " + std::to_string(before->second) +
                             "; expected a new name");
    }
    symbols_.insert_or_assign(std::string(name), value);
}

// What is wrong with a label is wrong beside what else the line says.
void Assembler::define_label(LineReader &line, size_t at, std::string_view name)
{
    std::optional<uint64_t> pc;
    directive_at_ = at;
    attempt([&] { pc = code_section(line, "a label").instructions.size(); });
    attempt([&] { define(line, at, name, pc); });
}

uint64_t Assembler::number(LineReader &line, const char *what, uint64_t most)
{
    line.skip_blanks();
    const size_t at = line.at();
    const uint64_t value = line.expression(what);
    if (value > most) {
        line.fail_at(
            at, std::to_string(value) + " does not fit; expected 0 to " + std::to_string(most));
    }
    return value;
}

// ---- sections -----------------------------------------------------------------------------------

Section &Assembler::section(uint32_t code)
{
    const auto found = std::ranges::find(sections_, code, &Section::code);
    if (found != sections_.end()) {
        return *found;
    }
    return sections_.emplace_back(Section{code, line_number_, {}, {}, {}, {}});
}

// A source begins in the instruction section.
bool Assembler::takes_code() const
{
    return lost_ || (current_ ? sections_[*current_].code == NP_MICRO_INSTR_STORE : !raw_);
}

// The instruction section, if it is the present one.
Section &Assembler::code_section(LineReader &line, const char *what)
{
    if (!takes_code()) {
        line.fail_at(directive_at_, std::string(what) +
                                        " cannot stand here; expected .section instructions "
                                        "before it");
    }
    if (lost_) {
        return scratch_;
    }
    if (!current_) {
        section(NP_MICRO_INSTR_STORE);
        current_ = sections_.size() - 1;
    }
    return sections_[*current_];
}

std::vector<uint8_t> &Assembler::data_bytes(LineReader &line)
{
    if (lost_) {
        return scratch_.bytes;
    }
    if (raw_) {
        return *raw_;
    }
    if (!current_ || sections_[*current_].code == NP_MICRO_INSTR_STORE) {
        line.fail_at(directive_at_,
                     "bytes cannot stand among instructions; expected .insn, .group or another "
                     "section");
    }
    return sections_[*current_].bytes;
}

// A place for one more instruction, which holds NOP.
uint64_t &Assembler::put_instruction(LineReader &line, size_t at)
{
    directive_at_ = at;
    std::vector<uint64_t> &instructions = code_section(line, "an instruction").instructions;
    const bool full = instructions.size() == NP_PC_NUM;
    // Said once: behind that, one more place is used again and again.
    instructions.resize(std::min<size_t>(instructions.size(), NP_PC_NUM) + 1, kNop);
    if (full) {
        line.fail_at(at, "instruction memory is full; expected at most " +
                             std::to_string(NP_PC_NUM) + " instructions");
    }
    return instructions.back();
}

void Assembler::put_all(LineReader &line, const char *what, uint64_t most, size_t size)
{
    std::vector<uint8_t> &bytes = data_bytes(line);
    do {
        const auto value = static_cast<uint32_t>(number(line, what, most));
        if (size == 4) {
            put_word(bytes, value);
        }
        else {
            bytes.push_back(static_cast<uint8_t>(value));
        }
    } while (line.take(','));
}

// ---- directives ---------------------------------------------------------------------------------

// .section NAME or CODE [, OFFSET]
void Assembler::on_section(LineReader &line)
{
    lost_ = true;
    if (raw_) {
        line.fail_at(directive_at_, "sections cannot stand behind .raw; expected words and bytes");
    }
    line.skip_blanks();
    const size_t at = line.at();
    uint64_t code = 0;
    const auto known = std::ranges::find(kSectionNames, line.peek_word(), &SectionName::name);
    if (known != std::end(kSectionNames)) {
        line.word();
        code = known->code;
    }
    else {
        code = number(line, "instructions, configuration, rules, data or a section code", kMaxWord);
    }
    if (code == NP_MICRO_END) {
        line.fail_at(at, "code 0 ends the section table; expected another section code");
    }
    Section &chosen = section(static_cast<uint32_t>(code));
    current_ = static_cast<size_t>(&chosen - sections_.data());
    lost_ = false;
    if (line.take(',')) {
        chosen.place = static_cast<uint32_t>(number(line, "an offset in the image", kMaxLength));
    }
}

// .org PC: what is skipped holds NOPs.
void Assembler::on_org(LineReader &line)
{
    std::vector<uint64_t> &instructions = code_section(line, ".org").instructions;
    line.skip_blanks();
    const size_t at = line.at();
    const uint64_t pc = number(line, "a PC, from numbers and names defined above", NP_PC_NUM);
    if (pc < instructions.size()) {
        line.fail_at(at, std::to_string(pc) + " lies behind; expected " +
                             std::to_string(instructions.size()) + " or more");
    }
    instructions.resize(pc, kNop);
}

// .align: on to the beginning of a group.
void Assembler::on_align(LineReader &line)
{
    std::vector<uint64_t> &instructions = code_section(line, ".align").instructions;
    instructions.resize((instructions.size() + 3) / 4 * 4, kNop);
}

// .equ NAME, VALUE
void Assembler::on_equ(LineReader &line)
{
    line.skip_blanks();
    const size_t at = line.at();
    const std::string_view name = line.word();
    if (name.empty()) {
        line.fail("a name");
    }
    std::optional<uint64_t> value;
    if (!attempt([&] {
            line.expect(',');
            value = number(line, "a value, from numbers and names defined above", kMaxWord);
        })) {
        line.skip_rest();
    }
    define(line, at, name, value);
}

void Assembler::on_word(LineReader &line)
{
    put_all(line, "a word", kMaxWord, 4);
}

void Assembler::on_byte(LineReader &line)
{
    put_all(line, "a byte", 0xff, 1);
}

// .insn WORD: an instruction as 48 bits.
void Assembler::on_insn(LineReader &line)
{
    uint64_t &word = put_instruction(line, directive_at_);
    if (first_) {
        line.skip_rest();
        return;
    }
    word = number(line, "48 bits", kNoInstruction - 1);
}

// .group W0, ... W7: a group as it stands in memory, with whatever ECC word.
void Assembler::on_group(LineReader &line)
{
    Section &code = code_section(line, ".group");
    const size_t begin = code.instructions.size();
    const size_t group = (begin + NP_GROUP_INSTR - 1) / NP_GROUP_INSTR;
    for (size_t at = begin; at < NP_GROUP_INSTR * (group + 1); at++) {
        put_instruction(line, directive_at_);
    }
    if (begin % NP_GROUP_INSTR != 0 && begin <= NP_PC_NUM) {
        line.fail_at(directive_at_, "a group cannot begin here; expected .align before it");
    }
    if (first_) {
        line.skip_rest();
        return;
    }
    Words &words = code.raw_groups[group];
    for (uint32_t i = 0; i < NP_GROUP_WORDS; i++) {
        if (i > 0) {
            line.expect(',');
        }
        words[i] = static_cast<uint32_t>(number(line, "a word of the group", kMaxWord));
    }
}

// .length BYTES of the whole image; zeros fill up in front of the trailer.
void Assembler::on_length(LineReader &line)
{
    length_ = number(line, "the length of the image in bytes", kMaxLength);
    length_line_ = line_number_;
}

// .raw: nothing but the words and bytes that follow.
void Assembler::on_raw(LineReader &line)
{
    if (!sections_.empty()) {
        lost_ = true;
        line.fail_at(directive_at_, ".raw cannot stand behind a section; expected it first");
    }
    raw_.emplace();
}

bool Assembler::on_config(LineReader &line, std::string_view name)
{
    const auto config = std::ranges::find(kConfigNames, name, &ConfigName::directive);
    if (config == std::end(kConfigNames)) {
        return false;
    }
    section(NP_MICRO_CONFIG_DATA);
    if (first_) {
        return true;
    }
    for (size_t i = 0; i < config->words.size(); i++) {
        if (i > 0) {
            line.expect(',');
        }
        config_[config->words[i]] = static_cast<uint32_t>(number(line, "a number", kMaxWord));
    }
    line.expect_end();
    return true;
}

bool Assembler::on_trailer(LineReader &line, std::string_view name)
{
    const auto trailer = std::ranges::find(kTrailerNames, name, &TrailerName::directive);
    if (trailer == std::end(kTrailerNames)) {
        return false;
    }
    if (first_) {
        return true;
    }
    for (size_t i = 0; i < trailer->fields.size(); i++) {
        if (i > 0) {
            line.expect(',');
        }
        const TrailerName::Field &field = trailer->fields[i];
        line.skip_blanks();
        const size_t at = line.at();
        const std::string text = line.string("text in double quotes");
        if (text.size() > field.size) {
            line.fail_at(at, "text of " + std::to_string(text.size()) +
                                 " characters; expected at most " + std::to_string(field.size));
        }
        std::ranges::copy(text, trailer_.begin() + static_cast<ptrdiff_t>(field.offset));
    }
    line.expect_end();
    return true;
}

// ---- image --------------------------------------------------------------------------------------

std::vector<uint8_t> Assembler::code_bytes(const Section &code) const
{
    std::vector<uint64_t> instructions = code.instructions;
    instructions.resize((instructions.size() + 3) / 4 * 4, kNop);
    std::vector<uint8_t> bytes;
    for (size_t group = 0; group < instructions.size() / NP_GROUP_INSTR; group++) {
        const auto raw = code.raw_groups.find(group);
        const Words words = raw != code.raw_groups.end()
                                ? raw->second
                                : build_group(std::span(instructions).subspan(4 * group, 4));
        for (const uint32_t word : words) {
            put_word(bytes, word);
        }
    }
    return bytes;
}

// Without .maxpc the last instruction of the image is the highest.
std::vector<uint8_t> Assembler::config_bytes()
{
    if (!config_[kMaxPcWord]) {
        const size_t groups = (section(NP_MICRO_INSTR_STORE).instructions.size() + 3) / 4;
        config_[kMaxPcWord] = static_cast<uint32_t>(groups == 0 ? 0 : 4 * groups - 1);
    }
    std::vector<uint8_t> bytes;
    for (const auto &word : config_) {
        put_word(bytes, word.value_or(0));
    }
    return bytes;
}

void Assembler::finish()
{
    new_errors_ = 0;
    if (raw_) {
        result_.image = *raw_;
        return;
    }
    for (const SectionName &name : kSectionNames) {
        section(name.code);
    }
    if (sections_.size() > NP_MICRO_SECTION_NUM) {
        report(sections_[NP_MICRO_SECTION_NUM].line, 1,
               "too many sections; expected at most " + std::to_string(NP_MICRO_SECTION_NUM));
        return;
    }
    std::vector<uint8_t> table;
    std::vector<uint8_t> body((sections_.size() + 1) * kEntrySize);
    for (const Section &one : sections_) {
        std::vector<uint8_t> bytes = one.bytes;
        if (one.code == NP_MICRO_INSTR_STORE) {
            bytes = code_bytes(one);
        }
        else if (one.code == NP_MICRO_CONFIG_DATA && bytes.empty()) {
            bytes = config_bytes();
        }
        else if (one.code == NP_MICRO_CONFIG_DATA &&
                 std::ranges::any_of(config_, [](auto &word) { return word.has_value(); })) {
            report(one.line, 1,
                   "the configuration is given as words and by directives; "
                   "expected one of them");
        }
        body.resize((body.size() + 3) / 4 * 4);
        if (one.place) {
            if (*one.place < body.size()) {
                report(one.line, 1,
                       "offset " + std::to_string(*one.place) + " is taken; expected " +
                           std::to_string(body.size()) + " or more");
            }
            body.resize(std::max<size_t>(body.size(), *one.place));
        }
        put_word(table, one.code);
        put_word(table, static_cast<uint32_t>(body.size()));
        put_word(table, static_cast<uint32_t>(bytes.size()));
        body.insert(body.end(), bytes.begin(), bytes.end());
    }
    std::ranges::copy(table, body.begin());
    body.resize((body.size() + 3) / 4 * 4);
    if (length_) {
        if (*length_ < body.size() + kTrailerSize) {
            report(length_line_, 1,
                   ".length " + std::to_string(*length_) + " is too short; expected " +
                       std::to_string(body.size() + kTrailerSize) + " or more");
            return;
        }
        body.resize(*length_ - kTrailerSize);
    }
    body.insert(body.end(), trailer_.begin(), trailer_.end());
    result_.image = std::move(body);
}

// ---- image to source ----------------------------------------------------------------------------

std::string hex(uint64_t value, int digits)
{
    constexpr char kDigits[] = "0123456789abcdef";
    std::string text = "0x";
    for (int at = digits - 1; at >= 0; at--) {
        text += kDigits[value >> 4 * at & 15];
    }
    return text;
}

std::string quoted(std::span<const uint8_t> bytes)
{
    while (!bytes.empty() && bytes.back() == 0) {
        bytes = bytes.first(bytes.size() - 1);
    }
    std::string text = "\"";
    for (const uint8_t byte : bytes) {
        if (byte == '"' || byte == '\\') {
            text += '\\';
            text += static_cast<char>(byte);
        }
        else if (byte >= 0x20 && byte < 0x7f) {
            text += static_cast<char>(byte);
        }
        else {
            text += "\\x" + hex(byte, 2).substr(2);
        }
    }
    return text + "\"";
}

// Rows of four words, then single bytes.
std::string data_source(std::span<const uint8_t> bytes)
{
    std::string text;
    size_t at = 0;
    for (; at + 4 <= bytes.size(); at += 4) {
        text += at % 16 == 0 ? "        .word " : ", ";
        text += hex(get_word(bytes, at), 8);
        text += at % 16 == 12 || at + 8 > bytes.size() ? "\n" : "";
    }
    for (; at < bytes.size(); at++) {
        text += "        .byte " + hex(bytes[at], 2) + "\n";
    }
    return text;
}

std::string with_comment(std::string line, const std::string &comment)
{
    line.resize(std::max<size_t>(line.size() + 1, 56), ' ');
    return line + "; " + comment + "\n";
}

// The text of an instruction where it says everything, else its bits.
std::string instruction_source(uint64_t word, size_t pc)
{
    const std::string text = instruction_text(word);
    if (assemble_instruction(text) == word) {
        return with_comment("        " + text, hex(pc, 4));
    }
    return with_comment("        .insn " + hex(word, 12), hex(pc, 4) + " " + text);
}

std::string raw_group_source(const Words &group, size_t pc)
{
    std::string text = "        .group ";
    for (size_t i = 0; i < group.size(); i++) {
        text += (i == 0 ? "" : ", ") + hex(group[i], 8);
    }
    text += "\n";
    for (uint32_t slot = 0; slot < NP_GROUP_INSTR; slot++) {
        text += "                ; " + hex(pc + slot, 4) + " " +
                instruction_text(Np_Micro_GroupInstrGet(group.data(), slot)) + "\n";
    }
    return text;
}

std::string code_source(std::span<const uint8_t> bytes)
{
    constexpr size_t kLeastGap = 2;  // groups of NOP that are worth an .org
    const uint64_t nops[] = {kNop, kNop, kNop, kNop};
    const Words nop_group = build_group(nops);
    std::string text;
    size_t gap = 0;  // groups of NOP that wait for what follows them
    const auto close_gap = [&](size_t group) {
        for (; gap > 0 && gap < kLeastGap; gap--) {
            for (size_t pc = 4 * (group - gap); pc < 4 * (group - gap + 1); pc++) {
                text += instruction_source(kNop, pc);
            }
        }
        if (gap > 0) {
            text += "        .org " + hex(4 * group, 4) + "\n";
        }
        gap = 0;
    };
    const size_t groups = bytes.size() / NP_GROUP_SIZE;
    for (size_t group = 0; group < groups; group++) {
        Words words;
        for (size_t i = 0; i < words.size(); i++) {
            words[i] = get_word(bytes, group * NP_GROUP_SIZE + 4 * i);
        }
        if (words == nop_group) {
            gap++;
            continue;
        }
        close_gap(group);
        std::array<uint64_t, NP_GROUP_INSTR> instructions;
        for (uint32_t slot = 0; slot < NP_GROUP_INSTR; slot++) {
            instructions[slot] = Np_Micro_GroupInstrGet(words.data(), slot);
        }
        if (build_group(instructions) != words) {
            text += raw_group_source(words, 4 * group);
            continue;
        }
        for (size_t slot = 0; slot < NP_GROUP_INSTR; slot++) {
            text += instruction_source(instructions[slot], 4 * group + slot);
        }
    }
    close_gap(groups);
    return text;
}

// Directives for a configuration of the usual form, else words.
std::string config_source(std::span<const uint8_t> bytes)
{
    bool usual = bytes.size() == 4 * kConfigWords;
    for (size_t i = 0; usual && i < kConfigWords; i++) {
        const bool named = std::ranges::any_of(kConfigNames, [&](const ConfigName &config) {
            return std::ranges::find(config.words, i) != config.words.end();
        });
        usual = named || get_word(bytes, 4 * i) == 0;
    }
    if (!usual) {
        return data_source(bytes);
    }
    std::string text;
    for (const ConfigName &config : kConfigNames) {
        text += "        " + std::string(config.directive);
        for (size_t i = 0; i < config.words.size(); i++) {
            text += (i == 0 ? " " : ", ") + hex(get_word(bytes, 4 * config.words[i]), 4);
        }
        text += "\n";
    }
    return text;
}

std::string section_source(uint32_t code, std::span<const uint8_t> bytes)
{
    if (code == NP_MICRO_INSTR_STORE) {
        return code_source(bytes);
    }
    return code == NP_MICRO_CONFIG_DATA ? config_source(bytes) : data_source(bytes);
}

// The source of an image as it should be; something shorter for one that is not.
std::string structured_source(std::span<const uint8_t> image)
{
    std::string text;
    const auto trailer = image.last(kTrailerSize);
    for (const TrailerName &name : kTrailerNames) {
        text += "        " + std::string(name.directive);
        for (size_t i = 0; i < name.fields.size(); i++) {
            text += i == 0 ? " " : ", ";
            text += quoted(trailer.subspan(name.fields[i].offset, name.fields[i].size));
        }
        text += "\n";
    }
    text += "        .length " + std::to_string(image.size()) + "\n";
    for (size_t at = 0; at + kEntrySize <= image.size(); at += kEntrySize) {
        const uint32_t code = get_word(image, at);
        const uint32_t offset = get_word(image, at + 4);
        const uint32_t size = get_word(image, at + 8);
        if (code == NP_MICRO_END || offset > image.size() || size > image.size() - offset) {
            break;
        }
        const auto name = std::ranges::find(kSectionNames, code, &SectionName::code);
        text += "\n        .section " +
                (name != std::end(kSectionNames) ? std::string(name->name) : hex(code, 8)) + ", " +
                hex(offset, 4) + "\n" + section_source(code, image.subspan(offset, size));
    }
    return text;
}

}  // namespace

std::string SourceError::message() const
{
    return file + ":" + std::to_string(line) + ":" + std::to_string(column) + ": " + text;
}

Assembly assemble(std::string_view source, const std::string &file)
{
    return Assembler(source, file).run();
}

std::string image_to_source(std::span<const uint8_t> image)
{
    if (image.size() >= kEntrySize + kTrailerSize && image.size() <= kMaxLength) {
        std::string text = structured_source(image);
        const Assembly again = assemble(text, "");
        if (std::ranges::equal(again.image, image)) {
            return text;
        }
    }
    return "        .raw\n" + data_source(image);
}

}  // namespace ldsdk::host

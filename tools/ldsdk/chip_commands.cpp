#include "tools/ldsdk/chip_commands.h"

#include "chipmodel/model.h"
#include "host/sibling.h"
#include "ldsdk/host.h"
#include "ldsdk/types.h"
#include "tools/ldsdk/channel_commands.h"
#include "tools/ldsdk/code_commands.h"
#include "tools/ldsdk/error.h"
#include "tools/ldsdk/lookup_commands.h"

#include <algorithm>
#include <cstdio>
#include <optional>
#include <sstream>
#include <string_view>

namespace ldsdk::tool {

namespace {

using Arguments = std::span<const std::string>;

constexpr uint64_t kMaxWord = 0xffffffff;
constexpr uint64_t kMaxPeekWords = 65536;
constexpr uint32_t kWordsPerLine = 4;
constexpr uint64_t kShownRecords = 20;

std::string hex32(uint32_t value)
{
    char text[16];
    std::snprintf(text, sizeof text, "0x%08x", value);
    return text;
}

uint32_t read_address(const std::string &command, const std::string &word)
{
    const auto address =
        static_cast<uint32_t>(read_number(command, word, "a chip address", 0, kMaxWord));
    if (address % 4 != 0) {
        throw usage(command + ": \"" + word +
                    "\": expected the address of a word, a multiple of 4");
    }
    return address;
}

void peek(ChipSession &session, Arguments arguments, Output &output)
{
    const uint32_t first = read_address("chip peek", arguments[0]);
    const uint64_t count = arguments.size() < 2 ? 1
                                                : read_number("chip peek", arguments[1],
                                                              "a count of words", 1, kMaxPeekWords);
    if (count - 1 > (kMaxWord - first) / 4) {
        throw usage("chip peek: \"" + arguments[1] +
                    "\": expected a count of words that ends at "
                    "0xffffffff, " +
                    std::to_string((kMaxWord - first) / 4 + 1) + " at most");
    }
    std::vector<uint32_t> values(count);
    for (uint32_t i = 0; i < count; i++) {
        values[i] = session.peek(first + 4 * i);
    }
    for (uint32_t i = 0; i < count; i++) {
        char text[24];
        if (i % kWordsPerLine == 0) {
            std::snprintf(text, sizeof text, "%s0x%08x:", i == 0 ? "" : "\n", first + 4 * i);
            output.write(text);
        }
        std::snprintf(text, sizeof text, " %08x", values[i]);
        output.write(text);
    }
    output.write("\n");
}

void poke(ChipSession &session, Arguments arguments, Output &)
{
    const uint32_t address = read_address("chip poke", arguments[0]);
    const auto value = static_cast<uint32_t>(
        read_number("chip poke", arguments[1], "a 32-bit value", 0, kMaxWord));
    session.poke(address, value);
}

void advance(ChipSession &session, Arguments arguments, Output &)
{
    const uint64_t ticks =
        read_number("chip advance", arguments[0], "a number of 0.1 ms ticks", 0, UINT64_MAX);
    LdDebugCall call = debug_call(LD_DEBUG_ADVANCE, 0, 0, ticks);
    session.ask(call);
}

// Sets a switch of the model.
template <LdDebugOp op, bool on>
void turn(ChipSession &session, Arguments, Output &)
{
    LdDebugCall call = debug_call(op, 0, on ? 1u : 0);
    session.ask(call);
}

void journal_clear(ChipSession &session, Arguments, Output &)
{
    LdDebugCall call = debug_call(LD_DEBUG_JOURNAL_CLEAR);
    session.ask(call);
}

void journal_show(ChipSession &session, Arguments arguments, Output &output)
{
    const uint64_t wanted = arguments.empty()
                                ? kShownRecords
                                : read_number("chip journal show", arguments[0],
                                              "a number of records", 1, model::kJournalSize);
    LdDebugCall state = debug_call(LD_DEBUG_JOURNAL_STATE);
    session.ask(state);
    const uint32_t held = state.number;
    const auto shown = static_cast<uint32_t>(std::min<uint64_t>(held, wanted));
    for (uint32_t i = held - shown; i < held; i++) {
        LdDebugCall record = debug_call(LD_DEBUG_JOURNAL_SHOW, i);
        session.ask(record);
        output.write(std::string(record.text) + "\n");
    }
    char text[96];
    std::snprintf(text, sizeof text, "%u of %u records, %llu lost, recording %s\n", shown, held,
                  static_cast<unsigned long long>(state.wide), state.value != 0 ? "on" : "off");
    output.write(text);
}

// Throws what the model says of a text.
void fault_text(ChipSession &session, const std::string &text)
{
    LdDebugCall call = debug_call(LD_DEBUG_FAULT_SET);
    if (text.size() >= sizeof call.text) {
        throw usage("chip fault: " + std::to_string(text.size()) + " bytes; expected at most " +
                    std::to_string(sizeof call.text - 1));
    }
    text.copy(call.text, text.size());
    if (session.ask(call) != model::kOk) {
        throw usage("chip fault: " + std::string(call.text));
    }
}

void fault_set(ChipSession &session, Arguments arguments, Output &)
{
    std::string text;
    for (const std::string &word : arguments) {
        text += (text.empty() ? "" : " ") + word;
    }
    fault_text(session, text);
}

void fault_clear(ChipSession &session, Arguments, Output &)
{
    fault_text(session, "clear");
}

void fault_list(ChipSession &session, Arguments, Output &output)
{
    for (LdDebugCall call = debug_call(LD_DEBUG_FAULT_SHOW); session.ask(call) == model::kOk;
         call.number++) {
        output.write(std::string(call.text) + "\n");
    }
}

uint32_t read_chip(const std::string &command, const std::string &word, uint32_t low)
{
    return static_cast<uint32_t>(read_number(command, word, "a chip", low, NP_CHIP_NUM - 1));
}

void select_chip(ChipSession &session, Arguments arguments, Output &)
{
    session.select(read_chip("chip select", arguments[0], 0));
}

// A slave is known to the module from then on; it is not brought up, as that would clear the
// windows of the master.
void attach_slave(ChipSession &, Arguments arguments, Output &)
{
    const uint32_t chip = read_chip("chip attach", arguments[0], 1);
    if (ldsdk_model_attach(chip) != LDSDK_HOST_OK) {
        throw failed("chip attach: the model has no chip " + arguments[0]);
    }
    host::Sibling sibling({.chip = chip, .reg_base = ldsdk_model_reg_base(chip)});
    if (const uint32_t status = sibling.register_chip(); status != 0) {
        throw failed("chip attach: registering chip " + arguments[0] + " gives " + hex32(status));
    }
}

void help(ChipSession &session, Arguments, Output &output);

enum class Needs {
    model,
    image,   // and the bytes of the file that the first argument names
    module,  // and the model in one process with it
    input,   // the same, and the bytes of the file that the first argument names
    output,  // the same, and writes that file
};

bool reads_file(Needs needs)
{
    return needs == Needs::image || needs == Needs::input;
}

struct ChipCommand {
    const char *word;
    const char *second;     // null when one word names the command
    const char *arguments;  // of kArguments, optional ones in square brackets
    size_t least;
    size_t most;
    const char *help;
    void (*run)(ChipSession &, Arguments, Output &);
    Needs needs = Needs::model;
    std::vector<NextWord> (*words)() = nullptr;  // what the first argument can be
};

constexpr size_t kAnyNumber = SIZE_MAX;

// The last row with a first word is also the one that takes arguments in place of a second word.
constexpr ChipCommand kCommands[] = {
    {"peek", nullptr, "ADDR [WORDS]", 1, 2, "show words of chip memory", peek},
    {"poke", nullptr, "ADDR VALUE", 2, 2, "write one word of chip memory", poke},
    {"advance", nullptr, "TICKS", 1, 1, "let the chip's clock run, 0.1 ms a tick", advance},
    {"journal", "on", "", 0, 0, "record what crosses the chip's doors",
     turn<LD_DEBUG_JOURNAL_SET, true>},
    {"journal", "off", "", 0, 0, "stop recording", turn<LD_DEBUG_JOURNAL_SET, false>},
    {"journal", "show", "[RECORDS]", 0, 1, "show the last records, 20 by default", journal_show},
    {"journal", "clear", "", 0, 0, "forget the records", journal_clear},
    {"fault", "list", "", 0, 0, "show the faults that were set", fault_list},
    {"fault", "clear", "", 0, 0, "take all faults back", fault_clear},
    {"fault", nullptr, "OPERATION [WORD...]", 1, kAnyNumber,
     "make calls fail: Qd_PBA_AtomModeSet nth=1 code=5", fault_set},
    {"load", "online", "FILE [ATOMS]", 1, 2,
     "replace the microcode of running atoms, all or those of a bitmap", load_code_online,
     Needs::input},
    {"load", nullptr, "FILE", 1, 1, "load a microcode image", load_code, Needs::image},
    {"disasm", nullptr, "PC [COUNT]", 1, 2, "show instructions, 16 by default", show_code},
    {"traffic", "on", "", 0, 0, "packets for every thread that waits for one", traffic_on},
    {"traffic", "off", "", 0, 0, "no more packets", traffic_off},
    {"inject", nullptr, "FILE [PORT]", 1, 2,
     "feed the frames of a capture to the receive side, as from port fe:0", inject_capture,
     Needs::input},
    {"capture", nullptr, "FILE", 1, 1, "write what the host sent to a capture", save_capture,
     Needs::output},
    {"sent", nullptr, "[PACKETS]", 0, 1, "show the last packets that the host sent, 20 by default",
     show_sent},
    {"channels", nullptr, "", 0, 0, "show the auto-send channels", show_channels},
    {"standin", "on", "", 0, 0, "let the microcode's stand-in take what is sent",
     turn<LD_DEBUG_STANDIN_SET, true>},
    {"standin", "off", "", 0, 0, "leave what is sent in the queue",
     turn<LD_DEBUG_STANDIN_SET, false>},
    {"standin", "show", "", 0, 0, "show what it has done", standin_show},
    {"loop", "on", "", 0, 0, "send inserted packets back to the host",
     turn<LD_DEBUG_LOOP_SET, true>},
    {"loop", "off", "", 0, 0, "keep them", turn<LD_DEBUG_LOOP_SET, false>},
    {"lookup", "eml", "TABLE KEYHEX", 2, 2,
     "what the microcode finds in a hash table, key byte 0 first", lookup_eml, Needs::module,
     eml_table_words},
    {"lookup", "lcam", "TABLE KEYHEX", 2, 2, "what it finds in a local CAM table, key byte 0 first",
     lookup_lcam, Needs::module, lcam_table_words},
    {"lookup", "ha", "FRAMEHEX [PORT [CHANNEL]]", 1, 3,
     "what a packet meets in the pre-classifier, as from port fe:0", lookup_ha, Needs::module},
    {"show", "eml", "TABLE", 1, 1, "draw which items of a hash table are in use", show_eml,
     Needs::module, eml_table_words},
    {"show", "lcam", "TABLE", 1, 1, "draw which entries of a local CAM table are in use", show_lcam,
     Needs::module, lcam_table_words},
    {"show", "ha", "", 0, 0, "draw the rules of the pre-classifier", show_ha, Needs::module},
    {"select", nullptr, "CHIP", 1, 1, "choose the chip that these commands mean, 0 at first",
     select_chip},
    {"attach", nullptr, "CHIP", 1, 1, "power chip 1 to 3 on and register it as a slave",
     attach_slave, Needs::module},
    {"help", nullptr, "", 0, 0, "show this list", help},
};

// The words of `chip fault`.
std::vector<NextWord> operation_words()
{
    std::vector<NextWord> words = {{"rba", "a command frame", false},
                                   {"semaphore", "the semaphore of a hash table", false}};
    for (uint32_t op = 0; op < static_cast<uint32_t>(model::Op::kOpNum); op++) {
        words.push_back({model::op_info(static_cast<model::Op>(op)).name, "", false});
    }
    return words;
}

std::vector<NextWord> fault_words()
{
    return {{"nth=", "the first call that fails", false},
            {"count=", "how many fail, 0 all from then on", false},
            {"code=", "what a driver function answers", false},
            {"status=", "the status word of a response", false},
            {"op=", "only this command: read, write, add, ...", false},
            {"busy", "the slave bus never ends a command", false}};
}

struct Argument {
    const char *name;
    const char *help;
    std::vector<NextWord> (*words)() = nullptr;  // what it can be, whatever the command
};

constexpr Argument kArguments[] = {
    {"<ADDR>", "a chip address, a multiple of 4"},
    {"<ATOMS>", "a bitmap, 1 to 15"},
    {"<CHANNEL>", "a GEM port or logical link"},
    {"<CHIP>", "a chip, 0 to 3"},
    {"<COUNT>", "how many instructions"},
    {kFileWord, "a file; - is standard input, or output"},
    {"<FRAMEHEX>", "the packet's bytes in hexadecimal"},
    {"<KEYHEX>", "the key's bytes in hexadecimal"},
    {"<OPERATION>", "what is to fail", operation_words},
    {"<PACKETS>", "how many"},
    {"<PC>", "the number of an instruction"},
    {"<PORT>", "TYPE[:PORT[:SUBPORT[:PRIORITY]]]", port_words},
    {"<RECORDS>", "how many"},
    {"<TABLE>", "a table by name or number"},
    {"<TICKS>", "a number of 0.1 ms"},
    {"<VALUE>", "a 32-bit value"},
    {"<WORD>", "about the calls that fail", fault_words},
    {"<WORDS>", "how many words"},
};

std::string full_name(const ChipCommand &command)
{
    std::string name = std::string("chip ") + command.word;
    if (command.second != nullptr) {
        name += std::string(" ") + command.second;
    }
    return name;
}

// "chip peek ADDR [WORDS]"
std::string usage_of(const ChipCommand &command)
{
    const std::string blank = command.arguments[0] != '\0' ? " " : "";
    return full_name(command) + blank + command.arguments;
}

void help(ChipSession &, Arguments, Output &output)
{
    for (const ChipCommand &command : kCommands) {
        char text[160];
        std::snprintf(text, sizeof text, "%32s \t %s\n", usage_of(command).c_str(), command.help);
        output.write(text);
    }
}

const ChipCommand *find_command(std::span<const std::string> words)
{
    for (const ChipCommand &command : kCommands) {
        if (words[0] == command.word &&
            (command.second == nullptr || (words.size() > 1 && words[1] == command.second))) {
            return &command;
        }
    }
    return nullptr;
}

std::string described(const ChipCommand &command)
{
    const std::string arguments = command.arguments;
    return arguments.empty() ? command.help : arguments + ": " + command.help;
}

// What can stand behind a group's word, or, for an empty one, behind "chip", as one text.
std::string expected_words(std::string_view group)
{
    std::string text;
    std::string_view last;
    for (const ChipCommand &command : kCommands) {
        const bool second = command.second != nullptr;
        const std::string_view word = group.empty() ? command.word
                                      : second      ? command.second
                                                    : command.arguments;
        if ((group.empty() || group == command.word) && word != last) {
            text += (text.empty() ? "" : ", ") + std::string(word);
            last = word;
        }
    }
    return text;
}

[[noreturn]] void refuse_words(std::span<const std::string> words)
{
    const std::string seconds = expected_words(words[0]);
    if (seconds.empty() || words[0].empty()) {
        throw usage("\"" + words[0] + "\": no command of the chip; expected " + expected_words(""));
    }
    if (words.size() < 2) {
        throw usage("chip " + words[0] + ": a word is missing; expected " + seconds);
    }
    throw usage("chip " + words[0] + ": \"" + words[1] + "\": unknown word; expected " + seconds);
}

Arguments arguments_of(const ChipCommand &command, std::span<const std::string> words)
{
    return words.subspan(command.second == nullptr ? 1 : 2);
}

// "<WORDS>" for argument 1 of "ADDR [WORDS]"; the last name stands for all behind it.
std::string argument_name(const ChipCommand &command, size_t index)
{
    std::istringstream names(command.arguments);
    std::string name;
    for (size_t i = 0; i <= index && names >> name; i++) {
    }
    std::erase_if(name, [](char c) { return c == '[' || c == ']' || c == '.'; });
    return "<" + name + ">";
}

// What can stand behind the arguments that are there.
void add_argument_words(const ChipCommand &command, Arguments typed, std::vector<NextWord> &words)
{
    if (typed.size() > command.most) {
        words.push_back(surplus_word(typed[command.most]));
        return;
    }
    if (typed.size() < command.most) {
        const std::string name = argument_name(command, typed.size());
        const Argument &argument =
            *std::find_if(std::begin(kArguments), std::end(kArguments),
                          [&](const Argument &row) { return row.name == name; });
        words.push_back({name, argument.help, false});
        const auto list = argument.words != nullptr ? argument.words : command.words;
        if (list != nullptr && (typed.empty() || argument.words != nullptr)) {
            const std::vector<NextWord> more = list();
            words.insert(words.end(), more.begin(), more.end());
        }
    }
    if (typed.size() >= command.least) {
        words.push_back(line_end());
    }
}

}  // namespace

NamedFile chip_file(std::span<const std::string> words)
{
    words = words.subspan(1);
    const ChipCommand *command = words.empty() ? nullptr : find_command(words);
    if (command == nullptr || (!reads_file(command->needs) && command->needs != Needs::output)) {
        return {};
    }
    const Arguments arguments = arguments_of(*command, words);
    if (arguments.size() < command->least || arguments.size() > command->most) {
        return {};
    }
    return {reads_file(command->needs) ? NamedFile::read : NamedFile::written,
            command->needs >= Needs::module, full_name(*command), arguments[0]};
}

void ChipSession::run(std::span<const std::string> words, CarriedFile &file, Output &output)
{
    words = words.subspan(1);
    if (words.empty()) {
        help(*this, {}, output);
        return;
    }
    const ChipCommand *command = find_command(words);
    if (command == nullptr) {
        refuse_words(words);
    }
    const Arguments arguments = arguments_of(*command, words);
    const std::string name = full_name(*command);
    if (arguments.size() < command->least) {
        throw usage(name + ": an argument is missing; expected " + usage_of(*command));
    }
    if (arguments.size() > command->most) {
        throw usage(name + ": \"" + arguments[command->most] +
                    "\" is one word too many; expected " + usage_of(*command));
    }
    if (command->needs >= Needs::module && !door_.between().empty()) {
        throw failed(name + ": needs the module in this process, and there is " + door_.between() +
                     " in between; expected no --device, or one of `ldsdk serve`");
    }
    if (reads_file(command->needs) && !file.in) {
        throw usage(name + ": the bytes of \"" + arguments[0] + "\" did not come with the request");
    }
    command_ = name;
    file_ = &file;
    command->run(*this, arguments, output);
}

uint32_t ChipSession::ask(LdDebugCall &call, uint32_t chip)
{
    call.chip = chip;
    const uint32_t status = door_.call(call);
    if (status == model::kErrNoChip) {
        throw failed(command_ + ": chip " + std::to_string(chip) + " is not attached");
    }
    return status;
}

uint32_t ChipSession::ask(LdDebugCall &call)
{
    return ask(call, selected_);
}

void ChipSession::access(LdDebugCall &call)
{
    if (ask(call) != model::kOk) {
        throw failed(command_ + ": chip " + std::to_string(selected_) + " has nothing at " +
                     hex32(call.number));
    }
}

uint32_t ChipSession::peek(uint32_t address)
{
    LdDebugCall call = debug_call(LD_DEBUG_PEEK, address);
    access(call);
    return call.value;
}

void ChipSession::poke(uint32_t address, uint32_t value)
{
    LdDebugCall call = debug_call(LD_DEBUG_POKE, address, value);
    access(call);
}

void ChipSession::select(uint32_t chip)
{
    LdDebugCall call = debug_call(LD_DEBUG_PEEK);
    ask(call, chip);
    selected_ = chip;
}

std::vector<NextWord> chip_next_words(std::span<const std::string> path)
{
    path = path.subspan(1);
    std::vector<NextWord> words;
    for (const ChipCommand &command : kCommands) {
        const bool group = command.second != nullptr;
        if (path.empty() && (words.empty() || words.back().name != command.word)) {
            words.push_back(
                {command.word, group ? expected_words(command.word) : described(command), group});
        }
        else if (path.size() == 1 && group && path[0] == command.word) {
            words.push_back({command.second, described(command), command.most != 0});
        }
    }
    if (path.empty()) {
        return words;
    }
    if (const ChipCommand *command = find_command(path); command != nullptr) {
        add_argument_words(*command, arguments_of(*command, path), words);
    }
    else if (words.empty()) {
        words.push_back(unknown_word(path[expected_words(path[0]).empty() ? 0 : 1]));
    }
    return words;
}

}  // namespace ldsdk::tool

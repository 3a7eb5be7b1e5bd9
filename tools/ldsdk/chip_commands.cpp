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

struct ChipCommand {
    const char *word;
    const char *second;  // null when one word names the command
    const char *arguments;
    size_t least;
    size_t most;
    const char *help;
    void (*run)(ChipSession &, Arguments, Output &);
    std::vector<NextWord> (*words)() = nullptr;  // what the first argument can be
    bool here = false;  // calls the module too, so both must be in this process
};

constexpr size_t kAnyNumber = SIZE_MAX;
constexpr bool kHere = true;

// The last row with a first word is also the one that takes arguments in place of a second word.
constexpr ChipCommand kCommands[] = {
    {"peek", nullptr, "ADDR [WORDS]", 1, 2, "show words of chip memory", peek},
    {"poke", nullptr, "ADDR VALUE", 2, 2, "write one word of chip memory", poke},
    {"advance", nullptr, "TICKS", 1, 1, "let the chip's clock run, 0.1 ms a tick", advance},
    {"journal", "on", "", 0, 0, "record what crosses the chip's doors",
     turn<LD_DEBUG_JOURNAL_SET, true>},
    {"journal", "off", "", 0, 0, "stop recording", turn<LD_DEBUG_JOURNAL_SET, false>},
    {"journal", "show", "[N]", 0, 1, "show the last N records, 20 by default", journal_show},
    {"journal", "clear", "", 0, 0, "forget the records", journal_clear},
    {"fault", "list", "", 0, 0, "show the faults that were set", fault_list},
    {"fault", "clear", "", 0, 0, "take all faults back", fault_clear},
    {"fault", nullptr, "OPERATION [WORD...]", 1, kAnyNumber,
     "make calls fail: Qd_PBA_AtomModeSet nth=1 code=5", fault_set},
    {"load", "online", "FILE [ATOMS]", 1, 2,
     "replace the microcode of running atoms, all or those of a bitmap", load_code_online, nullptr,
     kHere},
    {"load", nullptr, "FILE", 1, 1, "load a microcode image", load_code, nullptr, kHere},
    {"disasm", nullptr, "PC [COUNT]", 1, 2, "show instructions, 16 by default", show_code},
    {"traffic", "on", "", 0, 0, "packets for every thread that waits for one", traffic_on},
    {"traffic", "off", "", 0, 0, "no more packets", traffic_off},
    {"inject", nullptr, "FILE [PORT]", 1, 2,
     "feed the frames of a capture to the receive side, as from port fe:0", inject_capture, nullptr,
     kHere},
    {"capture", nullptr, "FILE", 1, 1, "write what the host sent to a capture", save_capture,
     nullptr, kHere},
    {"sent", nullptr, "[N]", 0, 1, "show the last N packets that the host sent, 20 by default",
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
     "what the microcode finds in a hash table, key byte 0 first", lookup_eml, eml_table_words,
     kHere},
    {"lookup", "lcam", "TABLE KEYHEX", 2, 2, "what it finds in a local CAM table, key byte 0 first",
     lookup_lcam, lcam_table_words, kHere},
    {"show", "eml", "TABLE", 1, 1, "draw which items of a hash table are in use", show_eml,
     eml_table_words, kHere},
    {"show", "lcam", "TABLE", 1, 1, "draw which entries of a local CAM table are in use", show_lcam,
     lcam_table_words, kHere},
    {"select", nullptr, "N", 1, 1, "choose the chip that these commands mean, 0 at first",
     select_chip},
    {"attach", nullptr, "N", 1, 1, "power chip 1 to 3 on and register it as a slave", attach_slave,
     nullptr, kHere},
    {"help", nullptr, "", 0, 0, "show this list", help},
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

// What could have stood behind "chip", or behind one of its group words, as one text.
std::string expected_words(std::span<const std::string> path)
{
    std::string text;
    for (const NextWord &word : chip_next_words(path)) {
        text += (text.empty() ? "" : ", ") + word.name;
    }
    return text;
}

[[noreturn]] void refuse_words(std::span<const std::string> words)
{
    const std::string group[] = {"chip", words[0]};
    const std::string seconds = expected_words(group);
    if (seconds.empty()) {
        throw usage("\"" + words[0] + "\": no command of the chip; expected " +
                    expected_words({group, 1}));
    }
    if (words.size() < 2) {
        throw usage("chip " + words[0] + ": a word is missing; expected " + seconds);
    }
    throw usage("chip " + words[0] + ": \"" + words[1] + "\": unknown word; expected " + seconds);
}

}  // namespace

void ChipSession::run(std::span<const std::string> words, Output &output)
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
    const Arguments arguments = words.subspan(command->second == nullptr ? 1 : 2);
    const std::string name = full_name(*command);
    if (arguments.size() < command->least) {
        throw usage(name + ": an argument is missing; expected " + usage_of(*command));
    }
    if (arguments.size() > command->most) {
        throw usage(name + ": \"" + arguments[command->most] +
                    "\" is one word too many; expected " + usage_of(*command));
    }
    if (command->here && !door_.between().empty()) {
        throw failed(name + ": needs the module in this process, and there is " + door_.between() +
                     " in between; expected no --device, or one of `ldsdk serve`");
    }
    command_ = name;
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
    std::vector<NextWord> words;
    for (const ChipCommand &command : kCommands) {
        const bool group = command.second != nullptr;
        if (path.size() == 1 && (words.empty() || words.back().name != command.word)) {
            const std::string group_path[] = {path[0], command.word};
            words.push_back(
                {command.word, group ? expected_words(group_path) : described(command), group});
        }
        else if (path.size() == 2 && group && path[1] == command.word) {
            words.push_back({command.second, described(command), command.words != nullptr});
        }
        else if (path.size() == 3 && group && command.words != nullptr && path[1] == command.word &&
                 path[2] == command.second) {
            words = command.words();
        }
    }
    if (path.size() == 2 && path[1] == "fault") {
        words.push_back({"rba", "a command frame", false});
        words.push_back({"semaphore", "the semaphore of a hash table", false});
        for (uint32_t op = 0; op < static_cast<uint32_t>(model::Op::kOpNum); op++) {
            words.push_back({model::op_info(static_cast<model::Op>(op)).name, "", false});
        }
    }
    return words;
}

}  // namespace ldsdk::tool

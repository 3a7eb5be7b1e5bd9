#include "tools/ldsdk/lookup_commands.h"

#include "host/ha_view.h"
#include "host/lookup_view.h"
#include "tools/ldsdk/channel_commands.h"
#include "tools/ldsdk/error.h"

#include <cctype>

namespace ldsdk::tool {

namespace {

using Arguments = std::span<const std::string>;
using host::LookupKind;

// A table by number or name.
uint32_t read_table(const std::string &command, LookupKind kind, const std::string &word)
{
    if (!word.empty() && std::isdigit(static_cast<unsigned char>(word[0])) != 0) {
        const size_t count = host::lookup_table_names(kind).size();
        return static_cast<uint32_t>(
            read_number(command, word, "a table by number or name", 0, count - 1));
    }
    if (const auto table = host::lookup_table_number(kind, word)) {
        return *table;
    }
    std::string names;
    for (const char *name : host::lookup_table_names(kind)) {
        if (name != nullptr) {
            names += std::string(names.empty() ? "" : ", ") + name;
        }
    }
    throw usage(command + ": \"" + word + "\": expected a table by number, or one of " + names);
}

// Writes the text that work() gives, and names the command in front of what is wrong.
template <typename Work>
void write_text(const std::string &command, Output &output, Work work)
{
    try {
        output.write(work());
    }
    catch (const std::invalid_argument &error) {
        throw usage(command + ": " + error.what());
    }
    catch (const Error &) {
        throw;
    }
    catch (const std::runtime_error &error) {
        throw failed(command + ": " + error.what());
    }
}

void lookup(const std::string &command, LookupKind kind, uint32_t chip, Arguments arguments,
            Output &output)
{
    const uint32_t table = read_table(command, kind, arguments[0]);
    write_text(command, output, [&] {
        return host::lookup_text(chip, kind, table,
                                 host::parse_lookup_key(chip, kind, table, arguments[1]));
    });
}

std::vector<NextWord> table_words(LookupKind kind)
{
    std::vector<NextWord> words;
    const auto names = host::lookup_table_names(kind);
    for (size_t table = 0; table < names.size(); table++) {
        if (names[table] != nullptr) {
            words.push_back({names[table], "table " + std::to_string(table), false});
        }
    }
    return words;
}

}  // namespace

void lookup_eml(ChipSession &session, Arguments arguments, Output &output)
{
    lookup("chip lookup eml", LookupKind::kEml, session.selected(), arguments, output);
}

void lookup_lcam(ChipSession &session, Arguments arguments, Output &output)
{
    lookup("chip lookup lcam", LookupKind::kLcam, session.selected(), arguments, output);
}

void show_eml(ChipSession &session, Arguments arguments, Output &output)
{
    const std::string command = "chip show eml";
    const uint32_t table = read_table(command, LookupKind::kEml, arguments[0]);
    write_text(command, output, [&] { return host::show_eml_text(session.selected(), table); });
}

void show_lcam(ChipSession &session, Arguments arguments, Output &output)
{
    const std::string command = "chip show lcam";
    const uint32_t table = read_table(command, LookupKind::kLcam, arguments[0]);
    write_text(command, output, [&] {
        const uint32_t chip = session.selected();
        return host::show_lcam_text(chip, table, host::priority_blocks(chip, table));
    });
}

void lookup_ha(ChipSession &session, Arguments arguments, Output &output)
{
    const std::string command = "chip lookup ha";
    const NpPortID port = read_port(command, arguments.size() > 1 ? arguments[1] : "fe:0");
    const uint32_t channel =
        arguments.size() > 2 ? static_cast<uint32_t>(read_number(
                                   command, arguments[2], "a GEM port or logical link", 0, 0xffff))
                             : model::kHaNoChannel;
    write_text(command, output, [&] {
        return host::lookup_ha_text(session.selected(), host::parse_frame(arguments[0]),
                                    {port.ulPortType, port.ulPortID, port.ulSubPortID, port.ulPri},
                                    channel);
    });
}

void show_ha(ChipSession &session, Arguments, Output &output)
{
    write_text("chip show ha", output, [&] { return host::show_ha_text(session.selected()); });
}

std::vector<NextWord> eml_table_words()
{
    return table_words(LookupKind::kEml);
}

std::vector<NextWord> lcam_table_words()
{
    return table_words(LookupKind::kLcam);
}

}  // namespace ldsdk::tool

// The commands for what goes through the chip's packet channel: capture files, auto-send channels,
// the stand-in for the microcode.
#pragma once

#include "ldsdk/types.h"
#include "tools/ldsdk/chip_commands.h"

namespace ldsdk::tool {

// A port by words, "ge:3", "vdsl:1:32", "xaui:0:5:1": type, port, sub-port, priority; what is
// missing is 0. The chip may have no such port.
NpPortID read_port(const std::string &command, const std::string &text);

// FILE [PORT]
void inject_capture(ChipSession &session, std::span<const std::string> arguments, Output &output);
// FILE
void save_capture(ChipSession &session, std::span<const std::string> arguments, Output &output);
// What a PORT can begin with.
std::vector<NextWord> port_words();

void show_channels(ChipSession &session, std::span<const std::string> arguments, Output &output);
// [N]
void show_sent(ChipSession &session, std::span<const std::string> arguments, Output &output);

void standin_show(ChipSession &session, std::span<const std::string> arguments, Output &output);

}  // namespace ldsdk::tool

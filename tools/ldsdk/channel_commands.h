// The commands for what goes through the chip's packet channel: capture files, auto-send channels,
// the stand-in for the microcode.
#pragma once

#include "tools/ldsdk/chip_commands.h"

namespace ldsdk::tool {

// FILE [PORT]
void inject_capture(ChipSession &session, std::span<const std::string> arguments, Output &output);
// FILE
void save_capture(ChipSession &session, std::span<const std::string> arguments, Output &output);

void show_channels(ChipSession &session, std::span<const std::string> arguments, Output &output);
// [N]
void show_sent(ChipSession &session, std::span<const std::string> arguments, Output &output);

void standin_show(ChipSession &session, std::span<const std::string> arguments, Output &output);

}  // namespace ldsdk::tool

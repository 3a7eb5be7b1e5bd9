// The commands that load microcode and show it: `chip load`, `chip disasm`, `chip traffic`.
#pragma once

#include "tools/ldsdk/chip_commands.h"

namespace ldsdk::tool {

// FILE
void load_code(ChipSession &session, std::span<const std::string> arguments, Output &output);
// FILE [ATOMS]
void load_code_online(ChipSession &session, std::span<const std::string> arguments, Output &output);
// PC [COUNT]
void show_code(ChipSession &session, std::span<const std::string> arguments, Output &output);
// Packets for all atoms of the chip.
void traffic_on(ChipSession &session, std::span<const std::string> arguments, Output &output);
void traffic_off(ChipSession &session, std::span<const std::string> arguments, Output &output);

}  // namespace ldsdk::tool

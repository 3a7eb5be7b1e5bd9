// The commands that look into the lookup tables: `chip lookup` and `chip show`.
#pragma once

#include "tools/ldsdk/chip_commands.h"

namespace ldsdk::tool {

// TABLE KEYHEX
void lookup_eml(ChipSession &session, std::span<const std::string> arguments, Output &output);
void lookup_lcam(ChipSession &session, std::span<const std::string> arguments, Output &output);
// TABLE
void show_eml(ChipSession &session, std::span<const std::string> arguments, Output &output);
void show_lcam(ChipSession &session, std::span<const std::string> arguments, Output &output);
// FRAMEHEX [PORT [CHANNEL]]
void lookup_ha(ChipSession &session, std::span<const std::string> arguments, Output &output);
void show_ha(ChipSession &session, std::span<const std::string> arguments, Output &output);

// Names of the tables.
std::vector<NextWord> eml_table_words();
std::vector<NextWord> lcam_table_words();

}  // namespace ldsdk::tool

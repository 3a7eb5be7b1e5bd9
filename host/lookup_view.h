// The lookup tables for people: what the microcode finds for a key, and how full a table is. Table
// numbers, geometry and key lengths are the SDK's; what stands in the tables is read from the chip
// model, past the SDK.
//
// Texts end with a line end and fit 100 columns. Functions throw std::invalid_argument for a table
// or a key that cannot be, std::runtime_error when the chip isn't there or not registered.
#pragma once

#include "sdk/lookup/pricam.h"

#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace ldsdk::host {

enum class LookupKind { kEml, kLcam };

// Number of a table from its name, in any case ("mac", "L2PA"); none when there is no such name.
std::optional<uint32_t> lookup_table_number(LookupKind kind, std::string_view name);
// Names of all tables, by number; null for a number without a name.
std::span<const char *const> lookup_table_names(LookupKind kind);

// Bytes of a key from hexadecimal digits, byte 0 first, with or without 0x in front and colons
// between bytes. Throws std::invalid_argument, also for a wrong number of bytes.
std::vector<uint8_t> parse_lookup_key(uint32_t chip, LookupKind kind, uint32_t table,
                                      std::string_view text);

// What the microcode finds for a key: hit or miss, where, the associated data.
std::string lookup_text(uint32_t chip, LookupKind kind, uint32_t table,
                        std::span<const uint8_t> key);

// Which places are in use, with a legend: buckets by halves up to 64 buckets, by one sign each
// beyond.
std::string show_eml_text(uint32_t chip, uint32_t table);

// The priority blocks of a table whose family has laid them out; empty for any other table.
std::span<const NpPriBlockPoint> priority_blocks(uint32_t chip, uint32_t table);
// Which entries take part in searches, by offset, with a legend and, given blocks, who owns them.
std::string show_lcam_text(uint32_t chip, uint32_t table, std::span<const NpPriBlockPoint> blocks);

}  // namespace ldsdk::host

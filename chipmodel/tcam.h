// The local CAM: four blocks of eight TCAMs of 512 rows, with associated data beside each. The
// commands name blocks, TCAMs and rows; a search compares for real.
#pragma once

#include "chipmodel/lookup.h"
#include "chipmodel/rba.h"

namespace ldsdk::model {

class Chip;

inline constexpr uint32_t kCamIdNum = 16;
inline constexpr uint32_t kTcamModeShared = 1;  // a 4-bit CAM identifier in front of each entry

// One row of a block over its eight TCAMs, 40 bits of each.
struct TcamRow {
    uint8_t data[kTcamKeyBytes];
    uint8_t mask[kTcamKeyBytes];
    uint8_t ad[4 * kTcamNum];
    uint8_t width[kTcamNum];  // width code of the entry that a TCAM's part was last written for
    uint8_t valid;            // a bit per TCAM
};

struct Tcam {
    TcamRow row[kTcamBlockNum][kTcamRowNum];
    bool used[kTcamBlockNum];  // something was written since power on
    uint32_t mode;             // layout of the CAM identifiers
    bool mirror[kCamIdNum];
};

void tcam_power_on(Tcam &tcam);

// There is such a place.
bool tcam_place_ok(const TcamPlace &place);
// The valid bit of an entry.
bool tcam_valid(const Tcam &tcam, const TcamPlace &place);

// Commands of a request frame for the local CAM. Results and status as rba.h tells.
uint32_t tcam_read_mask(Chip &chip, const RbaRequest &request, RbaResponse &response);
uint32_t tcam_read_data(Chip &chip, const RbaRequest &request, RbaResponse &response);
uint32_t tcam_write_mask(Chip &chip, const RbaRequest &request, RbaResponse &response);
uint32_t tcam_write_data(Chip &chip, const RbaRequest &request, RbaResponse &response);
uint32_t tcam_clear_mask(Chip &chip, const RbaRequest &request, RbaResponse &response);
uint32_t tcam_clear_data(Chip &chip, const RbaRequest &request, RbaResponse &response);
uint32_t tcam_valid_clear(Chip &chip, const RbaRequest &request, RbaResponse &response);
uint32_t tcam_valid_set(Chip &chip, const RbaRequest &request, RbaResponse &response);
uint32_t tcam_ad_read(Chip &chip, const RbaRequest &request, RbaResponse &response);
uint32_t tcam_ad_write(Chip &chip, const RbaRequest &request, RbaResponse &response);

}  // namespace ldsdk::model

// The chip model as a host sees it: power, the debug door, the clock, the journal, faults, and the
// bus to install. The driver's functions (platform/driver.h) are the other way in.
//
// One process has up to four chips. Everything is static memory; nothing is allocated. Functions
// that take a chip answer kErrNoChip when it is not attached.
#pragma once

#include "chipmodel/lookup.h"
#include "chipmodel/ops.h"
#include "chipmodel/traffic.h"
#include "platform/bus.h"

#include <cstddef>
#include <cstdint>

namespace ldsdk::model {

inline constexpr uint32_t kChipNum = 4;

// What the model answers, also through the driver's functions.
inline constexpr uint32_t kOk = 0;
inline constexpr uint32_t kErrNotModelled = 0xe0000001;  // the chip has it, the model doesn't
inline constexpr uint32_t kErrNoChip = 0xe0000002;       // no such chip, or not attached
inline constexpr uint32_t kErrAddress = 0xe0000003;      // nothing is modelled at the address
inline constexpr uint32_t kErrParam = 0xe0000004;        // an argument that the chip cannot take
inline constexpr uint32_t kErrNull = 0xe0000005;         // a null pointer
inline constexpr uint32_t kErrFault = 0xe0000006;        // a fault's code when it names none
inline constexpr uint32_t kErrEmpty = 0xe0000007;        // nothing there to give back
inline constexpr uint32_t kErrFull = 0xe0000008;         // a queue has no room

// ---- power --------------------------------------------------------------------------------------

// Powers a chip on, 0 to 3; again: a power cycle. Memory, settings, clock and pending work are
// zero; the journal and faults stay. The first chip that is attached becomes the master.
uint32_t attach(uint32_t chip);
// Takes a chip out. A master leaves the windows without a chip until another is attached or chosen.
uint32_t detach(uint32_t chip);
// Chooses the chip behind the mapped windows (the one whose register base is 0).
uint32_t master_set(uint32_t chip);
// The chip behind the windows, kChipNum when there is none.
uint32_t master();
// Register base of a chip's indirect bus, for a chip that is registered as a slave. A base address
// ORed with 0x20000 << shift, for any shift, is the bus block of that chip.
uint32_t slave_base(uint32_t chip);
// How many status reads find the indirect bus of a chip busy after a command; 1 at power on.
uint32_t bus_polls_set(uint32_t chip, uint32_t polls);

// The bus to install with Os_BusAttach.
const OsBus &bus();
// Accesses of windows and buses since the start that hit nothing: a wild address of the caller.
uint64_t stray_accesses();

// ---- debug door ---------------------------------------------------------------------------------

// One 32-bit word by chip address, anything that is modelled, whether a window reaches it or not.
// Leaves no record in the journal and has no side effect at registers. kErrAddress outside the
// model or when the address is no multiple of 4; kErrNull.
uint32_t peek(uint32_t chip, uint32_t address, uint32_t *value);
uint32_t poke(uint32_t chip, uint32_t address, uint32_t value);

// What bring-up has set.
struct QueueSetting {
    uint32_t mem;
    uint32_t address;  // 16-bit units
    uint32_t depth;
    bool set;
};
inline constexpr uint32_t kQueueNum = 16;
inline constexpr uint32_t kSmemNum = 2;
inline constexpr uint32_t kAtomNum = 4;
uint32_t queue_get(uint32_t chip, uint32_t queue, QueueSetting *setting);
uint32_t ddr_base_get(uint32_t chip, uint32_t smem, uint32_t *address);  // 16-bit units
uint32_t atom_mode_get(uint32_t chip, uint32_t atom, uint32_t *mode);

// ---- clock --------------------------------------------------------------------------------------

// Moves a chip's clock on by ticks of 0.1 ms and does the work that falls due.
uint32_t advance(uint32_t chip, uint64_t ticks);
// Who is asked every so often during the work of a long move; false cuts the rest of it off, with
// the clock where it should be, as too many packets of an auto-send channel do. Null: nobody.
using Pace = bool (*)();
void pace_set(Pace pace);
// The clock of a chip, 0 at power on and for a chip that is not attached.
uint64_t clock_now(uint32_t chip);

// ---- journal ------------------------------------------------------------------------------------

enum class RecordKind : uint8_t { kRead16, kWrite16, kRead32, kWrite32, kClear, kRba, kCall };

// One crossing of a door.
struct Record {
    uint64_t tick;     // of the chip's clock
    uint32_t address;  // windows: chip address; bus of a slave: register number; commands: the
                       // frame's address word
    uint32_t value;    // windows: the value; clears: bytes; commands: the command half-word, with
                       // the access class in bits 23..16
    uint32_t result;   // commands and calls: what the driver answered
    uint32_t status;   // commands: the status word
    uint8_t data[20];  // commands: the first 16 bytes, of the payload of a write, of the response
                       // to a read; calls: up to five argument words, host order
    RecordKind kind;
    uint8_t chip;
    Op op;          // commands and calls
    RbaOp command;  // commands
};

// Records, a power of 2; the oldest give way. A build that has to be small may ask for fewer.
#ifndef LDSDK_JOURNAL_SIZE
#define LDSDK_JOURNAL_SIZE 65536
#endif
inline constexpr uint32_t kJournalSize = LDSDK_JOURNAL_SIZE;

// Starts or stops recording. Off, it costs one test per crossing. Records stay until cleared.
void journal_enable(bool on);
bool journal_enabled();
void journal_clear();
// Records held, at most kJournalSize.
uint32_t journal_count();
// Records that gave way since the journal was cleared.
uint64_t journal_lost();
// Record by age, 0 the oldest held; null past the newest. Valid until the next crossing.
const Record *journal_record(uint32_t index);
// Writes a record as one line of text without line end into buffer, cut to fit. Returns the length
// that the whole line has. 160 bytes hold any line.
size_t journal_format(const Record &record, char *buffer, size_t size);

// ---- faults -------------------------------------------------------------------------------------
//
//   text      := "clear" | fault { ";" fault }
//   fault     := operation { word }
//   operation := name of a driver function | "rba" | "alloc" | "bus" | "semaphore"
//   word      := "nth=" N      the first call that fails, 1 the next one        (default 1)
//              | "count=" N    how many fail, 0 all from then on                (default 1)
//              | "code=" N     what the driver function answers
//              | "status=" N   the status word of the response; "rba" only
//              | "op=" NAME    count only this command; "rba" only: read, read_clear, write, add,
//                              set_bit, search, search_update, search_build, search_update_build,
//                              tcam_read_mask, ... (the names of the journal)
//              | "busy"        "bus" only: the command never ends
//   N         := decimal or 0x hexadecimal
//
// "rba" is Qd_RBA_CommandSend. A command or a call that fails is not carried out. "semaphore" is a
// hash table's semaphore that stays taken: "rba op=search_update_build status=5". "bus" counts the
// commands of all slave buses and its default count is 0. A driver function without code= answers
// kErrFault. Each fault counts calls from when it was set; where two hit the same call, the one
// set first decides.
//
//   Qd_PBA_AtomModeSet nth=1 count=1 code=0x5
//   rba op=write nth=3 status=2
//   bus busy; alloc nth=4

inline constexpr uint32_t kFaultNum = 16;  // faults at a time

// What was wrong with a text.
struct FaultError {
    const char *at;      // into the text
    const char *reason;  // "unknown operation", "number expected", ...
};

// Adds the faults of a text, or clears all ("clear", or a null text). On a mistake nothing is added
// and the result is false; error may be null.
bool faults_set(const char *text, FaultError *error);
void faults_clear();
// Faults that are set, spent ones included.
uint32_t faults_count();
// Writes a fault as text that faults_set takes, with all that it left out, and "calls=" and the
// calls that it has counted behind it: "rba op=write nth=3 count=1 code=0xe0000006 calls=2".
// kErrParam past the last. 128 bytes hold any.
uint32_t fault_format(uint32_t index, char *buffer, size_t size);
// Writes what was wrong with a text, cut to fit: "unknown operation at "Qd_Nothing" (column 1)".
void fault_error_format(const char *text, const FaultError &error, char *buffer, size_t size);

}  // namespace ldsdk::model

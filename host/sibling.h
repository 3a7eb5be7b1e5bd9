// The reference sibling: what the module beside the SDK does with it, from registering its hooks to
// the periodic calls. It uses the exported functions only.
#pragma once

#include "ldsdk/ldsdk.h"

#include <cstdint>
#include <functional>
#include <span>
#include <vector>

namespace ldsdk::host {

// What an error recorder was told.
struct ErrorRecord {
    uint32_t chip;
    uint32_t code;  // the chip driver's
    uint32_t info;  // a second value of the place that failed
};

// How often the SDK called the hooks since the last reset. The hooks belong to the process, and so
// do the counts.
struct HookCounts {
    uint64_t prints;
    uint64_t delays;
    uint64_t watchdog_feeds;
    uint64_t locks;
    uint64_t unlocks;
    uint64_t slave_reads;
    uint64_t slave_writes;
};

// Register access of a slave chip, in place of the indirect bus. Each gives 0 or a code.
struct SlaveAccess {
    std::function<uint32_t(uint32_t address, uint32_t *value)> read;
    std::function<uint32_t(uint32_t address, uint32_t value)> write;
};

struct SiblingConfig {
    uint32_t chip = 0;
    uint32_t chip_class = 1;
    uint32_t attribute = 0;
    uintptr_t reg_base = 0;  // 0: the chip that the processor sits at
};

// The outcome of one round of the periodic calls.
struct TickResult {
    uint32_t timer;         // of the timer routine
    uint32_t reset_bitmap;  // a bit for each block of the chip that asks for a reset
    uint32_t heartbeat;     // of taking the heartbeat message; 0 when there was none
};

class Sibling {
  public:
    explicit Sibling(const SiblingConfig &config) : config_(config) {}
    // Tears the chip down if this object brought it up. The hooks stay: the SDK takes none back.
    ~Sibling();
    Sibling(const Sibling &) = delete;
    Sibling &operator=(const Sibling &) = delete;

    // The whole way, in this order: hooks, chip, command tree, bring-up. 0, or the code of the step
    // that failed, whose name failed_step() then gives.
    uint32_t start();
    const char *failed_step() const
    {
        return failed_step_;
    }

    // The steps of it. Each gives the SDK's code.
    uint32_t register_hooks();
    uint32_t register_chip();
    uint32_t install_commands();  // once per process; 0 when that was done before
    uint32_t bring_up();
    uint32_t tear_down();

    // Takes the place of the indirect bus for this chip. The functions must be non-null.
    uint32_t register_slave_hooks(SlaveAccess access);

    // The periodic calls: to be made about once a second. A heartbeat answer that came from the
    // microcode is handed in with its 16-byte header.
    TickResult tick(std::span<const uint8_t> heartbeat = {});

    uint32_t chip() const
    {
        return config_.chip;
    }
    bool is_up() const
    {
        return up_;
    }

    // What the hooks were told. Errors are in order, of all chips, the newest 1024.
    static const HookCounts &counts();
    static const std::vector<ErrorRecord> &errors();
    static uint64_t errors_total();
    static void reset_counts();

  private:
    SiblingConfig config_;
    bool up_ = false;
    const char *failed_step_ = "";
};

}  // namespace ldsdk::host

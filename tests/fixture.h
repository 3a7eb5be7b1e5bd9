// What the tests share: captured output, a chip that is up, and taps at the two doors.
#pragma once

#include "chipmodel/model.h"
#include "ldsdk/ldsdk.h"
#include "ldsdk/status.h"
#include "platform/bus.h"
#include "platform/driver.h"
#include "platform/host/host_os.h"
#include "sdk/frame/base/trace.h"
#include "sdk/frame/bringup.h"
#include "sdk/frame/registry.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>
#include <utility>
#include <vector>

namespace ldsdk::test {

// Collects what the module prints while it lives.
class OutputCapture {
  public:
    OutputCapture()
    {
        Os_HostSetSink(append, &text_);
    }
    ~OutputCapture()
    {
        Os_HostSetSink(nullptr, nullptr);
    }
    OutputCapture(const OutputCapture &) = delete;
    OutputCapture &operator=(const OutputCapture &) = delete;

    // What was printed since the last call.
    std::string take()
    {
        return std::exchange(text_, {});
    }

  private:
    static void append(const char *text, void *user)
    {
        static_cast<std::string *>(user)->append(text);
    }

    std::string text_;
};

// Keeps whole request frames as they pass the driver's door. One at a time.
class FrameTap {
  public:
    FrameTap();
    ~FrameTap();
    FrameTap(const FrameTap &) = delete;
    FrameTap &operator=(const FrameTap &) = delete;

    // The oldest frame not taken yet, empty if there is none.
    std::vector<uint8_t> take();
    // How many frames passed since the last take; drops them.
    size_t take_count();
};

// A frame of zeros but for the runs of bytes given by their place.
std::vector<uint8_t> frame(const std::vector<std::pair<size_t, std::vector<uint8_t>>> &runs);

// Window accesses of 32 bits, in their order.
class BusTap {
  public:
    struct Access {
        char kind;  // 'r' or 'w'
        uint32_t address;
        uint32_t value;
        bool operator==(const Access &) const = default;
    };

    BusTap();
    ~BusTap();
    BusTap(const BusTap &) = delete;
    BusTap &operator=(const BusTap &) = delete;

    // The accesses since the last take.
    std::vector<Access> take();
};

// The module as it is right after loading: no chip, no hook, no trace, an empty model.
class Module : public testing::Test {
  protected:
    Module();
    ~Module() override;

    // Switches the error traces of a module on; their text goes to `out`.
    static void trace_errors(NpModule module);
    static void set_fault(const std::string &text);
    static uint32_t peek(uint32_t address, uint32_t chip = 0);
    static void poke(uint32_t address, uint32_t value, uint32_t chip = 0);
    // Bytes of chip memory, through the debug door.
    static std::vector<uint8_t> memory(uint32_t address, size_t size, uint32_t chip = 0);
    // Every byte that tables can lie in: what a refused call must leave as it was.
    static std::vector<uint8_t> store(uint32_t chip = 0);

    OutputCapture out;
};

// Chip 0 registered as the master, class 1, attribute 0, and brought up.
class ChipUp : public Module {
  protected:
    ChipUp();
    ~ChipUp() override;
};

}  // namespace ldsdk::test

// A scripted driver for the CPU channel and the port numbers. While it lives it answers in place of
// the chip model: it keeps every call with its arguments, fails the call it is told to, and hands
// out the packets it was given.
#pragma once

#include "platform/driver.h"

#include <cstdint>
#include <deque>
#include <functional>
#include <string>
#include <vector>

namespace ldsdk::test {

class DriverTap {
  public:
    struct Call {
        std::string name;               // without "Qd_"
        std::vector<uint32_t> numbers;  // the plain numbers behind the chip
        std::vector<uint32_t> head;     // header words 0 and 1 of a packet
        std::vector<uint8_t> body;
        const uint8_t *data = nullptr;  // where the body lies
        bool operator==(const Call &) const = default;
    };
    struct Packet {
        uint32_t info0, info1;
        std::vector<uint8_t> bytes;
        uint32_t length;  // that the driver reports
    };

    DriverTap();
    ~DriverTap();
    DriverTap(const DriverTap &) = delete;
    DriverTap &operator=(const DriverTap &) = delete;

    // The calls since the last take.
    std::vector<Call> take();
    // Their names, one behind the other.
    std::string take_names();
    // Fails the n-th call from now on, 1 the next.
    void fail(uint32_t nth, uint32_t code);
    void push(Packet packet);

    // The port arithmetic: four numbers to a phy id and back; false when there is no such port.
    std::function<bool(const uint32_t (&port)[4], uint32_t *phy)> phy_of;
    std::function<bool(uint32_t phy, uint32_t (&port)[4])> port_of;

    // What the calls answer when the script knows better.
    static constexpr uint32_t kNoPort = 0x9a00002f;
    static constexpr uint32_t kNothing = 0x9a000046;

    // For the driver's functions.
    uint32_t enter(Call call);
    std::deque<Packet> waiting;

  private:
    std::vector<Call> calls_;
    uint32_t countdown_ = 0;
    uint32_t code_ = 0;
};

}  // namespace ldsdk::test

// A powered-on chip behind both doors, and frames written as bytes.
#pragma once

#include "chipmodel/model.h"
#include "platform/driver.h"
#include "platform/os.h"

#include <gtest/gtest.h>
#include <array>
#include <initializer_list>
#include <utility>

namespace ldsdk::model_test {

using Frame = std::array<uint8_t, 60>;
using Answer = std::array<uint8_t, 20>;

// A frame from (byte, value) pairs; all other bytes are zero.
inline Frame frame(std::initializer_list<std::pair<int, int>> bytes)
{
    Frame result = {};
    for (const auto &[at, value] : bytes) {
        result.at(static_cast<size_t>(at)) = static_cast<uint8_t>(value);
    }
    return result;
}

inline uint32_t le32(const uint8_t *at)
{
    return at[0] | static_cast<uint32_t>(at[1]) << 8 | static_cast<uint32_t>(at[2]) << 16 |
           static_cast<uint32_t>(at[3]) << 24;
}

struct Outcome {
    uint32_t code;    // the driver's
    uint32_t status;  // status word of the response
    std::array<uint8_t, 16> data;
};

inline Outcome send(const Frame &request, uint32_t chip = 0)
{
    NpRbaReqCmd req = {};
    NpRbaRspCmd rsp = {};
    std::copy(request.begin(), request.end(), req.aucByte);
    Outcome outcome = {};
    outcome.code = Qd_RBA_CommandSend(chip, &req, &rsp);
    outcome.status = le32(rsp.aucByte);
    std::copy(rsp.aucByte + 4, rsp.aucByte + 20, outcome.data.begin());
    return outcome;
}

// A plain command on search memory: operation in bits 7..4, length code in bits 9..8.
inline Frame plain(uint32_t address, int op, int access, int length,
                   std::initializer_list<std::pair<int, int>> payload = {})
{
    Frame result = frame(payload);
    for (uint32_t at = 0; at < 4; at++) {
        result[at] = static_cast<uint8_t>(address >> 8 * at);
    }
    result[4] = static_cast<uint8_t>(op << 4);
    result[5] = static_cast<uint8_t>(length);
    result[6] = static_cast<uint8_t>(access);
    return result;
}

class ModelTest : public testing::Test {
  protected:
    void SetUp() override
    {
        reset();
        ASSERT_EQ(0u, model::attach(0));
        Os_BusAttach(&model::bus());
    }
    void TearDown() override
    {
        Os_BusAttach(nullptr);
        reset();
    }

    static void reset()
    {
        for (uint32_t chip = 0; chip < model::kChipNum; chip++) {
            model::detach(chip);
        }
        model::faults_clear();
        model::journal_enable(false);
        model::journal_clear();
    }

    static uint32_t peek(uint32_t address, uint32_t chip = 0)
    {
        uint32_t value = 0;
        EXPECT_EQ(0u, model::peek(chip, address, &value)) << std::hex << address;
        return value;
    }
};

}  // namespace ldsdk::model_test

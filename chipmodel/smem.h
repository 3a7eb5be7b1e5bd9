// Search memory commands on the store, and what the driver sets about search memory.
#pragma once

#include "chipmodel/model.h"
#include "chipmodel/rba.h"

namespace ldsdk::model {

// Settings of one chip that nothing in the model acts on yet.
struct SmemSettings {
    QueueSetting queue[kQueueNum];
    uint32_t ddr_base[kSmemNum];
};

// Commands of a request frame with a plain address word. Results and status as rba.h tells.
uint32_t smem_read(Chip &chip, const RbaRequest &request, RbaResponse &response);
uint32_t smem_read_clear(Chip &chip, const RbaRequest &request, RbaResponse &response);
uint32_t smem_write(Chip &chip, const RbaRequest &request, RbaResponse &response);
uint32_t smem_add(Chip &chip, const RbaRequest &request, RbaResponse &response);
uint32_t smem_set_bit(Chip &chip, const RbaRequest &request, RbaResponse &response);

}  // namespace ldsdk::model

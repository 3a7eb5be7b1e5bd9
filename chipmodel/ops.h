// Everything that crosses the two doors and can be told apart there: the driver's functions, and
// the commands that travel inside Qd_RBA_CommandSend.
#pragma once

#include "chipmodel/ops_list.h"

#include <cstdint>

namespace ldsdk::model {

enum class Op : uint8_t {
#define LDSDK_MODEL_X(name, numbers) name,
    LDSDK_MODEL_DRIVER_OPS(LDSDK_MODEL_X)
#undef LDSDK_MODEL_X
        kDriverOpNum,
    // What can fail without a driver function.
    kAlloc = kDriverOpNum,
    kBus,
    kOpNum,
};

struct OpInfo {
    const char *name;
    uint8_t numbers;  // plain numbers among the arguments
};
// Row of an operation.
const OpInfo &op_info(Op op);

// Commands of a request frame.
enum class RbaOp : uint8_t {
    kUnknown,
    kRead,
    kReadClear,
    kWrite,
    kAdd,
    kSetBit,
    kSearch,
    kSearchUpdate,
    kSearchBuild,
    kSearchUpdateBuild,
    kTcamReadMask,
    kTcamReadData,
    kTcamWriteMask,
    kTcamWriteData,
    kTcamClearMask,
    kTcamClearData,
    kTcamValidClear,
    kTcamValidSet,
    kAdRead,
    kAdWrite,
    kRbaOpNum,
};
// Name of a command, as the journal prints it and a fault asks for it: "read", "tcam_write_data".
const char *rba_op_name(RbaOp op);

}  // namespace ldsdk::model

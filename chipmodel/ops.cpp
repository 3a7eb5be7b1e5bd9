#include "chipmodel/ops.h"

namespace ldsdk::model {

namespace {

constexpr OpInfo kOps[] = {
#define LDSDK_MODEL_X(name, numbers) {#name, numbers},
    LDSDK_MODEL_DRIVER_OPS(LDSDK_MODEL_X)
#undef LDSDK_MODEL_X
        {"alloc", 0},
    {"bus", 0},
};
static_assert(sizeof kOps / sizeof kOps[0] == static_cast<uint32_t>(Op::kOpNum));

constexpr const char *kRbaOps[] = {
    "unknown",
    "read",
    "read_clear",
    "write",
    "add",
    "set_bit",
    "search",
    "search_update",
    "search_build",
    "search_update_build",
    "tcam_read_mask",
    "tcam_read_data",
    "tcam_write_mask",
    "tcam_write_data",
    "tcam_clear_mask",
    "tcam_clear_data",
    "tcam_valid_clear",
    "tcam_valid_set",
    "ad_read",
    "ad_write",
};
static_assert(sizeof kRbaOps / sizeof kRbaOps[0] == static_cast<uint32_t>(RbaOp::kRbaOpNum));

}  // namespace

const OpInfo &op_info(Op op)
{
    return kOps[static_cast<uint32_t>(op)];
}

const char *rba_op_name(RbaOp op)
{
    return kRbaOps[static_cast<uint32_t>(op)];
}

}  // namespace ldsdk::model

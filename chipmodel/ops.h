// Everything that crosses the two doors and can be told apart there: the driver's functions, and
// the commands that travel inside Qd_RBA_CommandSend.
#pragma once

#include <cstdint>

namespace ldsdk::model {

// The driver's functions, each with the number of plain numbers among its arguments behind the chip
// (what the journal shows of a call).
#define LDSDK_MODEL_DRIVER_OPS(X)               \
    X(Qd_RBA_CommandSend, 0)                    \
    X(Qd_SMEM_MemInit, 3)                       \
    X(Qd_SMEM_QueueSet, 4)                      \
    X(Qd_SMEM_DdrBaseAddrSet, 2)                \
    X(Qd_SMEM_EmlTableSet, 5)                   \
    X(Qd_SMEM_EmlExcludeEnableSet, 3)           \
    X(Qd_LCAM_CamIdModeSet, 1)                  \
    X(Qd_LCAM_CamIdModeGet, 0)                  \
    X(Qd_LCAM_MirrorEnableGet, 1)               \
    X(Qd_LCAM_TcamEnableGet, 5)                 \
    X(Qd_LCAM_ProtectDepthSet, 2)               \
    X(Qd_LCAM_RcamWrite, 2)                     \
    X(Qd_IMEM_InsMemLoad, 2)                    \
    X(Qd_PBA_AtomModeSet, 2)                    \
    X(Qd_ATOM_MaxPCSet, 2)                      \
    X(Qd_ATOM_ExceptionPcSet, 2)                \
    X(Qd_ATOM_ThreadNextPCSet, 4)               \
    X(Qd_ATOM_ThreadNextPCGet, 3)               \
    X(Qd_ATOM_ThreadStateGet, 3)                \
    X(Qd_ATOM_ThreadAllStatusGet, 3)            \
    X(Qd_ATOM_ThreadActive, 3)                  \
    X(Qd_ATOM_ThreadExecutionModeSet, 4)        \
    X(Qd_ATOM_ThreadExcpHoldOnEnableSet, 4)     \
    X(Qd_ATOM_BreakPointEnableForAtom, 3)       \
    X(Qd_ATOM_BreakPointDisable, 1)             \
    X(Qd_ATOM_IntrEnableSet, 5)                 \
    X(Qd_ATOM_IntrReportHookRegister, 0)        \
    X(QD_PORT_PowerGateEnableGet, 3)            \
    X(Qd_GLB_PortParamCheck, 4)                 \
    X(Qd_GLB_PortParamToIngressPhyID, 4)        \
    X(Qd_GLB_IngressPhyIDToPortParam, 1)        \
    X(Qd_GLB_EgressPhyIDToPortParam, 1)         \
    X(Qd_CPUTR_PacketSend, 3)                   \
    X(Qd_CPUTR_PacketReceive, 1)                \
    X(Qd_CPUTR_PacketRecvStatGet, 0)            \
    X(Qd_CPUTR_AutoSendEnableSet, 1)            \
    X(Qd_CPUTR_AutoSendChannelEnableSet, 2)     \
    X(Qd_CPUTR_AutoSendInfoSet, 5)              \
    X(Qd_CPUTR_AutoSendInfoDel, 1)              \
    X(Qd_CPUTR_AutoSendStatClear, 1)            \
    X(Qd_HA_MatchRuleAdd, 1)                    \
    X(Qd_HA_MatchRuleDel, 1)                    \
    X(Qd_HA_MatchRuleGet, 1)                    \
    X(Qd_HA_ExtendRuleSet, 3)                   \
    X(Qd_HA_ExtendRuleGet, 1)                   \
    X(Qd_HA_ExtendTpidSet, 2)                   \
    X(Qd_HA_ExtendTpidGet, 1)                   \
    X(Qd_OE_OrderFlowTimeoutDetectEnableGet, 0) \
    X(Qd_OE_OrderFlowTimeoutDetectEnableSet, 1) \
    X(Qd_OE_OrderFlowTimeoutDetectPeriodGet, 0) \
    X(Qd_OE_TimeoutFifoHeadPktIdGet, 0)         \
    X(Qd_OE_TimeoutFifoHeadPktFlush, 1)         \
    X(Qd_OE_StatGet, 1)                         \
    X(Qd_OE_StatClear, 1)                       \
    X(Qd_PQM_StatInfoGet, 1)                    \
    X(Qd_PQM_StatInfoClear, 1)                  \
    X(Qd_CR_StatGet, 0)                         \
    X(Qd_MCC_StatGet, 1)                        \
    X(Qd_MCC_StatClear, 1)                      \
    X(Qd_PE_StatGet, 1)                         \
    X(Qd_PE_StatClear, 1)

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

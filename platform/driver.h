// What the SDK asks of the closed chip driver: the second door out of sdk/. A product links the
// driver itself; everywhere else chipmodel/ defines these functions. Plain C at the boundary.
//
// Common to all functions: ulChipID is the chip, 0 to 3. The result is 0, or an error code of the
// driver that the caller passes on as it is (the CPU channel's auto-send functions and the match
// rules use the system's own codes for their failures). Out arguments are written on success only.
// An atom is numbered 0 to 3, an NPU of an atom 0 to 3, a thread of an NPU 0 to 9; a PC counts
// instructions. No function sleeps but where it says so.
#pragma once

#include <cstdint>

extern "C" {

// ---- search memory command path (RBA) -----------------------------------------------------------
//
// A request frame, multi-byte fields little-endian:
//   bytes 0..3    address word; bits 31..28 name the target: search memory 0 (0), search memory 1
//                 (1), local CAM (2)
//   bytes 4..5    command half-word; bits 7..4 the operation, the rest by operation
//   byte  6       access class: 1 read family, 3 write family
//   byte  7       0
//   byte  8       width class: payload of at most 16 (0), 32 (1) or 48 (2) bytes
//   bytes 9..11   0
//   bytes 12..59  payload, three groups of 16 bytes; a short value is right-aligned in its group
// A response frame: bytes 0..3 a status word, 0 for success; bytes 4..19 the data block, a short
// value right-aligned in it.
typedef struct NpRbaReqCmd {
    uint8_t aucByte[60];
} NpRbaReqCmd;

typedef struct NpRbaRspCmd {
    uint8_t aucByte[20];
} NpRbaRspCmd;

// Carries one command out and waits for its response; the command is atomic at the chip and its
// time-out is the driver's. pstReq: the request frame. pstRsp: room for the response, zeroed by the
// caller. The result tells about the transport only: the command's own outcome is the status word.
uint32_t Qd_RBA_CommandSend(uint32_t ulChipID, const NpRbaReqCmd *pstReq, NpRbaRspCmd *pstRsp);

// ---- search memory (SMEM) -----------------------------------------------------------------------
//
// SMEM addresses count 16-bit units.

// Initialises (clears) a range of search memory. pulParam: four words, of which the first two are
// the driver's own and 0 here, and the last two are the first and the last SMEM address of the
// range, both inclusive. ulOption: 0.
uint32_t Qd_SMEM_MemInit(uint32_t ulChipID, uint32_t ulSmemID, const uint32_t *pulParam,
                         uint32_t ulOption = 0);

// Programs one hardware queue. ulMem: 0, the memory that holds the queues. ulQueue: 0 to 15.
// ulAddr: SMEM address of its first unit. ulDepth: the driver's depth code.
uint32_t Qd_SMEM_QueueSet(uint32_t ulChipID, uint32_t ulMem, uint32_t ulQueue, uint32_t ulAddr,
                          uint32_t ulDepth);

// Tells the chip where its block of DDR memory begins. ulAddr: bus address in 16-bit units.
uint32_t Qd_SMEM_DdrBaseAddrSet(uint32_t ulChipID, uint32_t ulSmemID, uint32_t ulAddr);

typedef struct QdEmlBaseInfo {
    uint32_t ulBaseAddr;     // SMEM address of item 0, its low 20 bits
    uint32_t ulBucketWidth;  // log2 of the number of buckets of eight items
} QdEmlBaseInfo;

typedef struct QdEmlWidthInfo {
    uint32_t ulTblWidth;  // item width code: 8 (0), 16 (1), 32 (2) or 48 (3) bytes
    uint32_t aulRsvd[2];  // 0
} QdEmlWidthInfo;

// Declares a hash table to the exact match engine. ulTid: hardware table identifier, 0 to 15.
// ulIndirect: 0, the table lies at its base. Both records are read only.
uint32_t Qd_SMEM_EmlTableSet(uint32_t ulChipID, uint32_t ulSmemID, uint32_t ulTid,
                             uint32_t ulIndirect, const QdEmlBaseInfo *pstBaseInfo,
                             const QdEmlWidthInfo *pstWidthInfo);

// Turns the hardware's mutual exclusion between search and update of a hash table on (1) or off
// (0). ulTid: hardware table identifier, 0 to 15.
uint32_t Qd_SMEM_EmlExcludeEnableSet(uint32_t ulChipID, uint32_t ulSmemID, uint32_t ulTid,
                                     uint32_t ulEnable);

// ---- local CAM (LCAM) ---------------------------------------------------------------------------

// Where one TCAM entry stands. An entry of width code t spans 1 << t neighbouring TCAMs of a row.
typedef struct QdLcamAccessInfo {
    uint32_t ulType;   // width code: 40 (0), 80 (1), 160 (2) or 320 (3) bits
    uint32_t ulBlock;  // 0 to 3
    uint32_t ulTcam;   // 0 to 7, a multiple of 1 << ulType
    uint32_t ulDepth;  // row, 0 to 511
    uint32_t ulCid;    // CAM identifier, 0 to 15
} QdLcamAccessInfo;

// Selects the layout of the CAM identifier in an entry. ulMode: 1 shared, a 4-bit identifier in
// front of each key; 0 exclusive.
uint32_t Qd_LCAM_CamIdModeSet(uint32_t ulChipID, uint32_t ulMode);
// Gives the layout back. pulMode: 0 or 1.
uint32_t Qd_LCAM_CamIdModeGet(uint32_t ulChipID, uint32_t *pulMode);

// Tells whether the table of CAM identifier ulCid (0 to 15) has a copy in a second block; the pairs
// of blocks are 0 with 2 and 1 with 3. pulEnable: 1 when it has, else 0.
uint32_t Qd_LCAM_MirrorEnableGet(uint32_t ulChipID, uint32_t ulCid, uint32_t *pulEnable);

// Reads the valid bit of one TCAM entry. pulEnable: 1 when the entry takes part in searches.
uint32_t Qd_LCAM_TcamEnableGet(uint32_t ulChipID, const QdLcamAccessInfo *pstAccessInfo,
                               uint32_t *pulEnable);

// Sets how many rows of each of the two branch rule banks are protected from ordinary CAM writes.
// ulDepth0, ulDepth1: rows, as the microcode image's configuration gives them.
uint32_t Qd_LCAM_ProtectDepthSet(uint32_t ulChipID, uint32_t ulDepth0, uint32_t ulDepth1);

// Loads the microcode's branch CAM. ulSelector: 0 the rules, 1 their associated data. ulLen: bytes
// at pvData, which holds 32-bit words in native order.
uint32_t Qd_LCAM_RcamWrite(uint32_t ulChipID, uint32_t ulSelector, uint32_t ulLen,
                           const void *pvData);

// ---- instruction memory (IMEM) ------------------------------------------------------------------

// Loads instruction memory from group 0 on. ulImemID: 0. pvData: the image's instruction section,
// 32-bit words in native order, 8 words (32 bytes) per group of four instructions with the ECC
// word. ulLen: the section's length in bytes.
uint32_t Qd_IMEM_InsMemLoad(uint32_t ulChipID, uint32_t ulImemID, const void *pvData,
                            uint32_t ulLen);

// ---- packet feed (PBA) --------------------------------------------------------------------------

// Modes of an atom's packet feed.
enum QdPbaAtomMode : uint32_t {
    QD_PBA_MODE_NORMAL = 0,
    QD_PBA_MODE_ONLINE_PULL = 1,  // no new packets, while a new image replaces the running one
    QD_PBA_MODE_PULL = 3,         // no new packets, during bring-up
};

// Sets the mode of one atom's packet feed, a value of QdPbaAtomMode.
uint32_t Qd_PBA_AtomModeSet(uint32_t ulChipID, uint32_t ulAtomID, uint32_t ulMode);

// ---- atoms --------------------------------------------------------------------------------------

// States and modes of a thread that the SDK tells apart; the driver knows more.
enum QdAtomThreadState : uint32_t {
    QD_ATOM_STATE_HALT = 0,       // the thread stands
    QD_ATOM_STATE_WAIT_NPKT = 3,  // waits for a new packet
};
enum QdAtomThreadMode : uint32_t {
    QD_ATOM_MODE_SINGLE_STEP = 1,
    QD_ATOM_MODE_CONTINUOUS = 3,
};

// Called by the driver in interrupt context for each event of a thread. ulIntrType: 0 to 3; 1 and 2
// report exceptions. The result is ignored.
typedef uint32_t (*QdAtomIntrHook)(uint32_t ulChipID, uint32_t ulAtomID, uint32_t ulNpuID,
                                   uint32_t ulThreadID, uint32_t ulIntrType);

// Sets the highest PC of an atom; a PC above it is an exception.
uint32_t Qd_ATOM_MaxPCSet(uint32_t ulChipID, uint32_t ulAtomID, uint32_t ulMaxPC);

// Sets the PC at which an atom's threads go on after an exception.
uint32_t Qd_ATOM_ExceptionPcSet(uint32_t ulChipID, uint32_t ulAtomID, uint32_t ulExcepPC);

// Sets the PC at which a thread runs when it runs next.
uint32_t Qd_ATOM_ThreadNextPCSet(uint32_t ulChipID, uint32_t ulAtomID, uint32_t ulNpuID,
                                 uint32_t ulThreadID, uint32_t ulPC);
// Reads it. pulPC: 0 when the thread's work is done.
uint32_t Qd_ATOM_ThreadNextPCGet(uint32_t ulChipID, uint32_t ulAtomID, uint32_t ulNpuID,
                                 uint32_t ulThreadID, uint32_t *pulPC);

// Reads the state of a thread. pulState: values of QdAtomThreadState among others.
uint32_t Qd_ATOM_ThreadStateGet(uint32_t ulChipID, uint32_t ulAtomID, uint32_t ulNpuID,
                                uint32_t ulThreadID, uint32_t *pulState);

// Reads the status words of a thread. pulStatus: 4 words; word 1 is the exception code, word 3 the
// PC. Callable from interrupt context.
uint32_t Qd_ATOM_ThreadAllStatusGet(uint32_t ulChipID, uint32_t ulAtomID, uint32_t ulNpuID,
                                    uint32_t ulThreadID, uint32_t *pulStatus);

// Lets a thread that stands go on: to its next PC, by one block of instructions in single
// step mode.
uint32_t Qd_ATOM_ThreadActive(uint32_t ulChipID, uint32_t ulAtomID, uint32_t ulNpuID,
                              uint32_t ulThreadID);

// Sets how a thread runs, a value of QdAtomThreadMode.
uint32_t Qd_ATOM_ThreadExecutionModeSet(uint32_t ulChipID, uint32_t ulAtomID, uint32_t ulNpuID,
                                        uint32_t ulThreadID, uint32_t ulMode);

// Chooses whether a thread stays halted after an exception until the host reads it (1), or is free
// to be woken at once (0).
uint32_t Qd_ATOM_ThreadExcpHoldOnEnableSet(uint32_t ulChipID, uint32_t ulAtomID, uint32_t ulNpuID,
                                           uint32_t ulThreadID, uint32_t ulEnable);

// Arms (ulEnable 1) the breakpoint of an atom at ulPC; 0 leaves the atom without one. Any thread of
// the atom that reaches the PC stands there.
uint32_t Qd_ATOM_BreakPointEnableForAtom(uint32_t ulChipID, uint32_t ulAtomID, uint32_t ulPC,
                                         uint32_t ulEnable);
// Disarms the breakpoint of an atom. Threads that stand at it stay there.
uint32_t Qd_ATOM_BreakPointDisable(uint32_t ulChipID, uint32_t ulAtomID);

// Turns the report of one kind of event of a thread on (1) or off (0). ulType: 0 to 3, as the hook
// is told it. Callable from interrupt context.
uint32_t Qd_ATOM_IntrEnableSet(uint32_t ulChipID, uint32_t ulAtomID, uint32_t ulNpuID,
                               uint32_t ulThreadID, uint32_t ulType, uint32_t ulEnable);

// Registers the hook that later events are reported to, in place of any earlier one.
uint32_t Qd_ATOM_IntrReportHookRegister(uint32_t ulChipID, QdAtomIntrHook pfnHook);

// ---- power --------------------------------------------------------------------------------------

enum : uint32_t {
    QD_PORT_POWER_ATOM = 5,  // ulModule of the atoms
};

// Tells whether a unit has power. ulModule: QD_PORT_POWER_ATOM. ulPort: 0. ulUnit: the atom.
// pulEnable: 1 when it is powered, else 0.
uint32_t QD_PORT_PowerGateEnableGet(uint32_t ulChipID, uint32_t ulModule, uint32_t ulPort,
                                    uint32_t ulUnit, uint32_t *pulEnable);

// ---- port numbers (GLB) -------------------------------------------------------------------------
//
// A port is four numbers: type (0 to 15), port of that type, sub-port, priority. The chip numbers
// its ports by a single phy id, in one order on ingress and in another on egress.

// 0 when the four numbers name a port of this chip, else an error.
uint32_t Qd_GLB_PortParamCheck(uint32_t ulChipID, uint32_t ulPortType, uint32_t ulPortID,
                               uint32_t ulSubPortID, uint32_t ulPri);

// Gives the ingress phy id of a port. Ten bits name the port; more stand above them for a sub-port.
uint32_t Qd_GLB_PortParamToIngressPhyID(uint32_t ulChipID, uint32_t ulPortType, uint32_t ulPortID,
                                        uint32_t ulSubPortID, uint32_t ulPri, uint32_t *pulPhyID);

// Gives the port of an ingress phy id; an error when the chip has no such number.
uint32_t Qd_GLB_IngressPhyIDToPortParam(uint32_t ulChipID, uint32_t ulPhyID, uint32_t *pulPortType,
                                        uint32_t *pulPortID, uint32_t *pulSubPortID,
                                        uint32_t *pulPri);

// Gives the port of an egress phy id; an error when the chip has no such number.
uint32_t Qd_GLB_EgressPhyIDToPortParam(uint32_t ulChipID, uint32_t ulPhyID, uint32_t *pulPortType,
                                       uint32_t *pulPortID, uint32_t *pulSubPortID,
                                       uint32_t *pulPri);

// ---- CPU channel (CPUTR) ------------------------------------------------------------------------

// A packet or message to the microcode. The header words are in host order; the data stays the
// caller's and is taken before the call returns.
typedef struct QdCputrSendPkt {
    uint32_t aulHead[2];     // header words 0 and 1
    uint32_t ulLen;          // bytes at pucData
    const uint8_t *pucData;  // may be null when ulLen is 0
} QdCputrSendPkt;

// A packet from the microcode. The header words stand the other way round than on send: aulInfo[1]
// holds the word with the message type, aulInfo[0] the one with the header length.
typedef struct QdCputrRecvPkt {
    uint32_t aulInfo[2];  // out, host order
    uint32_t ulBufLen;    // in, bytes at pucData
    uint8_t *pucData;     // in, the buffer
    uint32_t ulPktLen;    // out, bytes received
} QdCputrRecvPkt;

// Timing of an auto-send channel.
typedef struct QdCputrAutoInfo {
    uint32_t ulPeriod;  // ticks of 0.1 ms, less one
    uint8_t ucOption0;  // the driver's; 1 for time stamp messages, else 0
    uint8_t ucOption1;  // the driver's; 0
} QdCputrAutoInfo;

// Receive statistics of the channel. Words 4 and 5 count drops of the high and the low queue.
typedef struct QdCputrRecvStat {
    uint32_t aulWord[16];
} QdCputrRecvStat;

// Queues one packet or message to the microcode.
uint32_t Qd_CPUTR_PacketSend(uint32_t ulChipID, const QdCputrSendPkt *pstPkt);

// Fetches the oldest waiting packet into the record's buffer and fills its out fields. An error
// when none waits: the function never does.
uint32_t Qd_CPUTR_PacketReceive(uint32_t ulChipID, QdCputrRecvPkt *pstPkt);

// Reads the receive statistics; they go on counting.
uint32_t Qd_CPUTR_PacketRecvStatGet(uint32_t ulChipID, QdCputrRecvStat *pstStat);

// Turns the auto-send engine as a whole on (1) or off (0).
uint32_t Qd_CPUTR_AutoSendEnableSet(uint32_t ulChipID, uint32_t ulEnable);

// Starts (1) or stops (0) one auto-send channel, 0 to 255.
uint32_t Qd_CPUTR_AutoSendChannelEnableSet(uint32_t ulChipID, uint32_t ulChannel,
                                           uint32_t ulEnable);

// Gives a channel its period and its message. Header and data are copied.
uint32_t Qd_CPUTR_AutoSendInfoSet(uint32_t ulChipID, uint32_t ulChannel,
                                  const QdCputrAutoInfo *pstAutoInfo, const QdCputrSendPkt *pstPkt);

// Empties a channel.
uint32_t Qd_CPUTR_AutoSendInfoDel(uint32_t ulChipID, uint32_t ulChannel);

// Clears a channel's count of sent messages.
uint32_t Qd_CPUTR_AutoSendStatClear(uint32_t ulChipID, uint32_t ulChannel);

// ---- match rules of the pre-classifier (HA) -----------------------------------------------------

// One comparison of a rule: up to two packet fields with values. Bits set in a mask don't count.
typedef struct QdHaRuleLink {
    uint8_t ucInnerID;      // the link's number within its sub table
    uint8_t ucRangeMode;    // 0
    uint8_t aucRsvd[2];     // 0
    uint8_t ucMatchField0;  // packet field compared with ulKeyValue0
    uint8_t ucMatchField1;  // packet field compared with ulKeyValue1, 0 for none
    uint8_t ucKeyMode0;
    uint8_t ucKeyMode1;
    uint32_t ulKeyValue0;
    uint32_t ulKeyValue1;
    uint32_t ulKeyMask0;
    uint32_t ulKeyMask1;
} QdHaRuleLink;

// A rule: matches when all its links match. 128 bytes.
typedef struct QdHaMatchRule {
    QdHaRuleLink astLink[4];
    uint8_t ucLinkNum;     // links that count: 1, 2 or 4
    uint8_t ucSubTableID;  // 0 to 3
    uint8_t ucRulepri;
    uint8_t ucPqmpri;
    uint8_t ucInfoToNp;  // what the microcode is told, 0 to 127
    uint8_t ucPortMode;  // 0 any port, 2 ports of ucPortType in the range below
    uint8_t ucPortType;
    uint8_t ucFilterEnable;  // 0 or 1
    uint32_t ulPortMin;
    uint32_t ulPortMinSub;
    uint32_t ulPortMinSubPri;
    uint32_t ulPortMax;
    uint32_t ulPortMaxSub;
    uint32_t ulPortMaxSubPri;
} QdHaMatchRule;

static_assert(sizeof(QdHaRuleLink) == 24 && sizeof(QdHaMatchRule) == 128);

// Installs a rule under number ulRuleID, 0 to 63. The record is copied.
uint32_t Qd_HA_MatchRuleAdd(uint32_t ulChipID, uint32_t ulRuleID, const QdHaMatchRule *pstRule);
// Takes the rule of that number out.
uint32_t Qd_HA_MatchRuleDel(uint32_t ulChipID, uint32_t ulRuleID);
// Gives the rule of that number back, unchanged.
uint32_t Qd_HA_MatchRuleGet(uint32_t ulChipID, uint32_t ulRuleID, QdHaMatchRule *pstRule);

// Sets a fixed rule beside the numbered ones. ulType: the rule, 2 to 4 here. ulPqmPri: queue
// priority, 0 to 3. ulHaInfo: what the microcode is told, 0 to 127.
uint32_t Qd_HA_ExtendRuleSet(uint32_t ulChipID, uint32_t ulType, uint32_t ulPqmPri,
                             uint32_t ulHaInfo);
// Reads a fixed rule.
uint32_t Qd_HA_ExtendRuleGet(uint32_t ulChipID, uint32_t ulType, uint32_t *pulPqmPri,
                             uint32_t *pulHaInfo);

// Sets a tag protocol identifier that the pre-classifier knows. ulTpid: 0 to 0xffff. ucType: 0 to
// 8; 1 to 4 are outer tags, 5 to 8 inner ones.
uint32_t Qd_HA_ExtendTpidSet(uint32_t ulChipID, uint32_t ulTpid, uint8_t ucType);
// Reads one.
uint32_t Qd_HA_ExtendTpidGet(uint32_t ulChipID, uint32_t *pulTpid, uint8_t ucType);

// ---- order engine (OE) --------------------------------------------------------------------------

// Reads the switch of the detection of packets that overstay in the order engine: 0 or 1.
uint32_t Qd_OE_OrderFlowTimeoutDetectEnableGet(uint32_t ulChipID, uint32_t *pulEnable);
// Sets it.
uint32_t Qd_OE_OrderFlowTimeoutDetectEnableSet(uint32_t ulChipID, uint32_t ulEnable);
// Reads the detection's period, in the chip's own unit.
uint32_t Qd_OE_OrderFlowTimeoutDetectPeriodGet(uint32_t ulChipID, uint32_t *pulPeriod);

// Looks at the oldest entry of the timeout queue. pulValid: 1 when there is one, else 0. pulPktId:
// its packet.
uint32_t Qd_OE_TimeoutFifoHeadPktIdGet(uint32_t ulChipID, uint32_t *pulValid, uint32_t *pulPktId);
// Drops that packet from the order engine and takes its entry off the queue.
uint32_t Qd_OE_TimeoutFifoHeadPktFlush(uint32_t ulChipID, uint32_t ulPktId);

// Reads one statistics counter of the order engine. ulIndex: 1 counts time-out drops.
uint32_t Qd_OE_StatGet(uint32_t ulChipID, uint32_t ulIndex, uint32_t *pulCount);
// Clears it.
uint32_t Qd_OE_StatClear(uint32_t ulChipID, uint32_t ulIndex);

// ---- statistics of the other blocks -------------------------------------------------------------

// Reads the drop counter of one priority, 0 to 3, of the packet queue manager.
uint32_t Qd_PQM_StatInfoGet(uint32_t ulChipID, uint32_t ulPri, uint32_t *pulCount);
// Clears it.
uint32_t Qd_PQM_StatInfoClear(uint32_t ulChipID, uint32_t ulPri);

// Statistics of the CR block, which takes packets in. Word 33 counts drops.
typedef struct QdCrStat {
    uint32_t aulWord[77];
} QdCrStat;
// Reads them; they go on counting.
uint32_t Qd_CR_StatGet(uint32_t ulChipID, QdCrStat *pstStat);

// Reads one counter of the multicast copier. ulIndex: 19 and 20 count drops of high and of low
// priority roots.
uint32_t Qd_MCC_StatGet(uint32_t ulChipID, uint32_t ulIndex, uint32_t *pulCount);
// Clears it.
uint32_t Qd_MCC_StatClear(uint32_t ulChipID, uint32_t ulIndex);

// Reads one counter of the packet editor. ulIndex: 14 counts drops.
uint32_t Qd_PE_StatGet(uint32_t ulChipID, uint32_t ulIndex, uint32_t *pulCount);
// Clears it.
uint32_t Qd_PE_StatClear(uint32_t ulChipID, uint32_t ulIndex);

}  // extern "C"

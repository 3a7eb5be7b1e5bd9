// The register tables of the family: where each flat microcode table lies in chip memory.
#include "sdk/access/regtable.h"

namespace {

// identifier, records, record width in bytes, chip address of record 0, bytes between records
#define NP_ROW(id, records, width, base, sep)        \
    {                                                \
        id, records, base, width, 0, 2, 0, 0, sep, 0 \
    }
// The same for a table that is reached with search memory commands.
#define NP_ROW_RBA(id, records, width, base, sep)    \
    {                                                \
        id, records, base, width, 0, 2, 0, 0, sep, 1 \
    }
// Keeps an identifier's place: every index on it is refused.
#define NP_NO_ROW(id)                 \
    {                                 \
        id, 0, 0, 0, 0, 2, 0, 0, 0, 0 \
    }

consteval bool Np_RowsInPlace(const NpRegTableDesc *pstRow)
{
    for (uint32_t i = 0; i < NP_REG_TABLE_NUM; i++) {
        if (pstRow[i].usTableID != i) {
            return false;
        }
    }
    return true;
}

}  // namespace

// clang-format off
// Rows without an address stand for CAM or hash entries, which other engines reach by identifier.
constexpr NpRegTableDesc g_astNpRegTableDesc_TarnB[NP_REG_TABLE_NUM] = {
    NP_ROW(0, 16, 32, 0x60227800, 0),  // MIRROR
    NP_ROW(1, 1, 16, 0x60222200, 0),  // GLOBAL
    NP_ROW(2, 160, 16, 0, 0),  // ACL_ACTION
    NP_ROW(3, 96, 12, 0, 0),  // FLEE_BUCKET
    NP_ROW(4, 96, 8, 0, 0),  // FLEE_BUCKET_AD
    NP_ROW(5, 32, 8, 0, 0),  // TPID
    NP_ROW(6, 32, 4, 0, 0),  // TPID_AD
    NP_ROW(7, 544, 8, 0, 0),  // IFT_KEY
    NP_ROW(8, 128, 12, 0, 0),  // IPV6FILTER
    NP_ROW(9, 128, 8, 0, 0),  // IPV6FILTER_AD
    NP_ROW(10, 160, 40, 0, 0),  // ACL_RULE1
    NP_ROW(11, 160, 40, 0, 0),  // ACL_RULE2
    NP_ROW(12, 32, 4, 0x6024b400, 0),  // BUNDLE_MACLMT
    NP_ROW(13, 4, 8, 0x6024b620, 0),  // MC_STAT
    NP_ROW(14, 1024, 8, 0x60220000, 0),  // IFT_EXT
    NP_ROW(15, 1024, 8, 0x60206000, 0),  // IPV4FILTER
    NP_ROW(16, 256, 8, 0x60204000, 0),  // SMAC_BONDING
    NP_ROW(17, 512, 16, 0x6020e000, 0),  // UVT
    NP_ROW(18, 256, 64, 0x64050000, 0),  // PTT1
    NP_ROW(19, 1024, 16, 0x60250000, 0),  // IFT_DATA
    NP_ROW(20, 128, 16, 0x60226800, 0),  // PCT
    NP_ROW(21, 32, 12, 0x60270000, 0),  // GMT
    NP_NO_ROW(22),
    NP_ROW(23, 32, 4, 0x60226200, 0),  // VMAC_POOL
    NP_ROW_RBA(24, 512, 8, 0x60247000, 0),  // VOIP_CH
    NP_ROW(25, 4096, 8, 0x60210000, 0),  // VLAN
    NP_ROW(26, 4, 4, 0x60226000, 0),  // ISTP
    NP_ROW(27, 4, 4, 0x60226100, 0),  // ESTP
    NP_ROW(28, 16, 16, 0x60227c00, 0),  // LAGT
    NP_ROW(29, 544, 8, 0, 0),  // IFT_AD
    NP_ROW(30, 1024, 8, 0x6404c000, 0),  // PTYPE_ACTION
    NP_ROW(31, 128, 12, 0, 0),  // L2PA
    NP_ROW(32, 128, 8, 0, 0),  // L2PA_AD
    NP_ROW(33, 64, 12, 0, 0),  // L3PA
    NP_ROW(34, 64, 8, 0, 0),  // L3PA_AD
    NP_ROW(35, 32, 16, 0x60222c00, 0),  // FLOW_BOUNDLE
    NP_ROW(36, 32, 16, 0x60222000, 0),  // L2ENCAP
    NP_NO_ROW(37),
    NP_NO_ROW(38),
    NP_ROW(39, 2048, 16, 0x60268000, 0),  // MAC
    NP_ROW(40, 2000, 4, 0x60202000, 0),  // MET
    NP_ROW(41, 64, 8, 0x60226400, 0),  // BRLT
    NP_ROW(42, 4, 16, 0x6024b200, 0),  // 3AH
    NP_ROW_RBA(43, 64, 2, 0x60222b02, 2),  // DOS
    NP_ROW(44, 8, 64, 0x60222600, 0),  // DSCP
    NP_ROW(45, 8, 8, 0x60222400, 0),  // PCP
    NP_ROW(46, 1, 8, 0x60222240, 0),  // INTR_CFG
    NP_ROW(47, 8, 8, 0x60222500, 0),  // IP_MAP
    NP_ROW(48, 1024, 16, 0x60274000, 0),  // OFT_DATA
    NP_ROW(49, 4096, 4, 0x64044000, 0),  // VLAN_EXT
    NP_ROW(50, 1024, 32, 0x60278000, 0),  // FLOW_CNT
    NP_ROW(51, 1024, 4, 0x60245000, 0),  // FLOW_MAC_LIMIT
    NP_ROW(52, 8, 8, 0x60222300, 0),  // DYING_GASP
    NP_ROW(53, 1, 8, 0x60222220, 0),  // DYINGGASP_SMAC
    NP_ROW_RBA(54, 1024, 4, 0x60225800, 0),  // GEM_LOOP_QID
    NP_ROW(55, 512, 8, 0x60242000, 0),  // MDI
    NP_ROW(56, 1, 8, 0x60222280, 0),  // DEFAULT_FLOWID
    NP_ROW_RBA(57, 64, 2, 0x60226300, 0),  // OAM_LP_L2ENCAP
    NP_ROW(58, 1, 4, 0x60222290, 0),  // XD_TX_ETH_PAD
    NP_ROW_RBA(59, 128, 16, 0x6020d010, 16),  // OAM_MEP
    NP_ROW(60, 128, 16, 0x6401c800, 0),  // OAM_MEP_CFG
    NP_ROW(61, 128, 16, 0x60205800, 0),  // OAM_LOOK_UP
    NP_ROW(62, 128, 16, 0x60205000, 0),  // OAM_PORT_VLAN
    NP_ROW(63, 128, 128, 0x60208000, 0),  // OAM_DATA
    NP_ROW_RBA(64, 128, 8, 0x60243808, 8),  // OAM_RX
    NP_ROW(65, 128, 16, 0x60243000, 0),  // OAM_TX
    NP_ROW(66, 128, 64, 0x64018000, 0),  // OAM_MEG
    NP_ROW(67, 128, 16, 0x6401c000, 0),  // OAM_MEG_CFG
    NP_ROW(68, 4, 32, 0x6020cd00, 0),  // OAM_MP_CFG
    NP_ROW(69, 128, 8, 0x6020c400, 0),  // OAM_SMAC
    NP_ROW_RBA(70, 128, 2, 0x6020cc00, 0),  // OAM_TX_TIMER
    NP_ROW_RBA(71, 32, 8, 0x6024d200, 8),  // USR_PTYPE_CAR
    NP_ROW(72, 1, 16, 0x60222294, 0),  // MAC_CRASH_RCD
    NP_NO_ROW(73),
    NP_ROW(74, 1, 8, 0x60222540, 0),  // PRI_CAR_MAP
    NP_NO_ROW(75),
    NP_ROW(76, 1, 16, 0x60222210, 0),  // GLOBAL2
    NP_NO_ROW(77),
    NP_ROW(78, 32, 8, 0x60227e00, 0),  // UP_CAR_PROFILE
    NP_ROW(79, 32, 8, 0x60227f00, 0),  // DN_CAR_PROFILE
    NP_ROW(80, 1, 4, 0x60222288, 0),  // GLB_MAC_LMT
    NP_ROW(81, 4096, 4, 0x64040000, 0),  // VLAN_PTT
    NP_ROW(82, 4096, 16, 0x64030000, 0),  // VLAN_OPTION
    NP_ROW(83, 32, 2, 0x60227b00, 0),  // EPORT_MTU
    NP_ROW(84, 64, 8, 0, 0),  // OAM_LM_CFG
    NP_ROW(85, 64, 16, 0, 0),  // OAM_LM_DATAPKT
    NP_ROW(86, 64, 16, 0, 0),  // OAM_LM_OAMPKT
    NP_ROW(87, 64, 16, 0, 0),  // OAM_DM_OAMPKT
    NP_ROW(88, 64, 8, 0, 0),  // OAM_LM_COUNTER
    NP_ROW(89, 64, 16, 0, 0),  // OAM_LM_RECORD
    NP_ROW(90, 256, 64, 0, 0),  // OAM_DM_MODE
    NP_ROW(91, 64, 4, 0, 0),  // OAM_LM_RXCNT
    NP_ROW(92, 64, 4, 0, 0),  // OAM_DM_RXCNT
    NP_NO_ROW(93),
    NP_ROW(94, 32, 16, 0x6029a200, 0),  // IpUdpEncapInfoTbl
    NP_ROW(95, 16, 16, 0x60227a00, 0),  // MIRROR2
    NP_ROW(96, 1, 4, 0x60227b40, 0),  // MAC_LRN_STATE
    NP_ROW(97, 512, 8, 0x64014c40, 0),  // unnamed
    NP_ROW(98, 64, 48, 0x64010000, 0),  // unnamed
    NP_ROW(99, 64, 16, 0x6400d000, 0),  // unnamed
    NP_ROW(100, 64, 64, 0x64000c00, 0),  // unnamed
    NP_ROW(101, 64, 8, 0x6400e200, 0),  // unnamed
    NP_ROW(102, 64, 16, 0x64009800, 0),  // unnamed
    NP_ROW(103, 64, 64, 0x64002800, 0),  // unnamed
    NP_ROW(104, 64, 16, 0x64009c00, 0),  // unnamed
    NP_ROW(105, 64, 8, 0x6400e600, 0),  // unnamed
    NP_ROW(106, 1, 8, 0x6400f8d8, 0),  // unnamed
    NP_ROW(107, 64, 8, 0x6400e400, 0),  // unnamed
    NP_ROW(108, 64, 16, 0x6400a000, 0),  // unnamed
    NP_ROW(109, 64, 16, 0x64006000, 0),  // unnamed
    NP_ROW(110, 4, 16, 0x64014c00, 0),  // unnamed
    NP_ROW(111, 64, 48, 0x64000000, 0),  // unnamed
    NP_ROW(112, 64, 64, 0x64010c00, 0),  // unnamed
    NP_ROW(113, 64, 16, 0x64005800, 0),  // unnamed
    NP_ROW(114, 2048, 2, 0x64004800, 0),  // unnamed
    NP_ROW(115, 64, 16, 0x64005c00, 0),  // unnamed
    NP_ROW(116, 64, 48, 0x64001c00, 0),  // unnamed
    NP_ROW(117, 1024, 4, 0x64011c00, 0),  // unnamed
    NP_ROW(118, 64, 16, 0x6400c800, 0),  // unnamed
    NP_ROW(119, 64, 8, 0x6400d400, 0),  // unnamed
    NP_ROW(120, 64, 16, 0x64006400, 0),  // unnamed
    NP_ROW(121, 64, 64, 0x64003800, 0),  // unnamed
    NP_ROW_RBA(122, 32, 2, 0x6020cd80, 0),  // OAM_TX_TIM_HED
    NP_NO_ROW(123),
    NP_NO_ROW(124),
    NP_NO_ROW(125),
    NP_NO_ROW(126),
    NP_NO_ROW(127),
    NP_NO_ROW(128),
    NP_NO_ROW(129),
    NP_ROW_RBA(130, 128, 16, 0x6020d000, 16),  // MEP_ST_MACHINE
    NP_ROW_RBA(131, 128, 8, 0x60243800, 8),  // OAMRX_ST_MACHI
    NP_NO_ROW(132),
    NP_NO_ROW(133),
    NP_ROW_RBA(134, 64, 2, 0x60222b00, 2),  // DosCnt
    NP_ROW(135, 1024, 4, 0x6404a000, 0),  // OFT_EXT
    NP_ROW(136, 32, 32, 0x6404b000, 0),  // VMAC_OFFSET
    NP_ROW(137, 64, 8, 0x60226600, 0),  // PA_EXT
    NP_ROW(138, 128, 16, 0x6829b000, 0),  // OAM_SL
    NP_ROW(139, 512, 8, 0x60271000, 0),  // GMT_DATA
    NP_ROW(140, 256, 8, 0x60270000, 0),  // MAC_FILTER
    NP_ROW(141, 4096, 4, 0x64054000, 0),  // LAN_VLAN
    NP_ROW(142, 1024, 4, 0x60241000, 0),  // GEMPORT_BITMAP
    NP_ROW(143, 4096, 1, 0x64048000, 0),  // GEMPORT_MAP
    NP_ROW(144, 2048, 16, 0x60260000, 0),  // LAN_MAC
    NP_ROW(145, 64, 4, 0x6024b000, 0),  // PORT_MAC_LIMIT
    NP_ROW(146, 1, 4, 0x6024b100, 0),  // GLB_LANMAC_LIMIT
};
// clang-format on

static_assert(Np_RowsInPlace(g_astNpRegTableDesc_TarnB));

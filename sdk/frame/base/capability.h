// The capability table: counts, highest legal values and chip addresses of the family, by slot.
#pragma once

#include <array>
#include <cstdint>

inline constexpr uint32_t NP_CAP_NUM = 361;

// slot, name, value, meaning. Slots that are not listed hold 0.
// clang-format off
#define NP_CAPABILITY_LIST(X) \
    X(0, FLEE_KEY_NUM, 0x60u, "flee bucket keys of all tables but LM data") \
    X(2, DYING_GASP_PARAM, 0x1ffu, "highest dying-gasp and mirror user parameter") \
    X(3, MIRROR_PARAM_MAX, 0xffu, "highest mirror group parameter") \
    X(4, VSI_MAX, 0xfu, "highest VSI") \
    X(5, AGE_TIME_MAX, 0x13c680u, "highest age time") \
    X(6, MC_STAT_MAX, 3u, "highest multicast statistics index") \
    X(7, HA_INFO_MAX, 0x7fu, "highest HA info") \
    X(8, CAR_PROFILE_MAX, 0xffu, "highest car profile") \
    X(9, HS_MAX, 0xffu, "highest horizontal split value") \
    X(10, DEVICE_ID_MAX, 0xfu, "highest device identifier") \
    X(11, USER_ID_MAX, 0x1ffu, "highest user identifier, port anti-DoS index") \
    X(12, FORCE_AGE_ID_MAX, 0xffu, "highest force age identifier bitmap") \
    X(19, EPON_PRI_MAX, 7u, "highest EPON priority") \
    X(20, PVC_OFFSET_MAX, 7u, "highest xDSL PVC offset") \
    X(21, PRBS_CH_MAX, 0xffu, "highest PRBS channel") \
    X(22, PIE_CH_MAX, 7u, "highest PIE channel") \
    X(23, LOOPBACK_RSVD_MAX, 0xffffffu, "highest loopback word") \
    X(24, SMEM_NUM, 1u, "search memory units") \
    X(25, LM_FLEE_KEY_NUM, 0u, "flee bucket keys of LM data") \
    X(26, ACL_RULE_NUM, 0xa0u, "ACL rules") \
    X(28, ACL_RULE_PRI_MAX, 0xffu, "highest ACL rule value checked against this slot") \
    X(29, ACL_ASSIGN_RULE_A, 0x9eu, "first rule written by the block assignment") \
    X(30, ACL_ASSIGN_RULE_B, 0x9fu, "second rule written by the block assignment") \
    X(31, ACL_SLOT_MAX, 7u, "highest slot and slot mask of a user-defined port") \
    X(32, ACL_SLOT_SHIFT, 7u, "shift of the slot in a port field") \
    X(33, ACL_STAT_MAX, 0x9fu, "highest ACL statistics index") \
    X(34, ACL_PORT_MASK, 0x7fu, "port field mask") \
    X(35, ARL_TABLE_SIZE, 0x800u, "places of the MAC table") \
    X(38, ARL_STATE_ROWS, 1u, "learning state rows") \
    X(41, VLAN_ID_MAX, 0xfffu, "highest VLAN identifier") \
    X(42, UV_KEY_MAX, 0x1fffu, "highest UV MAC key, interface identifier") \
    X(43, LAN_MAC_TABLE_SIZE, 0x800u, "places of the LAN MAC table") \
    X(44, ATOM_NUM, 1u, "atoms") \
    X(48, MIRROR_GROUP_NUM, 0x10u, "mirror groups") \
    X(52, EXCP_CONTEXT_BASE, 0x64000000u, "exception context memory") \
    X(53, DBG_RULE_KEY_BASE, 0u, "rule memory of the debug message, keys and masks") \
    X(54, DBG_RULE_DATA_BASE, 0u, "rule memory of the debug message, data") \
    X(55, MIRROR_OFFSET_MAX, 0x7fu, "highest signed mirror parameter") \
    X(56, MIRROR_OFFSET_MIN, 0xffffff80u, "lowest signed mirror parameter, -128") \
    X(57, MC_LIST_MAX, 0x7fdu, "highest multicast list number") \
    X(58, MCC_ROW_NUM, 0x800u, "rows of the multicast copy list") \
    X(59, CTX_OFFSET_MAX, 0x7fu, "highest context offset") \
    X(60, CTX_COUNT_MIN, 1u, "lowest context rewrite count") \
    X(61, CTX_COUNT_MAX, 0x7fffu, "highest context rewrite count") \
    X(62, MC_ID_MAX, 0x7fffu, "highest multicast identifier") \
    X(63, PROBE_FILTER_BASE, 0x60200000u, "probe filter records") \
    X(64, PROBE_CAPTURE_BASE, 0x64010000u, "probe capture areas") \
    X(65, PROBE_COUNT_BASE, 0x60200100u, "probe counters") \
    X(66, DROP_RX_PE, 0x78900324u, "drop counter register") \
    X(67, DROP_RX_DQM, 0x78900338u, "drop counter register") \
    X(68, DROP_OUT_AGE, 0x7890034cu, "drop counter register") \
    X(69, DROP_OUT_EPS, 0x78900348u, "drop counter register") \
    X(70, DROP_IN_SHARE_MAX, 0x78900350u, "drop counter register") \
    X(71, DROP_IN_QUEUE_TAIL, 0x78900354u, "drop counter register") \
    X(72, DROP_IN_QGROUP_TAIL, 0x78900358u, "drop counter register") \
    X(73, DROP_IN_QGROUP_BUFF, 0x7890035cu, "drop counter register") \
    X(74, DROP_IN_CONGESTION, 0x78900364u, "drop counter register") \
    X(75, DROP_IN_WRED, 0x78900360u, "drop counter register") \
    X(76, DROP_IN_AGE, 0x78900368u, "drop counter register") \
    X(77, DROP_IN_QMC, 0x7890036cu, "drop counter register") \
    X(78, DROP_IN_ERR_SCH, 0x78900370u, "drop counter register") \
    X(79, DROP_IFB_PKT, 0x78900110u, "drop counter register") \
    X(80, DROP_IFB_EFB, 0x7890010cu, "drop counter register") \
    X(81, MEM_CHECK_BASE, 0u, "memory-check area") \
    X(82, GLOBAL_ROWS, 1u, "global table rows") \
    X(85, DYING_GASP_ROWS, 8u, "dying-gasp rows") \
    X(87, DYING_GASP_SMAC_ROWS, 1u, "dying-gasp source MAC rows") \
    X(90, XD_PAD_MAX, 76u, "highest Ethernet pad length") \
    X(91, XD_PAD_MIN, 60u, "lowest Ethernet pad length") \
    X(93, SMAC_FILTER_NUM, 8u, "source MAC filters") \
    X(94, DMAC_FILTER_NUM, 8u, "destination MAC filters") \
    X(95, ERROR_SAMPLE_NUM, 2u, "error sample rules") \
    X(96, ACM_CLOCK_NUM, 1u, "ACM clock rules") \
    X(97, GEMPORT_FILTER_NUM, 0u, "gemport filters") \
    X(98, LLID_FILTER_NUM, 0u, "LLID filters") \
    X(99, IPV4_MC_FILTER_NUM, 0u, "IPv4 multicast filters") \
    X(100, IPV6_MC_FILTER_NUM, 0u, "IPv6 multicast filters") \
    X(101, IPV4_UDP_FILTER_NUM, 0u, "IPv4 with UDP filters") \
    X(102, L2_PACKET_FILTER_NUM, 0u, "L2 packet filters") \
    X(103, DMAC_MATCH_NUM, 3u, "destination MAC match rules") \
    X(104, VLAN_MATCH_NUM, 4u, "VLAN match rules") \
    X(105, FLOW_NUM, 0x400u, "flows") \
    X(111, L2_ENCAP_BASE, 0x60227b00u, "L2 encapsulation and MTU base") \
    X(112, DMAC_ROWS, 0x100u, "destination MAC rows") \
    X(114, SMAC_POOL_ROWS, 0x20u, "source MAC pool rows") \
    X(116, BUNDLE_NUM, 0x20u, "flow bundles") \
    X(119, DEFAULT_FLOW_ROWS, 1u, "default flow rows") \
    X(121, GLOBAL_MAC_LIMIT_ROWS, 1u, "global MAC limit rows") \
    X(123, CM_GROUP_MAX, 0xffu, "highest CM group") \
    X(128, INTERFACE_MAX, 0x1fffu, "highest interface number") \
    X(144, L2_ENCAP_ID_MAX, 0x1fu, "highest L2 encapsulation identifier") \
    X(146, MET_ROWS, 0x7d0u, "multicast leaves") \
    X(148, BRLT_ROWS, 0x40u, "BRLT rows") \
    X(150, MDI_ID_MAX, 3u, "highest MDI identifier") \
    X(151, MDI_OFFSET_MAX, 0x7fu, "highest record of an MDI identifier") \
    X(153, MET_DEST_MAX, 0x1fffu, "highest destination of a multicast leaf") \
    X(156, MDI_PKT_LEN_MAX, 0xffffu, "highest packet length of an MDI record") \
    X(158, OAM_LP_ENCAP_BASE, 0x60226300u, "OAM loopback encapsulation base") \
    X(159, OAM_MEG_ROWS, 0x80u, "MEG rows") \
    X(161, OAM_MEP_ROWS, 0x80u, "MEP rows") \
    X(163, OAM_PORT_VLAN_ROWS, 0x80u, "port-VLAN rows") \
    X(165, OAM_LOOKUP_ROWS, 0x80u, "lookup rows") \
    X(167, OAM_LM_DATA_ROWS, 0u, "LM data rows") \
    X(169, OAM_LM_OAM_ROWS, 0u, "LM OAM rows") \
    X(171, OAM_LM_CFG_ROWS, 0u, "LM configuration rows") \
    X(173, OAM_DM_ROWS, 0u, "DM rows") \
    X(175, OAM_TX_MAX, 0x7fu, "highest transmit entry") \
    X(178, OAM_TIMER_NODE_BASE, 0x6020cc00u, "transmit timer nodes") \
    X(179, OAM_ENTRY_MAX, 0x7fu, "highest entry identifier") \
    X(183, OAM_RX_MAX, 0x7fu, "highest receive entry") \
    X(188, OAM_TIMER_HEAD_BASE, 0x6020cd80u, "transmit timer heads") \
    X(198, OAM_LM_INDEX_MAX, 0x3fu, "highest LM index") \
    X(199, OAM_DM_INDEX_MAX, 0x3fu, "highest DM index") \
    X(201, OAM_SL_NUM, 0x100u, "SL table rows") \
    X(202, OAM_SL_BASE, 0x602e2000u, "SL table base") \
    X(204, OAM_SL_CFG_BASE, 0x602e2800u, "SL configuration base") \
    X(205, OAM_SL_CFG_NUM, 0x40u, "SL configuration rows") \
    X(206, OAM_SL_COUNTER_MAX, 0x3fu, "highest SL counter index") \
    X(207, OAM_SL_INDEX_MAX, 0x3fu, "highest SL index") \
    X(208, PTA_ROWS, 0x400u, "PTA rows and ptype limit") \
    X(210, PTT1_ROWS, 0x100u, "PTT1 rows") \
    X(214, L2PA_ROWS, 0x80u, "L2 analysis rows") \
    X(215, L3PA_ROWS, 0x40u, "L3 analysis rows") \
    X(221, EXCP_INFO_MAX, 0x7ffu, "highest exception information") \
    X(222, L3PA_SOFT_ROWS, 0xau, "software rows per L3 analysis item") \
    X(224, L3PA_DEFAULT_ROW, 0x3fu, "default L3 analysis row") \
    X(225, PCT_ROWS, 0x80u, "PCT limit") \
    X(226, PCT_BASE, 0x60226800u, "PCT base") \
    X(227, LAG_ROWS, 0x10u, "LAG rows") \
    X(229, GMT_ROWS, 0x20u, "GMT rows") \
    X(231, ATM_ENCAP_ROWS, 0x100u, "ATM encapsulation rows") \
    X(233, VMAC_ROWS, 0x20u, "virtual MAC rows") \
    X(235, CAR_PROFILE_ROWS, 0x20u, "car profiles") \
    X(238, TO_CPU_CAR_ROWS, 0x20u, "to-CPU ptype car rows") \
    X(239, TO_CPU_CAR_BASE, 0x6024d200u, "to-CPU car counters") \
    X(240, GEMPORT_LOOP_ROWS, 0x1000u, "gemport loop rows") \
    X(241, GEMPORT_LOOP_BASE, 0x60272000u, "gemport loop base") \
    X(242, IP_UDP_ROWS, 0x20u, "IP-UDP tunnels") \
    X(244, CESOP_ROWS, 0x80u, "CESoP rows") \
    X(246, VOIP_CHANNEL_NUM, 0x200u, "VoIP channels") \
    X(248, VLAN_CHECK_MAX, 7u, "highest VLAN check identifier") \
    X(250, EFM_CN_MAX, 0xfu, "highest 3ah connection identifier") \
    X(251, L2_ENCAP_MAX, 0xfffu, "highest encapsulation of a LAG") \
    X(252, GEMPORT_INDEX_MAX, 0xfu, "highest GEM port mapping mode") \
    X(255, GEMPORT_ID_MAX, 0xfffu, "highest GEM port") \
    X(256, QUEUE_OFFSET_MAX, 0xffu, "highest queue offset of a GEM port") \
    X(257, GEMPORT_CAR_MAX, 0x1ffu, "highest CAR identifier of a GEM port") \
    X(258, MIRROR_QID_MAX, 0xffu, "highest mirror group parameter") \
    X(259, VMAC_BASE_MAX, 0xfffu, "highest first row of a virtual MAC range") \
    X(260, VMAC_NUMBER_MAX, 0x20u, "most rows of a virtual MAC range") \
    X(261, QID_MAX, 0xffffu, "highest queue identifier") \
    X(262, PTYPE_CAR_MAX, 0xffu, "highest ptype car") \
    X(263, ARL_PARAM_MAX, 0xffffu, "highest 16-bit MAC data field") \
    X(264, CAR_ID_MAX, 0xffu, "highest car identifier") \
    X(265, CESOP_KEY_MAX, 0xfffffu, "highest CESoP key") \
    X(266, CESOP_LABEL_MAX, 0xfffffu, "highest CESoP label") \
    X(267, CESOP_EXP_MAX, 7u, "highest experimental bits of a CESoP label") \
    X(268, CESOP_TTL_MAX, 0xffu, "highest TTL of a CESoP label") \
    X(269, CESOP_CW_MAX, 0xffffu, "highest length of a CESoP control word") \
    X(270, SLOT_ID_MAX, 7u, "highest slot of a port") \
    X(271, DSCP_MAP_ROWS, 8u, "DSCP map rows") \
    X(273, PCP_MAP_ROWS, 8u, "PCP map rows") \
    X(275, IP_MAP_ROWS, 8u, "IP map rows") \
    X(277, PRI_CAR_ROWS, 1u, "priority-to-car rows") \
    X(279, DOT1P_MAX, 7u, "highest 802.1p priority") \
    X(280, PRI_MAP_MAX, 3u, "highest mapped priority") \
    X(281, IP_BONDING_TOTAL, 0x400u, "IP bonding entries") \
    X(283, UVT_ROWS, 0x200u, "UV table rows") \
    X(284, UVT_BASE, 0x6020e000u, "UV table base") \
    X(285, DOT1X_SMAC_ROWS, 0x100u, "1x source MAC rows") \
    X(287, IP_FLOW_BLOCK, 0x80u, "IP flow table rows") \
    X(289, DOS_TIMER_MAX, 838u, "highest anti-DoS time, seconds") \
    X(290, DOS_THREAD_MAX, 0x1ffu, "highest anti-DoS limit") \
    X(292, IP_FLOW_MAX, 0x1ffu, "highest IP flow") \
    X(293, IP_FLOW_NUM, 0x200u, "IP flows") \
    X(294, STAT_FLOW_ROWS, 0x400u, "flow statistics rows") \
    X(295, PTYPE_ROWS, 0x800u, "ptype table rows") \
    X(296, STAT_INDEX_A_MAX, 0xfu, "highest statistics index") \
    X(297, STAT_INDEX_B_MAX, 3u, "highest statistics index") \
    X(299, FROM_CPU_CNT_MAX, 0xffffu, "highest count of packets from the CPU") \
    X(300, TO_CPU_CNT_MAX, 0xffffu, "highest count of packets to the CPU") \
    X(311, PTYPE_DEBUG_BASE, 0x60248000u, "ptype debug counters") \
    X(312, STAT_OAM_ROWS, 8u, "statistics rows") \
    X(313, STAT_PORT_PTYPE_MAX, 0xfffu, "highest index of the port ptype, 3ah, capture, priority and queue statistics") \
    X(314, VLAN_ROWS, 0x1000u, "VLAN rows") \
    X(316, ISTP_SLOTS, 4u, "ingress STP status slots") \
    X(318, ESTP_SLOTS, 4u, "egress STP status slots") \
    X(320, VRF_MAX, 0xfu, "highest VRF") \
    X(321, VLAN_IF_MAX, 0x1fu, "highest VLAN interface") \
    X(322, MSTP_MAX, 3u, "highest spanning tree instance") \
    X(323, PORT_BITMAP_MAX, 0x3ffffffu, "widest port bitmap of a VLAN") \
    X(324, IPQAM_A, 0u, "IP-QAM: sessions; absent in this family") \
    X(326, IPQAM_B, 0u, "IP-QAM: map rows; absent in this family") \
    X(328, IPQAM_C, 0u, "IP-QAM: map rows; absent in this family") \
    X(330, IPQAM_VERSION_ROWS, 0u, "IP-QAM: version rows; absent in this family") \
    X(332, IPQAM_CHANNEL_ROWS, 0u, "IP-QAM: channel rows; absent in this family") \
    X(334, IPQAM_ENCAP_MAX, 0u, "IP-QAM: highest encapsulation row; absent in this family") \
    X(336, IPQAM_D, 0u, "IP-QAM: highest program group, port and PID; absent in this family") \
    X(337, IPQAM_VERSION_MAX, 0u, "IP-QAM: highest PAT and PMT version; absent in this family") \
    X(339, IPQAM_CHANNEL_MAX, 0u, "IP-QAM: highest channel; absent in this family") \
    X(340, IPQAM_HEAD_VERSION, 0u, "IP-QAM: highest IPv4 version; absent in this family") \
    X(341, IPQAM_HEAD_LENGTH, 0u, "IP-QAM: highest header length; absent in this family") \
    X(342, IPQAM_HEAD_TOS, 0u, "IP-QAM: highest ToS; absent in this family") \
    X(343, IPQAM_HEAD_TOTAL, 0u, "IP-QAM: highest total length; absent in this family") \
    X(344, IPQAM_HEAD_ID, 0u, "IP-QAM: highest identifier; absent in this family") \
    X(345, IPQAM_HEAD_FRAG, 0u, "IP-QAM: highest fragment flags; absent in this family") \
    X(346, IPQAM_HEAD_OFFSET, 0u, "IP-QAM: highest fragment offset; absent in this family") \
    X(347, IPQAM_HEAD_TTL, 0u, "IP-QAM: highest TTL; absent in this family") \
    X(348, IPQAM_HEAD_PROTOCOL, 0u, "IP-QAM: highest protocol; absent in this family") \
    X(349, IPQAM_HEAD_SUM, 0u, "IP-QAM: highest header checksum; absent in this family") \
    X(350, IPQAM_HEAD_PORT, 0u, "IP-QAM: highest UDP port; absent in this family") \
    X(351, IPQAM_HEAD_UDP_LENGTH, 0u, "IP-QAM: highest UDP length; absent in this family") \
    X(352, IPQAM_HEAD_UDP_SUM, 0u, "IP-QAM: highest UDP checksum; absent in this family") \
    X(353, IPQAM_AGE_MIN, 0u, "IP-QAM: lowest period; absent in this family") \
    X(354, IPQAM_AGE_MAX, 0u, "IP-QAM: highest period; absent in this family") \
    X(355, DDR_BLOCK_SIZE, 0x200000u, "bytes of the search memory shadow") \
    X(356, SMEM_QUEUE_BASE, 0x39000u, "byte address of queue 0") \
    X(357, SMEM_QUEUE_STRIDE, 0x100u, "byte distance between queues") \
    X(358, SMEM_QUEUE_NUM, 0x10u, "search memory queues") \
    X(359, SMEM_QUEUE_DEPTH, 0x10u, "depth of a queue") \
    X(360, SMEM_QUEUE_MEM, 0u, "memory of the queues")
// clang-format on

enum NpCapSlot : uint32_t {
#define NP_CAP_ENUM(slot, name, value, meaning) NP_CAP_##name = slot,
    NP_CAPABILITY_LIST(NP_CAP_ENUM)
#undef NP_CAP_ENUM
};

// The family's table; chip records point here from registration on.
extern const std::array<uint32_t, NP_CAP_NUM> g_aulNpTarnBGlbCap;

// Bring-up and tear-down as two lists of named steps. Include it with NP_BRINGUP, NP_ROLLBACK or
// NP_TEARDOWN defined; what is not defined is empty, and all are undefined afterwards.
//
//   NP_BRINGUP(group, call, message, LANDED or PENDING)
//       one initialiser; message is the name that its failure trace gives. PENDING: not there yet,
//       skipped. group, in the order of running: TABLES; ANALYSIS, which take the priority blocks
//       too; LATE; FINAL, with the atoms released; SWITCH. DFX stands for the steps inside
//       Np_Tarn_DFX_Init
//   NP_TEARDOWN(call, message, LANDED or PENDING)
//   NP_PRI_ASSIGN(type, call, LANDED or PENDING)
//       who lays the priority blocks of a type out
//
// clang-format off
#ifndef NP_BRINGUP
#define NP_BRINGUP(group, call, message, state)
#endif
#ifndef NP_TEARDOWN
#define NP_TEARDOWN(call, message, state)
#endif
#ifndef NP_PRI_ASSIGN
#define NP_PRI_ASSIGN(type, call, state)
#endif

NP_BRINGUP(TABLES, Np_Tarn_Stack_Init, "Np_Tarn_Stack_Init", LANDED)
NP_BRINGUP(TABLES, Np_Tarn_DFX_Init, "Np_Tarn_DFX_Init", LANDED)
NP_BRINGUP(TABLES, Np_Tarn_DFX_TblID_Init, "Np_Tarn_DFX_TblID_Init", PENDING)
NP_BRINGUP(TABLES, Np_Tarn_LCAM_Init, "Np_Tarn_LCAM_Init", LANDED)
NP_BRINGUP(TABLES, Np_Tarn_EML_Init, "Np_Tarn_EML_Init", LANDED)
NP_BRINGUP(TABLES, Np_Tarn_HA_Init, "Np_Tarn_HA_Init", LANDED)
NP_BRINGUP(TABLES, Np_L2_Init, "Np_Tarn_L2_Init", LANDED)
NP_BRINGUP(TABLES, Np_IpBonding_Init, "Np_Tarn_IpBonding_Init", LANDED)
NP_BRINGUP(TABLES, Np_Tarn_Arl_Init, "Np_Tarn_ARL_Init", LANDED)
NP_BRINGUP(TABLES, Np_Tarn_Stat_Init, "Np_Tarn_Stat_Init", LANDED)
NP_BRINGUP(TABLES, Np_Tarn_DFX_MCC_Init, "Np_Tarn_DFX_MCC_Init", PENDING)
NP_BRINGUP(TABLES, Np_Tpid_Init, "Np_Tpid_Init", LANDED)
NP_BRINGUP(TABLES, Np_Tarn_CputrMsg_Init, "Np_Tarn_CputrMsg_Init", LANDED)
NP_BRINGUP(ANALYSIS, Np_Tarn_L2paTbl_Init, "Np_Tarn_L2paTbl_Init", LANDED)
NP_BRINGUP(ANALYSIS, Np_Tarn_L3paTbl_Init, "Np_Tarn_L3paTbl_Init", LANDED)
NP_BRINGUP(LATE, Np_Tarn_GLB_Init, "Np_Tarn_GLB_Init", LANDED)
NP_BRINGUP(LATE, Np_AclStart, "Np_Tarn_Acl_Init", LANDED)
NP_BRINGUP(LATE, Np_Tarn_OAM_Init, "Np_Tarn_OAM_Init", PENDING)
NP_BRINGUP(FINAL, Np_CarRefreshStart, "Np_CarRefresh_Msg", LANDED)
NP_BRINGUP(SWITCH, Np_DfxSwitchOn, "Np_tarn_Dfx_Switch_Set", PENDING)

NP_BRINGUP(DFX, Np_Tarn_DFX_ContextRewrite_Init, "Np_Tarn_DFX_Init", PENDING)
NP_BRINGUP(DFX, Np_Tarn_Dfx_Catch_PktCnt_Init, "Np_Tarn_Dfx_Catch_PktCnt_Init", PENDING)

NP_PRI_ASSIGN(0, Np_Tarn_MultiService_PriBlockAssign, LANDED)
NP_PRI_ASSIGN(1, Np_Tarn_L2paTbl_Init, LANDED)
NP_PRI_ASSIGN(2, Np_Tarn_L3paTbl_Init, LANDED)
NP_PRI_ASSIGN(3, Np_Tarn_ACL_PriBlockAssign, LANDED)

NP_TEARDOWN(Np_Tarn_LCAM_TcamDeleteAll, "Np_Tarn_LCAM_TcamDeleteAll", LANDED)
NP_TEARDOWN(Np_Tarn_L2paTbl_Destruct, "Np_Tarn_L2paTbl_Destruct", LANDED)
NP_TEARDOWN(Np_Tarn_L3paTbl_Destruct, "Np_Tarn_L3paTbl_Destruct", LANDED)
NP_TEARDOWN(Np_Tarn_DFX_Destruct, "Np_Tarn_DFX_Destruct", LANDED)
NP_TEARDOWN(Np_Tarn_DFX_TblID_Destruct, "Np_Tarn_DFX_TblID_Destruct", PENDING)
NP_TEARDOWN(Np_Tarn_LCAM_Destruct, "Np_Tarn_LCAM_Destruct", LANDED)
NP_TEARDOWN(Np_Tarn_EML_Destruct, "Np_Tarn_EML_Destruct", LANDED)
NP_TEARDOWN(Np_Tarn_HA_Destruct, "Np_Tarn_HA_Destruct", LANDED)
NP_TEARDOWN(Np_Tarn_ACL_Destruct, "Np_Tarn_ACL_Destruct", LANDED)
NP_TEARDOWN(Np_Tarn_GLB_Destruct, "Np_Tarn_GLB_Destruct", LANDED)
NP_TEARDOWN(Np_Tarn_OAM_Destruct, "Np_Tarn_OAM_Destruct", PENDING)
NP_TEARDOWN(Np_L2_Destruct, "Np_Tarn_L2_Destruct", LANDED)
NP_TEARDOWN(Np_IpBonding_Destruct, "Np_Tarn_IpBonding_Destruct", LANDED)
NP_TEARDOWN(Np_Tarn_Arl_Destruct, "Np_Tarn_Arl_Destruct", LANDED)
NP_TEARDOWN(Np_Tarn_DFX_MCC_Destruct, "Np_Tarn_DFX_MCC_Destruct", PENDING)
NP_TEARDOWN(Np_Tarn_Stack_Destruct, "Np_Tarn_Stack_Destruct", LANDED)
NP_TEARDOWN(Np_Tarn_CputrMsg_Destruct, "Np_Tarn_CputrMsg_Destruct", LANDED)
NP_TEARDOWN(Np_Tarn_SmemDestruct, "Np_Tarn_SmemDestruct", LANDED)
NP_TEARDOWN(Np_CarRefreshStop, "Np_CarRefresh_Msg", LANDED)
NP_TEARDOWN(Np_DfxSwitchOff, "Np_tarn_Dfx_Switch_Set", PENDING)

#undef NP_BRINGUP
#undef NP_TEARDOWN
#undef NP_PRI_ASSIGN
// clang-format on

#include "sdk/access/portid.h"

#include "platform/driver.h"
#include "sdk/frame/base/chip.h"
#include "sdk/frame/base/service.h"
#include "sdk/frame/base/trace.h"

namespace {

inline constexpr uint32_t NP_PHY_XAUI_SUB_MASK = 63;

// What every conversion refuses before the driver is asked.
uint32_t Np_PortTypeCheck(const NpPortID *pstPortID, const void *pvOther,
                          NpWhere stWhere = Np_Here())
{
    if (pstPortID == nullptr || pvOther == nullptr) {
        NP_TRACE_AT(stWhere, NP_M_COMM, NP_PRINT_ERROR, "Para null ptr\r\n");
        return NP_ERR_NULL_PTR;
    }
    if (pstPortID->ulPortType >= NP_PORT_TYPE_NUM) {
        NP_TRACE_AT(stWhere, NP_M_COMM, NP_PRINT_ERROR, "param error! ulPortType=0x%08x\r\n",
                    pstPortID->ulPortType);
        return NP_ERR_PARAM;
    }
    return NP_OK;
}

}  // namespace

uint32_t Np_Tarn_PortParaCheck(uint32_t ulChipID, const NpPortID *pstPortID)
{
    uint32_t ulReturn = Np_PortTypeCheck(pstPortID, pstPortID);
    if (ulReturn != NP_OK) {
        return ulReturn;
    }
    ulReturn = Qd_GLB_PortParamCheck(ulChipID, pstPortID->ulPortType, pstPortID->ulPortID,
                                     pstPortID->ulSubPortID, pstPortID->ulPri);
    if (ulReturn != NP_OK) {
        NP_TRACE(NP_M_COMM, NP_PRINT_ERROR, "Qd_GLB_PortParamCheck return(0x%08x) error\r\n",
                 ulReturn);
    }
    return ulReturn;
}

uint32_t Np_TarnA_PortID2PhyID(uint32_t ulChipID, const NpPortID *pstPortID, uint32_t *pulPhyID)
{
    uint32_t ulReturn = Np_PortTypeCheck(pstPortID, pulPhyID);
    if (ulReturn != NP_OK) {
        return ulReturn;
    }
    ulReturn = Qd_GLB_PortParamToIngressPhyID(ulChipID, pstPortID->ulPortType, pstPortID->ulPortID,
                                              pstPortID->ulSubPortID, pstPortID->ulPri, pulPhyID);
    if (ulReturn != NP_OK) {
        NP_TRACE(NP_M_COMM, NP_PRINT_ERROR,
                 "Qd_GLB_PortParamToIngressPhyID return error 0x%08x\r\n", ulReturn);
    }
    return ulReturn;
}

uint32_t Np_TarnC_PortID2PhyID(uint32_t ulChipID, const NpPortID *pstPortID, uint32_t *pulPhyID)
{
    const uint32_t ulReturn = Np_PortTypeCheck(pstPortID, pulPhyID);
    if (ulReturn != NP_OK) {
        return ulReturn;
    }
    if (pstPortID->ulPortType == NP_PORT_TYPE_XAUI && pstPortID->ulPri == 1) {
        *pulPhyID = (pstPortID->ulSubPortID & NP_PHY_XAUI_SUB_MASK) | NP_PHY_XAUI_FIRST;
        return NP_OK;
    }
    return Np_TarnA_PortID2PhyID(ulChipID, pstPortID, pulPhyID);
}

uint32_t Np_TarnA_IngressPhyID2PortID(uint32_t ulChipID, uint32_t ulPhyID, NpPortID *pstPortID)
{
    if (pstPortID == nullptr) {
        NP_TRACE(NP_M_COMM, NP_PRINT_ERROR, "Para null ptr\r\n");
        return NP_ERR_NULL_PTR;
    }
    const uint32_t ulReturn = Qd_GLB_IngressPhyIDToPortParam(
        ulChipID, ulPhyID, &pstPortID->ulPortType, &pstPortID->ulPortID, &pstPortID->ulSubPortID,
        &pstPortID->ulPri);
    if (ulReturn != NP_OK) {
        Np_RecordErrInfo(ulChipID, ulReturn, 0);
        NP_TRACE(NP_M_COMM, NP_PRINT_ERROR,
                 "Qd_GLB_IngressPhyIDToPortParam return(0x%08x) error\r\n", ulReturn);
        // A row that names an unknown port is still read to its end.
        *pstPortID = {NP_PORT_TYPE_INVALID, 0, 0, 0};
    }
    return NP_OK;
}

uint32_t Np_TarnC_IngressPhyID2PortID(uint32_t ulChipID, uint32_t ulPhyID, NpPortID *pstPortID)
{
    if (pstPortID != nullptr && ulPhyID >> 6 == 1) {
        *pstPortID = {NP_PORT_TYPE_XAUI, 0, ulPhyID & NP_PHY_XAUI_SUB_MASK, 1};
        return NP_OK;
    }
    return Np_TarnA_IngressPhyID2PortID(ulChipID, ulPhyID, pstPortID);
}

uint32_t Np_Tarn_EgressPhyID2PortID(uint32_t ulChipID, uint32_t ulPhyID, NpPortID *pstPortID)
{
    if (pstPortID == nullptr) {
        NP_TRACE(NP_M_COMM, NP_PRINT_ERROR, "Para null ptr\r\n");
        return NP_ERR_NULL_PTR;
    }
    NpPortID stPortID = {};
    const uint32_t ulReturn =
        Qd_GLB_EgressPhyIDToPortParam(ulChipID, ulPhyID, &stPortID.ulPortType, &stPortID.ulPortID,
                                      &stPortID.ulSubPortID, &stPortID.ulPri);
    if (ulReturn != NP_OK) {
        NP_TRACE(NP_M_COMM, NP_PRINT_ERROR,
                 "Qd_GLB_EgressPhyIDToPortParam return(0x%08x) error\r\n", ulReturn);
        return ulReturn;
    }
    *pstPortID = stPortID;
    return NP_OK;
}

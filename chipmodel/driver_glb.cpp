// The driver's port numbers.

#include "chipmodel/call.h"

using namespace ldsdk::model;

uint32_t Qd_GLB_PortParamCheck(uint32_t ulChipID, uint32_t ulPortType, uint32_t ulPortID,
                               uint32_t ulSubPortID, uint32_t ulPri)
{
    return not_modelled(Op::Qd_GLB_PortParamCheck, ulChipID,
                        {{ulPortType, ulPortID, ulSubPortID, ulPri}});
}

uint32_t Qd_GLB_PortParamToIngressPhyID(uint32_t ulChipID, uint32_t ulPortType, uint32_t ulPortID,
                                        uint32_t ulSubPortID, uint32_t ulPri, uint32_t *)
{
    return not_modelled(Op::Qd_GLB_PortParamToIngressPhyID, ulChipID,
                        {{ulPortType, ulPortID, ulSubPortID, ulPri}});
}

uint32_t Qd_GLB_IngressPhyIDToPortParam(uint32_t ulChipID, uint32_t ulPhyID, uint32_t *, uint32_t *,
                                        uint32_t *, uint32_t *)
{
    return not_modelled(Op::Qd_GLB_IngressPhyIDToPortParam, ulChipID, {{ulPhyID}});
}

uint32_t Qd_GLB_EgressPhyIDToPortParam(uint32_t ulChipID, uint32_t ulPhyID, uint32_t *, uint32_t *,
                                       uint32_t *, uint32_t *)
{
    return not_modelled(Op::Qd_GLB_EgressPhyIDToPortParam, ulChipID, {{ulPhyID}});
}

// The driver's port numbers.

#include "chipmodel/call.h"
#include "chipmodel/ports.h"

using namespace ldsdk::model;

namespace {

// A number back to its port, in the form that the driver's functions give it.
uint32_t to_port(Op op, uint32_t chip, uint32_t phy, uint32_t (*convert)(uint32_t, Port *),
                 uint32_t *const (&out)[4])
{
    return driver_call(op, chip, {{phy}}, [&](Chip &) {
        for (const uint32_t *word : out) {
            if (word == nullptr) {
                return kErrNull;
            }
        }
        Port port = {};
        const uint32_t result = convert(phy, &port);
        if (result == kOk) {
            *out[0] = port.type;
            *out[1] = port.id;
            *out[2] = port.sub;
            *out[3] = port.pri;
        }
        return result;
    });
}

}  // namespace

uint32_t Qd_GLB_PortParamCheck(uint32_t ulChipID, uint32_t ulPortType, uint32_t ulPortID,
                               uint32_t ulSubPortID, uint32_t ulPri)
{
    return driver_call(
        Op::Qd_GLB_PortParamCheck, ulChipID, {{ulPortType, ulPortID, ulSubPortID, ulPri}},
        [&](Chip &) {
            return port_valid({ulPortType, ulPortID, ulSubPortID, ulPri}) ? kOk : kErrParam;
        });
}

uint32_t Qd_GLB_PortParamToIngressPhyID(uint32_t ulChipID, uint32_t ulPortType, uint32_t ulPortID,
                                        uint32_t ulSubPortID, uint32_t ulPri, uint32_t *pulPhyID)
{
    return driver_call(
        Op::Qd_GLB_PortParamToIngressPhyID, ulChipID, {{ulPortType, ulPortID, ulSubPortID, ulPri}},
        [&](Chip &) {
            return port_to_ingress({ulPortType, ulPortID, ulSubPortID, ulPri}, pulPhyID);
        });
}

uint32_t Qd_GLB_IngressPhyIDToPortParam(uint32_t ulChipID, uint32_t ulPhyID, uint32_t *pulPortType,
                                        uint32_t *pulPortID, uint32_t *pulSubPortID,
                                        uint32_t *pulPri)
{
    return to_port(Op::Qd_GLB_IngressPhyIDToPortParam, ulChipID, ulPhyID, port_from_ingress,
                   {pulPortType, pulPortID, pulSubPortID, pulPri});
}

uint32_t Qd_GLB_EgressPhyIDToPortParam(uint32_t ulChipID, uint32_t ulPhyID, uint32_t *pulPortType,
                                       uint32_t *pulPortID, uint32_t *pulSubPortID,
                                       uint32_t *pulPri)
{
    return to_port(Op::Qd_GLB_EgressPhyIDToPortParam, ulChipID, ulPhyID, port_from_egress,
                   {pulPortType, pulPortID, pulSubPortID, pulPri});
}

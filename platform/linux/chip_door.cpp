// The chip model's door for a kernel.
#include "platform/linux/shim.h"

#include "chipmodel/model.h"

using namespace ldsdk;

uint32_t Ld_ChipAttach(uint32_t ulChipID)
{
    return model::attach(ulChipID);
}

uint32_t Ld_ChipDetach(uint32_t ulChipID)
{
    return model::detach(ulChipID);
}

const OsBus *Ld_ChipBus(void)
{
    return &model::bus();
}

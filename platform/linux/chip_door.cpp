// The chip model's door for a kernel.
#include "platform/linux/shim.h"

#include "chipmodel/model.h"

using namespace ldsdk;

uint32_t Ld_ModelAttach(uint32_t ulChipID)
{
    return model::attach(ulChipID);
}

uint32_t Ld_ModelDetach(uint32_t ulChipID)
{
    return model::detach(ulChipID);
}

void Ld_ModelPace(bool (*pfnGoOn)(void))
{
    model::pace_set(pfnGoOn);
}

const OsBus *Ld_ChipBus(void)
{
    return &model::bus();
}

// Answers for the handlers that have no function of their own yet.
#include "sdk/module/cli/smd.h"
#include "sdk/module/tree.h"

static uint32_t Np_SMD_Pending(void)
{
    Np_PUB_SMD_ReturnValue(NP_SMD_INVALID_COMMAND);
    return 1;
}

#define NP_PENDING_HANDLER(Name) \
    uint32_t Name(void)          \
    {                            \
        return Np_SMD_Pending(); \
    }
#include "sdk/module/pending_handlers.h"

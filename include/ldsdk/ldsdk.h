/* The whole exported interface of the SDK.

   Every function gives NP_OK or a code of status.h. One that takes ulChipID, 0 to 3, gives
   NP_ERR_CHIP_ID when the chip is not registered and NP_ERR_UNREGISTERED when the chip's family
   does not offer the function; registration and the hooks alone work without a chip. All give
   NP_ERR_NULL_PTR for a null record and NP_ERR_PARAM for an index or a field out of range, before
   anything is written. The comments name what else can come back, and the codes of the chip
   driver come back as they are. Numbers are unsigned unless told. Calls may sleep and take no
   lock: the caller keeps operations on one table from overlapping. In a kernel a call waits while
   somebody brings a chip up or takes one down, and gets NP_ERR_SEMAPHORE when that lasts for
   seconds or when it may not sleep; nothing has happened then. */
#ifndef LDSDK_LDSDK_H
#define LDSDK_LDSDK_H

#include "ldsdk/acl.h"
#include "ldsdk/arl.h"
#include "ldsdk/cputr.h"
#include "ldsdk/dfx.h"
#include "ldsdk/glb.h"
#include "ldsdk/ha.h"
#include "ldsdk/init.h"
#include "ldsdk/ipqam.h"
#include "ldsdk/l2.h"
#include "ldsdk/mc.h"
#include "ldsdk/micro.h"
#include "ldsdk/oam.h"
#include "ldsdk/pa.h"
#include "ldsdk/port.h"
#include "ldsdk/qos.h"
#include "ldsdk/secu.h"
#include "ldsdk/stat.h"
#include "ldsdk/status.h"
#include "ldsdk/types.h"
#include "ldsdk/vlan.h"

#endif

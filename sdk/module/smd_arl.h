// What the commands of the MAC family take and print beyond the family's own records.
#pragma once

#include "sdk/tables/arl.h"

extern const NpRow g_stArlInfoRow;         // where an entry stands and what it is
extern const NpRow g_stUvmacRow;           // a user MAC of a query
extern const NpRow g_stNormalAgeParaArgs;  // message fields that a normal age may set by hand
extern const NpRow g_stForceAgeParaArgs;   // the same of a force age

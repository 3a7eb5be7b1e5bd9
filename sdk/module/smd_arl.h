// What the commands of the MAC family take and print beyond the family's own records.
#pragma once

#include "sdk/tables/arl.h"

extern const NpRow g_stUvmacRow;  // a user MAC of a query

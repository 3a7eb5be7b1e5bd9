// Refusals of the exact match functions, traced under the name of the function they stand in.
#pragma once

#include "ldsdk/status.h"
#include "sdk/frame/trace.h"

#define NP_EML_REFUSE(bad, code, ...)                        \
    do {                                                     \
        if (bad) [[unlikely]] {                              \
            NP_TRACE(NP_M_EML, NP_PRINT_ERROR, __VA_ARGS__); \
            return code;                                     \
        }                                                    \
    } while (0)

#define NP_EML_REFUSE_TABLE(bad, ulTableID) \
    NP_EML_REFUSE(bad, NP_ERR_PARAM, "param error! (ulTableID)=0x%08x\r\n", ulTableID)
#define NP_EML_REFUSE_NULL(bad) NP_EML_REFUSE(bad, NP_ERR_NULL_PTR, "Para null ptr\r\n")

// Refusals of the exact match functions, traced under the name of the function they stand in, or of
// its caller.
#pragma once

#include "ldsdk/status.h"
#include "sdk/frame/base/trace.h"

#define NP_EML_REFUSE_AT(stWhere, bad, code, ...)                        \
    do {                                                                 \
        if (bad) [[unlikely]] {                                          \
            NP_TRACE_AT(stWhere, NP_M_EML, NP_PRINT_ERROR, __VA_ARGS__); \
            return code;                                                 \
        }                                                                \
    } while (0)
#define NP_EML_REFUSE(bad, code, ...) NP_EML_REFUSE_AT(Np_Here(), bad, code, __VA_ARGS__)

#define NP_EML_REFUSE_TABLE(bad, ulTableID) \
    NP_EML_REFUSE(bad, NP_ERR_PARAM, "param error! (ulTableID)=0x%08x\r\n", ulTableID)
#define NP_EML_REFUSE_NULL_AT(stWhere, bad) \
    NP_EML_REFUSE_AT(stWhere, bad, NP_ERR_NULL_PTR, "Para null ptr\r\n")
#define NP_EML_REFUSE_NULL(bad) NP_EML_REFUSE_NULL_AT(Np_Here(), bad)

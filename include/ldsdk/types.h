/* Types that every header of the SDK shares. Plain C, so that a C sibling module can include it. */
#ifndef LDSDK_TYPES_H
#define LDSDK_TYPES_H

/* A kernel has no headers of a C library. C++ in one has the compiler's own. */
#if defined(__KERNEL__) && !defined(__cplusplus)
#include <linux/types.h>
#else
#include <stddef.h>
#include <stdint.h>
#endif

#ifdef __cplusplus
#define NP_EXTERN_C_BEGIN extern "C" {
#define NP_EXTERN_C_END }
#else
#define NP_EXTERN_C_BEGIN
#define NP_EXTERN_C_END
#endif

/* Marks what a sibling module may call; everything else is hidden. */
#define NP_API __attribute__((visibility("default")))

/* Chip identifiers run from 0 to NP_CHIP_NUM - 1. */
#define NP_CHIP_NUM 4u

/* A port as the host names it. The microcode's phy id number is derived from it. */
typedef struct NpPortID {
    uint32_t ulPortType;  /* 0 to 15: bigport gpon epon tcont llid pos ge fe gint xaui prbs
                             loopback cpu bonding xdsl trunk */
    uint32_t ulPortID;    /* port of that type, from 0 */
    uint32_t ulSubPortID; /* sub-port (PVC, gemport, LLID), 0 where the type has none */
    uint32_t ulPri;       /* priority, 0 where the type has none */
} NpPortID;

#endif

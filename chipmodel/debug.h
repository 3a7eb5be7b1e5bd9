/* The chip's debug door as single calls of one record, so that a program reaches it in its own
   process and through a device alike. Plain C, the same layout on both sides. */
#pragma once

#include "platform/os.h"

#include <stdint.h>

NP_EXTERN_C_BEGIN

#define LD_DEBUG_TEXT 512

/* What each takes of the record, and what it gives back. The functions are those of
   chipmodel/model.h. */
enum LdDebugOp {
    LD_DEBUG_PEEK,        /* number: address -> value */
    LD_DEBUG_POKE,        /* number: address, value */
    LD_DEBUG_ADVANCE,     /* wide: ticks */
    LD_DEBUG_FAULT_SET,   /* text -> on kErrParam, text: what is wrong with it */
    LD_DEBUG_FAULT_SHOW,  /* number: which -> text; kErrParam past the last */
    LD_DEBUG_JOURNAL_SET, /* value: 0 or 1 */
    LD_DEBUG_JOURNAL_CLEAR,
    LD_DEBUG_JOURNAL_STATE, /* -> number: records held, wide: lost, value: 0 or 1 */
    LD_DEBUG_JOURNAL_SHOW,  /* number: which, 0 the oldest -> text; kErrParam past the last */
    LD_DEBUG_FEED_SET,      /* number: atom, value: 0 or 1 */
    LD_DEBUG_ENGINE,        /* auto-send as a whole -> value: 0 or 1 */
    LD_DEBUG_CHANNEL,       /* number: channel -> value: 0 or 1, wide: period, number: sent, text;
                               kErrEmpty without a message, kErrParam past the last */
    LD_DEBUG_SENT_COUNT,    /* -> number: packets remembered */
    LD_DEBUG_SENT,          /* number: which -> wide: tick, value: bytes, text */
    LD_DEBUG_STANDIN_SET,   /* value: 0 or 1 */
    LD_DEBUG_LOOP_SET,      /* value: 0 or 1 */
    LD_DEBUG_STANDIN_COUNT, /* number: which counter -> value, text: its name; kErrParam past the
                               last */
    LD_DEBUG_OP_NUM
};

struct LdDebugCall {
    uint64_t wide;
    uint32_t op; /* LdDebugOp */
    uint32_t chip;
    uint32_t number;
    uint32_t value;
    uint32_t result; /* of a device: what Ld_Debug answered */
    uint32_t spare;
    char text[LD_DEBUG_TEXT]; /* taken up to a NUL, or as if its last byte were one */
};

/* The device's request. It fails with EFAULT for memory that is not the caller's, ENOTTY for
   another request, EINTR for a move of the clock that a signal cut short. */
#define LD_DEBUG_DEVICE "ldsdk_chip"
#define LD_DEBUG_REQUEST _IOWR('L', 2, struct LdDebugCall)

/* A microcode image for the board to keep, of which a load then takes the word (ldsdk/micro.h).
   EINVAL for none, EFBIG for more than LD_IMAGE_LARGEST, EBUSY while loads use all images that it
   has room for. */
struct LdDebugImage {
    uint64_t bytes; /* where the caller has them */
    uint32_t size;
    uint32_t address; /* of the device: the word */
};
#define LD_IMAGE_LARGEST (16u << 20)
#define LD_DEBUG_IMAGE_REQUEST _IOWR('L', 3, struct LdDebugImage)

/* 0, or the model's code. An unknown op is kErrNotModelled, a null record kErrNull; all but those
   of faults and the journal answer kErrNoChip for a chip that is not attached. */
uint32_t Ld_Debug(struct LdDebugCall *call);

NP_EXTERN_C_END

/* Packets between the host and the microcode.
   Results that all functions share: ldsdk/ldsdk.h. */
#ifndef LDSDK_CPUTR_H
#define LDSDK_CPUTR_H

#include "ldsdk/types.h"

NP_EXTERN_C_BEGIN

/* Where the microcode finds the room and the fields of a frame that it sends, by the kind of port:
   24 bits in the chip. ulFrameInfoType, beside it, says which member counts; 0 is none of them. */
typedef union NpFrameInfo {
    struct {                 /* 1, "eth" */
        uint32_t ulTsMode;   /* time stamp: 0 non, 1 modify, 2 sub, 3 add */
        uint32_t ulBk;       /* 0 noback, 1 back */
        uint32_t ulTsAddr;   /* 0 to 511 */
        uint32_t ulTsBkAddr; /* 0 to 7 */
        uint32_t ulUdpAddr;  /* 0 to 127 */
    } stEther;
    struct {                  /* 2, "gpon" */
        uint32_t ulPriOrSCR;  /* 0 or 1 */
        uint32_t ulGemPortID; /* 0 to 4095 */
    } stGpon;
    struct {            /* 3, "epon" */
        uint32_t ulPri; /* 0 to 7 */
    } stEpon;
    struct {                   /* 4, "xdsl" */
        uint32_t ulAtmPtmType; /* 0 atm, 1 ptm, 2 atm_cell1, 3 atm_cell2 */
        uint32_t ulPvcOffset;  /* 0 to 7 */
    } stXdsl;
    struct {                 /* 5, "prbs" */
        uint32_t ulPrbsChID; /* 0 to 255 */
    } stPrbs;
    struct {                /* 6, "pie" */
        uint32_t ulPieChID; /* 0 to 7 */
    } stPie;
    struct {             /* 7, "loopback" */
        uint32_t ulRsvd; /* 24 bits */
    } stLoopBack;
} NpFrameInfo;

/* Behind the whole pipeline, into an output queue. */
typedef struct NpInsertToQueue {
    uint32_t ulQID;           /* 0 to 511 */
    uint32_t ulOftID;         /* output flow, 0 to 1023 */
    uint32_t ulFrameInfoType; /* 0 to 7 */
    NpFrameInfo unFrameInfo;
} NpInsertToQueue;

/* Into forwarding. */
typedef struct NpInsertToFwd {
    uint32_t ulIcos;         /* internal class of service, 0 to 7 */
    uint32_t ulHS;           /* horizontal split, 0 to 255 */
    uint32_t ulIftID;        /* input flow, 0 to 1023; sent when there is no bundle */
    uint32_t ulVsi;          /* 0 to 15 */
    uint32_t ulFwdVlan;      /* 0 to 4095 */
    uint32_t ulRole;         /* 1 uni, 2 nni */
    uint32_t ulClass;        /* 1 low, 2 high */
    uint32_t ulLrnEnable;    /* learn the source address: 0 or 1 */
    uint32_t ulPfeEnable;    /* 0 or 1 */
    uint32_t ulBundleEnalbe; /* 0 or 1 */
    uint32_t ulBundleID;     /* flow bundle, 0 to 31, checked without a bundle too */
    uint32_t ulPri;          /* of the bundle, 0 to 7 */
} NpInsertToFwd;

/* Before the input flow, as if it came in at a port. */
typedef struct NpInsertToIft {
    uint32_t ulIcos; /* 0 to 7 */
    NpPortID stPortID;
    uint32_t ulPfEnable; /* 0 or 1 */
    uint32_t ulRole;     /* 1 uni, 2 nni */
    uint32_t ulUserID;   /* 0 to 511 */
    uint32_t ulClass;    /* 1 low, 2 high */
} NpInsertToIft;

/* Into an output flow. */
typedef struct NpInsertToOft {
    uint32_t ulIcos;  /* 0 to 7 */
    uint32_t ulOftID; /* 0 to 1023 */
} NpInsertToOft;

/* To a CM group. */
typedef struct NpInsertToCm {
    uint32_t ulCmGroupID; /* 0 to 255 */
} NpInsertToCm;

/* Into the L2 encapsulation. */
typedef struct NpInsertToL2Encap {
    uint32_t ulIcos;      /* 0 to 7 */
    uint32_t ulL2EncapID; /* 0 to 31 */
} NpInsertToL2Encap;

/* A packet to send. */
typedef struct InfoForSend {
    uint32_t ulPktLen;      /* bytes at pucData, 1 to 10240 */
    const uint8_t *pucData; /* the packet; stays the caller's */
    uint32_t ulSubType;     /* where it enters, and the member of the union that says more */
    union {
        NpInsertToQueue stInsertToQueue;     /* 0 */
        NpInsertToFwd stInsertToFwd;         /* 1 */
        NpInsertToIft stInsertToIft;         /* 2 */
        NpInsertToOft stInsertToOft;         /* 3 */
        NpInsertToCm stInsertToCm;           /* 5 */
        NpInsertToL2Encap stInsertToL2Encap; /* 7 */
    } unInsertPkt;
} InfoForSend;

/* A packet that was received. With an ulSubType above 3 nothing behind it is filled in. */
typedef struct ReceiveInfo {
    uint32_t ulBufLen;  /* in: bytes at pucData */
    uint8_t *pucData;   /* in: the buffer; then the packet */
    uint32_t ulPktLen;  /* bytes of the packet; above ulBufLen if the driver cut it to the buffer */
    uint32_t ulSubType; /* 0 normal; OAM PDUs: 1 with fault management data, 2 with loss, 3 with
                           delay measurement data */
    uint32_t ulPtype;   /* packet type: why the microcode gave it to the CPU */
    uint32_t ulEncap;
    NpPortID stSportID; /* where it came in; type 17 for a port that the chip does not know */
    uint32_t ulTagInfo;
    uint32_t ulVlanID;
    uint32_t ulFlowID;
    union {
        struct { /* 0 */
            uint32_t ulExtInfo;
        } stRecNormal;
        struct { /* 1 */
            uint32_t ulMegIndex;
            uint32_t ulMepIndex;
            uint32_t ulDriection;
            uint32_t ulLevel;
            uint32_t ulOamSessionID;
            NpPortID stMpCapPort;
        } stRecOamPduFm;
        struct { /* 2: frame counters */
            uint32_t ulLmIndex;
            uint32_t ulFramFarTx;
            uint32_t ulFramFarRx;
            uint32_t ulFramNearTx;
            uint32_t ulFramNearRx;
        } stRecOamPduLm;
        struct { /* 3 */
            uint32_t ulDmIndex;
            uint32_t ulTimeStampOffset;
            uint32_t ulRxTimeb_Sec;
            uint32_t ulRxTimeb_nSec;
        } stRecOamPduDm;
    } unRecInfo;
} ReceiveInfo;

/* Sends one packet of 1 to 10240 bytes; it is not copied and stays the caller's. ulSubType says
   where it enters: 0 queue, 1 forwarding, 2 input flow, 3 output flow, 5 CM group, 7
   encapsulation. Further codes: NP_ERR_PORT_PARAM, the port conversions', the driver's own. */
NP_API uint32_t Np_Cputr_PktSend(uint32_t ulChipID, const InfoForSend *pstInfoForSend);

/* Fetches one packet, if there is one, into pucData of ulBufLen bytes, its extension words
   taken off. Does not wait. NP_ERR_CPU_LENGTH: header or packet length does not fit;
   NP_ERR_PARAM: not a packet for the CPU. A refused packet is lost. Otherwise the driver's own
   code. */
NP_API uint32_t Np_Cputr_PktReceive(uint32_t ulChipID, ReceiveInfo *pstReceiveInfo);

NP_EXTERN_C_END

#endif

// A row of a table, described once as constant data: where each field stands in the caller's record
// and in the row's image, what it may hold, what a bad value prints, and how the command line calls
// it. The engines below read the description; so do the commands (sdk/module/smd_row.h), the
// reference page and the tests. docs/adding-a-table.md walks through one row.
//
//     // sdk/record/describe.h has what a description is written with.
//     namespace stp_row {
//     using R = NpIstp;                                  // the caller's record
//     constexpr auto g_astStatusWords = Np_Words("forwarding", "blocking", "learning", "disable");
//     constexpr NpField g_astField[] = {
//         NP_F_EACH(astStatus, ulStatus, .stAt = {0, 1, 0}, .sStep = 2, .stWords =
//         g_astStatusWords),
//     };
//     constexpr NpCheck g_astCheck[] = {                 // in the order of the tests
//         NP_C_EACH(astStatus, ulStatus, Np_Most(3), .pszText = "astStatus[ulI].ulStatus"),
//     };
//     }
//     constexpr NpRow g_stIstpRow = Np_RowMake<NpIstp>(
//         {.ucModule = NP_M_VLAN, .pszArg = "pstIstp", .usImageSize = 4}, stp_row::g_astField,
//         stp_row::g_astCheck);
//
// A description whose pieces overlap, leave the image or the record, or are narrower than what they
// must hold does not compile; see NpRowFault. The order of the fields is the order of the command's
// parameters and of the trace; a field that selects others may stand anywhere among them.
//
// An image is a buffer of bytes, lowest bit first: bit b of the image is bit b % 8 of byte b / 8,
// so that a value that crosses bytes is little-endian. Buffers have a whole number of 32-bit words,
// and their length is the image's rounded up to that.
#pragma once

#include "ldsdk/types.h"
#include "sdk/frame/base/capability.h"
#include "sdk/frame/base/trace.h"
#include "sdk/record/param.h"

#include <cstdint>

// Where a value stands in an image. usByte and the bits as data sheets write them; the high bit may
// lie past bit 7, so that {4, 16, 14} is bits 16:14 of the word at byte 4.
struct NpAt {
    uint16_t usByte;
    uint8_t ucHigh;
    uint8_t ucLow;
};

// What a condition asks of its selector.
enum NpTest : uint8_t {
    NP_TEST_ONE_OF,   // it is v, and bit v of the mask is set
    NP_TEST_NONE_OF,  // it is not
    NP_TEST_BITS,     // it has one of the mask's bits
    NP_TEST_NO_BITS,  // it has none of them
    NP_TEST_IS,       // it is the mask
};

// A condition on another field of the record, the selector: whether a field is there, or a limit
// holds. Written with NP_WHEN and its sisters (sdk/record/describe.h).
struct NpWhen {
    uint16_t usOffset;  // of the selector in the record
    uint8_t ucSize;     // its bytes: 1, 2, 4
    NpTest enTest;
    uint32_t ulMask;
    const NpWhen *pstAnd;  // holds only if this does too, or null
    bool bWord;            // a word that is one of some values, and no more
};

// A field that stands in the image in another form than in the record, such as a port that is
// stored by its phy id. Both give 0 or a status code, which ends the build or the parse after the
// message (a format of that code) was traced.
struct NpCoding {
    uint32_t (*pfnEncode)(uint32_t ulChipID, const void *pvField, uint32_t *pulStored);
    uint32_t (*pfnDecode)(uint32_t ulChipID, uint32_t ulStored, void *pvField);
    const char *pszEncodeError;
    const char *pszDecodeError;
    bool bOneWay;  // decoding does not give back what was encoded
};

// NpPortID by phy id; and in a row that has eight bits for it: a greater one is NP_ERR_PARAM.
extern const NpCoding g_stNpPortCoding;
extern const NpCoding g_stNpBytePortCoding;

// What a bad value prints.
enum NpSay : uint8_t {
    NP_SAY_PARAM,   // "param error! (name)=0x%08x\r\n", or without brackets; see NpRow
    NP_SAY_ALONE,   // the same, without the record in front of the name
    NP_SAY_BARE,    // the same, and never in brackets
    NP_SAY_OWN,     // the check's text is the format of the whole message
    NP_SAY_ENABLE,  // "enable Para error: 0x%08x \r\n"
    NP_SAY_VALID,   // "valid Para error: 0x%08x \r\n"
    NP_SAY_BOOL,    // "true/false Para error: 0x%08x \r\n"
};

enum NpBoundKind : uint8_t {
    NP_BOUND_MOST,       // ulMin <= value <= ulMax, both signed if ulMin is not 0
    NP_BOUND_BELOW_CAP,  // below the capability word of slot ulMax
    NP_BOUND_MOST_CAP,   // at most that word
    NP_BOUND_FROM_CAP,   // from the word of slot ulMin to that of slot ulMax
    NP_BOUND_PORT,       // a port record that the chip has
    NP_BOUND_CUSTOM,     // NpCheck::pfnCustom
};

struct NpLimit {
    NpBoundKind enKind;
    NpSay enSay;
    uint32_t ulMin;
    uint32_t ulMax;
};

// How the engines move a field. All but the last are values stored as they are, all but the last
// and NP_MOVE_WIDE_WORD in one word of the image each, and go without a call.
enum NpMove : uint8_t {
    NP_MOVE_NONE,       // not stored
    NP_MOVE_WORD,       // a word on its own
    NP_MOVE_WIDE_WORD,  // a word that reaches into a second word of the image
    NP_MOVE_RUN,        // narrow words, one behind the other from the low bits of an image word up
    NP_MOVE_ARRAY,      // words or bytes in any even steps
    NP_MOVE_CONST,      // no field of the record: always the same bits
    NP_MOVE_ANY,
};

struct NpField {
    const char *pszName;          // the member, "astStatus.ulStatus" for one of an array's records
    const char *pszKey;           // keyword of the command line; an array's elements have their
                                  // number behind it
    const NpSmdKeyEnum *pstWord;  // value words, all of key number 0
    const NpCoding *pstCoding;    // null: stored as it is
    const NpWhen *pstWhen;        // null: always there
    uint16_t usOffset;            // in the record; the value of a constant
    uint16_t usCount;             // elements, 1 if it is no array
    uint16_t usStride;            // bytes from one element to the next
    uint16_t usBit;               // of element 0 in the image,
    uint16_t usWord;              // that is, byte of the word that it begins in
    uint8_t ucShift;              // and bit of that word
    uint32_t ulMask;              // of its width
    int16_t sStep;                // bits from one element to the next
    int16_t sRunStep;             // bits from one run of elements to the next
    uint8_t ucRun;                // elements of a run, inside which sStep holds; 0: no runs
    uint8_t ucSize;               // bytes of an element: 1, 2, 4; of a coded one up to 255
    uint8_t ucWidth;              // bits in the image; 0: not stored
    uint8_t ucFrom;               // lowest bit of the value that stands here
    uint8_t ucType;               // NpSmdType
    uint8_t ucWordNum;
    uint8_t ucMove;       // NpMove
    uint16_t usShownMax;  // highest value that prompts tell, if not the check's; 0: the check's
    bool bPlain : 1;      // a word on its own that is always there
    bool bWhole : 1;      // one parameter for the whole array, such as a MAC address
    bool bCut : 1;        // values may be wider than what is stored
    bool bLost : 1;       // has no place in the image
    bool bHanded : 1;     // lost, and a parse keeps what its caller put there: selectors kept
                          // elsewhere, such as in a shadow
    bool bHidden : 1;     // no parameter of the command line
    bool bFree : 1;       // a parameter of its own, whatever its condition says
    bool bSwitch : 1;     // stored as all ones if it is not 0
    bool bRead : 1;       // a parse reads it whatever its condition says
    bool bFar : 1;        // a pointer to bytes, as many of which as usCount a command reads
    bool bInverse : 1;    // stored with each of its bits inverted
};

struct NpRow;

struct NpCheck {
    const char *pszText;  // the field in the message, behind "pst..->"; see NpSay
    // Traces its own message. 0, or the code that the check ends with.
    uint32_t (*pfnCustom)(const NpRow *pstRow, uint32_t ulChipID, const void *pvRecord);
    NpLimit stLimit;
    const NpWhen *pstWhen;
    uint16_t usOffset;
    uint16_t usCount;
    uint16_t usStride;
    uint16_t usCode;  // of a bad value, behind 0x9a00
    uint8_t ucSize;
    bool bWithNext;  // arrays: each element is tested before the same one of the next line
    bool bSimple;    // an unsigned word on its own, always there
};

// Which fields are stored for each value of a row's one selector, worked out ahead of time: for
// rows of many fields of which few are there at a time. See Np_FieldsThere.
struct NpThere {
    const NpField *pstField;  // whose they are
    uint16_t usSelector;      // in the record, 32 bits wide
    uint32_t aulMask[33];     // bit f: field f is there, for this value; the last for 32 and above
};

// What straight.h makes from a row.
struct NpStraight {
    // Tells whether every check passes; null where a row has others than of numbers.
    bool (*pfnPasses)(const void *pvRecord);
    // Into an image, whose other bits stay. 0, or a coding's code.
    uint32_t (*pfnFill)(const NpRow *pstRow, uint32_t ulChipID, const void *pvRecord, void *pvImage,
                        NpWhere stWhere);
    // Null where a selector has to be looked up in the image first.
    uint32_t (*pfnParse)(const NpRow *pstRow, uint32_t ulChipID, const void *pvImage,
                         void *pvRecord, NpWhere stWhere);
    const NpField *pstField;  // made from these
    const NpCheck *pstCheck;
};

struct NpRow {
    const char *pszArg;  // the record in messages, "pstVlan"; null: fields stand alone
    const NpField *pstField;
    const NpCheck *pstCheck;
    const NpThere *pstThere;        // null: each field is asked
    const NpStraight *pstStraight;  // code of its own (straight.h), or null
    uint16_t usFieldNum;
    uint16_t usStoredNum;  // up to the last that has a place in the image
    uint16_t usCheckNum;
    uint16_t usRecordSize;  // bytes
    uint16_t usImageSize;   // bytes; 0: arguments, which have no image
    uint8_t ucModule;       // NpModule of the traces
    bool bBare;             // "param error! name=" without brackets
    bool bParseClears;      // fields that are not there read as 0; else they stay as they were
    bool bOrdered;          // each selector stands before what it selects
    bool bHanded;           // has fields that are handed in
};

// Bytes that the buffer of an image has.
constexpr uint32_t Np_ImageRoom(const NpRow &stRow)
{
    return (stRow.usImageSize + 3u) / 4u * 4u;
}

inline constexpr uint32_t NP_ROW_IMAGE_MAX = 128;   // bytes of the widest image
inline constexpr uint32_t NP_ROW_RECORD_MAX = 320;  // bytes of the widest record
inline constexpr uint32_t NP_ROW_HANDED_MAX = 4;    // words that are handed in
inline constexpr uint32_t NP_ROW_FIELD_MAX = 64;
inline constexpr uint32_t NP_ROW_GROUP_MAX = 4;  // checks that go together

// ---- engines ----------------------------------------------------------------------------------

// The fields of the record that are there, at trace level.
inline void Np_Row_Trace(const NpRow *pstRow, const void *pvRecord, NpWhere stWhere = Np_Here());
// 0, or the first failing check's code: NP_ERR_PARAM, a port's or a custom check's own.
inline uint32_t Np_Row_Check(const NpRow *pstRow, uint32_t ulChipID, const void *pvRecord,
                             NpWhere stWhere = Np_Here());
// Puts the fields into an image and leaves its other bits alone. 0, or a coding's code.
inline uint32_t Np_Row_Fill(const NpRow *pstRow, uint32_t ulChipID, const void *pvRecord,
                            void *pvImage, NpWhere stWhere = Np_Here());
// The same on a cleared image.
uint32_t Np_Row_Build(const NpRow *pstRow, uint32_t ulChipID, const void *pvRecord, void *pvImage,
                      NpWhere stWhere = Np_Here());
// Takes the fields out of an image. 0, or a coding's code.
inline uint32_t Np_Row_Parse(const NpRow *pstRow, uint32_t ulChipID, const void *pvImage,
                             void *pvRecord, NpWhere stWhere = Np_Here());

// Tells whether a value fulfils a condition, apart from those that it adds.
constexpr bool Np_WhenTakes(const NpWhen &stWhen, uint32_t ulValue)
{
    switch (stWhen.enTest) {
        case NP_TEST_ONE_OF:
            return ulValue < 32 && (stWhen.ulMask >> ulValue & 1) != 0;
        case NP_TEST_NONE_OF:
            return ulValue >= 32 || (stWhen.ulMask >> ulValue & 1) == 0;
        case NP_TEST_BITS:
            return (ulValue & stWhen.ulMask) != 0;
        case NP_TEST_NO_BITS:
            return (ulValue & stWhen.ulMask) == 0;
        default:
            return ulValue == stWhen.ulMask;
    }
}
// Tells whether a field or check with this condition is there.
bool Np_Row_Holds(const NpWhen *pstWhen, const void *pvRecord);
inline bool Np_Row_IsThere(const NpWhen *pstWhen, const void *pvRecord)
{
    if (pstWhen == nullptr) {
        return true;
    }
    if (!pstWhen->bWord) {
        return Np_Row_Holds(pstWhen, pvRecord);
    }
    uint32_t ulValue;
    __builtin_memcpy(&ulValue, static_cast<const uint8_t *>(pvRecord) + pstWhen->usOffset, 4);
    return ulValue < 32 && (pstWhen->ulMask >> ulValue & 1) != 0;
}
// Tells whether no record fulfils both conditions.
bool Np_Row_Excludes(const NpWhen *pstA, const NpWhen *pstB);
// An element of 1, 2 or 4 bytes.
uint32_t Np_Row_Load(const NpField *pstField, uint32_t ulElement, const void *pvRecord);
void Np_Row_Store(const NpField *pstField, uint32_t ulElement, uint32_t ulValue, void *pvRecord);
// The highest legal value of a limit, with the capability words of the current chip, or of the
// family while none is registered.
uint32_t Np_Row_LimitMax(const NpLimit *pstLimit);
// The same for the lowest, as a signed number where it is one.
uint32_t Np_Row_LimitMin(const NpLimit *pstLimit);
// Check ulIndex, counted from 0, of those that bound a field's number, or null.
const NpCheck *Np_Row_FieldChecks(const NpRow *pstRow, const NpField *pstField, uint32_t ulIndex);
// The one that holds for a record; without a record, or if none holds, the widest. Or null.
const NpCheck *Np_Row_FieldCheck(const NpRow *pstRow, const NpField *pstField,
                                 const void *pvRecord = nullptr);

// What Np_Row_Trace does when the level is on.
void Np_Row_TraceFields(const NpRow *pstRow, const void *pvRecord, NpWhere stWhere);

inline void Np_Row_Trace(const NpRow *pstRow, const void *pvRecord, NpWhere stWhere)
{
    if (g_stNpSdkModuleSwitch[pstRow->ucModule][NP_PRINT_TRACE] != 0) [[unlikely]] {
        Np_Row_TraceFields(pstRow, pvRecord, stWhere);
    }
}

// What the three do field by field, for rows without code of their own.
uint32_t Np_Row_CheckEach(const NpRow *pstRow, uint32_t ulChipID, const void *pvRecord,
                          NpWhere stWhere);
uint32_t Np_Row_FillEach(const NpRow *pstRow, uint32_t ulChipID, const void *pvRecord,
                         void *pvImage, NpWhere stWhere);
uint32_t Np_Row_ParseEach(const NpRow *pstRow, uint32_t ulChipID, const void *pvImage,
                          void *pvRecord, NpWhere stWhere);
// Clears a record but for what is handed in.
void Np_Row_Clear(const NpRow *pstRow, uint8_t *pucRecord);

inline uint32_t Np_Row_Check(const NpRow *pstRow, uint32_t ulChipID, const void *pvRecord,
                             NpWhere stWhere)
{
    // Code of its own knows the limits but no message: what it refuses is looked at once more.
    const NpStraight *pstStraight = pstRow->pstStraight;
    if (pstStraight != nullptr && pstStraight->pfnPasses != nullptr &&
        pstStraight->pfnPasses(pvRecord)) {
        return NP_OK;
    }
    return Np_Row_CheckEach(pstRow, ulChipID, pvRecord, stWhere);
}

inline uint32_t Np_Row_Fill(const NpRow *pstRow, uint32_t ulChipID, const void *pvRecord,
                            void *pvImage, NpWhere stWhere)
{
    return pstRow->pstStraight != nullptr
               ? pstRow->pstStraight->pfnFill(pstRow, ulChipID, pvRecord, pvImage, stWhere)
               : Np_Row_FillEach(pstRow, ulChipID, pvRecord, pvImage, stWhere);
}

inline uint32_t Np_Row_Parse(const NpRow *pstRow, uint32_t ulChipID, const void *pvImage,
                             void *pvRecord, NpWhere stWhere)
{
    return pstRow->pstStraight != nullptr && pstRow->pstStraight->pfnParse != nullptr
               ? pstRow->pstStraight->pfnParse(pstRow, ulChipID, pvImage, pvRecord, stWhere)
               : Np_Row_ParseEach(pstRow, ulChipID, pvImage, pvRecord, stWhere);
}

/* Status codes. Every fallible function returns 0 or one of these. */
#ifndef LDSDK_STATUS_H
#define LDSDK_STATUS_H

/* clang-format off */

#define NP_OK 0u
#define NP_ERR_FAIL               0x9a000001u /* failure */
#define NP_ERR_INIT               0x9a000002u /* initialisation failed */
#define NP_ERR_UNREGISTERED       0x9a000003u /* function not registered */
#define NP_ERR_NULL_PTR           0x9a000004u /* null pointer */
#define NP_ERR_PARAM              0x9a000005u /* parameter error */
#define NP_ERR_CHIP_ID            0x9a000006u /* chip number does not exist */
#define NP_ERR_NO_MEMORY          0x9a000007u /* memory allocation failed */
#define NP_ERR_ADDRESS            0x9a000008u /* invalid address */
#define NP_ERR_STACK_FULL         0x9a000009u /* stack full */
#define NP_ERR_STACK_EMPTY        0x9a00000au /* stack empty */
#define NP_ERR_STACK_OP           0x9a00000bu /* stack operation error */
#define NP_ERR_STACK_NO_INIT      0x9a00000cu /* stack not initialised */
#define NP_ERR_HASH_CONFLICT      0x9a00000du /* hash conflict */
#define NP_ERR_REG_WRITE          0x9a00000eu /* register write failed */
#define NP_ERR_REG_READ           0x9a00000fu /* register read failed */
#define NP_ERR_TABLE_FULL         0x9a000010u /* table full */
#define NP_ERR_ADD                0x9a000011u /* add failed */
#define NP_ERR_DELETE             0x9a000012u /* delete failed */
#define NP_ERR_GET                0x9a000013u /* get failed */
#define NP_ERR_SET                0x9a000014u /* set failed */
#define NP_ERR_NOT_EXIST          0x9a000015u /* does not exist */
#define NP_ERR_EXIST              0x9a000016u /* already exists */
#define NP_ERR_CHIP_VERSION       0x9a000017u /* chip version error */
#define NP_ERR_MAP_NP             0x9a000018u /* NP parameter mapping error */
#define NP_ERR_MAP_EXTERNAL       0x9a000019u /* external parameter mapping error */
#define NP_ERR_IMEM_LOAD          0x9a00001au /* IMEM instruction load failed */
#define NP_ERR_MAX_PC             0x9a00001bu /* MAX PC set failed */
#define NP_ERR_EXCP_PC            0x9a00001cu /* exception PC set failed */
#define NP_ERR_NEXT_PC            0x9a00001du /* thread NEXT PC set failed */
#define NP_ERR_HA_ADD             0x9a00001eu /* HA rule add failed */
#define NP_ERR_HA_GET             0x9a00001fu /* HA rule get failed */
#define NP_ERR_HA_DELETE          0x9a000020u /* HA rule delete failed */
#define NP_ERR_LCAM_PROTECT       0x9a000021u /* LCAM protect depth set failed */
#define NP_ERR_RCAM_WRITE         0x9a000022u /* RCAM write failed */
#define NP_ERR_CAM_ID_MODE        0x9a000023u /* CAM ID mode set failed */
#define NP_ERR_LCAM_AD_READ       0x9a000024u /* LCAM AD read failed */
#define NP_ERR_LCAM_AD_WRITE      0x9a000025u /* LCAM AD write failed */
#define NP_ERR_TCAM_READ          0x9a000026u /* TCAM read failed */
#define NP_ERR_TCAM_WRITE         0x9a000027u /* TCAM write failed */
#define NP_ERR_TCAM_CLEAR         0x9a000028u /* TCAM clear (delete) failed */
#define NP_ERR_TCAM_ENABLE_SET    0x9a000029u /* TCAM enable set failed */
#define NP_ERR_TCAM_ENABLE_GET    0x9a00002au /* TCAM enable get failed */
#define NP_ERR_TCAM_MOVE          0x9a00002bu /* TCAM entry move failed */
#define NP_ERR_PORT_TO_INGRESS    0x9a00002cu /* port parameter to ingress logical port failed */
#define NP_ERR_INGRESS_TO_PORT    0x9a00002du /* ingress logical port to port parameter failed */
#define NP_ERR_EGRESS_TO_PORT     0x9a00002eu /* egress logical port to port parameter failed */
#define NP_ERR_PORT_PARAM         0x9a00002fu /* port parameter check failed */
#define NP_ERR_AUTO_SEND_SET      0x9a000030u /* CPU auto-send info set error */
#define NP_ERR_AUTO_SEND_ENABLE   0x9a000031u /* CPU auto-send channel enable error */
#define NP_ERR_AUTO_SEND_DELETE   0x9a000032u /* CPU auto-send info delete error */
#define NP_ERR_AUTO_SEND_CLEAR    0x9a000033u /* CPU auto-send statistics clear error */
#define NP_ERR_RBA_SEND           0x9a000034u /* RBA command send failed */
#define NP_ERR_PRIORITY           0x9a000035u /* priority conflict */
#define NP_ERR_SEMAPHORE          0x9a000036u /* semaphore set failed */
#define NP_ERR_EML_CONFIG         0x9a000037u /* EML table configuration failed */
#define NP_ERR_SMEM_INIT          0x9a000038u /* SMEM initialisation failed */
#define NP_ERR_SMEM_QUEUE         0x9a000039u /* SMEM queue set failed */
#define NP_ERR_SMEM_OP            0x9a00003au /* SMEM operation error */
#define NP_ERR_SMEM_READ          0x9a00003bu /* SMEM read failed */
#define NP_ERR_SMEM_WRITE         0x9a00003cu /* SMEM write failed */
#define NP_ERR_SMEM_CLEAR         0x9a00003du /* SMEM clear failed */
#define NP_ERR_EML_SEMAPHORE      0x9a00003eu /* EML item learning failed for lack of the semaphore */
#define NP_ERR_NO_FREE            0x9a00003fu /* free entries exhausted */
#define NP_ERR_ACL_MODE           0x9a000040u /* ACL mode conflict */
#define NP_ERR_FLASH_READ         0x9a000041u /* flash read failed */
#define NP_ERR_THREAD_STATE       0x9a000042u /* thread state query error */
#define NP_ERR_PBA_MODE           0x9a000043u /* PBA ATOM mode set error */
#define NP_ERR_THREAD_ACTIVATE    0x9a000044u /* thread activation error */
#define NP_ERR_CPU_SEND           0x9a000045u /* CPU packet send error */
#define NP_ERR_CPU_RECEIVE        0x9a000046u /* CPU packet receive error */
#define NP_ERR_CPU_LENGTH         0x9a000047u /* CPU packet receive length error */

/* Results that stay inside the SDK; the exported functions map them to the codes above. */
#define NP_ERR_CAM_MODE_READ      0x9a001801u /* CAM identifier mode unreadable */
#define NP_ERR_EML_MISS           0x9a001601u /* hash table holds no such key */
#define NP_ERR_FLEE_MISS          0x9a001602u /* flee store holds no such key */
#define NP_ERR_ACL_BLOCK_FULL     0x9a000201u /* priority block of an ACL table is full */

/* clang-format on */

#endif

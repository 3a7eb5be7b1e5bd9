/* What the command device and the chip's debug door answer to what no tool would send. Run inside
   the emulated machine, with the modules loaded; exits 0 when every answer is right. */
#include "chipmodel/debug.h"

#include <errno.h>
#include <fcntl.h>
#include <stdio.h>
#include <string.h>
#include <sys/ioctl.h>
#include <sys/mman.h>
#include <sys/wait.h>
#include <unistd.h>

#define BUFFER 512
#define PAGE 4096

static int faults;
static int device;

/* expected: 0, or the errno of a refusal. */
static void expect(const char *what, unsigned long request, void *argument, int expected)
{
    int answer = ioctl(device, request, argument) < 0 ? errno : 0;

    if (answer != expected) {
        printf("%s: %s, expected %s\n", what, strerror(answer), strerror(expected));
        faults++;
    }
}

static struct LdDebugCall call;
static struct LdDebugImage image;

static void expect_result(const char *what, uint32_t result)
{
    if (call.result != result) {
        printf("%s: 0x%08x, expected 0x%08x\n", what, call.result, result);
        faults++;
    }
}

static void fill(char *buffer, int count, const char *words, size_t size)
{
    memset(buffer, 0, BUFFER);
    memcpy(buffer, &count, sizeof(count));
    memcpy(buffer + sizeof(count), words, size);
}

/* ---- commands from several processes at a time ---- */

#define CALLERS 4
#define FIELDS 64

/* The words of a line, one blank between them, the tool's name in front. */
static int send_line(const char *line)
{
    char buffer[BUFFER] = {0};
    int words = 2;
    char *at = buffer + sizeof(words) + 2;

    memcpy(buffer + sizeof(words), "t", 2);
    for (; *line != 0; line++, at++) {
        *at = *line == ' ' ? 0 : *line;
        words += *line == ' ' ? 1 : 0;
    }
    memcpy(buffer, &words, sizeof(words));
    return ioctl(device, _IO('L', 1), buffer);
}

/* Fills a row field by field: each command reads the row, changes one field and writes it back. */
static int fill_row(int row)
{
    char line[128];
    int field;

    for (field = 0; field < FIELDS; field++) {
        snprintf(line, sizeof(line), "micro qos dscp_map set index %d auc1P%d %d end", row, field,
                 (row + field) % 8);
        if (send_line(line) != 0) {
            return 1;
        }
    }
    return 0;
}

static int fill_rows(int together)
{
    int row, status, failed = 0;

    for (row = 0; row < CALLERS; row++) {
        if (!together) {
            failed |= fill_row(row);
        }
        else if (fork() == 0) {
            _exit(fill_row(row));
        }
    }
    while (together && wait(&status) > 0) {
        failed |= status;
    }
    return failed != 0;
}

int main(int argc, char **argv)
{
    static char buffer[BUFFER];
    char *pages = mmap(NULL, 2 * PAGE, PROT_READ | PROT_WRITE, MAP_PRIVATE | MAP_ANONYMOUS, -1, 0);

    device = open("/dev/ldsdk", O_RDWR);
    if (device < 0 || pages == MAP_FAILED || munmap(pages + PAGE, PAGE) != 0) {
        perror("setting up");
        return 1;
    }
    if (argc > 1) {
        return fill_rows(strcmp(argv[1], "together") == 0);
    }

    expect("no buffer", _IO('L', 1), NULL, EFAULT);
    expect("a buffer of the kernel's", _IO('L', 1), (void *)0xc0008000, EFAULT);
    expect("a buffer that wraps", _IO('L', 1), (void *)0xffffff00, EFAULT);
    expect("a buffer that nothing is mapped at", _IO('L', 1), pages + PAGE, EFAULT);

    fill(pages + PAGE - BUFFER, 2, "t\0micro", 8);
    expect("a buffer up to the end of a page", _IO('L', 1), pages + PAGE - BUFFER, 0);
    expect("a buffer that runs out of its page", _IO('L', 1), pages + PAGE - BUFFER + 1, EFAULT);

    fill(buffer, 2, "t\0micro", 8);
    expect("any request", _IOW('Z', 77, int), buffer, 0);
    fill(buffer, 0, "t\0micro", 8);
    expect("a count of 0", _IO('L', 1), buffer, EFAULT);
    fill(buffer, -1, "t\0micro", 8);
    expect("a negative count", _IO('L', 1), buffer, EFAULT);
    fill(buffer, 0x7fffffff, "t\0micro", 8);
    expect("a count past the buffer", _IO('L', 1), buffer, EFAULT);
    memset(buffer + 4, 'x', BUFFER - 4);
    buffer[0] = 1;
    memset(buffer + 1, 0, 3);
    expect("a word without an end", _IO('L', 1), buffer, EFAULT);

    close(device);
    device = open("/dev/ldsdk_chip", O_RDWR);
    if (device < 0) {
        perror("the chip's debug door");
        return 1;
    }
    memset(&call, 0, sizeof(call));
    call.op = LD_DEBUG_OP_NUM;
    expect("no call", LD_DEBUG_REQUEST, NULL, EFAULT);
    expect("a call that runs out of its page", LD_DEBUG_REQUEST, pages + PAGE - sizeof(call) + 8,
           EFAULT);
    expect("another request", _IO('L', 2), &call, ENOTTY);
    expect("an unknown call", LD_DEBUG_REQUEST, &call, 0);
    expect_result("an unknown call", 0xe0000001);
    memset(call.text, 'x', sizeof(call.text));
    call.op = LD_DEBUG_FAULT_SET;
    expect("a text without an end", LD_DEBUG_REQUEST, &call, 0);
    expect_result("a text without an end", 0xe0000004);
    call.op = LD_DEBUG_PEEK;
    call.number = 0xfffffffc;
    expect("a wild address", LD_DEBUG_REQUEST, &call, 0);
    expect_result("a wild address", 0xe0000003);

    image.bytes = (uintptr_t)pages;
    expect("an image of no bytes", LD_DEBUG_IMAGE_REQUEST, &image, EINVAL);
    image.size = PAGE + 1;
    expect("an image that runs out of its page", LD_DEBUG_IMAGE_REQUEST, &image, EFAULT);
    image.size = LD_IMAGE_LARGEST + 1;
    expect("an image that is too large", LD_DEBUG_IMAGE_REQUEST, &image, EFBIG);

    return faults == 0 ? 0 : 1;
}

/* Loaded in front of the C library of a program under Wine, it makes every large reading of the
 * file that TOLLVANE_SLOW_FILE names take 30 ms longer. */
#define _GNU_SOURCE
#include <dlfcn.h>
#include <limits.h>
#include <stdio.h>
#include <stdlib.h>
#include <string.h>
#include <time.h>
#include <unistd.h>

static void pauseFor(int file, size_t count) {
    const char* slow = getenv("TOLLVANE_SLOW_FILE");
    const struct timespec pause = {.tv_nsec = 30 * 1000 * 1000};
    const size_t large = 1 << 16;
    char link[64];
    char path[PATH_MAX];
    snprintf(link, sizeof link, "/proc/self/fd/%d", file);
    const ssize_t length = readlink(link, path, sizeof path - 1);
    path[length > 0 ? length : 0] = 0;
    if (slow && count >= large && strcmp(slow, path) == 0)
        nanosleep(&pause, NULL);
}

#define REAL(name) ((__typeof__(&name))dlsym(RTLD_NEXT, #name))

ssize_t read(int file, void* bytes, size_t count) {
    pauseFor(file, count);
    return REAL(read)(file, bytes, count);
}
ssize_t pread(int file, void* bytes, size_t count, off_t at) {
    pauseFor(file, count);
    return REAL(pread)(file, bytes, count, at);
}
ssize_t pread64(int file, void* bytes, size_t count, off_t at) {
    pauseFor(file, count);
    return REAL(pread64)(file, bytes, count, at);
}

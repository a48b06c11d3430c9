/* Loaded in front of the C library of a program under Wine, it makes the n-th change of certain
 * files go wrong, or ends the process there, and notes the changes that there were.
 *
 * TOLLVANE_DISK_FILES  parts of paths, separated by ":"; changes of other files are not counted
 * TOLLVANE_DISK_TRACE  a file that gets one line for each counted change, of every process
 * TOLLVANE_DISK_FAULT  fault, blank, first change, blank, last change (counted from 1)
 *     before, midway, after    the process is killed; midway, half of the bytes are written
 *     ENOSPC, EIO, EROFS       the change fails
 *     short                    half of the bytes are written, which is called a success
 */
#define _GNU_SOURCE
#include <dlfcn.h>
#include <errno.h>
#include <fcntl.h>
#include <limits.h>
#include <signal.h>
#include <stdatomic.h>
#include <stdio.h>
#include <stdlib.h>
#include <string.h>
#include <sys/types.h>
#include <unistd.h>

static atomic_int changes;

static int isWatched(const char* path) {
    const char* files = getenv("TOLLVANE_DISK_FILES");
    while (files && *files) {
        char part[PATH_MAX];
        const size_t length = strcspn(files, ":");
        snprintf(part, sizeof part, "%.*s", (int)length, files);
        if (length > 0 && strstr(path, part))
            return 1;
        files += length + (files[length] == ':');
    }
    return 0;
}

static int pathOf(int file, char* path) {
    char link[64];
    snprintf(link, sizeof link, "/proc/self/fd/%d", file);
    const ssize_t length = readlink(link, path, PATH_MAX - 1);
    path[length > 0 ? length : 0] = 0;
    return length > 0;
}

static void note(const char* what, const char* path, size_t bytes) {
    const char* trace = getenv("TOLLVANE_DISK_TRACE");
    const char* name = strrchr(path, '/');
    if (!trace)
        return;
    const int out = open(trace, O_WRONLY | O_CREAT | O_APPEND | O_CLOEXEC, 0644);
    if (out < 0)
        return;
    dprintf(out, "%s %s %zu\n", what, name ? name + 1 : path, bytes);
    close(out);
}

/* The fault that this change meets; an empty text for none. */
static void faultOf(const char* what, const char* path, size_t bytes, char* fault) {
    int first = 0;
    int last = 0;
    *fault = 0;
    if (!isWatched(path))
        return;
    note(what, path, bytes);
    const int now = ++changes;
    const char* plan = getenv("TOLLVANE_DISK_FAULT");
    if (!plan || sscanf(plan, "%15s %d %d", fault, &first, &last) != 3 || now < first || now > last)
        *fault = 0;
}

static int is(const char* fault, const char* name) {
    return strcmp(fault, name) == 0;
}

/* The error of a change that fails; 0 for one that does not. */
static int errorOf(const char* fault) {
    return is(fault, "ENOSPC") ? ENOSPC : is(fault, "EIO") ? EIO : is(fault, "EROFS") ? EROFS : 0;
}

static void end(void) {
    kill(getpid(), SIGKILL);
    for (;;)
        pause();
}

#define REAL(name) ((__typeof__(&name))dlsym(RTLD_NEXT, #name))

/* A change as a whole: it fails, the process ends around it, or it is made. */
#define CHANGE(what, path, call)                                                                   \
    do {                                                                                           \
        char fault[16];                                                                            \
        faultOf(what, path, 0, fault);                                                             \
        if (errorOf(fault)) {                                                                      \
            errno = errorOf(fault);                                                                \
            return -1;                                                                             \
        }                                                                                          \
        if (is(fault, "before") || is(fault, "midway"))                                            \
            end();                                                                                 \
        const int result = call;                                                                   \
        if (is(fault, "after"))                                                                    \
            end();                                                                                 \
        return result;                                                                             \
    } while (0)

static ssize_t changedWrite(int file, const void* bytes, size_t count, off_t at, int placed) {
    char path[PATH_MAX];
    char fault[16] = "";
    if (pathOf(file, path))
        faultOf("write", path, count, fault);
    if (errorOf(fault)) {
        errno = errorOf(fault);
        return -1;
    }
    if (is(fault, "before"))
        end();
    const size_t some = is(fault, "midway") || is(fault, "short") ? count / 2 : count;
    const ssize_t result =
        placed ? REAL(pwrite)(file, bytes, some, at) : REAL(write)(file, bytes, some);
    if (is(fault, "midway") || is(fault, "after"))
        end();
    return result;
}

ssize_t write(int file, const void* bytes, size_t count) {
    return changedWrite(file, bytes, count, 0, 0);
}
ssize_t pwrite(int file, const void* bytes, size_t count, off_t at) {
    return changedWrite(file, bytes, count, at, 1);
}
ssize_t pwrite64(int file, const void* bytes, size_t count, off_t at) {
    return changedWrite(file, bytes, count, at, 1);
}

static int changedFsync(int file, int (*real)(int)) {
    char path[PATH_MAX];
    pathOf(file, path);
    CHANGE("fsync", path, real(file));
}
int fsync(int file) {
    return changedFsync(file, REAL(fsync));
}
int fdatasync(int file) {
    return changedFsync(file, REAL(fdatasync));
}

int ftruncate(int file, off_t size) {
    char path[PATH_MAX];
    pathOf(file, path);
    CHANGE("ftruncate", path, REAL(ftruncate)(file, size));
}
int ftruncate64(int file, off_t size) {
    return ftruncate(file, size);
}

int rename(const char* from, const char* to) {
    CHANGE("rename", from, REAL(rename)(from, to));
}
int unlink(const char* path) {
    CHANGE("unlink", path, REAL(unlink)(path));
}

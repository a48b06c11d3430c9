/* Loaded in front of the C library of a program under Wine and of Wine's own server, it makes the
 * n-th change of certain files go wrong, or ends the process there, and notes the changes that
 * there were.
 *
 * TOLLVANE_DISK_FILES  parts of paths, separated by ":"; changes of other files are not looked at
 * TOLLVANE_DISK_TRACE  a file that gets a line for each change, of every process: "program" or
 * "wine" (Wine's server, which opens, makes, renames and deletes files for the programs), what was
 * done, the file's name, and the fault that it met ("-") TOLLVANE_DISK_PLAN   a file with the plan,
 * looked at again at every change: fault, first change, last change (counted from 1 in each
 * process, since the plan was written), "program", "wine" or "any", and the parts of the paths that
 * are counted before, midway, after    the process is killed; midway, half of the bytes are written
 *     ENOSPC, EIO, EROFS       the change fails
 *     short                    half of the bytes are written, which is called a success
 */
#define _GNU_SOURCE
#include <dlfcn.h>
#include <errno.h>
#include <fcntl.h>
#include <limits.h>
#include <pthread.h>
#include <signal.h>
#include <stdarg.h>
#include <stdio.h>
#include <stdlib.h>
#include <string.h>
#include <sys/types.h>
#include <unistd.h>

#define REAL(name) ((__typeof__(&name))dlsym(RTLD_NEXT, #name))

typedef struct {
    char fault[16];
    int first;
    int last;
    char who[16];
    char files[256];
} Plan;

static pthread_mutex_t oneAtATime = PTHREAD_MUTEX_INITIALIZER;

static int hasPart(const char* path, const char* parts) {
    while (parts && *parts) {
        char part[PATH_MAX];
        const size_t length = strcspn(parts, ":");
        snprintf(part, sizeof part, "%.*s", (int)length, parts);
        if (length > 0 && strstr(path, part))
            return 1;
        parts += length + (parts[length] == ':');
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

static const char* process(void) {
    return strncmp(program_invocation_short_name, "wineserver", 10) == 0 ? "wine" : "program";
}

static void note(const char* what, const char* path, const char* fault) {
    const char* trace = getenv("TOLLVANE_DISK_TRACE");
    const char* name = strrchr(path, '/');
    if (!trace)
        return;
    const int out = REAL(open)(trace, O_WRONLY | O_CREAT | O_APPEND | O_CLOEXEC, 0644);
    if (out < 0)
        return;
    dprintf(out, "%s %s %s %s %d\n", process(), what, name ? name + 1 : path, *fault ? fault : "-",
            getpid());
    close(out);
}

/* The text of the plan as it stands now; an empty one for none. */
static void planned(char* text, size_t size) {
    const char* name = getenv("TOLLVANE_DISK_PLAN");
    const int in = name ? REAL(open)(name, O_RDONLY | O_CLOEXEC) : -1;
    const ssize_t length = in < 0 ? 0 : read(in, text, size - 1);
    text[length > 0 ? length : 0] = 0;
    if (in >= 0)
        close(in);
}

/* Whether the plan is for this change, which counts when it is of the right files and process. */
static int isPlanned(Plan* plan, const char* path) {
    static char before[512];
    static int changes = 0;
    char text[sizeof before];
    planned(text, sizeof text);
    if (strcmp(text, before) != 0)
        changes = 0;
    strcpy(before, text);
    if (sscanf(text, "%15s %d %d %15s %255s", plan->fault, &plan->first, &plan->last, plan->who,
               plan->files) != 5)
        return 0;
    if (!hasPart(path, plan->files) ||
        (strcmp(plan->who, "any") != 0 && strcmp(plan->who, process()) != 0))
        return 0;
    ++changes;
    return changes >= plan->first && changes <= plan->last;
}

/* The fault that this change meets; an empty text for none. */
static void faultOf(const char* what, const char* path, char* fault) {
    Plan plan;
    *fault = 0;
    if (!hasPart(path, getenv("TOLLVANE_DISK_FILES")))
        return;
    pthread_mutex_lock(&oneAtATime);
    if (isPlanned(&plan, path))
        strcpy(fault, plan.fault);
    note(what, path, fault);
    pthread_mutex_unlock(&oneAtATime);
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

/* A change as a whole: it fails, the process ends around it, or it is made. */
#define CHANGE(what, path, call)                                                                   \
    do {                                                                                           \
        char fault[16];                                                                            \
        faultOf(what, path, fault);                                                                \
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
        faultOf("write", path, fault);
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

/* An open that may change the file or its folder. One that makes a file is told apart. */
static int changedOpen(int folder, const char* path, int flags, mode_t mode) {
    if ((flags & O_ACCMODE) == O_RDONLY && !(flags & (O_CREAT | O_TRUNC)))
        return REAL(openat)(folder, path, flags, mode);
    const int makes = (flags & O_CREAT) && faccessat(folder, path, F_OK, 0) != 0;
    CHANGE(makes ? "create" : "open", path, REAL(openat)(folder, path, flags, mode));
}

static mode_t modeOf(int flags, va_list more) {
    const int makes = (flags & O_CREAT) || (flags & O_TMPFILE) == O_TMPFILE;
    return makes ? va_arg(more, mode_t) : 0;
}

#define CHANGED_OPEN(folder)                                                                       \
    do {                                                                                           \
        va_list more;                                                                              \
        va_start(more, flags);                                                                     \
        const mode_t mode = modeOf(flags, more);                                                   \
        va_end(more);                                                                              \
        return changedOpen(folder, path, flags, mode);                                             \
    } while (0)

int open(const char* path, int flags, ...) {
    CHANGED_OPEN(AT_FDCWD);
}
int open64(const char* path, int flags, ...) {
    CHANGED_OPEN(AT_FDCWD);
}
int openat(int folder, const char* path, int flags, ...) {
    CHANGED_OPEN(folder);
}
int openat64(int folder, const char* path, int flags, ...) {
    CHANGED_OPEN(folder);
}

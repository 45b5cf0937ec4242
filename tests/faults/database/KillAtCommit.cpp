// Preloaded into a program to kill it, as `kill -9` would, at the Nth COMMIT the program
// hands to the embedded engine: just before it (the transaction in flight is lost) or just
// after it (the transaction is on disk, nothing after it happened).
//   KILL_AT_COMMIT=N   which COMMIT, counted from 1
//   KILL_AFTER_COMMIT=1   after it rather than before

#include <cstdlib>
#include <cstring>
#include <dlfcn.h>
#include <signal.h>
#include <unistd.h>

extern "C" {

typedef int (*Callback)(void *, int, char **, char **);
typedef int (*Exec)(void *, const char *, Callback, void *, char **);

int sqlite3_exec(void *db, const char *sql, Callback callback, void *argument, char **error)
{
    static const Exec real = reinterpret_cast<Exec>(dlsym(RTLD_NEXT, "sqlite3_exec"));
    static int commits = 0;
    const char *at = std::getenv("KILL_AT_COMMIT");
    const bool isCommit = sql && std::strcmp(sql, "COMMIT") == 0;
    const bool chosen = isCommit && at && ++commits == std::atoi(at);
    const bool after = std::getenv("KILL_AFTER_COMMIT") != nullptr;
    if (chosen && !after)
        kill(getpid(), SIGKILL);
    const int result = real(db, sql, callback, argument, error);
    if (chosen && after)
        kill(getpid(), SIGKILL);
    return result;
}
}

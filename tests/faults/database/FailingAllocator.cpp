#include "FailingAllocator.h"

#include <atomic>
#include <sqlite3.h>

namespace {

sqlite3_mem_methods g_real{};
std::atomic<bool> g_armed{false};
std::atomic<long> g_counted{0};
std::atomic<long> g_failAt{0};

// True when this allocation is the one to refuse. Only one is refused: the engine must cope
// with a single failure and go on working afterwards.
bool refuse()
{
    if (!g_armed.load())
        return false;
    return ++g_counted == g_failAt.load();
}

void *allocate(int size)
{
    return refuse() ? nullptr : g_real.xMalloc(size);
}

void *reallocate(void *block, int size)
{
    return refuse() ? nullptr : g_real.xRealloc(block, size);
}

} // namespace

bool FailingAllocator::install()
{
    if (sqlite3_config(SQLITE_CONFIG_GETMALLOC, &g_real) != SQLITE_OK)
        return false;
    sqlite3_mem_methods wrapped = g_real;
    wrapped.xMalloc = allocate;
    wrapped.xRealloc = reallocate;
    return sqlite3_config(SQLITE_CONFIG_MALLOC, &wrapped) == SQLITE_OK;
}

void FailingAllocator::failAt(long nth)
{
    g_counted = 0;
    g_failAt = nth;
    g_armed = true;
}

void FailingAllocator::disarm()
{
    g_armed = false;
}

long FailingAllocator::counted()
{
    return g_counted.load();
}

long FailingAllocator::armedAt()
{
    return g_failAt.load();
}

// A program of ours that loses memory on purpose: the leak suppressions of the tests must hide
// only the system's libraries, never this.
#include <cstring>

namespace {
char *volatile kept = nullptr;
}

int main()
{
    kept = new char[64];
    std::memset(kept, 1, 64);
    kept = nullptr;
    return 0;
}

// The database fault tests' main: the engine's allocator and file system are wrapped before
// anything in the process can initialise the engine, then the tests run as every Qt test does.

#include "FailingAllocator.h"
#include "FaultyVfs.h"

#include <QApplication>
#include <cstdio>
#include <gtest/gtest.h>

int main(int argc, char **argv)
{
    if (!FailingAllocator::install() || !FaultyVfs::install()) {
        std::fprintf(stderr, "the embedded engine refused the test's allocator or file system\n");
        return 1;
    }
    qputenv("QT_QPA_PLATFORM", "offscreen");
    QApplication application(argc, argv);
    ::testing::InitGoogleTest(&argc, argv);
    return RUN_ALL_TESTS();
}

#pragma once

/// The embedded engine's allocator, wrapped so that a test can make exactly one of its
/// allocations fail: the Nth counted from the moment the test arms it. Everything in the
/// process that uses the engine (the program's connections and the ERP library's) goes through
/// it. Install before the engine's first use.
class FailingAllocator
{
public:
    /// Puts the wrapper in place of the engine's own allocator. False when the engine was
    /// already initialised.
    static bool install();
    /// Counts allocations from now on and fails the `nth` (1 is the next one).
    static void failAt(long nth);
    /// Stops counting and failing.
    static void disarm();
    /// Allocations counted since the last failAt.
    static long counted();
    /// Whether the armed failure happened.
    static bool failed() { return counted() >= armedAt(); }

private:
    static long armedAt();
};

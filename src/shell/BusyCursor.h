#pragma once

#include <cstdint>

/// How many busy sections are open, and whether a modal dialog has asked for the normal pointer.
extern std::int32_t gWaitCount;
extern bool gWaitSuspended;

/// Opens a busy section: the hourglass, unless a dialog suspended it. Sections nest.
void BeginWait();
/// Closes one section; the last one brings back the normal pointer. A surplus call is harmless.
void EndWait();
/// The normal pointer for a modal dialog inside a busy section; the count stays.
void SuspendWait();
/// Back to the hourglass after the dialog, if a section is still open.
void ResumeWait();

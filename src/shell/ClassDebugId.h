#pragma once

#include <cstdint>

/// The last serial given to an object.
extern std::int32_t gNextClassDebugID;

/// The next serial, from 1; runtime overflow at the upper limit.
std::int32_t GetNextClassDebugID();

#pragma once

#include <string>

/// What PRAGMA integrity_check answers for the seller's embedded database `database`, read
/// through a connection of its own: "ok" for a sound file, else the engine's findings or the
/// reason it could not look.
std::string engineIntegrity(const std::string &database);

#pragma once

#include <string>

/// The marketplace's base address, with no trailing slash: ASISTENTE_MARKETPLACE_URL when set
/// and not empty, else http://127.0.0.1:8642. Callers append the paths they need.
std::string marketplaceUrl();

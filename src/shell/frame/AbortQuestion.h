#pragma once

#include <string>

/// Asks whether to abandon the operation under way, with No as the default answer. True on Yes.
bool userConfirmsAbort(const std::string &question);

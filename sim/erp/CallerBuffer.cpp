#include "sim/erp/CallerBuffer.h"

#include <algorithm>
#include <cstring>

void copyToCallerBuffer(std::string_view text, char *buffer, std::size_t size)
{
    if (buffer == nullptr || size == 0) {
        return;
    }
    const std::size_t length = std::min(text.size(), size - 1);
    std::memcpy(buffer, text.data(), length);
    buffer[length] = '\0';
}

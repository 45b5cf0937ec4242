#include "stores/NumberText.h"

#include "platform/core/RaisedError.h"
#include "shell/Constants.h"

#include <cmath>
#include <limits>

std::int16_t toInt16(double value)
{
    const double rounded = std::nearbyint(value);
    if (!(rounded >= std::numeric_limits<std::int16_t>::min() &&
          rounded <= std::numeric_limits<std::int16_t>::max()))
        raiseRuntimeError(RuntimeErrorNumber::Overflow);
    return static_cast<std::int16_t>(rounded);
}

std::int16_t toInt16(const std::string &text)
{
    return toInt16(static_cast<double>(wholeNumber(text)));
}

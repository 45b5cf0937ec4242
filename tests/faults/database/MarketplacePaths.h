#pragma once

#include <string>

/// Where feria-sim's state document lists publication `number` of store 100.
inline std::string publicationOfStore100(int number)
{
    return "//Store[@StoreID='100']/Publication[@PublicationID='" + std::to_string(number) +
           "']/@PublicationID";
}

#pragma once

#include <cstdint>

/// What the send run tells the window that watches it: how many rows the store has to send,
/// then, after each batch, how many have been handled.
class PublicationProgress
{
public:
    virtual ~PublicationProgress() = default;

    /// Written once per store with its count of pending rows.
    virtual void setMaxProducts(std::int16_t total) = 0;
    virtual std::int16_t products() const = 0;
    /// Written after each batch with the rows handled so far (0 when there is nothing to send).
    virtual void setProducts(std::int16_t handled) = 0;
};

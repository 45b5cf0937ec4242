#pragma once

#include <cstdint>
#include <string>

/// One reply operation as the send run applied it to the tables.
struct AnsweredOperation
{
    enum class Outcome {
        /// Accepted (or already so on the marketplace): confirmed, copied or withdrawn.
        Accepted,
        /// A code the marketplace will never accept, or the last retry: the row is gone.
        Refused,
        /// Counted as a retry; `tries` holds the row's count after it.
        Retried,
        /// A code of no known kind: the row stays as it was.
        Unchanged
    };
    std::string publicationId;
    std::string word;
    /// The marketplace's code as it came (-8005 and -8004 too) and its description.
    std::string code;
    std::string description;
    Outcome outcome = Outcome::Unchanged;
    std::int16_t tries = 0;
};

/// What the send run tells the window that watches it: how many rows the store has to send,
/// then, after each batch, how many have been handled. A report may also listen to each
/// request and each answer; the window need not.
class PublicationProgress
{
public:
    virtual ~PublicationProgress() = default;

    /// Written once per store with its count of pending rows.
    virtual void setMaxProducts(std::int16_t total) = 0;
    virtual std::int16_t products() const = 0;
    /// Written after each batch with the rows handled so far (0 when there is nothing to send).
    virtual void setProducts(std::int16_t handled) = 0;

    /// A request is about to leave with this text and this many operations.
    virtual void requestSent(const std::string &wireText, int operations) {}
    /// A reply operation was applied and committed.
    virtual void operationAnswered(const AnsweredOperation &answer) {}
};

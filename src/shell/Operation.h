#pragma once

#include <cstdint>
#include <string>

/// What a wizard's pages build and its last page performs. The base does nothing and has no
/// type; each wizard's operations say what they do.
class Operation
{
public:
    Operation();
    virtual ~Operation() = default;
    Operation(const Operation &) = delete;
    Operation &operator=(const Operation &) = delete;

    virtual void Perform() {}
    std::int32_t ClassDebugID() const { return m_classDebugId; }
    virtual std::string operationType() const { return {}; }

private:
    std::int32_t m_classDebugId;
};

/// The outcome of one operation sent to the back office.
class OperationResult
{
public:
    OperationResult();

    std::int32_t ClassDebugID() const { return m_classDebugId; }
    std::string message;
    std::int32_t resultId = 0;
    std::int32_t operationId = 0;
    std::string publicationId;

private:
    std::int32_t m_classDebugId;
};

#pragma once

#include "shell/Operation.h"

#include <memory>

class VirtualDeposit;

/// Removes the link between a virtual deposit and its ministore.
class MinistoreRemove : public Operation
{
public:
    /// Deletes the link; a refusal (the ministore has publications) or a failure is reported
    /// and the link stays, in memory and in the table.
    void Perform() override;

    const std::shared_ptr<VirtualDeposit> &deposit() const { return m_deposit; }
    void setDeposit(std::shared_ptr<VirtualDeposit> deposit) { m_deposit = std::move(deposit); }

    std::string operationType() const override { return "MinistoreRemove"; }

private:
    std::shared_ptr<VirtualDeposit> m_deposit;
};

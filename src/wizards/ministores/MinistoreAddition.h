#pragma once

#include "shell/Operation.h"

#include <memory>

class VirtualDeposit;
class ZorvantaMinistore;

/// Links a virtual deposit with a ministore. The pages fill the two halves one after the
/// other; startedWithMinistore tells that the ministore is the half still to come.
class MinistoreAddition : public Operation
{
public:
    /// Sets the deposit's ministore and writes the link; a refusal or a failure is reported
    /// and the deposit keeps the ministore in memory all the same.
    void Perform() override;

    const std::shared_ptr<VirtualDeposit> &deposit() const { return m_deposit; }
    void setDeposit(std::shared_ptr<VirtualDeposit> deposit) { m_deposit = std::move(deposit); }
    const std::shared_ptr<ZorvantaMinistore> &ministore() const { return m_ministore; }
    void setMinistore(std::shared_ptr<ZorvantaMinistore> ministore)
    {
        m_ministore = std::move(ministore);
    }
    bool startedWithMinistore() const { return m_startedWithMinistore; }
    void setStartedWithMinistore(bool value) { m_startedWithMinistore = value; }

    std::string operationType() const override { return "MinistoreAddition"; }

private:
    std::shared_ptr<VirtualDeposit> m_deposit;
    std::shared_ptr<ZorvantaMinistore> m_ministore;
    bool m_startedWithMinistore = false;
};

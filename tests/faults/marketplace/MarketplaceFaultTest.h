#pragma once

#include "AssistantSandbox.h"
#include "FaultProxy.h"
#include "SellerTables.h"

#include <cstdlib>
#include <httplib.h>
#include <memory>
#include <string>
#include <vector>

/// The assistant in the sandbox with a fault proxy between it and the marketplace, the seller's
/// tables holding a few rows, and a marketplace silence of one second counted as no answer.
/// The SOAP clients are bound through the proxy before any fault is scripted.
class MarketplaceFaultTest : public AssistantSandbox
{
protected:
    void SetUp() override
    {
        AssistantSandbox::SetUp();
        m_marketplace = std::getenv("ASISTENTE_MARKETPLACE_URL");
        proxy = std::make_unique<FaultProxy>(m_marketplace);
        setenv("ASISTENTE_MARKETPLACE_URL", proxy->url().c_str(), 1);
        setenv("ASISTENTE_MARKETPLACE_TIMEOUT", "1", 1);
        tables = std::make_unique<SellerTables>(*database);
        tables->fill();
        rowsBefore = tables->rows();
        ASSERT_TRUE(CommerceServerInit()) << "through " << proxy->url();
    }
    void TearDown() override
    {
        EXPECT_EQ(tables->rows(), rowsBefore) << "the tables changed";
        EXPECT_EQ(tables->integrity(), "ok");
        for (const std::string &rule : proxy->unusedRules())
            ADD_FAILURE() << "a scripted fault was never injected: " << rule;
        // Closing the seller's session still goes through the proxy.
        AssistantSandbox::TearDown();
        proxy.reset();
        unsetenv("ASISTENTE_MARKETPLACE_TIMEOUT");
    }

    /// What the marketplace holds and received, asked past the proxy.
    std::string marketplaceState() const
    {
        const auto reply = httplib::Client(m_marketplace).Get("/sim/state");
        return reply ? reply->body : std::string();
    }

    std::unique_ptr<FaultProxy> proxy;
    std::unique_ptr<SellerTables> tables;
    std::vector<std::string> rowsBefore;

private:
    std::string m_marketplace;
};

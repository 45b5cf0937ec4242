#pragma once

#include <ostream>

class ZorvantaMinistore;

/// What a send would do now for one store, written for the seller: each batch with its
/// operations (word, publication, ERP product), for an update the fields that change against
/// what the marketplace last accepted, and the exact text the batch would put on the wire.
/// The batches come from the planner the send itself uses; nothing is sent or written (no
/// taxes synchronised, no publication turned P).
class SendPreview
{
public:
    explicit SendPreview(std::ostream &out) : m_out(out) {}

    /// False when the store's batches could not be planned; the error has been reported.
    bool show(const ZorvantaMinistore &store);

private:
    void showDifferences(int publication, const std::string &pendingAttributes);

    std::ostream &m_out;
};

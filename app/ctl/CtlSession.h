#pragma once

#include <memory>
#include <string>
#include <vector>

class ZorvantaMinistore;

/// The assistant's start without its window, for the command line: the three outside links
/// checked in the same order, the seller's session open until the session ends.
class CtlSession
{
public:
    CtlSession();
    ~CtlSession();
    CtlSession(const CtlSession &) = delete;
    CtlSession &operator=(const CtlSession &) = delete;

    /// The catalogue service, the back office's limits (with the seller and its session) and
    /// the seller's ministores. False, with the connection message shown, when one fails.
    bool openLinks();

    /// The ministores linked to a virtual deposit, in the deposits' order, each once; only
    /// `only` when it is not empty. Empty when the deposits cannot be read.
    std::vector<std::shared_ptr<ZorvantaMinistore>> linkedMinistores(const std::string &only);
};

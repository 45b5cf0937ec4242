#pragma once

#include "publication/PublicationProgress.h"

#include <cstdint>
#include <filesystem>
#include <memory>
#include <string>
#include <vector>

class ZorvantaMinistore;

/// What one send did, store by store, for the seller to read afterwards: the operations sent,
/// accepted, refused for good, counted as a retry, left without a reply, and still pending,
/// with every answer that was not an acceptance. Whoever runs the send (the window, the
/// command line) watches each store's run through it, then writes it:
///
///     SendReport report;
///     for each store: SendPendingPublications(store, report.watch(store, window));
///                     report.storeFinished();
///     report.write(SendReport::folder());
class SendReport
{
public:
    struct Store
    {
        std::string id;
        std::string name;
        int sent = 0;
        int accepted = 0;
        int refused = 0;
        int retried = 0;
        int unchanged = 0;
        int answered = 0;
        /// Rows that still wait for the store after its run; -1 when they could not be counted.
        int stillPending = 0;
        /// Every answer that was not an acceptance, in the order they came.
        std::vector<AnsweredOperation> refusals;

        int unanswered() const { return sent - answered; }
    };

    /// `startedAt` as "YYYY-MM-DD HH:MM:SS"; now when empty.
    explicit SendReport(std::string startedAt = {});
    ~SendReport();

    /// Starts a store's part; the returned progress passes the window's two counters on to
    /// `window` and records the rest. It lives until the next watch.
    PublicationProgress &watch(const ZorvantaMinistore &store, PublicationProgress &window);
    /// Ends the store's part by counting what still waits for it in the tables.
    void storeFinished();

    const std::vector<Store> &stores() const { return m_stores; }
    /// True when every operation sent was accepted and nothing waits any more.
    bool allAccepted() const;

    std::string json() const;
    std::string html() const;
    /// Writes envio-<date>.json and .html in `folder` (made if missing) and gives the JSON's
    /// path; empty, with `why` set, when the files cannot be written.
    std::filesystem::path write(const std::filesystem::path &folder, std::string &why) const;

    /// Where reports go: "informes" beside the log, in the current directory.
    static std::filesystem::path folder();

private:
    class Watcher;

    std::string m_startedAt;
    std::vector<Store> m_stores;
    std::unique_ptr<Watcher> m_watcher;
};

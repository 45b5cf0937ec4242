#pragma once

class PublicationProgress;
class ZorvantaMinistore;

/// Sends everything that waits in WIPRODPEND for the store to the marketplace, in batches of
/// CatalogOperation requests as large as the back office allows, and applies the answer
/// operation by operation, each in its own transaction:
///
/// - the store's taxes are synchronised first; if that fails nothing else happens;
/// - a batch's I rows turn their publications P before the request leaves;
/// - an accepted operation (and -8005 on Publicar, -8004 on Despublicar, which only say that
///   the marketplace is already where we want it) confirms the publication, copies the new
///   attributes, or deletes it, and removes the pending row;
/// - a code the marketplace will never accept removes the pending row(s) for good; user and
///   fatal codes count a retry, up to 100; a code of no known kind changes nothing.
///
/// `progress` learns the row count first, then the rows answered after each batch. A failure
/// is reported and ends the run; every operation applied before it stays committed, the one in
/// hand is rolled back, and what remains is sent again next time.
void SendPendingPublications(ZorvantaMinistore &ministore, PublicationProgress &progress);

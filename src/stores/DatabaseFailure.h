#pragma once

#include <string>

class Connection;

/// The rule every handler of a procedure that used the seller's database applies before it
/// reports: when the connection holds an error of the engine, the error in flight becomes
/// -11000 with `source` and "Error en la base de datos " + that error's description, and the
/// connection is closed. With no such error (a business refusal raised by the procedure itself)
/// the error in flight stays as it was. Informational entries left by opening do not count.
void applyDatabaseFailureRule(Connection &connection, const std::string &source);

#pragma once

#include <optional>
#include <string>

/// What a backend gives for the rows of one statement: a forward-only position on them.
/// Recordset checks indexes and positions before it asks, so a cursor only reads.
class RecordsetCursor
{
public:
    virtual ~RecordsetCursor() = default;

    virtual bool isOpen() const = 0;
    virtual bool eof() const = 0;
    /// Goes to the next row; an engine failure is reported on the connection's list.
    virtual void moveNext() = 0;
    virtual int fieldCount() const = 0;
    /// The field of the current row as text; nothing for Null.
    virtual std::optional<std::string> field(int index) const = 0;
    /// Lets go of the engine's statement; afterwards the cursor is closed and at its end.
    virtual void close() = 0;
};

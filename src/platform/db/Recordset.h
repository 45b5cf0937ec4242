#pragma once

#include <memory>
#include <string>

class RecordsetCursor;

/// The rows a statement gave back, read forward from the first. A statement that gives no
/// rows (INSERT, UPDATE, DELETE) gives a closed recordset, which is at its end.
///
/// Reading a field raises a platform error instead of answering: 5 (invalid call) on a
/// closed recordset or past the last row, 9 for an index outside 0..fieldCount()-1, and
/// 13 when fieldNumber() meets Null or text that is not a number.
class Recordset
{
public:
    Recordset() = default;
    explicit Recordset(std::shared_ptr<RecordsetCursor> cursor);

    bool isOpen() const;
    /// True past the last row, for an empty result and for a closed recordset.
    bool eof() const;
    /// Goes to the next row. At the end it raises 5; an engine failure while reading is
    /// added to the connection's errors and raised.
    void moveNext();
    /// Columns of the result; 0 when closed.
    int fieldCount() const;

    bool isNull(int index) const;
    /// The field as text; Null reads as the empty text.
    std::string fieldText(int index) const;
    /// The field as a number; blanks around the digits are allowed.
    double fieldNumber(int index) const;

    /// Ends the reading. Closing twice does nothing; so does closing after the connection
    /// closed it.
    void close();

private:
    const RecordsetCursor &currentRow(int index) const;

    std::shared_ptr<RecordsetCursor> m_cursor;
};

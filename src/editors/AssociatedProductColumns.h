#pragma once

#include <QStringList>
#include <string>

class AssociatedProduct;

/// How the pages that list associations show one: their columns, the key of an entry and the
/// line it draws (ERP code, description, reference, marketplace code).
struct AssociatedProductColumns
{
    static QStringList headings();
    /// The association's own id: two lines never share it.
    static std::string keyOf(AssociatedProduct &association);
    /// The columns with a tab between them; an empty marketplace code when its product is gone.
    static std::string lineOf(AssociatedProduct &association);
};

#pragma once

#include "wizards/ministores/MinistoreSelectionPage.h"

/// Picks the ministore for the deposit the user chose on the first page.
class AssociateMinistore : public MinistoreSelectionPage
{
    Q_OBJECT
public:
    AssociateMinistore(PageHost &parent, const QString &controlName, QWidget *widgetParent);

protected:
    std::pair<std::string, std::string> chosenHalf(const MinistoreAddition &addition) override;
    void fillRows(KeyedListView &list) override;
    std::string heldKey(const MinistoreAddition &addition) override;
    void choose(MinistoreAddition &addition, const std::string &id) override;
};

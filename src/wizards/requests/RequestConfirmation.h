#pragma once

#include "wizards/requests/RequestPage.h"

class KeyedListView;
class QLabel;
class QLineEdit;

/// The request as it will be sent, for a last look; Accept sends it and returns to the menu.
class RequestConfirmation : public RequestPage
{
    Q_OBJECT
public:
    RequestConfirmation(PageHost &parent, const QString &controlName, QWidget *widgetParent);

    /// Shows the category, the names and every field with its value.
    void Start() override;

private:
    void DoRequest() override;
    std::string backKey() override;

    QLineEdit *m_category;
    QLabel *m_categoryNameLabel;
    QLineEdit *m_categoryName;
    QLineEdit *m_productName;
    KeyedListView *m_fields;
};

#pragma once

#include "wizards/requests/RequestPage.h"

class QLineEdit;

/// A page that asks for one name of the request in `Text1`. The name is not checked: an empty
/// one goes on as it is.
class RequestNamePage : public RequestPage
{
    Q_OBJECT
public:
    /// Shows the request's name and gives the box the focus.
    void Start() override;

protected:
    RequestNamePage(PageHost &parent, const QString &controlName, QWidget *widgetParent,
                    const char *caption);

    /// The request's name that the page shows.
    virtual std::string storedName() = 0;
    virtual void storeName(std::string name) = 0;
    /// Where Next goes once the name is stored.
    virtual std::string nextKey() = 0;

private:
    void DoRequest() override;

    QLineEdit *m_text;
};

#pragma once

#include "wizards/requests/RequestPage.h"

class QLineEdit;

/// The picture sent with the request: a path typed in `Text1` or chosen with `Search`. Nothing
/// about it is checked here, and it may stay empty.
class RequestGetImage : public RequestPage
{
    Q_OBJECT
public:
    RequestGetImage(PageHost &parent, const QString &controlName, QWidget *widgetParent);

    /// Shows the request's picture path and gives the box the focus.
    void Start() override;

private:
    void Search_Click();
    void DoRequest() override;
    std::string backKey() override { return "GetProperties"; }

    QLineEdit *m_path;
};

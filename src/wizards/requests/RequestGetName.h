#pragma once

#include "wizards/requests/RequestNamePage.h"

/// The name of the product asked for.
class RequestGetName : public RequestNamePage
{
    Q_OBJECT
public:
    RequestGetName(PageHost &parent, const QString &controlName, QWidget *widgetParent);

private:
    std::string storedName() override;
    void storeName(std::string name) override;
    std::string nextKey() override { return "GetProperties"; }
    std::string backKey() override { return "GetProduct"; }
};

#pragma once

#include "wizards/requests/RequestNamePage.h"

/// The name of the new category.
class RequestGetCategoryName : public RequestNamePage
{
    Q_OBJECT
public:
    RequestGetCategoryName(PageHost &parent, const QString &controlName, QWidget *widgetParent);

private:
    std::string storedName() override;
    void storeName(std::string name) override;
    std::string nextKey() override { return "GetProduct"; }
    std::string backKey() override { return "GetCategory"; }
};

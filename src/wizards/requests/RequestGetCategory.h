#pragma once

#include "wizards/requests/RequestPage.h"

class ZorvantaCategoryBrowser;

/// The marketplace category the request goes under, picked in the category tree; the root
/// counts as a category.
class RequestGetCategory : public RequestPage
{
    Q_OBJECT
public:
    RequestGetCategory(PageHost &parent, const QString &controlName, QWidget *widgetParent);

    /// Draws the tree afresh unless the request has a category already, in which case the
    /// tree stays as it was left.
    void Start() override;

private:
    /// A category other than the request's starts the fields over; the same one keeps them.
    void DoRequest() override;
    std::string backKey() override { return "Show"; }

    ZorvantaCategoryBrowser *m_browser;
};

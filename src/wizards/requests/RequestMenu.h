#pragma once

#include "shell/frame/WizardPage.h"

/// The request wizard's first page: a request for a new category with its first product, or
/// for a new product under an existing category.
class RequestMenu : public WizardPage
{
    Q_OBJECT
public:
    RequestMenu(PageHost &parent, const QString &controlName, QWidget *widgetParent);

private:
    /// Resumes the request under way when it is of the kind chosen, else starts a new one.
    void DoNewCategory();
    void DoNewProduct();
};

#include "wizards/requests/RequestWizard.h"

#include "wizards/requests/RequestConfirmation.h"
#include "wizards/requests/RequestGetCategory.h"
#include "wizards/requests/RequestGetCategoryName.h"
#include "wizards/requests/RequestGetImage.h"
#include "wizards/requests/RequestGetName.h"
#include "wizards/requests/RequestGetProperties.h"
#include "wizards/requests/RequestGetProduct.h"
#include "wizards/requests/RequestMenu.h"

RequestWizard::RequestWizard(HostWindow &host, const QString &controlName, QWidget *parent)
    : WizardShell(host, "RequestWizard", controlName, parent)
{
    makePage<RequestMenu>("RequestMenu1", "Show");
    makePage<RequestGetCategory>("RequestGetCategory1", "GetCategory");
    makePage<RequestGetCategoryName>("RequestGetCategoryName1", "GetCategoryName");
    makePage<RequestGetProduct>("RequestGetProduct1", "GetProduct");
    makePage<RequestGetName>("RequestGetName1", "GetName");
    makePage<RequestGetProperties>("RequestGetProperties1", "GetProperties");
    makePage<RequestGetImage>("RequestGetImage1", "GetImage");
    makePage<RequestConfirmation>("RequestConfirmation1", "Confirmation");
}

#include "wizards/requests/RequestGetCategory.h"

#include "catalogue/ZorvantaCategory.h"
#include "editors/ZorvantaCategoryBrowser.h"
#include "platform/core/RaisedError.h"
#include "shell/ErrorHandling.h"
#include "shell/frame/PageHost.h"
#include "wizards/requests/ProductRequest.h"
#include "wizards/requests/RequestParts.h"

#include <QVBoxLayout>

RequestGetCategory::RequestGetCategory(PageHost &parent, const QString &controlName,
                                       QWidget *widgetParent)
    : RequestPage(parent, controlName, widgetParent,
                  "Seleccione la categoría bajo la cual desea realizar su solicitud")
{
    m_browser = new ZorvantaCategoryBrowser(this);
    m_browser->setObjectName("ZorvantaCategoryBrowser1");
    content().addWidget(m_browser, 1);
}

void RequestGetCategory::Start()
{
    withHandler(handlerLabel("Start"), [&] {
        if (!requestCategory(Parent()))
            m_browser->Reset();
    });
}

void RequestGetCategory::DoRequest()
{
    withHandler(handlerLabel("DoRequest"), [&] {
        const std::shared_ptr<ZorvantaCategory> chosen = m_browser->currentCategory();
        if (!chosen)
            raiseRuntimeError(RuntimeErrorNumber::ObjectNotSet);
        const std::shared_ptr<ZorvantaCategory> held = requestCategory(Parent());
        if (!held || held->id() != chosen->id()) {
            requestedProduct(Parent()).setFields(std::make_shared<RequestFields>());
            setRequestCategory(Parent(), chosen);
        }
        Parent().SwitchPage(isCategoryRequest(Parent()) ? "GetCategoryName" : "GetProduct");
    });
}

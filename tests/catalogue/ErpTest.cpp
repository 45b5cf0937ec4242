#include "ErpTest.h"

#include "platform/xml/XmlDocument.h"
#include "stores/ZorvantaMinistore.h"

std::shared_ptr<ZorvantaMinistore> ErpTest::ministore(const std::string &id)
{
    XmlDocument store;
    store.loadXML("<Store><StoreID>" + id +
                  "</StoreID><Name>Tienda</Name><NumberOfProducts>0</NumberOfProducts></Store>");
    XmlDocument backOffice;
    backOffice.loadXML("<Store><MaxProducts>9</MaxProducts><ProductID>300</ProductID>"
                       "<Status>A</Status></Store>");
    auto made = std::make_shared<ZorvantaMinistore>();
    made->setXml(store.documentElement(), backOffice.documentElement());
    return made;
}

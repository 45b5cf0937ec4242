#include "marketplace/ServiceContract.h"

const std::vector<std::string_view> &ServiceContract::ports()
{
    static const std::vector<std::string_view> kPorts{kStorePort, kCatalogOperationsPort,
                                                      kCatalogInfoPort};
    return kPorts;
}

const std::vector<OperationContract> &ServiceContract::operations()
{
    static const std::vector<OperationContract> kOperations{
        {"GetSellerInformation", kStorePort, {{"SellerID", "xsd:string"}}},
        {"RequestNewCategory",
         kStorePort,
         {{"StoreID", "xsd:string"},
          {"CategoryID", "xsd:string"},
          {"CategoryName", "xsd:string"}}},
        {"RequestNewProduct",
         kStorePort,
         {{"StoreID", "xsd:string"}, {"CategoryID", "xsd:string"}, {"RequestXML", "xsd:string"}}},
        {"RequestNewProductDef",
         kStorePort,
         {{"StoreID", "xsd:string"}, {"CategoryID", "xsd:string"}, {"RequestXML", "xsd:string"}}},
        {"GetCategoryContent",
         kCatalogInfoPort,
         {{"CategoryID", "xsd:string"}, {"PageNumber", "xsd:short"}, {"PageSize", "xsd:short"}}},
        {"GetProductDefinition", kCatalogInfoPort, {{"CategoryID", "xsd:string"}}},
        {"GetProductInformation",
         kCatalogInfoPort,
         {{"ProductID", "xsd:string"}, {"StoreID", "xsd:string"}}},
    };
    return kOperations;
}

const OperationContract *ServiceContract::find(std::string_view name)
{
    for (const OperationContract &operation : operations()) {
        if (operation.name == name) {
            return &operation;
        }
    }
    return nullptr;
}

std::string ServiceContract::portPath(std::string_view port)
{
    return "/zvtservices/" + std::string(port);
}

#pragma once

#include <string>

/// Fixed answers to the seven operations of the catalogue service, in the shapes the readers
/// expect. Nothing in the program creates it: it is a fixture of the reply formats.
class CommerceServerStub
{
public:
    std::string GetCategoryContent(const std::string &categoryId, short page, short pageSize);
    std::string GetProductDefinition(const std::string &categoryId);
    std::string RequestNewProduct(const std::string &storeId, const std::string &categoryId,
                                  const std::string &request);
    std::string RequestNewProductDef(const std::string &storeId, const std::string &categoryId,
                                     const std::string &request);
    std::string RequestNewCategory(const std::string &storeId, const std::string &parentId,
                                   const std::string &name);
    std::string GetSellerInformation(const std::string &sellerId);
    std::string GetProductInformation(const std::string &productId, const std::string &storeId);
};

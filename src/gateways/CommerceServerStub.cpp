#include "gateways/CommerceServerStub.h"

namespace {

std::string successReply(const char *operation)
{
    return std::string("<?xml version='1.0'?><") + operation
           + "><RESULT><RETURNCODE></RETURNCODE>0<DESCRIPTION></DESCRIPTION>'Exito'</RESULT></"
           + operation + ">";
}

} // namespace

std::string CommerceServerStub::GetCategoryContent(const std::string &, short, short)
{
    return "<?xml version='1.0'?><GetCategoryContent><Products>"
           "<Product id=\"Producto01\"><Field fieldID=\"Name\">Producto 01</Field>"
           "<Field fieldID=\"Description\">Primer producto de prueba</Field></Product>"
           "</Products></GetCategoryContent>";
}

std::string CommerceServerStub::GetProductDefinition(const std::string &)
{
    return "<?xml version='1.0'?><GetProductDefinition><PropertiesDefinition>"
           "<Property name=\"Marca\" dataType=\"string\" MaxValue=\"40\" id=\"Marca\" "
           "required=\"1\" readOnly=\"0\"/>"
           "<Property name=\"Color\" dataType=\"enumeration\" MaxValue=\"\" id=\"Color\" "
           "required=\"0\" readOnly=\"0\"><PropertyValue displayName=\"Rojo\"/>"
           "<PropertyValue displayName=\"Azul\"/></Property>"
           "</PropertiesDefinition></GetProductDefinition>";
}

std::string CommerceServerStub::RequestNewProduct(const std::string &, const std::string &,
                                                  const std::string &)
{
    return successReply("RequestNewProduct");
}

std::string CommerceServerStub::RequestNewProductDef(const std::string &, const std::string &,
                                                     const std::string &)
{
    return successReply("RequestNewProductDef");
}

std::string CommerceServerStub::RequestNewCategory(const std::string &, const std::string &,
                                                   const std::string &)
{
    return successReply("RequestNewCategory");
}

std::string CommerceServerStub::GetSellerInformation(const std::string &)
{
    return "<?xml version='1.0'?><GetSellerInformation>"
           "<Store><StoreID>MT-1</StoreID><Name>Minitienda de prueba</Name>"
           "<Description>Tienda de prueba</Description><NumberOfProducts>0</NumberOfProducts>"
           "</Store></GetSellerInformation>";
}

std::string CommerceServerStub::GetProductInformation(const std::string &, const std::string &)
{
    return "<?xml version='1.0'?><GetProductInformation><Product id=\"Producto01\">"
           "<Field fieldID=\"Name\">Producto 01</Field></Product></GetProductInformation>";
}

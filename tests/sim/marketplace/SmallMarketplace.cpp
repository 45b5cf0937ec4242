#include "SmallMarketplace.h"

namespace {

std::string product(int n, const char *definition)
{
    const std::string id = "ZP-" + std::to_string(n);
    return "<Product id='" + id + "' definition='" + definition +
           "'><Field fieldID='Name'>Producto " + std::to_string(n) +
           "</Field><Field fieldID='Description'>Descripción del producto " + std::to_string(n) +
           "</Field><Field fieldID='Marca'>Sonora</Field></Product>";
}

} // namespace

std::string smallMarketplace(const std::string &faults, int batchLimit)
{
    std::string products;
    for (int n = 1; n <= 7; ++n) {
        products += product(n, "pdSimple");
    }
    return R"(<?xml version="1.0" encoding="UTF-8"?>
<Marketplace>
 <Sellers>
  <Seller id="V1042" clientNumber="4711" license="NUB-LIC-2026-0042" clientKey2="QK-7F3A9C">
   <Store id="100" plan="300" maxProducts="3" status="A">
    <Name>Andina Hogar</Name><Description>Todo para la casa</Description>
    <User name="carmen" password="andina2026"/>
   </Store>
   <Store id="200" plan="310" maxProducts="10" status="A"><Name>Andina Deportes</Name></Store>
   <Store id="300" plan="300" maxProducts="10" status="I">
    <Name>Andina Tecnología</Name><Description/>
   </Store>
  </Seller>
  <Seller id="V2001" clientNumber="5120" license="NUB-LIC-2026-0077" clientKey2="QK-1B2C3D">
   <Store id="900" plan="300" maxProducts="10" status="A">
    <Name>Librería del Puerto</Name><User name="puerto" password="libros1"/>
   </Store>
  </Seller>
 </Sellers>
 <OperationLimits>
  <Product ProductID="300"><Operation OperationID="9"><MaxOperations>)" +
           std::to_string(batchLimit) + R"(</MaxOperations></Operation></Product>
 </OperationLimits>
 <PropertiesDefinition>
  <Property name="Nombre" id="Name" dataType="String" MaxValue="80" required="yes" readOnly="yes"/>
  <Property name="Descripción" id="Description" dataType="String" required="no" readOnly="yes"/>
  <Property name="Marca" id="Marca" dataType="String" required="yes" readOnly="no"/>
  <Property name="Color" id="Color" dataType="Enumeration" required="yes" readOnly="no">
   <PropertyValues displayName="Rojo"/><PropertyValues displayName="Azul"/>
  </Property>
  <Property name="Precio de lista" id="Cy_List_Price" dataType="Currency" required="yes"
            readOnly="no" type="NC"/>
  <Property name="Existencia" id="Existencia" dataType="Integer" required="no" readOnly="no"
            type="NC"/>
  <Property name="Código ERP" id="ERPID" dataType="String" required="no" readOnly="no" type="NC"/>
 </PropertiesDefinition>
 <Definitions>
  <Definition name="pdSimple"><Properties><Property id="Name"/><Property id="Description"/>
   <Property id="Marca"/><Property id="Cy_List_Price"/><Property id="ERPID"/></Properties>
  </Definition>
  <Definition name="pdVar"><Properties><Property id="Name"/><Property id="Description"/>
   <Property id="Cy_List_Price"/></Properties>
   <VariantProperties><Property id="Color"/><Property id="Existencia"/></VariantProperties>
  </Definition>
 </Definitions>
 <Catalog name="Feria de prueba"><Description>Raíz</Description>
  <Category id="ZC-1" name="Hogar" definitions="pdSimple pdVar"><Description>Casa</Description>
   )" + products +
           R"(
   <Category id="ZC-11" name="Cocina"><Description>Ollas</Description>)" +
           product(8, "pdVar") + R"(</Category>
  </Category>
  <Category id="ZC-2" name="Vacía"><Description/></Category>
 </Catalog>
 <Faults>)" +
           faults + R"(</Faults>
</Marketplace>
)";
}

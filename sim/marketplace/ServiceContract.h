#pragma once

#include <string>
#include <string_view>
#include <vector>

/// One argument of a catalogue operation, as the WSDL declares it.
struct PartContract
{
    std::string_view name;
    std::string_view xsdType;
};

/// One operation of the catalogue service: its port and its arguments in call order.
struct OperationContract
{
    std::string_view name;
    std::string_view port;
    std::vector<PartContract> parts;
};

/// What the marketplace's SOAP service offers: names, ports and operations. The WSDL and the
/// request reader both work from this one table.
class ServiceContract
{
public:
    static constexpr std::string_view kServiceName = "zvtsorvek";
    static constexpr std::string_view kNamespace = "urn:nubalia:zvtsorvek";
    static constexpr std::string_view kWsdlPath = "/zvtservices/zvtsorvek.wsdl";
    static constexpr std::string_view kStorePort = "StoreSoapPort";
    static constexpr std::string_view kCatalogOperationsPort = "CatalogOperationsSoapPort";
    static constexpr std::string_view kCatalogInfoPort = "CatalogInfoSoapPort";
    /// Name of the single output part of every operation: a string holding an XML document.
    static constexpr std::string_view kResultPart = "Result";

    /// The three ports, in the order the WSDL lists them.
    static const std::vector<std::string_view> &ports();
    static const std::vector<OperationContract> &operations();
    /// The operation of that exact name, or nullptr.
    static const OperationContract *find(std::string_view name);
    /// Path of a port's endpoint on the marketplace's host.
    static std::string portPath(std::string_view port);
};

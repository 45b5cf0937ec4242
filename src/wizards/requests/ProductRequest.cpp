#include "wizards/requests/ProductRequest.h"

#include "catalogue/MarketplaceCalls.h"
#include "catalogue/ZorvantaCategory.h"
#include "catalogue/ZorvantaProduct.h"
#include "platform/core/RaisedError.h"
#include "platform/xml/XmlDocument.h"
#include "shell/ErrorHandling.h"
#include "shell/Logger.h"

#include <filesystem>
#include <fstream>

namespace {

constexpr const char *kPerform = "ProductRequest:Perform";

ZorvantaCategory &required(const std::shared_ptr<ZorvantaCategory> &category)
{
    if (!category)
        raiseRuntimeError(RuntimeErrorNumber::ObjectNotSet);
    return *category;
}

} // namespace

ProductRequest::ProductRequest() : m_fields(std::make_shared<RequestFields>()) {}

void ProductRequest::Perform()
{
    // Errors of the category are reported there; what fails here is named after Perform.
    withHandler(kPerform, [&] {
        std::string text = requestDocument();
        if (m_definition)
            required(m_category).RequestNewProduct(text);
        else
            required(m_category).RequestNewProductDefinition(text);
    });
}

std::string ProductRequest::requestDocument() const
{
    XmlDocument document;
    if (m_definition)
        buildProductForm(document);
    else
        buildDefinitionForm(document);
    return document.xml();
}

void ProductRequest::buildProductForm(XmlDocument &document) const
{
    XmlNode root = document.appendChild(document.createElement("RequestNewProduct"));
    XmlNode product = root.appendChild(document.createElement("Product"));
    product.setAttribute("Definition", m_definition->id());
    appendFields(document, product);
    root.appendChild(document.createElement("ImageType")).setText(imageType(m_image));
    XmlNode image = root.appendChild(document.createElement("Image"));
    image.setAttribute("xmlns:dt", "urn:schemas-microsoft-com:datatypes");
    image.setDataType("bin.base64");
    if (m_image.empty())
        return;
    // The picture is optional: one that cannot be read leaves Image empty and the request goes.
    try {
        image.setNodeTypedValue(ReadBinaryData(m_image));
    } catch (...) {
    }
}

void ProductRequest::buildDefinitionForm(XmlDocument &document) const
{
    XmlNode root = document.appendChild(document.createElement("RequestNewProductDef"));
    XmlNode store = root.appendChild(document.createElement("StoreID"));
    store.setText(firstMinistoreId(kPerform));
    root.appendChild(document.createElement("Name")).setText(m_name);
    XmlNode fields = root.appendChild(document.createElement("Fields"));
    appendFields(document, fields);
}

void ProductRequest::appendFields(XmlDocument &document, XmlNode &parent) const
{
    for (const std::shared_ptr<RequestField> &field : *m_fields) {
        XmlNode element = parent.appendChild(document.createElement("Field"));
        element.setAttribute("fieldID", field->id);
        // The DOM takes the text as it stands, "]]>" included.
        element.appendChild(document.createCDATASection(field->data));
    }
}

std::string ProductRequest::imageType(const std::string &path)
{
    const std::size_t dot = path.rfind('.');
    const std::string extension = dot == std::string::npos ? path : path.substr(dot + 1);
    if (extension == "JPG" || extension == "JPEG" || extension == "jpg" || extension == "jpeg")
        return "JPG";
    if (extension == "GIF" || extension == "gif")
        return "GIF";
    return {};
}

std::vector<std::uint8_t> ProductRequest::ReadBinaryData(const std::string &path)
{
    std::error_code ignored;
    std::ifstream file;
    if (!std::filesystem::is_directory(path, ignored))
        file.open(path, std::ios::binary);
    if (!file.is_open()) {
        gLogger.WriteLogEntry("Error abriendo archivo de imagen en ProducrRequest:ReadBinaryData");
        return {};
    }
    file.seekg(0, std::ios::end);
    const std::streamoff length = file.tellg();
    if (length <= 0)
        raiseRuntimeError(RuntimeErrorNumber::SubscriptOutOfRange);
    std::vector<std::uint8_t> bytes(static_cast<std::size_t>(length));
    file.seekg(0);
    if (!file.read(reinterpret_cast<char *>(bytes.data()), length))
        raiseRuntimeError(RuntimeErrorNumber::PathFileAccess);
    return bytes;
}

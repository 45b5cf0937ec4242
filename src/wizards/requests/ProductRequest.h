#pragma once

#include "shell/Operation.h"
#include "wizards/requests/RequestField.h"

#include <cstdint>
#include <memory>
#include <string>
#include <vector>

class XmlDocument;
class XmlNode;
class ZorvantaCategory;
class ZorvantaProduct;

/// Asks the marketplace for a new product under an existing category. With a definition the
/// request names it and carries a picture; without one ("(Producto vacío)") it asks for a new
/// definition and carries no picture.
class ProductRequest : public Operation
{
public:
    ProductRequest();

    const std::string &name() const { return m_name; }
    void setName(std::string name) { m_name = std::move(name); }
    /// Never null: a new request starts with no fields.
    const std::shared_ptr<RequestFields> &fields() const { return m_fields; }
    void setFields(std::shared_ptr<RequestFields> fields) { m_fields = std::move(fields); }
    /// The definition the request is based on; nullptr for the empty product.
    const std::shared_ptr<ZorvantaProduct> &definition() const { return m_definition; }
    void setDefinition(std::shared_ptr<ZorvantaProduct> definition)
    {
        m_definition = std::move(definition);
    }
    /// The category the request goes under.
    const std::shared_ptr<ZorvantaCategory> &Category() const { return m_category; }
    void setCategory(std::shared_ptr<ZorvantaCategory> category)
    {
        m_category = std::move(category);
    }
    /// The picture's path as the seller gave it, unchecked; empty for none.
    const std::string &image() const { return m_image; }
    void setImage(std::string image) { m_image = std::move(image); }

    /// Builds the request document and sends it through the category, which says in a box how
    /// it went. A picture that cannot be read leaves the document's Image empty and the request
    /// goes all the same. Failures are reported; the request is spent either way.
    void Perform() override;
    std::string operationType() const override { return "ProductRequest"; }
    /// The text of the request document, without the declaration the category puts in front:
    /// RequestNewProduct with a definition, RequestNewProductDef without one. Raises what
    /// fails while building it (the seller's first store for the second form).
    std::string requestDocument() const;

    /// "JPG" for jpg and jpeg, "GIF" for gif, each in all lower or all upper case; empty for
    /// anything else. The extension is what follows the path's last ".", the whole path when
    /// it has none.
    static std::string imageType(const std::string &path);
    /// The whole file. One that cannot be opened leaves a line in the log and gives no bytes;
    /// an empty one raises SubscriptOutOfRange (9), as there is nothing to read into.
    static std::vector<std::uint8_t> ReadBinaryData(const std::string &path);

private:
    void buildProductForm(XmlDocument &document) const;
    void buildDefinitionForm(XmlDocument &document) const;
    void appendFields(XmlDocument &document, XmlNode &parent) const;

    std::string m_name;
    std::shared_ptr<RequestFields> m_fields;
    std::shared_ptr<ZorvantaProduct> m_definition;
    std::shared_ptr<ZorvantaCategory> m_category;
    std::string m_image;
};

#pragma once

#include "catalogue/ZorvantaProduct.h"

#include <string>

class XmlNode;

/// What the seller's lines (associations, publications) read alike from the ERP's replies.

/// The text of the first element that `query` finds below `node`. No element raises -10500
/// with `api` + "no tiene etiqueta " + `element` + ": ", an element without content with
/// `api` + "no tiene valor para " + `element` + ": "; both followed by the node's XML, from
/// `source`.
std::string requiredErpText(const XmlNode &node, const std::string &query, const std::string &api,
                            const std::string &element, const std::string &source);

/// Adds to `values` a value of each `Field` that `query` finds below `attributes`, in document
/// order, under the id of its property, looked up in `properties` by `fieldID`: a property
/// that is not there is runtime error 5. A field without attributes or without `fieldID` raises
/// -10500 with `incomplete` followed by `node`'s XML, from `source`.
void addFieldValues(const XmlNode &attributes, const std::string &query,
                    ZorvantaProduct::Properties &properties, ZorvantaProduct::Values &values,
                    const std::string &incomplete, const XmlNode &node, const std::string &source);

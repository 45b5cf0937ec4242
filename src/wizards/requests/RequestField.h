#pragma once

#include "shell/Collection.h"

#include <memory>
#include <string>

/// One property of a requested product, as the seller fills it in.
struct RequestField
{
    /// The property's id; "|newField|" followed by the name for one the seller added.
    std::string id;
    /// The caption, and the field's key among the request's fields.
    std::string name;
    /// What the seller typed.
    std::string data;
};

/// The properties of a request, keyed by name without regard to case, in order. The request
/// and the page that edits them share the collection and the fields in it.
using RequestFields = Collection<std::shared_ptr<RequestField>>;

#pragma once

#include "platform/core/RaisedError.h"
#include "shell/Operation.h"

#include <memory>
#include <string>

/// What a page knows of the wizard that holds it: the door to the next page and the operation
/// the pages are building.
class PageHost
{
public:
    virtual ~PageHost() = default;
    /// Shows the page under `key`; "Stop" ends the wizard and "Exit" closes the application.
    virtual void SwitchPage(const std::string &key) = 0;
    virtual std::shared_ptr<Operation> operation() const = 0;
    virtual void setOperation(std::shared_ptr<Operation> operation) = 0;
};

/// The wizard's operation as the page needs it: ObjectNotSet when there is none, TypeMismatch
/// (13) when it is of another kind.
template <class Kind> std::shared_ptr<Kind> requiredOperation(const PageHost &wizard)
{
    const std::shared_ptr<Operation> operation = wizard.operation();
    if (!operation)
        raiseRuntimeError(RuntimeErrorNumber::ObjectNotSet);
    auto kind = std::dynamic_pointer_cast<Kind>(operation);
    if (!kind)
        raiseRuntimeError(RuntimeErrorNumber::TypeMismatch);
    return kind;
}

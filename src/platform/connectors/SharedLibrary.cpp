#include "platform/connectors/SharedLibrary.h"

#include "platform/core/RaisedError.h"

#include <cstdlib>
#include <dlfcn.h>

namespace {

std::string lastDlError()
{
    const char *text = dlerror();
    return text != nullptr ? text : "no further detail";
}

} // namespace

SharedLibrary::SharedLibrary(std::string pathVariable, std::string defaultName)
    : m_pathVariable(std::move(pathVariable)), m_defaultName(std::move(defaultName))
{
}

SharedLibrary::~SharedLibrary()
{
    if (m_handle != nullptr)
        dlclose(m_handle);
}

std::string SharedLibrary::path() const
{
    const char *configured = std::getenv(m_pathVariable.c_str());
    return configured != nullptr && *configured != '\0' ? configured : m_defaultName;
}

void *SharedLibrary::symbol(const std::string &name)
{
    if (const auto found = m_symbols.find(name); found != m_symbols.end())
        return found->second;
    if (m_handle == nullptr) {
        const std::string wanted = path();
        // RTLD_NOW: a library that can't resolve its own dependencies fails here, with a
        // message that says so, rather than in the middle of a call.
        m_handle = dlopen(wanted.c_str(), RTLD_NOW | RTLD_LOCAL);
        if (m_handle == nullptr) {
            raiseError(RuntimeErrorNumber::FileNotFound, "Cannot load the library " + wanted +
                                                             " to call " + name + ": " +
                                                             lastDlError());
        }
        m_loadedPath = wanted;
    }
    dlerror();
    void *address = dlsym(m_handle, name.c_str());
    if (address == nullptr) {
        raiseError(RuntimeErrorNumber::EntryPointNotFound, "The library " + m_loadedPath +
                                                               " has no function " + name + ": " +
                                                               lastDlError());
    }
    m_symbols.emplace(name, address);
    return address;
}

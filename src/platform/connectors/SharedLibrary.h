#pragma once

#include <string>
#include <unordered_map>

/// A shared library opened with dlopen at the first lookup of one of its functions and kept
/// open until this object goes.
class SharedLibrary
{
public:
    /// The library is the full path in the environment variable `pathVariable` when that is set
    /// and not empty, else `defaultName`, searched as dlopen searches. The variable is read when
    /// the library is loaded, not before.
    SharedLibrary(std::string pathVariable, std::string defaultName);
    ~SharedLibrary();
    SharedLibrary(const SharedLibrary &) = delete;
    SharedLibrary &operator=(const SharedLibrary &) = delete;

    /// The exported function `name`, of the C type `Function`, loading the library first if it
    /// is not loaded yet. Raises FileNotFound (53) when the library can't be loaded, and
    /// EntryPointNotFound (453) when it lacks the function; both descriptions name the library,
    /// the function and dlerror's text. A load that failed is tried again at the next lookup.
    template <typename Function> Function *function(const std::string &name)
    {
        return reinterpret_cast<Function *>(symbol(name));
    }

private:
    void *symbol(const std::string &name);
    std::string path() const;

    std::string m_pathVariable;
    std::string m_defaultName;
    std::string m_loadedPath;
    void *m_handle = nullptr;
    std::unordered_map<std::string, void *> m_symbols;
};

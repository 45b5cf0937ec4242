#pragma once

#include <string>

/// A temporary directory that holds an ERP data set and the seller's database, with the
/// environment pointing the library at both. Everything goes when the object does.
class ErpSandbox
{
public:
    ErpSandbox();
    ~ErpSandbox();
    ErpSandbox(const ErpSandbox &) = delete;
    ErpSandbox &operator=(const ErpSandbox &) = delete;

    /// Writes the data set of data/erp.xml (the demo seller, four deposits, three taxes) with
    /// the given category tree and products (the content of Categorias), faults (the content of
    /// Fallas) and attributes of the root.
    void writeData(const std::string &catalogue, const std::string &faults = {},
                   const std::string &rootAttributes = {});
    /// Writes a data file as it stands.
    void writeRawData(const std::string &text);

    /// Creates the seller's database, AsistenteDemo.sqlite3, as the program's tool does.
    void createSellerTables();
    /// Runs statements on the seller's database; a failure fails the test.
    void execute(const std::string &sql);

    /// count products "P-0001"... in one category, with descriptions "Artículo 1"...
    static std::string products(int count, const std::string &prefix = "P-",
                                const std::string &description = "Artículo");

    std::string dataFile() const { return m_directory + "/erp.xml"; }

private:
    std::string m_directory;
};

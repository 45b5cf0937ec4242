// The back office's answers during a send, applied to the seller's tables: a store with a
// publication, an update and a withdrawal waiting, sent as one batch. The input is the batch's
// reply, then, after a NUL, the reply to the taxes sent first (accepted when there is no NUL).
// The tables are put back before every input.
#include "FuzzProcess.h"
#include "SellerDatabaseSandbox.h"
#include "gateways/QDX.h"
#include "publication/PublicationProgress.h"
#include "publication/SendPendingPublications.h"
#include "stores/ZorvantaMinistore.h"

namespace {

/// The progress window, which only counts.
class CountedProgress : public PublicationProgress
{
public:
    void setMaxProducts(std::int16_t) override {}
    std::int16_t products() const override { return m_products; }
    void setProducts(std::int16_t handled) override { m_products = handled; }

private:
    std::int16_t m_products = 0;
};

const char *const kTaxesAccepted =
    "<SetTaxes><RESULT><RETURNCODE>0</RETURNCODE><DESCRIPTION>Exito</DESCRIPTION></RESULT>"
    "<Taxes><Tax><TaxID>IVA</TaxID><RETURNCODE>0</RETURNCODE><DESCRIPTION>Impuesto registrado"
    "</DESCRIPTION></Tax></Taxes></SetTaxes>";
const char *const kFields = "<Properties><Field fieldID=\"Cy_List_Price\"><![CDATA[12.5]]></Field>"
                            "</Properties><VariantProperties/>";

/// The demo store, with room for five operations in a batch.
std::shared_ptr<ZorvantaMinistore> storeOnSale()
{
    Collection<std::int32_t> limits;
    limits.add(5, "9");
    gOperationLimits = Collection<Collection<std::int32_t>>();
    gOperationLimits.add(std::move(limits), "300");
    return FuzzProcess::demoStore();
}

/// Publication 1 waits to be published, 2 to be updated, 3 to be withdrawn.
void resetTables(SellerDatabaseSandbox &database)
{
    database.execute(Sql() << "DELETE FROM WIPRODPEND");
    database.execute(Sql() << "DELETE FROM WIPRODPUBL");
    database.execute(Sql() << "DELETE FROM WIPRODASOC");
    const std::pair<int, const char *> rows[] = {{1, "I"}, {2, "A"}, {3, "E"}};
    for (const auto &[number, letter] : rows) {
        const std::string id = std::to_string(number);
        const bool withdrawal = std::string(letter) == "E";
        database.execute(Sql() << "INSERT INTO WIPRODASOC (IdPrdAsociado, IdPrdDovel, "
                                  "IdPrdZorvanta, Atributos, FechaAsociado) VALUES ("
                               << sqlNumber(number) << ", '" << sqlText("ERP-000" + id) << "', '"
                               << sqlText("ZP-0000" + id)
                               << "', '<Properties/><VariantProperties/>', "
                                  "'2026-01-01 09:00:00')");
        database.execute(Sql() << "INSERT INTO WIPRODPUBL (IdPrdPublicado, IdPrdAsociado, "
                                  "IdTienda, Estado, Atributos, FechaPublicado) VALUES ("
                               << sqlNumber(number) << ", " << sqlNumber(number) << ", '100', '"
                               << sqlText(number == 1 ? "L" : "K") << "', '" << sqlText(kFields)
                               << "', '2026-01-02 09:00:00')");
        Sql pending;
        pending << "INSERT INTO WIPRODPEND (IdPrdPublicado, IdPrdAsociado, IdTienda, Estado, "
                   "Atributos, FechaPublicado, NumInt) VALUES ("
                << sqlNumber(number) << ", " << sqlNumber(number) << ", '100', '" << sqlText(letter)
                << "', ";
        if (withdrawal)
            pending << "NULL";
        else
            pending << "'" << sqlText(kFields) << "'";
        pending << ", '" << sqlText("2026-03-01 10:00:0" + id) << "', 0)";
        database.execute(pending);
    }
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size)
{
    FuzzProcess &process = FuzzProcess::get();
    // Made after the process, in its temporary folder.
    static SellerDatabaseSandbox database;
    static const std::shared_ptr<ZorvantaMinistore> ministore = storeOnSale();
    process.beginRun();
    resetTables(database);
    const std::pair<std::string, std::string> replies = fuzzTwoTexts(data, size);
    const bool taxesGiven = replies.first.size() < size;
    process.backOffice().queue(0, taxesGiven ? replies.second : kTaxesAccepted);
    process.backOffice().queue(0, replies.first);
    CountedProgress progress;
    SendPendingPublications(*ministore, progress);
    return 0;
}

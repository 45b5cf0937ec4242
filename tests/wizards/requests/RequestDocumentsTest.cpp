#include "AssistantSandbox.h"
#include "FakeConnectors.h"
#include "ReceivedRequests.h"
#include "catalogue/ZorvantaCategory.h"
#include "catalogue/ZorvantaProduct.h"
#include "gateways/QDX.h"
#include "shell/AppState.h"
#include "wizards/requests/CategoryRequest.h"
#include "wizards/requests/ProductRequest.h"

#include <gmock/gmock.h>

#include <filesystem>
#include <fstream>
#include <iterator>
#include <optional>

using testing::ElementsAre;

namespace {

const std::string kDeclaration = "<?xml version='1.0' encoding='ISO-8859-1'?>";
const std::string kImage =
    R"(<Image xmlns:dt="urn:schemas-microsoft-com:datatypes" dt:dt="bin.base64")";
// The first twelve bytes of a JPEG file, and the same in base64, worked out by hand.
const std::string kJpegBytes("\xFF\xD8\xFF\xE0\x00\x10JFIF\x00\x01", 12);
const std::string kJpegBase64 = "/9j/4AAQSkZJRgAB";

using Received = ReceivedRequest;

/// Requests performed for the demo seller against feria-sim; what it received is read back
/// from its state.
class RequestDocumentsTest : public AssistantSandbox
{
protected:
    void SetUp() override
    {
        AssistantSandbox::SetUp();
        ASSERT_TRUE(CommerceServerInit());
        ASSERT_TRUE(QDXGetOperationConfiguration());
        m_before = received().size();
    }

    static std::vector<Received> received()
    {
        return receivedRequests(std::getenv("ASISTENTE_MARKETPLACE_URL"));
    }
    /// What feria-sim received since the test began.
    std::vector<Received> receivedNow() const
    {
        std::vector<Received> all = received();
        return {all.begin() + static_cast<std::ptrdiff_t>(m_before), all.end()};
    }

    static std::shared_ptr<ZorvantaCategory> category(const std::string &id)
    {
        auto category = std::make_shared<ZorvantaCategory>();
        category->setId(id);
        return category;
    }
    static std::shared_ptr<ZorvantaProduct> definition(const std::string &id)
    {
        auto definition = std::make_shared<ZorvantaProduct>();
        definition->setIsDefinition(true);
        definition->setId(id);
        return definition;
    }
    static void addField(ProductRequest &request, const std::string &id, const std::string &name,
                         const std::string &data)
    {
        request.fields()->add(std::make_shared<RequestField>(RequestField{id, name, data}), name);
    }
    /// A file in the test's working directory.
    std::string picture(const std::string &name, const std::string &bytes) const
    {
        std::ofstream(workDir / name, std::ios::binary) << bytes;
        return (workDir / name).string();
    }
    /// The log's texts without their time stamps.
    std::vector<std::string> loggedTexts() const
    {
        std::vector<std::string> texts;
        for (const std::string &line : logLines())
            texts.push_back(line.substr(21, line.size() - 22));
        return texts;
    }

private:
    std::size_t m_before = 0;
};

/// A picture of a product request with a definition, and the part of the document feria-sim
/// must receive for it.
struct PictureCase
{
    const char *name;
    /// Relative to the working directory, where the file is written with `bytes`.
    std::string path;
    std::optional<std::string> bytes;
    std::string imageTypeAndImage;
};

} // namespace

TEST_F(RequestDocumentsTest, aProductWithADefinitionSendsItsFieldsTypeAndPictureInThatOrder)
{
    ProductRequest request;
    request.setCategory(category("ZC-510"));
    request.setDefinition(definition("pdLibro"));
    request.setName("Poemas reunidos");
    addField(request, "Autor", "Autor", "Gabriela Mistral");
    addField(request, "|newField|Dedicatoria", "Dedicatoria", "Firmado & fechado");
    request.setImage(picture("portada.jpg", kJpegBytes));
    request.Perform();

    EXPECT_THAT(receivedNow(),
                ElementsAre(Received{"RequestNewProduct", "100", "ZC-510",
                                     kDeclaration +
                                         "<RequestNewProduct><Product Definition=\"pdLibro\">"
                                         "<Field fieldID=\"Autor\"><![CDATA[Gabriela Mistral]]>"
                                         "</Field><Field fieldID=\"|newField|Dedicatoria\">"
                                         "<![CDATA[Firmado & fechado]]></Field></Product>"
                                         "<ImageType>JPG</ImageType>" +
                                         kImage + ">" + kJpegBase64 +
                                         "</Image></RequestNewProduct>"}));
    EXPECT_EQ(ui->boxTexts(), std::vector<std::string>{"Solicitud enviada exitosamente"});
    EXPECT_TRUE(logLines().empty());
}

TEST_F(RequestDocumentsTest, theEmptyProductAsksForADefinitionNamingTheFirstStoreAndNoPicture)
{
    ProductRequest request;
    request.setCategory(category("ZC-520"));
    request.setName("Agenda 2027");
    addField(request, "Tapa", "Tapa", "Cuero");
    addField(request, "|newField|Hojas", "Hojas", "");
    // A picture without a definition has no place in the document.
    request.setImage(picture("agenda.jpg", kJpegBytes));
    request.Perform();

    EXPECT_THAT(receivedNow(),
                ElementsAre(Received{"RequestNewProductDef", "100", "ZC-520",
                                     kDeclaration +
                                         "<RequestNewProductDef><StoreID>100</StoreID>"
                                         "<Name>Agenda 2027</Name><Fields>"
                                         "<Field fieldID=\"Tapa\"><![CDATA[Cuero]]></Field>"
                                         "<Field fieldID=\"|newField|Hojas\"><![CDATA[]]></Field>"
                                         "</Fields></RequestNewProductDef>"}));
}

TEST_F(RequestDocumentsTest, aNewCategoryIsAskedForFirstAndItsEmptyProductGoesUnderItAfter)
{
    CategoryRequest request;
    request.setParentCategory(category("ZC-500"));
    request.setName("Cómics");
    request.product().setName("Historieta");
    request.Perform();

    EXPECT_THAT(receivedNow(),
                ElementsAre(Received{"RequestNewCategory", "100", "ZC-500", "Cómics"},
                            Received{"RequestNewProductDef", "100", "",
                                     kDeclaration +
                                         "<RequestNewProductDef><StoreID>100</StoreID>"
                                         "<Name>Historieta</Name><Fields/>"
                                         "</RequestNewProductDef>"}));
    EXPECT_EQ(ui->boxTexts(), std::vector<std::string>{"Solicitud enviada exitosamente"});
    // Whoever runs the sandbox sees both arrive on feria-sim's output.
    std::ifstream output(std::filesystem::path(std::getenv("ASISTENTE_TEST_URL_FILE"))
                             .replace_filename("out"));
    const std::string printed((std::istreambuf_iterator<char>(output)),
                              std::istreambuf_iterator<char>());
    EXPECT_THAT(printed, testing::HasSubstr("solicitud recibida: RequestNewCategory tienda=100 "
                                            "categoría=ZC-500 (7 bytes)\nsolicitud recibida: "
                                            "RequestNewProductDef tienda=100 categoría= (142 "
                                            "bytes)\n"));
}

TEST_F(RequestDocumentsTest, thePictureAndItsTypeGoAsThePathAndTheFileAllow)
{
    const PictureCase table[] = {
        {"a lower-case gif", "logo.gif", "GIF89a",
         "<ImageType>GIF</ImageType>" + kImage + ">R0lGODlh</Image>"},
        {"an upper-case JPEG", "FOTO.JPEG", kJpegBytes,
         "<ImageType>JPG</ImageType>" + kImage + ">" + kJpegBase64 + "</Image>"},
        {"a mixed-case extension gives no type and still sends the picture", "portada.Jpg",
         kJpegBytes, "<ImageType/>" + kImage + ">" + kJpegBase64 + "</Image>"},
        {"a path without a dot is its own extension", "portadajpg", kJpegBytes,
         "<ImageType/>" + kImage + ">" + kJpegBase64 + "</Image>"},
        {"a file called gif is a GIF", "gif", "GIF89a",
         "<ImageType>GIF</ImageType>" + kImage + ">R0lGODlh</Image>"},
        {"an empty file gives an empty Image", "vacia.gif", "",
         "<ImageType>GIF</ImageType>" + kImage + "/>"},
        {"no picture at all", "", std::nullopt, "<ImageType/>" + kImage + "/>"},
        {"a long picture is broken in lines of 76", "ceros.gif", std::string(60, '\0'),
         "<ImageType>GIF</ImageType>" + kImage + ">" + std::string(76, 'A') + "\nAAAA</Image>"},
    };
    std::size_t sent = 0;
    for (const PictureCase &row : table) {
        SCOPED_TRACE(row.name);
        ProductRequest request;
        request.setCategory(category("ZC-510"));
        request.setDefinition(definition("pdLibro"));
        if (row.bytes)
            picture(row.path, *row.bytes);
        request.setImage(row.path);
        request.Perform();
        const std::vector<Received> now = receivedNow();
        ASSERT_EQ(now.size(), ++sent);
        EXPECT_EQ(now.back().text, kDeclaration +
                                       "<RequestNewProduct><Product Definition=\"pdLibro\"/>" +
                                       row.imageTypeAndImage + "</RequestNewProduct>");
    }
    EXPECT_TRUE(logLines().empty()) << "only a picture that cannot be opened is logged";
}

TEST_F(RequestDocumentsTest, aPictureThatCannotBeOpenedIsLoggedAndTheRequestStillGoes)
{
    for (const std::string &path : {(workDir / "no-existe.jpg").string(), workDir.string()}) {
        ProductRequest request;
        request.setCategory(category("ZC-510"));
        request.setDefinition(definition("pdLibro"));
        request.setImage(path);
        request.Perform();
    }
    const std::string expected = kDeclaration +
                                 "<RequestNewProduct><Product Definition=\"pdLibro\"/>"
                                 "<ImageType>JPG</ImageType>" +
                                 kImage + "/></RequestNewProduct>";
    const std::vector<Received> now = receivedNow();
    ASSERT_EQ(now.size(), 2u);
    EXPECT_EQ(now[0].text, expected);
    EXPECT_EQ(now[1].text, kDeclaration +
                               "<RequestNewProduct><Product Definition=\"pdLibro\"/>"
                               "<ImageType/>" +
                               kImage + "/></RequestNewProduct>");
    EXPECT_EQ(loggedTexts(),
              std::vector<std::string>(
                  2, "Error abriendo archivo de imagen en ProducrRequest:ReadBinaryData"));
    EXPECT_EQ(ui->boxTexts(),
              std::vector<std::string>(2, "Solicitud enviada exitosamente"));
}

TEST_F(RequestDocumentsTest, aValueHoldingTheEndOfCdataIsHandedToTheDomAsItStands)
{
    ProductRequest request;
    request.setCategory(category("ZC-510"));
    request.setName("x");
    addField(request, "Nota", "Nota", "a]]>b");
    request.Perform();
    ASSERT_EQ(receivedNow().size(), 1u);
    EXPECT_EQ(receivedNow()[0].text,
              kDeclaration + "<RequestNewProductDef><StoreID>100</StoreID><Name>x</Name><Fields>"
                             "<Field fieldID=\"Nota\"><![CDATA[a]]]]><![CDATA[>b]]></Field>"
                             "</Fields></RequestNewProductDef>");
}

TEST_F(RequestDocumentsTest, aRefusedOrCutAnswerShowsTheFailureThenTheError)
{
    ProductRequest refused;
    refused.setCategory(category("ZC-600"));
    refused.setDefinition(definition("pdEquipoDeportivo"));
    refused.Perform();
    ProductRequest cut;
    cut.setCategory(category("ZC-600"));
    cut.setName("Collar");
    cut.Perform();
    CategoryRequest closed;
    closed.setParentCategory(category("ZC-600"));
    closed.setName("Acuarios");
    closed.Perform();

    EXPECT_THAT(ui->boxTexts(),
                ElementsAre("Solicitud de producto falló, por favor intente más tarde",
                            "Error: -8500: Error de la aplicación. Contacte al administrador "
                            "del sistema",
                            "Solicitud de producto falló, por favor intente más tarde",
                            "Error: -10503: Error de la aplicación. Contacte al administrador "
                            "del sistema",
                            "Solicitud de categoría falló, por favor intente más tarde",
                            "Error: -8010: Categoría cerrada"));
    const std::vector<std::string> logged = loggedTexts();
    ASSERT_EQ(logged.size(), 3u);
    EXPECT_EQ(logged[0], "Error: -8500 (ZorvantaProduct:RequestNewProduct): Solicitud rechazada "
                         "por el operador");
    EXPECT_THAT(logged[1], testing::StartsWith(
                               "Error: -10503 (ZorvantaCategory:RequestNewProductDefinition): El "
                               "XML retornado por CommerceServerStoreAPI.RequestNewProductDef "
                               "está mal construido: "));
    EXPECT_EQ(logged[2],
              "Error: -8010 (ZorvantaCategory:RequestNewSubcategory): Categoría cerrada");
    // The cut answer came after feria-sim took the request; the refused ones it never kept.
    ASSERT_EQ(receivedNow().size(), 1u);
    EXPECT_EQ(receivedNow()[0].operation, "RequestNewProductDef");
    EXPECT_TRUE(gAppRunning);
}

TEST_F(RequestDocumentsTest, withoutTheSellersStoresTheEmptyProductFailsOnItsStoreAndSendsNothing)
{
    // The back office answers nothing: the seller's stores cannot be read.
    setBackOfficeLibrary(std::make_shared<FakeBackOffice>());
    ProductRequest request;
    request.setCategory(category("ZC-510"));
    request.setName("Agenda");
    request.Perform();

    EXPECT_THAT(loggedTexts(), testing::Contains("Error: -10005 (ProductRequest:Perform): No "
                                                 "existen minitiendas para el cliente "));
    EXPECT_TRUE(receivedNow().empty());
}

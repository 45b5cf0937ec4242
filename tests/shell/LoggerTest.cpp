#include "ShellTest.h"

#include "shell/AppState.h"
#include "shell/ErrorHandling.h"
#include "shell/Logger.h"
#include "platform/ui/LoadedWindows.h"

#include <QCloseEvent>
#include <QDialog>
#include <QWidget>

#include <fstream>


namespace {

/// A window that notes when it is asked to close, and may refuse.
class RecordingWindow : public QWidget
{
public:
    RecordingWindow(std::string name, std::vector<std::string> &unloaded)
        : m_name(std::move(name)), m_unloaded(unloaded)
    {
    }
    bool refuses = false;

protected:
    void closeEvent(QCloseEvent *event) override
    {
        m_unloaded.push_back(m_name);
        event->setAccepted(!refuses);
    }

private:
    std::string m_name;
    std::vector<std::string> &m_unloaded;
};

struct Band
{
    const char *name;
    std::int32_t number;
    int type;
    int source;
};

// Both classifications at every band edge, and just outside them.
const Band kBands[] = {
    {"zero is no error", 0, 5, -1},
    {"-10000 user, system", -10000, 0, 1},
    {"-10499 user, system", -10499, 0, 1},
    {"-10500 application, system", -10500, 1, 1},
    {"-10999 application, system", -10999, 1, 1},
    {"-11000 fatal, system", -11000, 2, 1},
    {"-11999 fatal, system", -11999, 2, 1},
    {"-12000 unknown", -12000, -1, -1},
    {"-9999 just below -10000 is fatal, band 2", -9999, 2, 2},
    {"-8000 user, band 2", -8000, 0, 2},
    {"-8499 user, band 2", -8499, 0, 2},
    {"-8500 application, band 2", -8500, 1, 2},
    {"-8999 application, band 2", -8999, 1, 2},
    {"-9000 fatal, band 2", -9000, 2, 2},
    {"-7999 fatal, band 3", -7999, 2, 3},
    {"-7000 fatal, band 3", -7000, 2, 3},
    {"-6999 application, band 3", -6999, 1, 3},
    {"-6500 application, band 3", -6500, 1, 3},
    {"-6499 user, band 3", -6499, 0, 3},
    {"-6000 user, band 3", -6000, 0, 3},
    {"-5999 unknown type, band 4", -5999, -1, 4},
    {"-4000 unknown type, band 4", -4000, -1, 4},
    {"-3999 unknown type, connector", -3999, -1, 0},
    {"-2048 unknown type, connector", -2048, -1, 0},
    {"-2000 unknown type, connector", -2000, -1, 0},
    {"-1999 unknown everything", -1999, -1, -1},
    {"a positive runtime number", 91, -1, -1},
    {"a large platform status", -2147217900, -1, -1},
};

} // namespace

TEST(LoggerClassification, everyBandEdge)
{
    for (const Band &band : kBands) {
        SCOPED_TRACE(band.name);
        EXPECT_EQ(gLogger.getTypeError(band.number), band.type);
        EXPECT_EQ(gLogger.getSourceError(band.number), band.source);
    }
}

class ShowErrorTest : public ShellTest
{
};

TEST_F(ShowErrorTest, theSixRowsWithTheirTitlesAndStyles)
{
    struct Row
    {
        const char *name;
        std::int32_t number;
        const char *text;
        const char *title;
        MessageStyle style;
    };
    const Row rows[] = {
        {"database", -11000,
         "Error de base de datos: Verifique que la base de datos esté ejecutándose.", "",
         MessageStyle::Plain},
        {"user reads the description", -10003, "Error: -10003: el detalle", "",
         MessageStyle::Plain},
        {"connector band", -2048,
         "Error: -2048: Error de la aplicación. Contacte al administrador del sistema", "",
         MessageStyle::Plain},
        {"application", -10500,
         "Error: -10500: Error de la aplicación. Contacte al administrador del sistema", "",
         MessageStyle::Plain},
        {"fatal, with the closing full stop", -11001,
         "Error Fatal: -11001: Error de la aplicación. Contacte al administrador del sistema.",
         "Error Fatal", MessageStyle::Critical},
        {"unknown, without it", 91,
         "Error: 91: Error de la aplicación. Contacte al administrador del sistema",
         "Error Fatal", MessageStyle::Critical},
    };
    for (const Row &row : rows) {
        SCOPED_TRACE(row.name);
        ui->clearBoxes();
        gLogger.ShowError(row.number, "el detalle");
        ASSERT_EQ(ui->boxes().size(), 1u);
        EXPECT_EQ(ui->boxes()[0].text, row.text);
        EXPECT_EQ(ui->boxes()[0].title, row.title);
        EXPECT_EQ(ui->boxes()[0].style, row.style);
        EXPECT_EQ(ui->boxes()[0].buttons, MessageButtons::Ok);
    }
}

class FailurePathTest : public ShellTest
{
protected:
    void fail(std::int32_t number, const std::string &description,
              const std::string &source = kDefaultErrorSource)
    {
        withHandler("Prueba:Procedimiento", [&] { raiseError(number, description, source); });
    }
};

TEST_F(FailurePathTest, aUserErrorIsLoggedShownInWordsAndTheApplicationGoesOn)
{
    fail(-10003, "El depósito virtual ya está asociado");

    EXPECT_EQ(ui->boxTexts(),
              std::vector<std::string>{"Error: -10003: El depósito virtual ya está asociado"});
    ASSERT_EQ(logLines().size(), 1u);
    EXPECT_TRUE(gAppRunning);
}

TEST_F(FailurePathTest, anApplicationErrorKeepsItsDescriptionForTheLogOnly)
{
    fail(-10500, "falta el nodo Producto");

    EXPECT_EQ(ui->boxTexts()[0],
              "Error: -10500: Error de la aplicación. Contacte al administrador del sistema");
    ASSERT_EQ(logLines().size(), 1u);
    EXPECT_NE(logLines()[0].find("falta el nodo Producto"), std::string::npos);
    EXPECT_TRUE(gAppRunning);
}

TEST_F(FailurePathTest, theLogRecordIsQuotedWithNothingEscaped)
{
    fail(-10502, "texto con \"comillas\" dentro");

    const auto lines = logLines();
    ASSERT_EQ(lines.size(), 1u);
    const std::string &line = lines[0];
    // "dd/mm/yyyy hh:mm:ss Error: n (source): description"
    ASSERT_GE(line.size(), 22u);
    EXPECT_EQ(line.front(), '"');
    EXPECT_EQ(line.back(), '"');
    EXPECT_EQ(line[20], ' ');
    EXPECT_EQ(line.substr(21),
              "Error: -10502 (Prueba:Procedimiento): texto con \"comillas\" dentro\"");
}

TEST_F(FailurePathTest, recordsEndInCarriageReturnAndLineFeedAndTheFileGrows)
{
    fail(-10500, "uno");
    fail(-10500, "dos");

    std::ifstream log(workDir / "bitacora.log", std::ios::binary);
    const std::string content((std::istreambuf_iterator<char>(log)), {});
    EXPECT_EQ(std::count(content.begin(), content.end(), '\n'), 2);
    EXPECT_NE(content.find("uno\"\r\n"), std::string::npos);
    EXPECT_NE(content.find("dos\"\r\n"), std::string::npos);
}

TEST_F(FailurePathTest, aSourceAlreadySetSurvivesTheHandlersLabel)
{
    fail(-10500, "del componente", "msxml4.dll");
    fail(-10500, "sin nombre");

    const auto lines = logLines();
    ASSERT_EQ(lines.size(), 2u);
    EXPECT_NE(lines[0].find("(msxml4.dll)"), std::string::npos);
    EXPECT_NE(lines[1].find("(Prueba:Procedimiento)"), std::string::npos);
}

TEST_F(FailurePathTest, aRuntimeErrorIsFatalUnloadsEveryWindowLastFirstAndSilencesTheLog)
{
    std::vector<std::string> unloaded;
    RecordingWindow first("first", unloaded), hidden("hidden", unloaded), last("last", unloaded),
        neverLoaded("neverLoaded", unloaded);
    for (RecordingWindow *window : {&first, &hidden, &last}) {
        window->show();
        LoadedWindows::instance().load(*window);
    }
    hidden.hide(); // loaded still, as a window that hid itself is
    neverLoaded.show();

    fail(91, "Variable de objeto no establecida");

    EXPECT_EQ(ui->boxTexts(),
              (std::vector<std::string>{
                  "Error: 91: Error de la aplicación. Contacte al administrador del sistema",
                  "La aplicación será cerrada"}));
    EXPECT_EQ(ui->boxes()[0].title, "Error Fatal");
    EXPECT_EQ(ui->boxes()[1].title, "");
    EXPECT_EQ(unloaded, (std::vector<std::string>{"last", "hidden", "first"}));
    EXPECT_FALSE(gAppRunning);

    // Once closed, nothing more reaches the log or the screen.
    fail(-11000, "otra vez");
    EXPECT_EQ(logLines().size(), 1u);
    EXPECT_EQ(ui->boxes().size(), 2u);
    neverLoaded.hide();
}

TEST_F(FailurePathTest, aWindowThatRefusesToCloseDoesNotKeepTheOthersOpen)
{
    std::vector<std::string> unloaded;
    RecordingWindow first("first", unloaded), stubborn("stubborn", unloaded);
    stubborn.refuses = true;
    for (RecordingWindow *window : {&first, &stubborn}) {
        window->show();
        LoadedWindows::instance().load(*window);
    }

    fail(-11001, "APIDovel falló");

    EXPECT_EQ(unloaded, (std::vector<std::string>{"stubborn", "first"}));
    EXPECT_FALSE(first.isVisible());
    EXPECT_TRUE(stubborn.isVisible());
    stubborn.refuses = false;
    stubborn.close();
}

TEST_F(FailurePathTest, aDialogIsLoadedOnlyWhileItRuns)
{
    QDialog dialog;
    dialog.setObjectName("Pregunta");
    std::vector<QWidget *> whileRunning;
    ui->queueDialog([&](QDialog &shown) {
        whileRunning = LoadedWindows::instance().windows();
        return shown.objectName() == "Pregunta";
    });

    EXPECT_TRUE(ui->runModal(dialog));

    EXPECT_EQ(whileRunning, std::vector<QWidget *>{&dialog});
    EXPECT_TRUE(LoadedWindows::instance().windows().empty());
    EXPECT_EQ(ui->dialogsShown(), std::vector<std::string>{"Pregunta"});
}

TEST_F(FailurePathTest, theDatabaseErrorShowsItsOwnTextThenCloses)
{
    fail(-11000, "Error en la base de datos: no abre");

    EXPECT_EQ(ui->boxTexts(),
              (std::vector<std::string>{
                  "Error de base de datos: Verifique que la base de datos esté ejecutándose.",
                  "La aplicación será cerrada"}));
    EXPECT_FALSE(gAppRunning);
}

TEST_F(FailurePathTest, theMainWindowIsUnloadedAndForgottenOnAFatalError)
{
    struct RecordingWindow : HostWindow
    {
        int unloads = 0;
        void ShowWizard(const std::string &) override {}
        void unload() override { ++unloads; }
    } window;
    gMainWindow = &window;

    fail(-2048, "Error conectándose a través del socket");

    EXPECT_EQ(window.unloads, 1);
    EXPECT_EQ(gMainWindow, nullptr);
    EXPECT_EQ(ui->boxTexts().front(),
              "Error: -2048: Error de la aplicación. Contacte al administrador del sistema");
}

TEST_F(FailurePathTest, anUnwritableLogLetsTheErrorLeaveBeforeAnyBox)
{
    std::filesystem::create_directory(workDir / "bitacora.log"); // a directory cannot be appended

    bool reachedCaller = false;
    try {
        fail(-10003, "no llega a la pantalla");
    } catch (const RaisedError &error) {
        reachedCaller = true;
        EXPECT_EQ(error.number(), RuntimeErrorNumber::PathFileAccess);
    }
    EXPECT_TRUE(reachedCaller);
    EXPECT_TRUE(ui->boxes().empty());
}

TEST_F(FailurePathTest, anErrorThatEscapesEveryHandlerIsShownAndCloses)
{
    std::filesystem::create_directory(workDir / "bitacora.log");
    QWidget window;
    window.show();
    LoadedWindows::instance().load(window);

    guardEvent([&] { fail(-10003, "no llega a la pantalla"); });

    ASSERT_EQ(ui->boxes().size(), 2u);
    EXPECT_EQ(ui->boxes()[0].title, "Error Fatal");
    EXPECT_NE(ui->boxes()[0].text.find("Error: 75: "), std::string::npos);
    EXPECT_EQ(ui->boxes()[1].text, "La aplicación será cerrada");
    EXPECT_FALSE(window.isVisible());
    EXPECT_FALSE(gAppRunning);
}

TEST_F(FailurePathTest, aProcedureWithAHandlerReturnsItsTypesDefault)
{
    const int number = withHandler("Prueba:Numero", []() -> int {
        raiseError(-10500, "x");
    });
    const std::string text = withHandler("Prueba:Texto", []() -> std::string {
        throw std::runtime_error("fuera de rango");
    });
    EXPECT_EQ(number, 0);
    EXPECT_EQ(text, "");
    // A foreign exception is a runtime error 5, fatal.
    EXPECT_NE(logLines().back().find("Error: 5 (Prueba:Texto): fuera de rango"),
              std::string::npos);
}

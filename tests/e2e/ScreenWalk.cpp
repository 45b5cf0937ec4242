#include "ScreenWalk.h"

#include "FeriaSimProcess.h"
#include "gateways/BackOfficeSession.h"
#include "gateways/CommerceServer.h"
#include "gateways/QDX.h"
#include "platform/db/Connection.h"
#include "platform/db/EmbeddedDatabase.h"
#include "platform/ui/ScriptedUi.h"
#include "publication/SellerLists.h"
#include "shell/AppState.h"
#include "shell/window/MainWindow.h"
#include "shell/window/Panels.h"
#include "stores/Seller.h"

#include <QApplication>
#include <QPushButton>
#include <QTableWidget>
#include <QTest>
#include <cstdlib>
#include <fstream>
#include <iostream>
#include <sstream>
#include <unistd.h>

ScreenWalk::ScreenWalk(std::string folder, std::string prefix, const std::string &marketplaceFile,
                       const std::vector<Sql> &rows)
    : m_folder(std::move(folder)), m_prefix(std::move(prefix)),
      m_dir(std::filesystem::temp_directory_path() /
            ("asistente-" + m_prefix + "-screens-" + std::to_string(getpid())))
{
    ScriptedUi::install();
    std::filesystem::create_directories(m_dir);
    std::filesystem::current_path(m_dir);
    setenv("ASISTENTE_DATA_DIR", m_dir.c_str(), 1);
    setenv("ASISTENTE_ERP_LIBRARY", ZRVNDLL_PATH, 1);
    setenv("ASISTENTE_BACKOFFICE_LIBRARY", QDX_PATH, 1);
    createEmbeddedDatabase(embeddedDatabasePath("AsistenteDemo"));
    {
        Connection db;
        db.open("Driver={SQL Server};Server=localhost;Uid=vendedor;Pwd=demo;"
                "Database=AsistenteDemo",
                15);
        for (const Sql &row : rows)
            db.execute(row);
    }
    std::ifstream file(marketplaceFile);
    std::stringstream marketplace;
    marketplace << file.rdbuf();
    m_feria = FeriaSimProcess::withData(marketplace.str());
    setenv("ASISTENTE_MARKETPLACE_URL", m_feria->url().c_str(), 1);
    setBackOfficeSession([]() -> BackOfficeSession & { return *gSeller; });
    registerSellerListLines();
    gAppRunning = true;
    m_started = !m_feria->url().empty() && CommerceServerInit() && QDXGetOperationConfiguration();
    if (!m_started)
        std::cerr << "the sandbox did not start\n";
}

ScreenWalk::~ScreenWalk()
{
    if (gMainWindow)
        gMainWindow->unload();
    if (gSeller.exists())
        gSeller->closeSession();
    std::error_code ignored;
    std::filesystem::remove_all(m_dir, ignored);
}

void ScreenWalk::open(const char *panel, const char *wizardName)
{
    auto *window = new MainWindow(makeWizardPanel, [] { gSeller->closeSession(); });
    gMainWindow = window;
    window->loadAndShow();
    window->resize(1100, 800);
    window->ShowWizard(panel);
    m_wizard = window->findChild<QWidget *>(wizardName);
}

void ScreenWalk::shoot(const char *name)
{
    QApplication::processEvents();
    QTest::qWait(300);
    const std::string file =
        m_folder + "/" + m_prefix + "-" + std::to_string(++m_shot) + "-" + name + ".png";
    const std::string command = "xwd -root -silent | convert xwd:- '" + file + "'";
    if (std::system(command.c_str()) != 0)
        std::cerr << "could not photograph " << file << "\n";
}

void ScreenWalk::follow(const std::vector<Step> &steps)
{
    for (const Step &step : steps) {
        press(step.page, step.button);
        if (step.then)
            step.then();
        if (step.shot != nullptr)
            shoot(step.shot);
    }
}

void ScreenWalk::clickLine(const char *page, const char *code)
{
    auto *grid = control<QTableWidget>(page, "MSFlexGrid1");
    const auto found = grid->findItems(QString::fromUtf8(code), Qt::MatchExactly);
    if (found.isEmpty())
        return;
    grid->scrollToItem(found.first());
    QTest::mouseClick(grid->viewport(), Qt::LeftButton, {},
                      grid->visualItemRect(found.first()).center());
}

void ScreenWalk::press(const char *page, const char *button)
{
    QTest::mouseClick(control<QPushButton>(page, button), Qt::LeftButton);
}

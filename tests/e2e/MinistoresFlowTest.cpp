#include "WizardFlowTest.h"
#include "wizards/ministores/MinistoresWizard.h"

#include <QDialog>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QTest>
#include <QTreeWidget>
#include <gmock/gmock.h>
#include <optional>

using testing::ElementsAre;

namespace {

const char *const kDemoRows[] = {"Depósito central||",
                                 "Almacén de la tienda principal||",
                                 "Depósito de mercancía en tránsito||",
                                 "Bodega de devoluciones||",
                                 "|Andina Hogar y Cocina|Activa",
                                 "|Andina Deportes, Camping y Aventura al Aire Libre|Activa",
                                 "|Andina Tecnología|Activa"};

/// The demo seller's assistant, opened on the ministore wizard. Pages are driven through their
/// widgets, the credentials typed into the real dialog.
class MinistoresFlowTest : public WizardFlowTest<MinistoresWizard>
{
protected:
    void openWizard() { openWizardPanel("Ministores"); }
    QTreeWidget *list(const char *pageName) const
    {
        return page(pageName)->findChild<QTreeWidget *>("ListView1");
    }
    std::vector<std::string> rows(const char *pageName) const
    {
        std::vector<std::string> texts;
        QTreeWidget *view = list(pageName);
        for (int row = 0; row < view->topLevelItemCount(); ++row)
            texts.push_back(rowText(view->topLevelItem(row)));
        return texts;
    }
    static std::string rowText(const QTreeWidgetItem *item)
    {
        return item->text(0).toStdString() + "|" + item->text(1).toStdString() + "|" +
               item->text(2).toStdString();
    }
    std::string selectedRow(const char *pageName) const
    {
        const QTreeWidgetItem *item = list(pageName)->currentItem();
        return item ? rowText(item) : std::string();
    }
    /// Clicks the row that shows `text` in one of its columns.
    void clickRow(const char *pageName, const char *text)
    {
        QTreeWidget *view = list(pageName);
        const auto found = view->findItems(QString::fromUtf8(text), Qt::MatchExactly, 0) +
                           view->findItems(QString::fromUtf8(text), Qt::MatchExactly, 1);
        ASSERT_FALSE(found.isEmpty()) << text;
        QTest::mouseClick(view->viewport(), Qt::LeftButton, {},
                          view->visualItemRect(found.first()).center());
    }
    QPushButton *button(const char *pageName, const char *name) const
    {
        return page(pageName)->findChild<QPushButton *>(name);
    }
    void click(const char *pageName, const char *name)
    {
        QTest::mouseClick(button(pageName, name), Qt::LeftButton);
    }
    std::string labelText(const char *pageName, const char *name) const
    {
        return page(pageName)->findChild<QLabel *>(name)->text().toStdString();
    }
    /// The person's answer to the next credentials dialog: Aceptar with these, or Cancelar.
    void willType(const char *user, const char *password, bool accept = true)
    {
        ui->queueDialog([=](QDialog &dialog) {
            QTest::keyClicks(dialog.findChild<QLineEdit *>("UsernameBox"), user);
            QTest::keyClicks(dialog.findChild<QLineEdit *>("PasswordBox"), password);
            dialog.findChild<QPushButton *>(accept ? "OK" : "Cancel")->click();
            return accept;
        });
    }
    /// From the list to the confirmation of linking a deposit with a ministore.
    void chooseLink(const char *deposit, const char *ministore)
    {
        clickRow("ShowMinistores1", deposit);
        click("ShowMinistores1", "Asociar");
        clickRow("AssociateMinistore1", ministore);
        click("AssociateMinistore1", "Forward");
    }
    std::vector<std::string> links()
    {
        return database->rows(Sql("SELECT IdTienda, Descrip, IDDepoVDOVEL FROM WITIENDAS"));
    }
};

} // namespace

TEST_F(MinistoresFlowTest, linkingAFreeDepositToAFreeMinistoreWritesTheLinkAndShowsItActive)
{
    openWizard();
    EXPECT_THAT(rows("ShowMinistores1"), testing::ElementsAreArray(kDemoRows));
    clickRow("ShowMinistores1", "Depósito central");
    EXPECT_TRUE(button("ShowMinistores1", "Asociar")->isEnabled());
    EXPECT_FALSE(button("ShowMinistores1", "Desasociar")->isEnabled());
    click("ShowMinistores1", "Asociar");

    ASSERT_EQ(wizard->currentPageKey(), "AssociateMinistore");
    EXPECT_EQ(labelText("AssociateMinistore1", "Label1"), "DV-01 : Depósito central");
    EXPECT_EQ(labelText("AssociateMinistore1", "Label2"),
              "Zona Industrial Norte, galpón 12, Valencia");
    EXPECT_EQ(rows("AssociateMinistore1").size(), 3u);
    clickRow("AssociateMinistore1", "Andina Tecnología");
    click("AssociateMinistore1", "Forward");

    ASSERT_EQ(wizard->currentPageKey(), "ConfirmMinistoreAssociation");
    EXPECT_EQ(labelText("ConfirmMinistoreAddition1", "Label8"), "300");
    EXPECT_EQ(labelText("ConfirmMinistoreAddition1", "Label10"), "Andina Tecnología");
    EXPECT_FALSE(button("ConfirmMinistoreAddition1", "Forward")->isEnabled());
    willType("lucia", "tecno2026");
    click("ConfirmMinistoreAddition1", "Accept");

    EXPECT_THAT(links(), ElementsAre("300|Andina Tecnología|DV-01"));
    EXPECT_EQ(wizard->currentPageKey(), "Show");
    EXPECT_EQ(wizard->operation(), nullptr);
    EXPECT_EQ(rows("ShowMinistores1").front(), "Depósito central|Andina Tecnología|Activa");
    EXPECT_EQ(ui->seen(), std::vector<std::string>{"[ValidateUserForm]"});
}

TEST_F(MinistoresFlowTest, unlinkingDeletesTheLinkAndFreesBothHalves)
{
    database->execute(Sql("INSERT INTO WITIENDAS VALUES ('200', 'Andina Deportes', 'DV-02')"));
    openWizard();
    clickRow("ShowMinistores1", "Almacén de la tienda principal");
    EXPECT_EQ(selectedRow("ShowMinistores1"),
              "Almacén de la tienda principal|Andina Deportes, Camping y Aventura al Aire Libre|"
              "Activa");
    EXPECT_TRUE(button("ShowMinistores1", "Desasociar")->isEnabled());
    click("ShowMinistores1", "Desasociar");
    ASSERT_EQ(wizard->currentPageKey(), "ConfirmMinistoreRemoval");
    willType("jorge", "montana7");
    click("ConfirmMinistoreRemoval1", "Accept");

    EXPECT_TRUE(links().empty());
    EXPECT_THAT(rows("ShowMinistores1"), testing::ElementsAreArray(kDemoRows));
}

struct Refusal
{
    const char *name;
    std::optional<Sql> before;
    bool unlink;
    std::optional<Sql> meanwhile;
    const char *box;
};

void PrintTo(const Refusal &refusal, std::ostream *out)
{
    *out << refusal.name;
}

class RefusalTest : public MinistoresFlowTest, public testing::WithParamInterface<Refusal>
{
};

TEST_P(RefusalTest, isShownInWordsAndTheWizardGoesOn)
{
    const Refusal &refusal = GetParam();
    if (refusal.before)
        database->execute(*refusal.before);
    openWizard();
    if (refusal.unlink) {
        clickRow("ShowMinistores1", "Almacén de la tienda principal");
        click("ShowMinistores1", "Desasociar");
    } else {
        chooseLink("Depósito central", "Andina Hogar y Cocina");
    }
    if (refusal.meanwhile)
        database->execute(*refusal.meanwhile);
    willType(refusal.unlink ? "jorge" : "carmen", refusal.unlink ? "montana7" : "andina2026");
    click(refusal.unlink ? "ConfirmMinistoreRemoval1" : "ConfirmMinistoreAddition1", "Accept");

    // The credentials are asked first; only then does the refusal come.
    EXPECT_THAT(ui->seen(), ElementsAre("[ValidateUserForm]", refusal.box));
    EXPECT_EQ(ui->boxes().at(0).style, MessageStyle::Plain);
    EXPECT_TRUE(gAppRunning);
    EXPECT_EQ(wizard->currentPageKey(), "Show");
}

INSTANTIATE_TEST_SUITE_P(
    MinistoresFlow, RefusalTest,
    testing::Values(
        Refusal{"someoneLinkedTheMinistoreMeanwhile", std::nullopt, false,
                Sql("INSERT INTO WITIENDAS VALUES ('100', 'x', 'DV-99')"),
                "Error: -10002: Existe una asociación a la minitienda 100"},
        Refusal{"someoneLinkedTheDepositMeanwhile", std::nullopt, false,
                Sql("INSERT INTO WITIENDAS VALUES ('200', 'x', 'DV-01')"),
                "Error: -10003: Existe una asociación al depósito virtual DV-01"},
        Refusal{"theMinistoreHasPublications",
                Sql("INSERT INTO WITIENDAS VALUES ('200', 'Andina Deportes', 'DV-02')"), true,
                Sql("INSERT INTO WIPRODPUBL (IdPrdAsociado, IdTienda, Estado) VALUES (1, '200', "
                    "'K')"),
                "Error: -10004: No se puede remover la asociación al depósito virtual porque "
                "existen productos publicados en la minitienda asociada: Andina Deportes, "
                "Camping y Aventura al Aire Libre"}),
    [](const testing::TestParamInfo<Refusal> &row) { return std::string(row.param.name); });

TEST_F(MinistoresFlowTest, threeWrongPasswordsCancelTheOperation)
{
    openWizard();
    chooseLink("Depósito central", "Andina Hogar y Cocina");
    for (int attempt = 0; attempt < 3; ++attempt)
        willType("carmen", "equivocada");
    click("ConfirmMinistoreAddition1", "Accept");

    std::vector<std::pair<std::string, std::string>> boxes;
    for (const RecordedBox &box : ui->boxes())
        boxes.emplace_back(box.title, box.text);
    EXPECT_THAT(boxes, ElementsAre(std::pair{"Error de verificación", "Usuario o Clave Erronea"},
                                   std::pair{"Error de verificación", "Usuario o Clave Erronea"},
                                   std::pair{"Error de verificación",
                                             "Usuario o Clave Erronea. Demasiados Reintentos. "
                                             "Operación Cancelada"}));
    EXPECT_EQ(wizard->currentPageKey(), "Show");
    EXPECT_EQ(wizard->operation(), nullptr);
    EXPECT_TRUE(links().empty());
}

TEST_F(MinistoresFlowTest, cancellingTheDialogKeepsThePageAndANewAceptarHasThreeTriesAgain)
{
    openWizard();
    chooseLink("Depósito central", "Andina Hogar y Cocina");
    const auto operation = wizard->operation();
    willType("carmen", "equivocada");
    willType("", "", false);
    click("ConfirmMinistoreAddition1", "Accept");

    EXPECT_THAT(ui->seen(), ElementsAre("[ValidateUserForm]", "Usuario o Clave Erronea",
                                        "[ValidateUserForm]", "Operación Cancelada"));
    EXPECT_EQ(ui->boxes().back().title, "Información");
    EXPECT_EQ(wizard->currentPageKey(), "ConfirmMinistoreAssociation");
    EXPECT_EQ(wizard->operation(), operation);

    ui->clearBoxes();
    for (int attempt = 0; attempt < 3; ++attempt)
        willType("carmen", "equivocada");
    click("ConfirmMinistoreAddition1", "Accept");
    EXPECT_THAT(ui->seen(),
                ElementsAre("[ValidateUserForm]", "Usuario o Clave Erronea", "[ValidateUserForm]",
                            "Usuario o Clave Erronea", "[ValidateUserForm]",
                            "Usuario o Clave Erronea. Demasiados Reintentos. Operación "
                            "Cancelada"));
    EXPECT_EQ(wizard->currentPageKey(), "Show");
    EXPECT_TRUE(links().empty());
}

TEST_F(MinistoresFlowTest, backFromTheDepositPageSelectsTheMinistoreWhereTheUserBegan)
{
    openWizard();
    clickRow("ShowMinistores1", "Andina Tecnología");
    click("ShowMinistores1", "Asociar");
    ASSERT_EQ(wizard->currentPageKey(), "AssociateDeposit");
    EXPECT_EQ(labelText("AssociateDeposit1", "Label1"), "300 : Andina Tecnología");
    click("AssociateDeposit1", "Back");

    EXPECT_EQ(wizard->currentPageKey(), "Show");
    EXPECT_EQ(selectedRow("ShowMinistores1"), "|Andina Tecnología|Activa");
}

TEST_F(MinistoresFlowTest, withEveryMinistoreLinkedNothingCanBeAssociated)
{
    database->execute(Sql("INSERT INTO WITIENDAS VALUES ('100', 'a', 'DV-01'), ('200', 'b', "
                          "'DV-02'), ('300', 'c', 'DV-03')"));
    openWizard();
    for (const char *row : {"Depósito central", "Bodega de devoluciones"}) {
        clickRow("ShowMinistores1", row);
        EXPECT_FALSE(button("ShowMinistores1", "Asociar")->isEnabled()) << row;
    }
    QTreeWidget *view = list("ShowMinistores1");
    QTest::mouseDClick(view->viewport(), Qt::LeftButton, {},
                       view->visualItemRect(view->currentItem()).center());
    EXPECT_EQ(wizard->currentPageKey(), "Show");
}

TEST_F(MinistoresFlowTest, aDoubleClickOnAFreeDepositStartsItsAssociation)
{
    openWizard();
    clickRow("ShowMinistores1", "Bodega de devoluciones");
    QTreeWidget *view = list("ShowMinistores1");
    QTest::mouseDClick(view->viewport(), Qt::LeftButton, {},
                       view->visualItemRect(view->currentItem()).center());

    ASSERT_EQ(wizard->currentPageKey(), "AssociateMinistore");
    EXPECT_EQ(labelText("AssociateMinistore1", "Label1"), "DV-04 : Bodega de devoluciones");
    ASSERT_NE(wizard->operation(), nullptr);
    EXPECT_EQ(wizard->operation()->operationType(), "MinistoreAddition");
}

TEST_F(MinistoresFlowTest, backFromTheRemovalPageKeepsTheOperationAndTheRow)
{
    database->execute(Sql("INSERT INTO WITIENDAS VALUES ('200', 'Andina Deportes', 'DV-02')"));
    openWizard();
    clickRow("ShowMinistores1", "Almacén de la tienda principal");
    click("ShowMinistores1", "Desasociar");
    const auto removal = wizard->operation();
    click("ConfirmMinistoreRemoval1", "Back");

    EXPECT_EQ(wizard->currentPageKey(), "Show");
    EXPECT_EQ(wizard->operation(), removal);
    EXPECT_THAT(selectedRow("ShowMinistores1"), testing::StartsWith("Almacén de la tienda"));
    EXPECT_TRUE(ui->seen().empty());
    EXPECT_EQ(links().size(), 1u);
}

TEST_F(MinistoresFlowTest, leavingTheWizardAsksAndComingBackFindsTheOperationUnderWay)
{
    openWizard();
    clickRow("ShowMinistores1", "Andina Tecnología");
    click("ShowMinistores1", "Asociar");
    const auto addition = wizard->operation();

    ui->queueAnswer(MessageAnswer::No);
    QTest::keyRelease(window, Qt::Key_Escape);
    EXPECT_EQ(window->currentPageKey(), "Ministores");
    EXPECT_EQ(wizard->currentPageKey(), "AssociateDeposit");

    ui->queueAnswer(MessageAnswer::Yes);
    QTest::keyRelease(window, Qt::Key_Escape);
    EXPECT_EQ(window->currentPageKey(), "Stop");
    EXPECT_EQ(wizard->operation(), addition);

    QTest::keyRelease(window, Qt::Key_F2);
    EXPECT_EQ(wizard->currentPageKey(), "Show");
    EXPECT_EQ(selectedRow("ShowMinistores1"), "|Andina Tecnología|Activa");
    EXPECT_EQ(wizard->operation(), addition);
    EXPECT_EQ(ui->boxTexts(), std::vector<std::string>(2, "¿Desea abortar la operación?"));
}

struct AbortCase
{
    const char *name;
    const char *row;       // clicked on the list
    const char *button;    // then pressed on the list
    const char *ministore; // chosen on the next page, when the case goes that far
    const char *key, *page, *question;
};

void PrintTo(const AbortCase &row, std::ostream *out)
{
    *out << row.name;
}

class AbortTest : public MinistoresFlowTest, public testing::WithParamInterface<AbortCase>
{
};

TEST_P(AbortTest, cancelAsksWithNoAsTheDefaultAndOnlyYesDropsTheOperation)
{
    const AbortCase &row = GetParam();
    database->execute(Sql("INSERT INTO WITIENDAS VALUES ('200', 'Andina Deportes', 'DV-02')"));
    openWizard();
    clickRow("ShowMinistores1", row.row);
    click("ShowMinistores1", row.button);
    if (row.ministore) {
        clickRow("AssociateMinistore1", row.ministore);
        click("AssociateMinistore1", "Forward");
    }
    expectCancelAsksToAbort(row.page, row.key, row.question);
}

INSTANTIATE_TEST_SUITE_P(
    MinistoresFlow, AbortTest,
    testing::Values(AbortCase{"choosingTheMinistore", "Depósito central", "Asociar", nullptr,
                              "AssociateMinistore", "AssociateMinistore1",
                              "Desea abortar la operación?"},
                    AbortCase{"choosingTheDeposit", "Andina Tecnología", "Asociar", nullptr,
                              "AssociateDeposit", "AssociateDeposit1",
                              "¿Desea abortar la operación?"},
                    AbortCase{"confirmingALink", "Depósito central", "Asociar",
                              "Andina Hogar y Cocina", "ConfirmMinistoreAssociation",
                              "ConfirmMinistoreAddition1", "¿Desea abortar la operación?"},
                    AbortCase{"confirmingAnUnlink", "Almacén de la tienda principal", "Desasociar",
                              nullptr, "ConfirmMinistoreRemoval", "ConfirmMinistoreRemoval1",
                              "¿Desea abortar la operación?"}),
    [](const testing::TestParamInfo<AbortCase> &row) { return std::string(row.param.name); });

TEST_F(MinistoresFlowTest, aRightPasswordOnTheThirdTryPerforms)
{
    openWizard();
    chooseLink("Bodega de devoluciones", "Andina Hogar y Cocina");
    willType("carmen", "equivocada");
    willType("carmen", "otra");
    willType("admin", "feria123");
    click("ConfirmMinistoreAddition1", "Accept");

    EXPECT_EQ(ui->boxTexts(), (std::vector<std::string>(2, "Usuario o Clave Erronea")));
    EXPECT_THAT(links(), ElementsAre("100|Andina Hogar y Cocina|DV-04"));
}

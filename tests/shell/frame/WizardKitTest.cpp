#include "ShellTest.h"
#include "TestPanels.h"

#include "shell/AppState.h"
#include "shell/frame/AbortQuestion.h"
#include "shell/frame/KeyedListView.h"
#include "shell/frame/PageHost.h"

#include <QHeaderView>
#include <QPushButton>

namespace {

/// A page whose button fails with a runtime error, to see the label its failure is logged under.
class FailingButtonPage : public CountingPage
{
    Q_OBJECT
public:
    FailingButtonPage(PageHost &parent, const QString &controlName, QWidget *widgetParent)
        : CountingPage(parent, controlName, widgetParent)
    {
        button = new QPushButton("Fallar", this);
        onEvent(button, &QPushButton::clicked, "Fallar_Click",
                [] { raiseRuntimeError(RuntimeErrorNumber::InvalidCall); });
    }
    QPushButton *button;
};

class OtherOperation : public Operation
{
};

} // namespace

class WizardKitTest : public ShellTest
{
protected:
    RecordingHost host;
};

TEST_F(WizardKitTest, aPageEventFailsUnderThePagesOwnClassName)
{
    TwoPageWizard wizard(host, "TwoPageWizard1", nullptr);
    FailingButtonPage page(wizard, "FailingButtonPage1", nullptr);
    page.button->click();

    ASSERT_EQ(logLines().size(), 1u);
    EXPECT_NE(logLines()[0].find("Error: 5 (FailingButtonPage:Fallar_Click)"), std::string::npos)
        << logLines()[0];
}

TEST_F(WizardKitTest, theOperationAPageNeedsMustBeThereAndOfItsKind)
{
    TwoPageWizard wizard(host, "TwoPageWizard1", nullptr);
    const auto numberOf = [&] {
        try {
            requiredOperation<OtherOperation>(wizard);
        } catch (const RaisedError &error) {
            return error.number();
        }
        return 0;
    };
    EXPECT_EQ(numberOf(), 91);
    wizard.setOperation(std::make_shared<Operation>());
    EXPECT_EQ(numberOf(), 13);
    wizard.setOperation(std::make_shared<OtherOperation>());
    EXPECT_EQ(numberOf(), 0);
}

TEST_F(WizardKitTest, theAbortQuestionIsAYesNoConfirmationWithNoAsDefault)
{
    ui->queueAnswer(MessageAnswer::Yes);
    EXPECT_TRUE(userConfirmsAbort("¿Desea abortar la operación?"));
    ui->queueAnswer(MessageAnswer::No);
    EXPECT_FALSE(userConfirmsAbort("¿Desea abortar la operación?"));

    ASSERT_EQ(ui->boxes().size(), 2u);
    const RecordedBox &box = ui->boxes()[0];
    EXPECT_EQ(box.text, "¿Desea abortar la operación?");
    EXPECT_EQ(box.title, "Confirmación");
    EXPECT_EQ(box.style, MessageStyle::Question);
    EXPECT_EQ(box.buttons, MessageButtons::YesNo);
    EXPECT_EQ(box.defaultButton, 2);
}

TEST_F(WizardKitTest, listColumnsShareTheWidthEquallyWhateverTheirTexts)
{
    for (const int columns : {3, 5}) {
        QStringList headers;
        std::vector<std::string> texts;
        for (int column = 0; column < columns; ++column) {
            headers << QString("Columna %1").arg(column);
            // The first column's text is far wider than its share, and still gets no more.
            texts.push_back(column == 0 ? std::string(200, 'x') : "y");
        }
        KeyedListView list("ListView2", headers, nullptr);
        list.addRow("a1", texts);
        list.resize(500, 200);
        list.show();
        list.fitColumns();

        EXPECT_EQ(list.objectName(), "ListView2");
        const int available = list.viewport()->width();
        int total = 0;
        for (int column = 0; column < columns; ++column) {
            if (column + 1 < columns) {
                EXPECT_EQ(list.columnWidth(column), available / columns) << columns;
            }
            total += list.columnWidth(column);
        }
        EXPECT_EQ(total, available) << columns;
        list.hide();
    }
}

TEST_F(WizardKitTest, aRowIsPaintedWholeAndAnUnknownRowIsAnInvalidCall)
{
    KeyedListView list("ListView1", {"Código", "Nombre"}, nullptr);
    list.addRow("un100", {"100", "Tienda"});
    list.addRow("un200", {"200", "Otra"});
    list.setRowColor("un200", QColor(255, 0, 0));

    for (int column = 0; column < 2; ++column) {
        EXPECT_EQ(list.topLevelItem(1)->foreground(column).color(), QColor(255, 0, 0));
        EXPECT_NE(list.topLevelItem(0)->foreground(column).color(), QColor(255, 0, 0));
    }
    try {
        list.setRowColor("un300", Qt::red);
        ADD_FAILURE() << "an unknown row was painted";
    } catch (const RaisedError &error) {
        EXPECT_EQ(error.number(), 5);
    }
}

#include "WizardKitTest.moc"

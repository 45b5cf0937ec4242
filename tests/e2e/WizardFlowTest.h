#pragma once

#include "AssistantSandbox.h"
#include "gateways/QDX.h"
#include "platform/ui/ScriptedUi.h"
#include "shell/AppState.h"
#include "shell/window/MainWindow.h"
#include "shell/window/Panels.h"

#include <QPushButton>
#include <QTest>
#include <gtest/gtest.h>
#include <string>

/// The demo seller's assistant opened on one wizard of the main window, its pages driven
/// through their widgets and its boxes answered by the scripted Ui. `Wizard` is the wizard's
/// class; its control is named after it ("AssociationWizard1").
template <class Wizard> class WizardFlowTest : public AssistantSandbox
{
protected:
    void TearDown() override
    {
        if (gMainWindow)
            gMainWindow->unload();
        AssistantSandbox::TearDown();
    }

    /// Starts as the host does (links checked, the seller's stores read) and shows the wizard
    /// of `panel` ("Associations") in a new main window.
    void openWizardPanel(const char *panel)
    {
        ASSERT_TRUE(CommerceServerInit());
        ASSERT_TRUE(QDXGetOperationConfiguration());
        ASSERT_TRUE(gSeller->ministores());
        window = new MainWindow(makeWizardPanel, [] { gSeller->closeSession(); });
        gMainWindow = window;
        window->loadAndShow();
        window->ShowWizard(panel);
        const std::string name = std::string(Wizard::staticMetaObject.className()) + "1";
        wizard = window->findChild<Wizard *>(QString::fromStdString(name));
        ASSERT_NE(wizard, nullptr) << name;
    }

    QWidget *page(const char *name) const { return wizard->template findChild<QWidget *>(name); }

    /// Cancelar on `pageName`, reached at `key` with an operation under way, asks `question`
    /// twice: No stays there with the operation, Yes goes back to the list without it. Each
    /// time a question titled "Confirmación" with Yes and No, No the default.
    void expectCancelAsksToAbort(const char *pageName, const std::string &key,
                                 const std::string &question)
    {
        ASSERT_EQ(wizard->currentPageKey(), key);
        const auto operation = wizard->operation();
        ASSERT_NE(operation, nullptr);
        auto *cancel = page(pageName)->template findChild<QPushButton *>("Cancel");
        ASSERT_NE(cancel, nullptr) << pageName;

        ui->queueAnswer(MessageAnswer::No);
        QTest::mouseClick(cancel, Qt::LeftButton);
        EXPECT_EQ(wizard->currentPageKey(), key);
        EXPECT_EQ(wizard->operation(), operation);

        ui->queueAnswer(MessageAnswer::Yes);
        QTest::mouseClick(cancel, Qt::LeftButton);
        EXPECT_EQ(wizard->currentPageKey(), "Show");
        EXPECT_EQ(wizard->operation(), nullptr);

        ASSERT_EQ(ui->boxes().size(), 2u);
        for (const RecordedBox &box : ui->boxes()) {
            EXPECT_EQ(box.text, question);
            EXPECT_EQ(box.title, "Confirmación");
            EXPECT_EQ(box.style, MessageStyle::Question);
            EXPECT_EQ(box.buttons, MessageButtons::YesNo);
            EXPECT_EQ(box.defaultButton, 2) << "No is the default";
        }
    }

    MainWindow *window = nullptr;
    Wizard *wizard = nullptr;
};

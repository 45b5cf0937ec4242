#include "wizards/ministores/ValidateUserForm.h"

#include "platform/core/RaisedError.h"
#include "platform/ui/Ui.h"
#include "shell/frame/EventProcedure.h"
#include "stores/ZorvantaMinistore.h"

#include <QFormLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QVBoxLayout>

ValidateUserForm::ValidateUserForm(QWidget *parent) : QDialog(parent)
{
    setObjectName("ValidateUserForm");
    setWindowTitle("Ingrese Clave de Minitienda");
    setModal(true);

    auto *prompt = new QLabel("Ingrese el usuario y la clave de la minitienda.", this);
    prompt->setObjectName("Label1");
    m_username = new QLineEdit(this);
    m_username->setObjectName("UsernameBox");
    m_password = new QLineEdit(this);
    m_password->setObjectName("PasswordBox");
    m_password->setEchoMode(QLineEdit::Password);
    auto *fields = new QFormLayout;
    fields->addRow("Usuario", m_username);
    fields->addRow("Clave", m_password);

    auto *ok = new QPushButton("Aceptar", this);
    ok->setObjectName("OK");
    ok->setDefault(true);
    auto *cancel = new QPushButton("Cancelar", this);
    cancel->setObjectName("Cancel");
    auto *buttons = new QHBoxLayout;
    buttons->addStretch();
    buttons->addWidget(ok);
    buttons->addWidget(cancel);

    auto *layout = new QVBoxLayout(this);
    layout->addWidget(prompt);
    layout->addLayout(fields);
    layout->addLayout(buttons);
    setMinimumWidth(360);

    connect(ok, &QPushButton::clicked, this,
            eventProcedure("ValidateUserForm:OK_Click", [this] { OK_Click(); }));
    connect(cancel, &QPushButton::clicked, this, &ValidateUserForm::reject);
}

std::int32_t ValidateUserForm::showModal()
{
    m_username->clear();
    m_password->clear();
    m_username->setFocus();
    ui().runModal(*this);
    return m_result;
}

void ValidateUserForm::reject()
{
    m_result = Cancelled;
    QDialog::reject();
}

void ValidateUserForm::OK_Click()
{
    if (!m_ministore)
        raiseRuntimeError(RuntimeErrorNumber::ObjectNotSet);
    m_ministore->setUsername(m_username->text().toStdString());
    m_ministore->setPassword(m_password->text().toStdString());
    m_result = NotChecked;
    m_result = m_ministore->validateUser() ? Validated : Refused;
    accept();
}

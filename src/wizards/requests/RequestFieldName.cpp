#include "wizards/requests/RequestFieldName.h"

#include "platform/ui/Ui.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QVBoxLayout>

RequestFieldName::RequestFieldName(QWidget *parent) : QDialog(parent)
{
    setObjectName("RequestFieldName");
    setWindowTitle("Nombre de propiedad");
    setModal(true);

    m_text = new QLineEdit(this);
    m_text->setObjectName("Text1");
    auto *label = new QLabel("&Nombre", this);
    label->setObjectName("Label1");
    label->setBuddy(m_text);
    auto *acceptButton = new QPushButton("&Aceptar", this);
    acceptButton->setObjectName("Aceptar");
    acceptButton->setDefault(true);
    auto *cancel = new QPushButton("&Cancelar", this);
    cancel->setObjectName("Cancelar");
    auto *buttons = new QHBoxLayout;
    buttons->addStretch();
    buttons->addWidget(acceptButton);
    buttons->addWidget(cancel);
    auto *layout = new QVBoxLayout(this);
    layout->addWidget(label);
    layout->addWidget(m_text);
    layout->addLayout(buttons);
    setMinimumWidth(320);

    connect(acceptButton, &QPushButton::clicked, this, [this] {
        fieldName = m_text->text().toStdString();
        cancelled = false;
        accept();
    });
    connect(cancel, &QPushButton::clicked, this, &RequestFieldName::reject);
}

bool RequestFieldName::showModal()
{
    m_text->clear();
    m_text->setFocus();
    cancelled = true;
    ui().runModal(*this);
    return !cancelled;
}

void RequestFieldName::reject()
{
    cancelled = true;
    QDialog::reject();
}

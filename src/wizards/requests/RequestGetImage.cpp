#include "wizards/requests/RequestGetImage.h"

#include "platform/ui/Ui.h"
#include "shell/ErrorHandling.h"
#include "shell/frame/PageHost.h"
#include "wizards/requests/ProductRequest.h"
#include "wizards/requests/RequestParts.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QVBoxLayout>

#include <filesystem>

namespace {

constexpr const char *kFilter =
    "Imagen JPEG (*.jpeg;*.jpg)|*.jpeg;*.jpg|Imagen GIF (*.gif)|*.gif";

} // namespace

RequestGetImage::RequestGetImage(PageHost &parent, const QString &controlName,
                                 QWidget *widgetParent)
    : RequestPage(parent, controlName, widgetParent, "Imagen a publicar")
{
    auto *explanation = new QLabel(
        QString::fromUtf8("Ingrese el archivo con una imagen que desee usar para la solicitud "
                          "de su producto. Sólo imágenes JPEG, JPG y GIF son aceptadas."),
        this);
    explanation->setObjectName("Label2");
    explanation->setWordWrap(true);
    m_path = new QLineEdit(this);
    m_path->setObjectName("Text1");
    auto *search = new QPushButton("&Buscar...", this);
    search->setObjectName("Search");

    auto *row = new QHBoxLayout;
    row->addWidget(m_path, 1);
    row->addWidget(search);
    content().addWidget(explanation);
    content().addSpacing(12);
    content().addWidget(labelFor(m_path, "Label3", "&Archivo"));
    content().addLayout(row);
    content().addStretch();

    onEvent(search, &QPushButton::clicked, "Search_Click", [this] { Search_Click(); });
}

void RequestGetImage::Start()
{
    withHandler(handlerLabel("Start"), [&] {
        m_path->setText(QString::fromStdString(requestedProduct(Parent()).image()));
        m_path->setFocus();
    });
}

void RequestGetImage::Search_Click()
{
    // Some desktops' dialogs move the working directory, where the log and the help live.
    const std::filesystem::path noted = std::filesystem::current_path();
    const std::string chosen = ui().getOpenFileName({}, kFilter);
    std::filesystem::current_path(noted);
    // A cancelled dialog leaves the path as it was.
    if (!chosen.empty())
        m_path->setText(QString::fromStdString(chosen));
}

void RequestGetImage::DoRequest()
{
    withHandler(handlerLabel("DoRequest"), [&] {
        requestedProduct(Parent()).setImage(m_path->text().toStdString());
        Parent().SwitchPage("Confirmation");
    });
}

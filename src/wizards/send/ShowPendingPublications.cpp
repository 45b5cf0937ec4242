#include "wizards/send/ShowPendingPublications.h"

#include "catalogue/SellerProduct.h"
#include "catalogue/ZorvantaProperty.h"
#include "catalogue/ZorvantaValue.h"
#include "platform/core/RaisedError.h"
#include "platform/ui/Ui.h"
#include "publication/FudgeValues.h"
#include "shell/AppState.h"
#include "shell/BusyCursor.h"
#include "shell/Constants.h"
#include "shell/Logger.h"
#include "shell/frame/PageHost.h"
#include "stores/VirtualDeposit.h"
#include "stores/ZorvantaMinistore.h"
#include "wizards/send/SendProgress.h"

#include <QGroupBox>
#include <QHBoxLayout>
#include <QPushButton>
#include <QVBoxLayout>

namespace {

// The search lists the operations that wait in the seller's pending table.
constexpr std::int16_t kPendingPublications = 3;

// The number alone does not tell a line: a publication can wait for several operations.
std::string keyOf(PublishedProduct &publication)
{
    return publication.publicationId() + convertToString(publication.publicationDate());
}

std::string kindOf(const std::string &letter)
{
    if (letter == "I")
        return "Publicación";
    if (letter == "E")
        return "Despublicación";
    if (letter == "A")
        return "Modificación";
    return {};
}

std::string lineOf(PublishedProduct &publication)
{
    const auto product = publication.sellerProduct();
    const std::string state = publication.ErrorNumber() != 0 ? "Error!" : "Por enviar";
    return state + "\t" + kindOf(publication.state()) + "\t" + product->dovelID() + "\t" +
           product->Description() + "\t" + product->Reference();
}

/// The ministores linked to a deposit, keyed by id, in the order of the deposits.
std::shared_ptr<Ministores> linkedMinistores()
{
    auto linked = std::make_shared<Ministores>();
    if (const auto deposits = gSeller->virtualDeposits())
        for (const auto &deposit : *deposits)
            if (const auto &ministore = deposit->ministore())
                linked->add(ministore, ministore->id());
    return linked;
}

} // namespace

ShowPendingPublications::ShowPendingPublications(PageHost &parent, const QString &controlName,
                                                 QWidget *widgetParent)
    : SearchListPage(parent, controlName, widgetParent,
                     {"Estado", "Tipo", QString::fromUtf8("Código Dovel"),
                      QString::fromUtf8("Descripción"), "Referencia"},
                     keyOf, lineOf, SearchListDetail::SellerAndZorvantaProduct,
                     QString::fromUtf8("Búsqueda"))
{
    m_showError = new QPushButton("&Mostrar Error");
    m_showError->setObjectName("ShowError");
    m_send = new QPushButton("&Enviar");
    m_send->setObjectName("Enviar");
    QGroupBox *frame1 = listFrame("Operaciones por realizar", {m_showError, m_send});

    auto *top = new QHBoxLayout;
    top->addWidget(m_searchFrame, 2);
    top->addWidget(frame1, 3);
    auto *page = new QVBoxLayout(this);
    page->addLayout(top, 3);
    page->addLayout(detailRow(2, 3), 2);

    onEvent(m_showError, &QPushButton::clicked, "ShowError_Click", [this] { ShowError_Click(); });
    onEvent(m_send, &QPushButton::clicked, "Enviar_Click", [this] { DoSend(); });
}

void ShowPendingPublications::Start()
{
    withHandler(handlerLabel("Start"), [&] {
        if (linkedMinistores()->empty()) {
            ui().msgBox("No hay minitiendas asociadas. Por favor asocie al menos una minitienda "
                        "antes de realizar una publicación.");
            Parent().SwitchPage("Stop");
            return;
        }
        m_properties->showCharacteristic = true;
        m_properties->showVariants = true;
        m_properties->showNonCharacteristic = true;
        m_properties->showPrices = true;
        m_grid->AddHeadings();
        // Setting the list lays the search out and runs it anew, as a reset would, and Changed
        // draws it; a reset of its own would first search the list of all products.
        m_search->setSearchType(kPendingPublications);
        showFirst();
    });
}

void ShowPendingPublications::showFirst()
{
    if (m_list.empty()) {
        m_properties->setValues(nullptr);
        m_sellerProduct->setProduct(nullptr);
        m_showError->setEnabled(false);
    } else {
        ShowProduct();
    }
}

void ShowPendingPublications::SellerSearch1_Changed()
{
    refill();
    showFirst();
}

void ShowPendingPublications::ShowProduct()
{
    withHandler(handlerLabel("ShowProduct"), [&] {
        const auto &publication = m_list.selected();
        const auto product = publication->AssociatedProduct_theSellerProduct();
        m_sellerProduct->setProduct(product);
        m_properties->sellerProduct = product;
        const auto values = FudgeValues(*publication);
        const auto &marketplace = publication->AssociatedProduct_theZorvantaProduct();
        if (marketplace == nullptr)
            raiseRuntimeError(RuntimeErrorNumber::ObjectNotSet);
        m_properties->setZorvantaProperties(marketplace->properties());
        m_properties->setValues(values);
        m_showError->setEnabled(publication->ErrorNumber() != 0);
    });
}

std::shared_ptr<PublishedProduct::Values>
ShowPendingPublications::FudgeValues(PublishedProduct &publication)
{
    return withHandler(handlerLabel("FudgeValues"), [&] {
        // The marketplace's fixed values and the seller's variant ones, as an association
        // shows them; the publication adds its own values of the other properties.
        auto shown = ::FudgeValues(*publication.associatedProd(),
                                   MarketplaceValues::CharacteristicNotVariant);
        const auto properties = publication.AssociatedProduct_theZorvantaProduct()->properties();
        if (const auto own = publication.nonCharateristicAttributes()) {
            for (const auto &value : *own) {
                const auto &property = properties->item(value->definition()->id());
                if (!property->characteristic()) {
                    value->setDefinition(property);
                    shown->add(value, property->id());
                }
            }
        }
        return shown;
    });
}

void ShowPendingPublications::ShowError_Click()
{
    const auto &publication = m_list.selected();
    gLogger.ShowError(publication->ErrorNumber(), publication->errorMsg());
}

void ShowPendingPublications::DoSend()
{
    withHandler(handlerLabel("DoSend"), [&] {
        SendProgress progress(window());
        progress.setMinistores(linkedMinistores());
        SuspendWait();
        ui().runModal(progress);
        ResumeWait();
        if (!gAppRunning)
            raiseError(9999, "La aplicación se está cerrando");
        // What was accepted has left the list; what remains shows its new state.
        Start();
    });
}

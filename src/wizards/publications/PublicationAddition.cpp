#include "wizards/publications/PublicationAddition.h"

#include "platform/core/RaisedError.h"
#include "platform/ui/Ui.h"
#include "publication/PublishedProduct.h"
#include "shell/ErrorHandling.h"
#include "stores/NumberText.h"
#include "stores/ZorvantaMinistore.h"
#include "wizards/publications/TypedValues.h"

void PublicationAddition::Perform()
{
    withDirectReport(
        [&] {
            if (m_product == nullptr || m_ministore == nullptr)
                raiseRuntimeError(RuntimeErrorNumber::ObjectNotSet);
            auto publication = std::make_shared<PublishedProduct>();
            publication->setAssociatedProd(m_product);
            publication->setMinistore(m_ministore);
            publication->setNonCharateristicAttributes(TypedValues(m_values));
            if (!planAllows())
                return;
            publication->CreatePublication();
        },
        [] {});
}

bool PublicationAddition::planAllows() const
{
    const std::int16_t maximum = toInt16(static_cast<double>(m_ministore->maxPublishedProducts()));
    const std::int16_t total = m_ministore->totalPublishedBySeller();
    // The warning comes on the publication that reaches the limit: what goes beyond it is
    // billed apart, so the seller only has to agree.
    const std::int16_t next = toInt16(static_cast<double>(total) + 1);
    if (next < maximum)
        return true;
    const std::string text =
        "El número máximo de productos que pueden ser publicados, según el plan de la "
        "minitienda, es " +
        std::to_string(maximum) + " y se han realizado " + std::to_string(total) +
        " publicaciones. El resto de las publicaciones serán facturadas a parte. Desea "
        "continuar?";
    return ui().msgBox(text, MessageStyle::Exclamation, MessageButtons::YesNo, "Advertencia", 2) ==
           MessageAnswer::Yes;
}

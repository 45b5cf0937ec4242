#pragma once

#include "catalogue/ZorvantaProduct.h"
#include "shell/frame/WizardPage.h"

#include <memory>
#include <string>

class AssociatedProduct;
class NavigationButtons;
class QLabel;
class QLineEdit;
class SellerProductGrid;
class ZorvantaMinistore;
class ZorvantaPropertiesGrid;

/// What is about to be published, modified or withdrawn, read-only; Aceptar performs the
/// wizard's operation and goes back to the list.
class ConfirmPublication : public WizardPage
{
    Q_OBJECT
public:
    ConfirmPublication(PageHost &parent, const QString &controlName, QWidget *widgetParent);

    /// Fills the page from the wizard's operation, by its kind.
    void Start() override;
    /// Asks the user whether to abandon the operation.
    bool canStop() override;

private:
    void show(const char *title, const ZorvantaMinistore &ministore, AssociatedProduct &association,
              const std::string &publicationId,
              const std::shared_ptr<ZorvantaProduct::Values> &values);
    void DoPublication();
    /// Where Anterior leads for the operation under way.
    std::string previousPage() const;

    QLabel *m_title;
    QLineEdit *m_store;
    QLineEdit *m_association;
    QLineEdit *m_publication;
    SellerProductGrid *m_sellerProduct;
    ZorvantaPropertiesGrid *m_properties;
    NavigationButtons *m_buttons;
};

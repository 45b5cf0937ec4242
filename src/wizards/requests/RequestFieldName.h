#pragma once

#include <QDialog>
#include <string>

class QLineEdit;

/// The modal dialog that asks for the name of a property the seller adds to a request.
class RequestFieldName : public QDialog
{
    Q_OBJECT
public:
    explicit RequestFieldName(QWidget *parent = nullptr);

    /// Empties the box and runs the dialog modally; true when a name was accepted.
    bool showModal();

    /// The name accepted last.
    std::string fieldName;
    /// True unless the dialog ended with Aceptar.
    bool cancelled = true;

    /// Closing the dialog any other way than Aceptar cancels it.
    void reject() override;

private:
    QLineEdit *m_text;
};

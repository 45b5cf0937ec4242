#pragma once

#include <QDialog>
#include <cstdint>
#include <memory>

class QLineEdit;
class ZorvantaMinistore;

/// The modal dialog that asks for a ministore's user and password and checks them with the
/// back office.
class ValidateUserForm : public QDialog
{
    Q_OBJECT
public:
    /// What the last showing ended in.
    enum Result : std::int32_t {
        Validated = 1,
        Cancelled = 0,
        Refused = -1,
        /// Set before the check; stays when the check itself fails with an error.
        NotChecked = -2,
    };

    explicit ValidateUserForm(QWidget *parent = nullptr);

    void setMinistore(std::shared_ptr<ZorvantaMinistore> ministore)
    {
        m_ministore = std::move(ministore);
    }
    /// Empties both boxes and runs the dialog modally; gives its result.
    std::int32_t showModal();
    std::int32_t validationResult() const { return m_result; }

    /// Closing the dialog any other way than Aceptar cancels it.
    void reject() override;

private:
    void OK_Click();

    std::shared_ptr<ZorvantaMinistore> m_ministore;
    QLineEdit *m_username;
    QLineEdit *m_password;
    std::int32_t m_result = Cancelled;
};

#pragma once

#include "publication/PublicationProgress.h"
#include "stores/Seller.h"

#include <QDialog>
#include <cstdint>
#include <memory>

class QLabel;
class QProgressBar;
class QPushButton;
class QTimer;

/// The modal window "Progreso" that sends each ministore's pending work in turn, with a bar for
/// the ministores done and one for the current ministore's rows. The sending starts once, a
/// second after the window loads, so that it is painted before the work blocks the screen. It
/// can only be closed with `CloseCommand`, which is enabled when every ministore has run and
/// the application is still up; after a fatal failure it stays disabled until the application
/// closes the window.
class SendProgress : public QDialog, public PublicationProgress
{
    Q_OBJECT
public:
    explicit SendProgress(QWidget *parent = nullptr);

    /// The ministores to send, in the order they are sent.
    void setMinistores(std::shared_ptr<Ministores> ministores);

    void setMaxMinistores(std::int16_t total);
    void setMaxProducts(std::int16_t total) override;
    /// The ministores done.
    std::int16_t ministores() const;
    void setMinistores(std::int16_t done);
    /// The rows handled in the current ministore.
    std::int16_t products() const override;
    void setProducts(std::int16_t handled) override;

protected:
    void closeEvent(QCloseEvent *event) override;
    void reject() override;

private:
    void Form_Load();
    void DoSend();
    /// Sends each ministore in turn under the send lock, and leaves the run's report.
    void sendEach();
    bool mayClose() const;

    QTimer *m_timer;
    QPushButton *m_close;
    QProgressBar *m_ministoreBar;
    QLabel *m_ministoreLabel;
    QProgressBar *m_productBar;
    QLabel *m_productLabel;
    std::shared_ptr<Ministores> m_ministores;
    std::int16_t m_maxMinistores = 0;
    std::int16_t m_maxProducts = 0;
};

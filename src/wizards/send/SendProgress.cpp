#include "wizards/send/SendProgress.h"

#include "platform/core/RaisedError.h"
#include "platform/ui/Ui.h"
#include "publication/SendLock.h"
#include "publication/SendPendingPublications.h"
#include "publication/SendReport.h"
#include "shell/AppState.h"
#include "shell/Logger.h"
#include "shell/frame/EventProcedure.h"
#include "stores/NumberText.h"
#include "stores/Seller.h"
#include "stores/ZorvantaMinistore.h"

#include <QCloseEvent>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QProgressBar>
#include <QPushButton>
#include <QTimer>
#include <QVBoxLayout>
#include <algorithm>
#include <cmath>

namespace {

// The window waits this long after loading before it starts the blocking work.
constexpr int kStartDelayMs = 1000;

// The total comes from the stored value, not from the bar, whose maximum is never below 1.
QString progressText(const QProgressBar &bar, std::int16_t total)
{
    const double share = double(bar.value()) / std::max(1, bar.maximum()) * 100.0;
    return QString::number(bar.value()) + "/" + QString::number(total) + "(" +
           QString::number(std::lround(share)) + "%)";
}

void setMaximum(QProgressBar &bar, QLabel &label, std::int16_t total)
{
    bar.setMaximum(std::max<int>(1, total));
    bar.setValue(0);
    label.setText(progressText(bar, total));
}

// A bar refuses a value beyond its ends, as the toolkit's own bar did with an error.
void setValue(QProgressBar &bar, QLabel &label, std::int16_t value, std::int16_t total)
{
    if (value < bar.minimum() || value > bar.maximum())
        raiseRuntimeError(RuntimeErrorNumber::InvalidCall);
    bar.setValue(value);
    label.setText(progressText(bar, total));
}

QProgressBar *makeBar(const char *name, QWidget *parent)
{
    auto *bar = new QProgressBar(parent);
    bar->setObjectName(name);
    bar->setTextVisible(false);
    return bar;
}

QLabel *makeLabel(const char *name, const QString &text, QWidget *parent)
{
    auto *label = new QLabel(text, parent);
    label->setObjectName(name);
    return label;
}

} // namespace

SendProgress::SendProgress(QWidget *parent) : QDialog(parent)
{
    setObjectName("SendProgress");
    setWindowTitle("Progreso");
    setModal(true);

    m_timer = new QTimer(this);
    m_timer->setObjectName("Timer1");
    m_timer->setSingleShot(true);
    m_close = new QPushButton("&OK", this);
    m_close->setObjectName("CloseCommand");
    m_ministoreBar = makeBar("ProgressBar1", this);
    m_ministoreLabel = makeLabel("Label3", {}, this);
    m_productBar = makeBar("ProgressBar2", this);
    m_productLabel = makeLabel("Label4", {}, this);

    auto *grid = new QGridLayout;
    grid->addWidget(makeLabel("Label1", "Minitiendas", this), 0, 0, 1, 2);
    grid->addWidget(m_ministoreBar, 1, 0);
    grid->addWidget(m_ministoreLabel, 1, 1);
    grid->addWidget(makeLabel("Label2", "Productos enviados", this), 2, 0, 1, 2);
    grid->addWidget(m_productBar, 3, 0);
    grid->addWidget(m_productLabel, 3, 1);
    grid->setColumnStretch(0, 1);
    grid->setColumnMinimumWidth(1, 90);
    auto *buttons = new QHBoxLayout;
    buttons->addStretch();
    buttons->addWidget(m_close);
    auto *layout = new QVBoxLayout(this);
    layout->addLayout(grid);
    layout->addSpacing(8);
    layout->addLayout(buttons);
    setMinimumWidth(420);

    connect(m_timer, &QTimer::timeout, this, eventProcedure("SendProgress:Timer1_Timer", [this] {
                m_timer->stop();
                DoSend();
            }));
    connect(m_close, &QPushButton::clicked, this,
            eventProcedure("SendProgress:CloseCommand_Click", [this] { accept(); }));
    Form_Load();
}

void SendProgress::Form_Load()
{
    m_close->setEnabled(false);
    for (auto [bar, label] :
         {std::pair{m_ministoreBar, m_ministoreLabel}, std::pair{m_productBar, m_productLabel}}) {
        bar->setRange(0, 1);
        bar->setValue(0);
        label->setText("0/1 (0%)");
    }
    m_timer->setInterval(kStartDelayMs);
    m_timer->start();
}

void SendProgress::setMinistores(std::shared_ptr<Ministores> ministores)
{
    m_ministores = std::move(ministores);
}

void SendProgress::setMaxMinistores(std::int16_t total)
{
    withHandler("SendProgress:maxMinistores", [&] {
        m_maxMinistores = total;
        setMaximum(*m_ministoreBar, *m_ministoreLabel, total);
    });
}

void SendProgress::setMaxProducts(std::int16_t total)
{
    withHandler("SendProgress:maxProducts", [&] {
        m_maxProducts = total;
        setMaximum(*m_productBar, *m_productLabel, total);
    });
}

std::int16_t SendProgress::ministores() const
{
    return std::int16_t(m_ministoreBar->value());
}

void SendProgress::setMinistores(std::int16_t done)
{
    withHandler("SendProgress:ministores",
                [&] { setValue(*m_ministoreBar, *m_ministoreLabel, done, m_maxMinistores); });
}

std::int16_t SendProgress::products() const
{
    return std::int16_t(m_productBar->value());
}

void SendProgress::setProducts(std::int16_t handled)
{
    withHandler("SendProgress:products",
                [&] { setValue(*m_productBar, *m_productLabel, handled, m_maxProducts); });
}

void SendProgress::DoSend()
{
    withHandler(
        "SendProgress:DoSend",
        [&] {
            if (!m_ministores)
                raiseRuntimeError(RuntimeErrorNumber::ObjectNotSet);
            ui().setCursor(kHourglassCursor);
            setMaxMinistores(toInt16(double(m_ministores->count())));
            setMinistores(std::int16_t(0));
            if (m_ministores->count() > 0)
                sendEach();
            ui().setCursor(kDefaultCursor);
            m_close->setEnabled(gAppRunning);
        },
        [] { ui().setCursor(kDefaultCursor); });
}

void SendProgress::sendEach()
{
    // A scheduled send may be working on the same tables: then this one sends nothing.
    SendLock lock;
    std::string why;
    if (!lock.tryLock(SendLock::fileFor(gSeller->database()), why)) {
        ui().setCursor(kDefaultCursor);
        ui().msgBox(why, MessageStyle::Exclamation, MessageButtons::Ok, "Progreso");
        return;
    }
    SendReport report;
    for (const auto &ministore : *m_ministores) {
        setProducts(0);
        SendPendingPublications(*ministore, report.watch(*ministore, *this));
        report.storeFinished();
        if (!gAppRunning)
            break;
        // Full even when some rows got no answer: the store is done.
        setProducts(m_maxProducts);
        setMinistores(toInt16(double(ministores() + 1)));
    }
    // The seller reads afterwards what was accepted and what was refused, and why.
    if (report.write(SendReport::folder(), why).empty())
        gLogger.WriteLogEntry("(SendProgress:DoSend) " + why);
}

bool SendProgress::mayClose() const
{
    // A closing application takes every window with it, this one included.
    return m_close->isEnabled() || !gAppRunning;
}

void SendProgress::closeEvent(QCloseEvent *event)
{
    if (mayClose())
        QDialog::closeEvent(event);
    else
        event->ignore();
}

void SendProgress::reject()
{
    if (mayClose())
        QDialog::reject();
}

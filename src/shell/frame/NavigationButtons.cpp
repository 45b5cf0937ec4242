#include "shell/frame/NavigationButtons.h"

#include "shell/BusyCursor.h"
#include "shell/ErrorHandling.h"
#include "shell/frame/Twips.h"

#include <QPushButton>

namespace {
constexpr double kButtonHeightTwips = 375;
constexpr double kMarginTwips = 50;
} // namespace

NavigationButtons::NavigationButtons(QWidget *parent) : QWidget(parent)
{
    setObjectName("NavigationButtons1");
    m_cancel = addButton("Cancel", "Cance&lar", &NavigationButtons::CancelClick);
    m_back = addButton("Back", "<< An&terior", &NavigationButtons::BackClick);
    m_forward = addButton("Forward", "&Siguiente >>", &NavigationButtons::NextClick);
    m_accept = addButton("Accept", "&Aceptar", &NavigationButtons::AcceptClick);
    setFixedHeight(twipsToPixels(kButtonHeightTwips + 2 * kMarginTwips));
}

QPushButton *NavigationButtons::addButton(const char *controlName, const char *caption,
                                          void (NavigationButtons::*event)())
{
    auto *button = new QPushButton(QString::fromUtf8(caption), this);
    button->setObjectName(controlName);
    // Qt sends no click for a disabled button, so a disabled one raises nothing.
    connect(button, &QPushButton::clicked, this, [this, event] {
        guardEvent([&] {
            BeginWait();
            emit(this->*event)();
            EndWait();
        });
    });
    return button;
}

bool NavigationButtons::BackEnabled() const { return m_back->isEnabled(); }
void NavigationButtons::setBackEnabled(bool enabled) { m_back->setEnabled(enabled); }
bool NavigationButtons::NextEnabled() const { return m_forward->isEnabled(); }
void NavigationButtons::setNextEnabled(bool enabled) { m_forward->setEnabled(enabled); }
bool NavigationButtons::AcceptEnabled() const { return m_accept->isEnabled(); }
void NavigationButtons::setAcceptEnabled(bool enabled) { m_accept->setEnabled(enabled); }
bool NavigationButtons::CancelEnabled() const { return m_cancel->isEnabled(); }
void NavigationButtons::setCancelEnabled(bool enabled) { m_cancel->setEnabled(enabled); }

QSize NavigationButtons::sizeHint() const
{
    return {twipsToPixels(4 * 1200 + 250), height()};
}

void NavigationButtons::resizeEvent(QResizeEvent *)
{
    ResizeControls();
}

void NavigationButtons::ResizeControls()
{
    const double width = (pixelsToTwips(this->width()) - 250) / 4;
    double left = kMarginTwips;
    for (QPushButton *button : {m_cancel, m_back, m_forward, m_accept}) {
        button->setGeometry(twipsToPixels(left), twipsToPixels(kMarginTwips),
                            std::max(0, twipsToPixels(width)), twipsToPixels(kButtonHeightTwips));
        left += width + kMarginTwips;
    }
}

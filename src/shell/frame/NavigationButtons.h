#pragma once

#include <QWidget>

class QPushButton;

/// The bar of four buttons at the foot of every page: Cancelar, Anterior, Siguiente, Aceptar.
/// A click on an enabled button raises its event inside a busy section.
class NavigationButtons : public QWidget
{
    Q_OBJECT
public:
    explicit NavigationButtons(QWidget *parent = nullptr);

    bool BackEnabled() const;
    void setBackEnabled(bool enabled);
    bool NextEnabled() const;
    void setNextEnabled(bool enabled);
    bool AcceptEnabled() const;
    void setAcceptEnabled(bool enabled);
    bool CancelEnabled() const;
    void setCancelEnabled(bool enabled);

    QSize sizeHint() const override;

signals:
    void CancelClick();
    void AcceptClick();
    void BackClick();
    void NextClick();

protected:
    void resizeEvent(QResizeEvent *event) override;

private:
    QPushButton *addButton(const char *controlName, const char *caption,
                           void (NavigationButtons::*event)());
    void ResizeControls();

    QPushButton *m_cancel;
    QPushButton *m_back;
    QPushButton *m_forward;
    QPushButton *m_accept;
};

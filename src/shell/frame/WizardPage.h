#pragma once

#include <QWidget>

class PageHost;

/// A page of a wizard. It comes up through its wizard's SwitchPage, which calls Start each time,
/// and it reaches its wizard only through the PageHost it was given.
class WizardPage : public QWidget
{
    Q_OBJECT
public:
    WizardPage(PageHost &parent, const QString &controlName, QWidget *widgetParent);

    virtual void Start() {}
    virtual bool canStop() { return true; }

protected:
    PageHost &Parent() const { return m_parent; }

private:
    PageHost &m_parent;
};

#pragma once

#include "shell/ErrorHandling.h"

#include <QWidget>
#include <string>
#include <utility>

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

    /// "ShowMinistores:Start": the label a procedure of this page reports its failures under,
    /// made of the page's class name, so every page class must declare Q_OBJECT.
    std::string handlerLabel(const char *procedure) const;

    /// Runs `body` whenever `sender` emits `signal`, as the event procedure `procedure` of this
    /// page ("ListView1_DblClick"): with its own handler, inside the guard every toolkit callback
    /// needs. The label is made when the event fires, when the page's class is known.
    template <class Sender, class Signal, class Body>
    void onEvent(Sender *sender, Signal signal, const char *procedure, Body body)
    {
        connect(sender, signal, this, [this, procedure, body = std::move(body)] {
            guardEvent([&] { withHandler(handlerLabel(procedure), body); });
        });
    }

private:
    PageHost &m_parent;
};

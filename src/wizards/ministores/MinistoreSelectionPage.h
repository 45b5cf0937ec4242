#pragma once

#include "shell/frame/WizardPage.h"

#include <QStringList>
#include <string>
#include <utility>

class KeyedListView;
class MinistoreAddition;
class NavigationButtons;
class QLabel;

/// What tells the two selection pages apart on the screen.
struct SelectionTexts
{
    const char *frame;
    const char *chosenFrame;
    /// A heading above the chosen half; none when null.
    const char *title;
    const char *listLabel;
    QStringList headers;
    const char *abortQuestion;
};

/// A page that takes the second half of a new link: it shows the half chosen already and lists
/// the candidates for the other one, of which the user picks one and goes on to confirm.
class MinistoreSelectionPage : public WizardPage
{
    Q_OBJECT
public:
    /// Shows the operation's chosen half and lists the free candidates, selecting the one the
    /// operation holds already, else the first.
    void Start() override;
    /// Asks the user whether to abandon the operation.
    bool canStop() override;

protected:
    MinistoreSelectionPage(PageHost &parent, const QString &controlName, QWidget *widgetParent,
                           SelectionTexts texts);

    /// The two lines that describe the half of the link chosen already.
    virtual std::pair<std::string, std::string> chosenHalf(const MinistoreAddition &addition) = 0;
    /// Adds a row for each candidate: "un" and its id as key, then three columns.
    virtual void fillRows(KeyedListView &list) = 0;
    /// The key of the candidate the operation holds already; empty when it holds none.
    virtual std::string heldKey(const MinistoreAddition &addition) = 0;
    /// Puts the candidate of that id in the operation.
    virtual void choose(MinistoreAddition &addition, const std::string &id) = 0;

private:
    void DoAssociation();

    SelectionTexts m_texts;
    QLabel *m_label1;
    QLabel *m_label2;
    KeyedListView *m_list;
    NavigationButtons *m_buttons;
};

#pragma once

#include "shell/AppState.h"
#include "shell/frame/WizardPage.h"
#include "shell/frame/WizardShell.h"

#include <string>
#include <vector>

/// A page that counts how often it comes up and answers canStop as told.
class CountingPage : public WizardPage
{
    Q_OBJECT
public:
    using WizardPage::WizardPage;
    void Start() override { ++starts; }
    bool canStop() override
    {
        ++stopQuestions;
        return mayStop;
    }
    int starts = 0;
    int stopQuestions = 0;
    bool mayStop = true;
};

/// A wizard of two counting pages, "Show" and "Second".
class TwoPageWizard : public WizardShell
{
    Q_OBJECT
public:
    TwoPageWizard(HostWindow &host, const QString &controlName, QWidget *parent)
        : WizardShell(host, "TwoPageWizard", controlName, parent)
    {
        first = makePage<CountingPage>("FirstPage1", "Show");
        second = makePage<CountingPage>("SecondPage1", "Second");
    }
    CountingPage *first;
    CountingPage *second;
};

/// A host window that only records what the panels ask of it.
class RecordingHost : public HostWindow
{
public:
    void ShowWizard(const std::string &key) override { keys.push_back(key); }
    void unload() override { ++unloads; }
    std::vector<std::string> keys;
    int unloads = 0;
};

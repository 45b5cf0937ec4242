#pragma once

#include "platform/db/Sql.h"

#include <QString>
#include <QWidget>
#include <filesystem>
#include <functional>
#include <memory>
#include <string>
#include <vector>

class FeriaSimProcess;

/// A walk through one wizard of the real main window, photographing its pages for a person to
/// look at (not a test). It runs in a folder of its own with the real connector libraries, an
/// embedded seller's database holding what the walk needs, and a feria-sim on a marketplace
/// file; every box is answered by the scripted Ui. Pictures are <folder>/<prefix>-<n>-<page>.png,
/// taken from the whole screen, so an X server must be running.
class ScreenWalk
{
public:
    /// Prepares the sandbox: `rows` are statements run on the new database. started() says
    /// whether the links came up.
    ScreenWalk(std::string folder, std::string prefix, const std::string &marketplaceFile,
               const std::vector<Sql> &rows);
    /// Unloads the window and removes the walk's folder.
    ~ScreenWalk();

    bool started() const { return m_started; }
    /// Opens the main window on `panel`'s wizard, whose control is `wizardName`.
    void open(const char *panel, const char *wizardName);

    template <class Control> Control *control(const char *page, const char *name) const
    {
        return m_wizard->findChild<QWidget *>(page)->findChild<Control *>(name);
    }
    void shoot(const char *name);

    /// One step of a walk: a button pressed on a page, what the person then does there, and
    /// the picture taken after it (none when `shot` is nullptr).
    struct Step
    {
        const char *page;
        const char *button;
        std::function<void()> then;
        const char *shot;
    };
    void follow(const std::vector<Step> &steps);

    /// Clicks the list's line whose first column is `code`, when there is one.
    void clickLine(const char *page, const char *code);
    void press(const char *page, const char *button);

private:
    std::string m_folder;
    std::string m_prefix;
    std::filesystem::path m_dir;
    std::unique_ptr<FeriaSimProcess> m_feria;
    bool m_started = false;
    QWidget *m_wizard = nullptr;
    int m_shot = 0;
};

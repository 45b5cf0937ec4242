#include "platform/ui/LoadedWindows.h"

#include <algorithm>

LoadedWindows &LoadedWindows::instance()
{
    static LoadedWindows windows;
    return windows;
}

void LoadedWindows::load(QWidget &window)
{
    const auto held = std::find(m_windows.begin(), m_windows.end(), &window);
    if (held == m_windows.end())
        m_windows.emplace_back(&window);
}

void LoadedWindows::unload(QWidget &window)
{
    // Compares addresses only: `window` may be half destroyed when it leaves.
    std::erase_if(m_windows, [&](const QPointer<QWidget> &held) {
        return held.isNull() || held.data() == &window;
    });
}

std::vector<QWidget *> LoadedWindows::windows() const
{
    std::vector<QWidget *> alive;
    for (const QPointer<QWidget> &held : m_windows) {
        if (!held.isNull())
            alive.push_back(held.data());
    }
    return alive;
}

void LoadedWindows::unloadAll()
{
    const std::vector<QWidget *> loaded = windows();
    std::vector<QPointer<QWidget>> lastFirst(loaded.rbegin(), loaded.rend());
    for (const QPointer<QWidget> &window : lastFirst) {
        // Closing one window may destroy another that it owns.
        if (window.isNull())
            continue;
        // A window leaves the list through its own unload, when it accepts to close.
        try {
            window->close();
        } catch (...) {
        }
    }
}

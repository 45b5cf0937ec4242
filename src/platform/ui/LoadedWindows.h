#pragma once

#include <QPointer>
#include <QWidget>

#include <vector>

/// The windows the program has loaded, in the order it loaded them: the main window when it
/// loads, each modal dialog while it runs. The failure path unloads them from the last to the
/// first, hidden ones included, which the toolkit's own list of windows cannot promise.
class LoadedWindows
{
public:
    /// The program's one list.
    static LoadedWindows &instance();

    /// Puts `window` last; a window already loaded keeps its place.
    void load(QWidget &window);
    /// Takes `window` out of the list; nothing when it is not in it.
    void unload(QWidget &window);
    /// The loaded windows, first loaded first; destroyed ones are left out.
    std::vector<QWidget *> windows() const;
    /// Closes every loaded window, the last loaded first, visible or not. A window that refuses
    /// or fails does not stop the others.
    void unloadAll();

private:
    std::vector<QPointer<QWidget>> m_windows;
};

#pragma once

#include <QString>
#include <QStringList>

#include <functional>

class QMenu;

namespace TovaView {

/// The files that were opened last, newest first, kept in the user's settings and offered in a
/// menu.
class RecentFiles {
public:
    /// The menu is not owned; it is filled each time it shows.
    RecentFiles(QMenu& menu, std::function<void(const QString&)> open);

    void add(const QString& file);
    void remove(const QString& file);
    static QStringList list();

private:
    void fill();

    QMenu& m_menu;
    std::function<void(const QString&)> m_open;
};

} // namespace TovaView

#include "recentfiles.h"

#include <QDir>
#include <QFileInfo>
#include <QMenu>
#include <QSettings>

namespace TovaView {
namespace {

constexpr int mostFiles = 8;

QString key()
{
    return QStringLiteral("recentFiles");
}

void save(const QStringList& files)
{
    QSettings().setValue(key(), files);
}

/// The folder with the home directory as a tilde; ampersands would underline.
QString labelOf(int number, const QString& file)
{
    const QFileInfo info(file);
    QString folder = info.absolutePath();
    if (folder.startsWith(QDir::homePath() + QLatin1Char('/')))
        folder.replace(0, QDir::homePath().size(), QLatin1Char('~'));
    QString text = QStringLiteral("%1  (%2)").arg(info.fileName(), folder);
    return QStringLiteral("&%1  %2").arg(number).arg(
        text.replace(QLatin1Char('&'), QLatin1String("&&")));
}

} // namespace

RecentFiles::RecentFiles(QMenu& menu, std::function<void(const QString&)> open)
    : m_menu(menu), m_open(std::move(open))
{
    QObject::connect(&menu, &QMenu::aboutToShow, &menu, [this] { fill(); });
    m_menu.menuAction()->setEnabled(!list().isEmpty());
}

QStringList RecentFiles::list()
{
    return QSettings().value(key()).toStringList().mid(0, mostFiles);
}

void RecentFiles::add(const QString& file)
{
    const QString path = QFileInfo(file).absoluteFilePath();
    QStringList files = list();
    files.removeAll(path);
    files.prepend(path);
    save(files.mid(0, mostFiles));
    m_menu.menuAction()->setEnabled(true);
}

void RecentFiles::remove(const QString& file)
{
    QStringList files = list();
    files.removeAll(QFileInfo(file).absoluteFilePath());
    save(files);
    m_menu.menuAction()->setEnabled(!files.isEmpty());
}

void RecentFiles::fill()
{
    m_menu.clear();
    int number = 0;
    for (const QString& file : list())
        QObject::connect(m_menu.addAction(labelOf(++number, file)), &QAction::triggered, &m_menu,
                         [this, file] { m_open(file); });
    m_menu.addSeparator();
    QObject::connect(m_menu.addAction(QStringLiteral("Clear List")), &QAction::triggered, &m_menu,
                     [this] {
                         save({});
                         m_menu.menuAction()->setEnabled(false);
                     });
}

} // namespace TovaView

#pragma once

#include <QByteArray>
#include <QString>
#include <QStringList>

namespace TovaView {

/// Starts the library and ends it again, like any host.
class LibraryRun {
public:
    LibraryRun();
    ~LibraryRun();
    LibraryRun(const LibraryRun&) = delete;
    LibraryRun& operator=(const LibraryRun&) = delete;

    /// What did not start, a line each; the rest works all the same.
    const QStringList& failures() const { return m_failures; }

private:
    QStringList m_failures;
};

/// Takes texts such as "SegvLogging=0", in their order. Gives what is wrong with the first one that
/// is refused, and leaves out those after it; empty when nothing is.
QString setSwitches(const QStringList& settings);

/// Every switch on a line, with its value and how often it was asked for.
QByteArray switchTable();
/// Every counter on a line; those of living things, of which none should be left, come first.
QByteArray counterTable();
/// How many things are alive that are counted.
qint64 livingThings();

} // namespace TovaView

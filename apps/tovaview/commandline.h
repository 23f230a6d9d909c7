#pragma once

#include <vetra/color.h>

#include <QSize>
#include <QString>
#include <QStringList>

#include <optional>

namespace TovaView {

struct Options {
    QString file;     ///< empty: the diagram that is built in
    QString exportTo; ///< empty: no picture was asked for
    QString dumpTo;
    double scale = 0;                               ///< pixels a point; 0: not given
    QSize size;                                     ///< pixels; invalid: not given
    QString decorator = QStringLiteral("grad_pin"); ///< of crossings; "none" draws none
    QString detail = QStringLiteral("default");     ///< how small zooms are drawn
    bool ownConnectors = false;                     ///< as the file has them
    std::optional<Vetra::Color> background;         ///< instead of the diagram's own
    int inspect = 0;                                ///< id in the dump; 0: none
    QStringList settings;                           ///< of switches, each as NAME=VALUE
    bool features = false, counters = false;        ///< to be listed in the end
    bool stats = false, version = false, help = false;
    QString error; ///< what is wrong with the command line; empty when nothing is

    /// Whether something is to be written or printed, and nothing shown.
    bool isBatch() const;
    /// Whether the switches are all that was asked for.
    bool isListing() const;
};

/// `arguments` without the program's name.
Options parseArguments(const QStringList& arguments);
QString usage();

} // namespace TovaView

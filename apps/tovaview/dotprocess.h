#pragma once

#include <QByteArray>
#include <QString>
#include <QStringList>

#include <functional>

namespace TovaView {

struct DotLimits {
    int milliseconds = 30'000;
    quint64 memoryBytes = quint64(4) << 30;
    qint64 outputBytes = qint64(100) << 20; ///< more than Qt's JSON reader takes is of no use
};

struct DotResult {
    enum class Ending {
        Finished,   ///< with exit code 0
        Failed,     ///< with another exit code
        Crashed,    ///< by a signal
        TimedOut,   ///< killed by us
        TooMuch,    ///< killed by us: more output than allowed
        GivenUp,    ///< killed by us: whoever waited has asked for it
        NotStarted, ///< there is no such program
    };

    Ending ending = Ending::NotStarted;
    QByteArray output;
    QByteArray messages; ///< its standard error, cut at 1 MiB
};

/// Runs `program` with `input` on its standard input, in a process group of its own that is killed
/// as a whole when a limit is reached or `mayGoOn` says no. The child may open no file that the
/// input names, and dies with the thread that called.
DotResult runDot(const QString& program, const QStringList& arguments, const QByteArray& input,
                 const DotLimits& limits, const std::function<bool()>& mayGoOn);

} // namespace TovaView

#include "hostservices.h"

#include <host/diagnosticscounter.h>
#include <host/featureregistry.h>
#include <tova/main/initialize.h>
#include <vetra/errorholder.h>

#include <algorithm>
#include <cstdlib>

namespace TovaView {
namespace {

QString text(const std::string& utf8)
{
    return QString::fromStdString(utf8);
}

/// Empty when the switch has taken its value.
QString setSwitch(const QString& setting)
{
    const int equals = setting.indexOf(QLatin1Char('='));
    const QString name = setting.left(equals);
    bool isNumber = false;
    const int value = setting.mid(equals + 1).toInt(&isNumber);
    if (equals < 1 || !isNumber)
        return QStringLiteral("--set needs NAME=VALUE with a whole number, not %1").arg(setting);
    if (Host::setSwitch(name.toStdString(), value))
        return {};
    const auto all = Host::listSwitches();
    const bool isKnown = std::any_of(all.begin(), all.end(),
                                     [&](const auto& known) { return text(known.name) == name; });
    return isKnown ? QStringLiteral("%1 does not take %2").arg(name).arg(value)
                   : QStringLiteral("there is no switch %1; --features lists them").arg(name);
}

QString switchLine(const QString& name, const QString& value, const QString& usual,
                   const QString& reads, const QString& group, const QString& description)
{
    constexpr int nameWidth = -31, numberWidth = 7, groupWidth = -22;
    return QStringLiteral("%1%2  %3  %4  %5%6")
               .arg(name, nameWidth)
               .arg(value, numberWidth)
               .arg(usual, numberWidth)
               .arg(reads, numberWidth)
               .arg(group, groupWidth)
               .arg(description)
               .trimmed() +
           QLatin1Char('\n');
}

/// Of one kind, below a heading.
QString counterLines(const QString& heading, Host::CounterKind kind)
{
    QString lines = heading + QLatin1Char('\n');
    for (const Host::CounterReading& reading : Host::readDiagnosticsCounters()) {
        if (reading.kind == kind)
            lines += QStringLiteral("  %1%2\n").arg(text(reading.name), -36).arg(reading.value, 9);
    }
    return lines;
}

} // namespace

LibraryRun::LibraryRun()
{
    Vetra::ErrorHolder errors;
    Tova2::initialize_tova(errors);
    for (const Vetra::Error& error : errors.errors())
        m_failures << QString::fromUtf8(error.what());
}

LibraryRun::~LibraryRun()
{
    Tova2::terminate_tova();
}

QString setSwitches(const QStringList& settings)
{
    for (const QString& setting : settings) {
        QString error = setSwitch(setting);
        if (!error.isEmpty())
            return error;
    }
    return {};
}

QByteArray switchTable()
{
    QString lines =
        switchLine(QStringLiteral("switch"), QStringLiteral("value"), QStringLiteral("default"),
                   QStringLiteral("reads"), QStringLiteral("group"), QStringLiteral("description"));
    for (const Host::SwitchReading& known : Host::listSwitches())
        lines += switchLine(text(known.name), QString::number(known.value),
                            QString::number(known.defaultValue), QString::number(known.reads),
                            text(known.group), text(known.description));
    return lines.toUtf8();
}

QByteArray counterTable()
{
    return (counterLines(QStringLiteral("left"), Host::CounterKind::Live) +
            counterLines(QStringLiteral("done"), Host::CounterKind::Total))
        .toUtf8();
}

qint64 livingThings()
{
    qint64 sum = 0;
    for (const Host::CounterReading& reading : Host::readDiagnosticsCounters())
        sum += reading.kind == Host::CounterKind::Live ? std::abs(reading.value) : 0;
    return sum;
}

} // namespace TovaView

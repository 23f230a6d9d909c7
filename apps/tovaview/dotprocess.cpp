#include "dotprocess.h"

#include <QDeadlineTimer>
#include <QProcess>

#include <csignal>

#include <sys/prctl.h>
#include <sys/resource.h>
#include <unistd.h>

namespace TovaView {
namespace {

constexpr int pollMilliseconds = 50;
constexpr int messageBytes = 1 << 20;

void limit(int resource, rlim_t value)
{
    const rlimit both{value, value};
    ::setrlimit(static_cast<__rlimit_resource>(resource), &both);
}

class LimitedProcess : public QProcess {
public:
    explicit LimitedProcess(const DotLimits& limits) : m_limits(limits) {}
    ~LimitedProcess() override { killGroup(); }

    void killGroup()
    {
        if (state() == NotRunning)
            return;
        // The group exists only once the child has come to make it.
        const auto id = static_cast<pid_t>(processId());
        if (id > 0)
            ::kill(-id, SIGKILL);
        kill();
        waitForFinished();
    }

protected:
    // Runs between fork and exec: nothing here may allocate or lock.
    void setupChildProcess() override
    {
        ::setpgid(0, 0);
        ::prctl(PR_SET_PDEATHSIG, SIGKILL);
        limit(RLIMIT_AS, m_limits.memoryBytes);
        limit(RLIMIT_CPU, static_cast<rlim_t>(m_limits.milliseconds / 1000 + 2));
        limit(RLIMIT_CORE, 0);
    }

private:
    DotLimits m_limits;
};

QProcessEnvironment closedEnvironment()
{
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    // dot takes this variable for a sign that it works for strangers, and opens no image, shape or
    // font file that the diagram names, as long as no search path is given along with it.
    environment.insert(QStringLiteral("SERVER_NAME"), QStringLiteral("tovaview"));
    for (const char* name : {"GV_FILE_PATH", "GVBINDIR", "DOTFONTPATH", "GDFONTPATH", "DISPLAY"})
        environment.remove(QLatin1String(name));
    return environment;
}

void collect(QProcess& process, DotResult& result)
{
    result.output += process.readAllStandardOutput();
    const QByteArray messages = process.readAllStandardError();
    result.messages += messages.left(messageBytes - result.messages.size());
}

DotResult::Ending endingOf(const QProcess& process)
{
    if (process.exitStatus() == QProcess::CrashExit)
        return DotResult::Ending::Crashed;
    return process.exitCode() == 0 ? DotResult::Ending::Finished : DotResult::Ending::Failed;
}

DotResult::Ending watch(LimitedProcess& process, const DotLimits& limits,
                        const std::function<bool()>& mayGoOn, DotResult& result)
{
    const QDeadlineTimer deadline(limits.milliseconds);
    while (process.state() != QProcess::NotRunning) {
        process.waitForFinished(pollMilliseconds);
        collect(process, result);
        if (result.output.size() > limits.outputBytes)
            return DotResult::Ending::TooMuch;
        if (deadline.hasExpired() && process.state() != QProcess::NotRunning)
            return DotResult::Ending::TimedOut;
        if (!mayGoOn())
            return DotResult::Ending::GivenUp;
    }
    return endingOf(process);
}

} // namespace

DotResult runDot(const QString& program, const QStringList& arguments, const QByteArray& input,
                 const DotLimits& limits, const std::function<bool()>& mayGoOn)
{
    DotResult result;
    LimitedProcess process(limits);
    process.setProcessEnvironment(closedEnvironment());
    process.start(program, arguments);
    if (!process.waitForStarted())
        return result;
    process.write(input);
    process.closeWriteChannel();
    result.ending = watch(process, limits, mayGoOn, result);
    process.killGroup();
    collect(process, result);
    return result;
}

} // namespace TovaView

#pragma once

#include "diagram.h"
#include "layoutwish.h"

#include <QObject>
#include <QStringList>

#include <functional>
#include <memory>
#include <thread>

namespace TovaView {

/// Reads a diagram in a thread of its own, since Graphviz can take a minute.
class DiagramLoader : public QObject {
public:
    struct Outcome {
        QString file;
        std::unique_ptr<const Diagram> diagram; ///< null when it could not be read
        QStringList notes;
        QString error;
    };

    /// `loaded` is called in the thread of the loader, once for each load that is neither cancelled
    /// nor followed by another one.
    explicit DiagramLoader(std::function<void(Outcome)> loaded);
    /// Cancels what is under way, and waits for its end: a twentieth of a second, or as long as it
    /// takes to read what Graphviz has printed.
    ~DiagramLoader() override;

    /// Cancels the load before.
    void load(const QString& file, bool ownConnectors);
    void cancel();
    void hurry();

    bool isLoading() const { return m_work != nullptr; }
    /// The way that Graphviz is trying; empty at first.
    QString stage() const;

private:
    struct Work;
    void finish(const std::shared_ptr<Work>& work);
    void joinEnded(bool all);

    std::function<void(Outcome)> m_loaded;
    std::shared_ptr<Work> m_work;                 ///< of the load that counts
    std::vector<std::shared_ptr<Work>> m_leaving; ///< cancelled, and perhaps not at their end yet
};

} // namespace TovaView

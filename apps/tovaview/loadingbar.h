#pragma once

#include <QElapsedTimer>
#include <QFrame>
#include <QTimer>

#include <functional>

class QLabel;
class QPushButton;

namespace TovaView {

/// Says that a diagram is being read, for how long, and what can be done about it.
class LoadingBar : public QFrame {
public:
    struct Handlers {
        std::function<QString()> stage; ///< what is being tried, asked several times a second
        std::function<void()> hurry, cancel;
    };

    explicit LoadingBar(Handlers handlers);

    /// `name` of the file.
    void begin(const QString& name);
    void end();

private:
    void showProgress();

    Handlers m_handlers;
    QString m_name;
    QLabel* m_label;
    QPushButton* m_hurry;
    QElapsedTimer m_since;
    QTimer m_timer;
};

} // namespace TovaView

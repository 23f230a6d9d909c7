#pragma once

#include <QFrame>

class QLabel;

namespace TovaView {

/// One line about what went wrong, until it is closed or something succeeds.
class MessageBar : public QFrame {
public:
    explicit MessageBar(QWidget* parent = nullptr);

    void say(const QString& line);

protected:
    void resizeEvent(QResizeEvent* event) override;

private:
    void showLine();

    QString m_line;
    QLabel* m_label; ///< shows as much of it as there is room for
};

} // namespace TovaView

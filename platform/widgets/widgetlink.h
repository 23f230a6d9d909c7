#pragma once

#include <QObject>

class QWidget;

namespace Widgets {

class GLWidget2;

/// Watches the toolkit's widget for the object that owns it, and dies with the former.
class WidgetLink : public QObject {
public:
    WidgetLink(GLWidget2& owner, QWidget& widget);

    GLWidget2* owner() const noexcept { return m_owner; }
    /// From here on the widget gets no event but the one that deletes it.
    void cutOff() noexcept { m_owner = nullptr; }

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void deliver(QObject& widget, QEvent& event);
    void tell(const QEvent& event);
    void tellVisibility();

    GLWidget2* m_owner;
    bool m_wasVisible = false;
};

} // namespace Widgets

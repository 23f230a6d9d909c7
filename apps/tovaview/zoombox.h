#pragma once

#include <QComboBox>

#include <functional>
#include <optional>

namespace TovaView {

/// Shows the zoom as a percentage and lets the user choose or type another one.
class ZoomBox : public QComboBox {
public:
    struct Handlers {
        std::function<void(double scale)> zoom;
        std::function<void()> fit;
        std::function<void()> done; ///< the user has finished with the box
    };

    explicit ZoomBox(Handlers handlers, QWidget* parent = nullptr);

    void showScale(double scale);
    /// Of "75", "75 %", "75%"; nothing when it is no percentage above 0.
    static std::optional<double> scaleOf(const QString& text);

protected:
    void keyPressEvent(QKeyEvent* event) override;
    void focusOutEvent(QFocusEvent* event) override;

private:
    void takeText();

    Handlers m_handlers;
    double m_scale = 1; ///< shown again when what was typed is no percentage
};

} // namespace TovaView

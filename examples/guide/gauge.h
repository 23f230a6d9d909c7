#pragma once

#include <tova/tova.h>

/// Draws a gauge: a ring that is filled as far as its value goes.
class GaugePainter : public Tova2::CustomNodePainter {
public:
    explicit GaugePainter(double radius) : m_radius(radius) {}

    /// From 0 to 1.
    void setValue(double value);
    /// In points.
    void setRadius(double radius);

    Vetra::GLRect<double> getBoundingRect(double scale) const override;
    Tova2::Bounds getOutlineStroked(double scale) const override;
    void paint(QPainter* painter, double scale, const Vetra::GLRect<double>& target,
               const Tova2::PaintOptions& options) override;

private:
    double m_radius;
    double m_value = 0;
};

#pragma once

#include <tova/tova.h>

#include <QImage>

#include <string>

/// A drawing with boxes and arrows, made of nodes like any diagram. In points; the picture has two
/// pixels a point.
class Sketch {
public:
    using Point = Vetra::GLPoint<double>;
    using Rect = Vetra::GLRect<double>;

    Sketch(double width, double height);

    Tova2::Scene& scene() { return *m_scene; }
    Tova2::RoundedRectNode box(const std::string& words, const Rect& rect,
                               const Vetra::Color& color);
    void arrow(const Point& from, const Point& to, bool isDashed = false);
    /// Centred on the point.
    void words(const std::string& text, const Point& middle, double size = 8);
    QImage picture();

    static const Vetra::Color kInk, kPaper, kBlue, kAmber, kGreen;
    static Tova2::DrawStyle smooth(const Tova2::Stroke& stroke,
                                   const Tova2::Fill& fill = Tova2::Fill::NoFill());
    static Tova2::Stroke line(double width, const Vetra::Color& color = kInk,
                              const Tova2::LodScale* scale = nullptr);

private:
    Vetra::Holder<Tova2::Scene> m_scene = Tova2::Scene::createScene();
    double m_width, m_height;
};

// What the wheel does to a canvas, and what a host can make of it.
#include "pages.h"
#include "sketch.h"

#include <widgets/qt.h>

#include <QPainter>
#include <QPixmap>
#include <QWidget>

using namespace Tova2;

namespace {

// A wheel that scrolls, and zooms with Ctrl.
class ScrollFirst : public ScrollWheelTool {
    bool shouldZoomPrimarily() override { return false; }
};

void scrollFirst(Scene& scene)
{
    scene.addTool(new ScrollFirst); // takes the place of the tool that has the role
}

void letNothingGlide(Scene& scene)
{
    // No glide after the middle button.
    auto* pan = static_cast<PanZoomTool*>(scene.getToolByRole(PanZoomTool::staticGetDefaultRole()));
    pan->setMiddleButtonGlides(false);
}

void fixTheView(Scene& scene)
{
    // No zooming or panning by the user at all.
    scene.removeToolByRole("PanZoomTool");
    scene.removeToolByRole("ScrollWheelTool");
}

/// A canvas over a small diagram, fitted, with the pointer on the controller.
class Views {
public:
    Views()
    {
        m_sketch.box("set point", {0, 40, 70, 30}, Sketch::kBlue);
        m_sketch.box("controller", {100, 0, 70, 30}, Sketch::kAmber);
        m_sketch.box("plant", {100, 80, 70, 30}, Sketch::kGreen);
        m_sketch.arrow({70, 50}, {100, 20});
        m_sketch.arrow({135, 30}, {135, 80});
        m_canvas.setSize({250, 190});
        m_canvas.setMargins({12, 12, 12, 12});
        m_canvas.setScene(&m_sketch.scene());
        m_canvas.zoomToSceneRect();
    }
    ~Views() { m_canvas.destroy(); }

    Scene& scene() { return m_sketch.scene(); }
    double scale() const { return m_canvas.getScale(); }
    /// Away from the user when above 0.
    QImage turnWheel(int notches)
    {
        EventTestDriver user(scene(), &m_canvas);
        user.wheel(Vetra::GLPoint<double>{135, 15}, 120 * notches);
        return toQt(m_canvas)->grab().toImage();
    }

private:
    Sketch m_sketch{0, 0};
    GLCanvas& m_canvas = *new GLCanvas("view");
};

QImage inARow(const std::vector<QImage>& pictures)
{
    QImage row(static_cast<int>(pictures.size()) * 256 - 6, pictures.front().height(),
               QImage::Format_RGB32);
    row.fill(Qt::white);
    QPainter painter(&row);
    int x = 0;
    for (const QImage& picture : pictures) {
        painter.drawImage(x, 0, picture);
        x += 256;
    }
    return row;
}

} // namespace

QImage viewPage()
{
    Views views;
    const double fitted = views.scale();
    std::vector<QImage> pictures{views.turnWheel(0), views.turnWheel(1)};
    const double zoomed = views.scale();
    scrollFirst(views.scene());
    pictures.push_back(views.turnWheel(-1));
    const bool scrolls = views.scale() == zoomed && pictures[2] != pictures[1];

    letNothingGlide(views.scene());
    fixTheView(views.scene());
    const bool isFixed = views.turnWheel(-1) == pictures[2];
    return zoomed > fitted && scrolls && isFixed ? inARow(pictures) : QImage();
}

#include "tova/layout/autolayoutpanel.h"

#include "layout/autolayoutpanelprivate.h"
#include "nodes/values.h"

#include "vetra/qt.h"

namespace Tova2 {

AutoLayoutPanel::AutoLayoutPanel() : d(std::make_unique<AutoLayoutPanelPrivate>(*this)) {}

AutoLayoutPanel::~AutoLayoutPanel() = default;

void AutoLayoutPanel::addNodeAt(int index, const Vetra::StringID& name, const Node& node)
{
    d->insert(index, name, node);
}

Node AutoLayoutPanel::removeNode(const Node& node)
{
    return d->remove(node);
}

Node AutoLayoutPanel::removeNode(const Vetra::StringID& name)
{
    return d->remove(getNode(name));
}

Node AutoLayoutPanel::removeNodeAt(int index)
{
    return d->remove(getNodeAt(index));
}

Node AutoLayoutPanel::getNode(const Vetra::StringID& name) const
{
    return d->members().named(name);
}

Node AutoLayoutPanel::getNodeAt(int index) const
{
    return d->members().at(index);
}

int AutoLayoutPanel::count() const
{
    return d->members().count();
}

AutoLayoutPanel::ExpandMode AutoLayoutPanel::getExpandMode() const
{
    return d->rules.expandMode;
}

void AutoLayoutPanel::setExpandMode(ExpandMode mode)
{
    if (mode <= ExpandMode::Vertical)
        d->change(d->rules.expandMode, mode);
}

HorizontalAlignment AutoLayoutPanel::getHAlign() const
{
    return d->rules.hAlign;
}

void AutoLayoutPanel::setHAlign(HorizontalAlignment alignment)
{
    if (alignment <= HorizontalAlignment::Right)
        d->change(d->rules.hAlign, alignment);
}

VerticalAlignment AutoLayoutPanel::getVAlign() const
{
    return d->rules.vAlign;
}

void AutoLayoutPanel::setVAlign(VerticalAlignment alignment)
{
    if (alignment <= VerticalAlignment::Bottom)
        d->change(d->rules.vAlign, alignment);
}

double AutoLayoutPanel::getPadding() const
{
    return d->rules.padding;
}

void AutoLayoutPanel::setPadding(double padding)
{
    if (std::isfinite(padding))
        d->change(d->rules.padding, padding);
}

Vetra::Size<double> AutoLayoutPanel::getSize() const
{
    return d->rules.size;
}

void AutoLayoutPanel::setSize(const Vetra::Size<double>& size)
{
    if (std::isfinite(size.width) && std::isfinite(size.height))
        d->change(d->rules.size, size);
}

void AutoLayoutPanel::setNonLinearScaleFunction(const LodScale* function)
{
    d->change(d->scaleFunction, function ? function : LodScale::instance());
}

Vetra::GLRect<double> AutoLayoutPanel::getAnchorClippingRect() const
{
    return d->anchorClip;
}

void AutoLayoutPanel::setAnchorClippingRect(const Vetra::GLRect<double>& rect)
{
    if (isFinite(Vetra::toQt(rect)))
        d->change(d->anchorClip, rect);
}

void AutoLayoutPanel::suspendLayout()
{
    d->suspend();
}

void AutoLayoutPanel::resumeLayout()
{
    d->resume();
}

void AutoLayoutPanel::forceLayout()
{
    d->layout(true);
}

Vetra::GLRect<double> AutoLayoutPanel::getBoundingRectangle() const
{
    return d->frame();
}

RoundedRectNode AutoLayoutPanel::getRootNode() const
{
    return d->root;
}

double AutoLayoutPanel::getOpacity() const
{
    return d->root.getOpacity();
}

void AutoLayoutPanel::setOpacity(double opacity)
{
    d->setOpacity(opacity);
}

AutoLayoutPanel::PanelStyle AutoLayoutPanel::getPanelStyle() const
{
    return d->style();
}

void AutoLayoutPanel::setPanelStyle(PanelStyle style)
{
    if (style <= PanelStyle::RedSolidGradient)
        d->setStyle(style);
}

void AutoLayoutPanel::setPanelDrawStyle(const DrawStyle& style)
{
    d->setDrawStyle(style);
}

Vetra::GLPoint<double> AutoLayoutPanel::getPosition() const
{
    return d->position();
}

void AutoLayoutPanel::setPosition(const Vetra::GLPoint<double>& position)
{
    if (isFinite(Vetra::toQt(position)))
        d->setPosition(position);
}

void AutoLayoutPanel::setCanvasAffinity(CanvasAffinity affinity,
                                        const Vetra::GLPoint<double>& offset)
{
    if (affinity <= CanvasAffinity::Left && isFinite(Vetra::toQt(offset)))
        d->setAffinity(affinity, offset);
}

CanvasAffinity AutoLayoutPanel::getCanvasAffinity() const
{
    return d->affinity();
}

void AutoLayoutPanel::installOnNode(const Node& parent, bool anchored,
                                    const Vetra::GLRect<double>& anchorClip)
{
    d->installOnNode(parent, anchored, anchorClip);
}

void AutoLayoutPanel::installOnCanvas(GLCanvas& canvas)
{
    d->installOnCanvas(canvas);
}

void AutoLayoutPanel::installOnSceneForStaticRender(Scene* scene)
{
    d->installOnScene(scene);
}

bool AutoLayoutPanel::isInstalled() const
{
    return d->isInstalled();
}

void AutoLayoutPanel::uninstall()
{
    d->uninstall();
}

} // namespace Tova2

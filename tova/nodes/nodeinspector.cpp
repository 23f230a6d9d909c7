#include "tova/nodes/nodeinspector.h"

#include "nodes/inspection.h"
#include "nodes/nodeextras.h"
#include "nodes/nodeimpl.h"
#include "nodes/nodekind.h"

#include "vetra/qt.h"

namespace Tova2 {

namespace {

void inspectPlace(Inspection& out, const NodeImpl& node)
{
    out.line("Parent") << node.parentNode();
    out.line("Scene") << (node.sceneLink() ? "yes" : "none");
    out.line("Position") << node.pos();
    if (!node.isTranslatedOnly()) {
        const QTransform transform = node.localTransform();
        out.line("Transform") << transform.m11() << " " << transform.m12() << " " << transform.m21()
                              << " " << transform.m22();
    }
    const QRectF bounds = node.strokedRect();
    out.line("Bounds") << bounds;
    out.line("Scene Bounds") << node.sceneTransform().mapRect(bounds);
    out.line("Z") << node.zValue();
}

void inspectFill(Inspection& out, const Fill& fill)
{
    out.line("Fill");
    if (fill.isNoFill())
        out << "none";
    else if (fill.style() == FillStyle::Gradient)
        out << "gradient";
    else
        out << fill.color();
}

void inspectLooks(Inspection& out, const NodeImpl& node)
{
    out.line("Visible") << yesOrNo(node.isVisibleItself()) << ", to scene "
                        << yesOrNo(node.isVisibleToScene());
    out.line("Opacity") << node.opacity();
    out.line("Stroke") << node.drawStyle().stroke();
    inspectFill(out, node.drawStyle().fill());
    out.line("Antialiased") << yesOrNo(node.drawStyle().isAntiAliased());
}

void inspectTags(Inspection& out, const NodeImpl& node)
{
    if (node.extras() && !node.extras()->tags.empty())
        out.list("Tags", node.extras()->tags, [&](const auto& tag) { out.quote(tag.first.str()); });
}

} // namespace

std::string inspectorText(const Node& node)
{
    Inspection out;
    if (!node.isValid()) {
        out.line("Node") << "none";
        return out.text();
    }
    // Held: a custom painter that is asked for its bounds may let go of it.
    const Node held = node;
    const auto& impl = *implBehind(held);
    out.line("Node") << &impl;
    inspectPlace(out, impl);
    inspectLooks(out, impl);
    inspectTags(out, impl);
    out.line("Children") << static_cast<double>(impl.childItems().size());
    impl.inspect(out);
    return out.text();
}

} // namespace Tova2

// Lamps that hear of the pointer.
#include "pages.h"
#include "sketch.h"

using namespace Tova2;

namespace {

/// Glows while the pointer is on its node, and is switched by a press.
class Lamp : public Vemit::Listener {
public:
    explicit Lamp(Node node) : m_node(node)
    {
        node.connectTo(&NodeEmitters::hoverEnter, this, [this](auto&, auto&) { glow(true); });
        node.connectTo(&NodeEmitters::hoverExit, this, [this](auto&, auto&) { glow(false); });
        node.connectTo(&NodeEmitters::mousePress, this, &Lamp::toggle);
    }
    bool isOn() const { return m_isOn; }

private:
    void glow(bool isOver);
    void toggle(MouseEvent& event, const std::vector<Vetra::StringID>& tags);

    WeakRef m_node; // a handle would keep the node alive
    bool m_isOn = false;
};

void Lamp::glow(bool isOver)
{
    const Effect::Glow light(Vetra::Color(0.95, 0.6, 0.15), 7, true, 2);
    m_node.getNode().setEffect(isOver ? Effect::createEffect(light) : Effect());
}

void Lamp::toggle(MouseEvent& event, const std::vector<Vetra::StringID>&)
{
    m_isOn = !m_isOn;
    m_node.getNode().setFill(Fill(m_isOn ? Sketch::kAmber : Sketch::kPaper));
    event.consume();
}

/// Presses are for the nodes.
class PressTool : public Tool {
public:
    ModifyingType isModifyingTool() const override { return ModifyingType::NeverModifies; }
    Vetra::StringID getDefaultRole() const override { return "PressTool"; }
    void cancel(ECancelReason, const Tool*) override {}
    void handleMousePressEvent(MouseEvent& event) override
    {
        scene()->passMousePressEventToNode(event);
    }
};

EllipseNode addLamp(Sketch& sketch, const std::string& words, double x)
{
    EllipseNode bulb(Ellipse({x - 20, 20, 40, 40}));
    bulb.setDrawStyle(Sketch::smooth(Sketch::line(1.5), Fill(Sketch::kPaper)));
    sketch.scene().addNode(bulb);
    sketch.words(words, {x, 80});
    return bulb;
}

} // namespace

QImage inputPage()
{
    Sketch sketch(380, 100);
    const EllipseNode left = addLamp(sketch, "left alone", 70);
    const EllipseNode pressed = addLamp(sketch, "pressed before", 190);
    const EllipseNode under = addLamp(sketch, "pressed, pointer still there", 310);
    const Lamp first(left), second(pressed), third(under);

    const Vetra::Holder<PressTool> tool(new PressTool);
    sketch.scene().addTool(tool.get());
    EventTestDriver user(sketch.scene());
    user.click(pressed);
    user.click(under);
    const bool isRight = !first.isOn() && second.isOn() && third.isOn();
    return isRight ? sketch.picture() : QImage();
}

#include "widget/glcanvasprivate.h"

#include "tova/nodes/ellipsenode.h"
#include "tova/nodes/linenode.h"
#include "tova/nodes/rectnode.h"
#include "tova/nodes/roundedrectnode.h"
#include "tova/nodes/textnode.h"
#include "tova/scene/scene.h"
#include "tova/widget/glcanvas.h"
#include "widgets/qt.h"

#include <gtest/gtest.h>

#include <QCoreApplication>
#include <QImage>
#include <QPixmap>

#include <cmath>
#include <cstdlib>
#include <functional>
#include <random>

namespace {

using namespace Tova2;

/// A canvas that shows a scene, and can tell whether what it shows is what it ought to show.
class View {
public:
    View(Scene& scene, double scale) : m_canvas(*new GLCanvas(Vetra::StringID("view")))
    {
        m_canvas.setSize({160, 150});
        m_canvas.hideScrollbars();
        m_canvas.setScene(&scene);
        m_canvas.showScenePointAtViewPointAtScale({0, 0}, {70.25, 65.5}, scale);
        shown();
    }
    ~View() { m_canvas.destroy(); }
    View(const View&) = delete;
    View& operator=(const View&) = delete;

    /// That are not as a full repaint makes them, after the repaint of what has changed.
    int wrongPixels()
    {
        const QImage merged = shown();
        m_canvas.d_func()->repaintAll();
        const QImage due = shown();
        int count = 0;
        for (int y = 0; y < due.height(); ++y) {
            for (int x = 0; x < due.width(); ++x)
                count += due.pixel(x, y) != merged.pixel(x, y);
        }
        return count;
    }

private:
    QImage shown()
    {
        QCoreApplication::processEvents();
        return toQt(m_canvas)->grab().toImage();
    }

    GLCanvas& m_canvas;
};

class Editor {
public:
    explicit Editor(unsigned seed) : m_random(seed)
    {
        for (int i = 0; i < 8; ++i) {
            m_nodes.push_back(make());
            restyle(m_nodes.back());
            m_scene->addNode(m_nodes.back());
        }
    }
    Scene& scene() { return *m_scene; }
    /// One random edit; says which.
    std::string edit();

private:
    int below(int limit) { return std::uniform_int_distribution<int>(0, limit - 1)(m_random); }
    double about(double most)
    {
        return std::uniform_real_distribution<double>(-most, most)(m_random);
    }
    Node make();
    void restyle(Node& node);
    Effect effect();
    void resize(Node& node);
    void reparent(Node& node, const Node& parent);

    std::mt19937 m_random;
    Vetra::Holder<Scene> m_scene = Scene::createScene();
    std::vector<Node> m_nodes;
};

Node Editor::make()
{
    switch (below(5)) {
    case 0:
        return EllipseNode(Ellipse({0, 0, 30.5, 18}));
    case 1:
        return LineNode({-10, -5}, {25, 17});
    case 2:
        return RoundedRectNode({0, 0, 26, 20}, 5);
    case 3:
        return TextNode("ghosts");
    default:
        return RectNode({-8, -8, 24.5, 16});
    }
}

void Editor::restyle(Node& node)
{
    static const LinearlyScaleUntilLodScale untilTwo(2);
    const LodScale* const functions[] = {nullptr,
                                         ConstantLodScale::instance(),
                                         ConstantInLodScale::instance(),
                                         ConstantOutLodScale::instance(),
                                         SelectionNonLinearLodScale::instance(),
                                         SplitLinearLodScale::instance(),
                                         &untilTwo};
    const auto color = [&] {
        return Vetra::Color::fromPacked(0x7f000000u | static_cast<unsigned>(below(1 << 24)));
    };
    const auto strokeStyle = static_cast<StrokeStyle>(below(6));
    // Mitres between the chords of dashed curves reach where nobody can tell at other scales.
    const auto join = strokeStyle > StrokeStyle::SolidLine ? StrokeJoinStyle::RoundJoin
                                                           : static_cast<StrokeJoinStyle>(below(4));
    DrawStyle style(Stroke(color(), below(4) * 2.5, strokeStyle,
                           static_cast<StrokeCapStyle>(below(3)), join, functions[below(7)]),
                    below(3) == 0 ? Fill() : Fill(color()));
    style.setIsAntiAliased(below(2) == 0);
    style.setIsPixelAligned(below(3) == 0);
    if (below(2) == 0)
        style.setEffect(effect());
    node.setDrawStyle(style);
}

Effect Editor::effect()
{
    const Vetra::Color color(0.4, 0.1, 0.6, below(4) / 3.0);
    const Stroke line(color, below(3) * 1.5, StrokeStyle::SolidLine, StrokeCapStyle::FlatCap,
                      StrokeJoinStyle::MiterJoin, ConstantLodScale::instance());
    Effect effect;
    if (below(2))
        effect.set(Effect::Shadow(color, below(6), {below(21) - 10, below(21) - 10}, below(2)));
    if (below(3) == 0)
        effect.set(Effect::Glow(color, below(6), below(2), 1.5 * below(9)));
    if (below(3) == 0)
        effect.set(Effect::Overlay(color));
    if (below(3) == 0)
        effect.set(Effect::Trace(line, static_cast<StrokeInsetType>(below(3))));
    if (below(3) == 0)
        effect.set(Effect::Squiggly(color));
    return effect;
}

void Editor::resize(Node& node)
{
    if (node.isa(EllipseNode::staticGetFullyQualifiedKobjTypeName()))
        static_cast<EllipseNode&>(node).setSize({20 + about(15), 20 + about(15)});
    else if (node.isa(RectNode::staticGetFullyQualifiedKobjTypeName()))
        static_cast<RectNode&>(node).setRect({about(9), about(9), 20 + about(15), 20 + about(20)});
    else if (node.isa(TextNode::staticGetFullyQualifiedKobjTypeName()))
        static_cast<TextNode&>(node).setText(below(2) ? "longer ghosts\nin two lines" : "");
}

void Editor::reparent(Node& node, const Node& parent)
{
    try {
        node.setParent(below(3) ? parent : Node());
    } catch (const std::exception&) { // not under itself or its own
    }
    if (!node.getScene())
        m_scene->addNode(node);
}

std::string Editor::edit()
{
    const int which = below(static_cast<int>(m_nodes.size())), other = below(8), kind = below(18);
    Node& node = m_nodes[static_cast<std::size_t>(which)];
    const Node& second = m_nodes[static_cast<std::size_t>(other)];
    const std::function<void()> edits[] = {
        [&] { node.setPosition(Vetra::GLPoint<double>(about(60), about(50))); },
        [&] { node.translate(about(4), about(4)); },
        [&] { node.rotateDegrees(about(90)); },
        [&] { node.scale(1 + about(0.4), 1 + about(0.4)); },
        [&] { restyle(node); },
        [&] { restyle(node); },
        [&] { resize(node); },
        [&] { resize(node); },
        [&] { node.setVisible(!node.isVisible()); },
        [&] { node.setOpacity(below(3) / 2.0); },
        [&] { node.setClipsChildren(!node.isClipsChildren()); },
        [&] { node.setStacksBehindParent(!node.isStacksBehindParent()); },
        [&] { node.setIgnoresTransformations(below(3) == 0); },
        [&] { node.getScene() ? node.remove() : void(m_scene->addNode(node)); },
        [&] { node.placeAbove(second); },
        [&] { node.setCacheType(static_cast<CacheType>(below(3))); },
        [&] { node.setMinLODQuality(static_cast<std::uint8_t>(below(3))); },
        [&] { reparent(node, second); },
    };
    edits[kind]();
    return std::to_string(kind) + " on " + std::to_string(which) + " with " +
           std::to_string(other) + "\n";
}

constexpr int kScales = 30;
constexpr unsigned kSeeds = 5;

/// TOVA_REPAINTED_EDITS asks for more than a build can wait for.
int turnsASeed()
{
    const char* const edits = std::getenv("TOVA_REPAINTED_EDITS");
    return edits ? std::atoi(edits) / (kScales * 2 * static_cast<int>(kSeeds)) : 30;
}

class CanvasRepaintTest : public testing::TestWithParam<double> {};

TEST_P(CanvasRepaintTest, OfChangesEqualsThatOfEverything)
{
    for (unsigned seed = 1; seed <= kSeeds; ++seed) {
        Editor editor(seed);
        View view(editor.scene(), GetParam());
        std::string edits;
        for (int turn = 0; turn < turnsASeed(); ++turn) {
            edits += "turn\n";
            for (int i = 0; i <= turn % 3; ++i)
                edits += editor.edit();
            ASSERT_EQ(view.wrongPixels(), 0) << "seed " << seed << ", edits:\n" << edits;
        }
    }
}

INSTANTIATE_TEST_SUITE_P(ViewScales, CanvasRepaintTest,
                         testing::Values(0.009, 0.01, 0.02, 0.03, 0.04, 0.05, 0.06, 0.08, 0.1, 0.15,
                                         0.2, 0.25, 0.3, 0.4, 0.5, 0.6, 0.8, 1.0, 1.25, 1.5, 1.75,
                                         2.0, 2.5, 3.0, 4.0, 5.0, 6.0, 8.0, 10.0, 12.5),
                         [](const testing::TestParamInfo<double>& scale) {
                             return "Permille" + std::to_string(std::lround(scale.param * 1000));
                         });

} // namespace

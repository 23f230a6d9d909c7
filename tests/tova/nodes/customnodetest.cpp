#include "nodes/customnodeimpl.h"
#include "nodes/nodechangesink.h"
#include "nodes/paintcontext.h"

#include "tova/nodes/customnode.h"
#include "tova/nodes/customnodepainter.h"

#include <QPainter>

#include <functional>
#include <stdexcept>

namespace Tova2 {
namespace {

using Rect = Vetra::GLRect<double>;

/// Does what it is told in its callbacks, and tells when it dies.
class ObedientPainter : public CustomNodePainter {
public:
    explicit ObedientPainter(bool* died = nullptr) : m_died(died) {}

    Rect getBoundingRect(double scale) const override
    {
        if (onBounds)
            onBounds();
        return bounds.grown(1 / scale - 1);
    }
    void paint(QPainter* painter, double scale, const Rect& target, const PaintOptions&) override
    {
        lastScale = scale;
        lastTarget = target;
        if (onPaint)
            onPaint(*painter);
        if (m_aliveAfterPaint)
            *m_aliveAfterPaint = m_died && !*m_died;
    }
    void reportTo(bool* alive) { m_aliveAfterPaint = alive; }

    Rect bounds{-10, -5, 20, 10};
    std::function<void()> onBounds;
    std::function<void(QPainter&)> onPaint;
    double lastScale = 0;
    Rect lastTarget;

protected:
    ~ObedientPainter() override
    {
        if (m_died)
            *m_died = true;
    }

private:
    bool* m_died;
    bool* m_aliveAfterPaint = nullptr;
};

using PainterHolder = Vetra::Holder<ObedientPainter>;

void paintOnce(const Node& node, QPainter& painter, double scale = 1)
{
    PaintOptions options;
    options.viewScale = scale;
    PaintContext context(painter, QTransform::fromScale(scale, scale), options);
    context.enter(QPointF());
    static_cast<const NodeImpl*>(node.getReferenced())->paintNode(context);
}

class CustomNodeTest : public testing::Test {
protected:
    bool m_hasDied = false;
    QImage m_image{40, 40, QImage::Format_RGB32};
    QPainter m_painter{&m_image};
};

TEST_F(CustomNodeTest, TakesItsGeometryFromThePainter)
{
    CustomNode node;
    EXPECT_FALSE(node.getBoundingRect().isValid());
    EXPECT_EQ(node.getPainter(), nullptr);
    const PainterHolder painter(new ObedientPainter);
    node.setPainter(painter.get());
    EXPECT_EQ(node.getBoundingRect(), painter->bounds);
    EXPECT_TRUE(node.contains({9, 4}));
    EXPECT_FALSE(node.contains({11, 0}));
    paintOnce(node, m_painter, 0.5);
    EXPECT_EQ(painter->lastScale, 0.5);
    EXPECT_EQ(painter->lastTarget, painter->bounds.grown(1));
}

TEST_F(CustomNodeTest, ReleasesAPainterThatItReplaces)
{
    CustomNode node;
    node.setPainter(new ObedientPainter(&m_hasDied));
    node.setPainter(node.getPainter());
    EXPECT_FALSE(m_hasDied);
    node.setPainter(nullptr);
    EXPECT_TRUE(m_hasDied);
}

TEST_F(CustomNodeTest, APainterAnswersTheNodeThatTookItLastWhileItHasIt)
{
    const PainterHolder painter(new ObedientPainter), other(new ObedientPainter);
    CustomNode first;
    first.setPainter(painter.get());
    {
        CustomNode second;
        second.setPainter(painter.get());
        EXPECT_EQ(painter->getNode(), second);
        first.setPainter(other.get());
        EXPECT_EQ(painter->getNode(), second);
    }
    EXPECT_FALSE(painter->getNode().isValid());
    painter->boundsChanging();
    EXPECT_EQ(other->getNode(), first);
    first.setPainter(nullptr);
    EXPECT_FALSE(other->getNode().isValid());
}

TEST_F(CustomNodeTest, APainterThatReplacesItselfLivesUntilItReturns)
{
    CustomNode node;
    bool isAlive = false;
    auto* const painter = new ObedientPainter(&m_hasDied);
    painter->reportTo(&isAlive);
    painter->onPaint = [&](QPainter&) { node.setPainter(nullptr); };
    node.setPainter(painter);
    paintOnce(node, m_painter);
    EXPECT_TRUE(isAlive);
    EXPECT_TRUE(m_hasDied);
}

TEST_F(CustomNodeTest, AThrowingPainterLeavesTheQPainterAsItWas)
{
    CustomNode node;
    auto* const painter = new ObedientPainter;
    node.setPainter(painter);
    painter->onPaint = [](QPainter& p) {
        p.setClipRect(0, 0, 1, 1);
        p.translate(5, 5);
        p.setOpacity(0.5);
        throw std::runtime_error("host");
    };
    EXPECT_THROW(paintOnce(node, m_painter), std::runtime_error);
    EXPECT_FALSE(m_painter.hasClipping());
    EXPECT_TRUE(m_painter.worldTransform().isIdentity());
    EXPECT_EQ(m_painter.opacity(), 1.0);
    painter->onPaint = nullptr;
    EXPECT_NO_THROW(paintOnce(node, m_painter));
}

TEST_F(CustomNodeTest, BoundsThatAreNoBoundsCountAsEmpty)
{
    CustomNode node;
    auto* const painter = new ObedientPainter;
    node.setPainter(painter);
    for (const double bad :
         {std::numeric_limits<double>::quiet_NaN(), std::numeric_limits<double>::infinity()}) {
        painter->bounds = {0, 0, bad, 10};
        EXPECT_EQ(node.getBoundingRect(), Rect());
        EXPECT_FALSE(node.contains({0, 0}));
    }
    painter->bounds = {0, 0, 10, 10};
    painter->onBounds = [] { throw std::runtime_error("host"); };
    EXPECT_EQ(node.getBoundingRect(), Rect());
    painter->onBounds = nullptr;
    EXPECT_EQ(node.getBoundingRect(), painter->bounds);
}

TEST_F(CustomNodeTest, ReportsBoundsAsGeometryAndRepaintsAsAppearance)
{
    struct Log final : NodeChangeSink {
        void nodeChanged(NodeImpl&, ChangeLevel level) override { levels.push_back(level); }
        std::vector<ChangeLevel> levels;
    } log;
    const PainterHolder painter(new ObedientPainter);
    CustomNode node;
    node.setPainter(painter.get());
    static_cast<NodeImpl*>(const_cast<Vetra::Referenced*>(node.getReferenced()))
        ->setChangeSink(&log);
    painter->boundsChanging();
    node.repaintRequired();
    EXPECT_THAT(log.levels, testing::ElementsAre(ChangeLevel::Geometry, ChangeLevel::Appearance));
}

TEST_F(CustomNodeTest, TheDefaultMaskIsTheOutline)
{
    const PainterHolder painter(new ObedientPainter);
    m_image.fill(Qt::white);
    painter->bounds = {5, 6, 20, 10};
    painter->paintMask(&m_painter, 1, painter->bounds, PaintOptions());
    EXPECT_EQ(m_image.pixel(5, 6), 0xff000000);
    EXPECT_EQ(m_image.pixel(24, 15), 0xff000000);
    EXPECT_EQ(m_image.pixel(25, 15), 0xffffffff);
}

} // namespace
} // namespace Tova2

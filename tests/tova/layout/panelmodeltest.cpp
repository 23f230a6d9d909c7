#include "layout/referenceflow.h"

#include "support/rows.h"

#include <gmock/gmock.h>

#include <algorithm>
#include <random>

namespace Tova2::LayoutTest {
namespace {

/// A panel under random operations beside what it should hold.
class PanelModel {
public:
    explicit PanelModel(unsigned seed) : m_random(seed)
    {
        m_panel->setNonLinearScaleFunction(&m_scale);
    }

    void step()
    {
        operate(below(16));
        ASSERT_EQ(m_panel->count(), static_cast<int>(m_nodes.size()));
        std::vector<Size> sizes;
        for (int i = 0; i < m_panel->count(); ++i) {
            ASSERT_EQ(m_panel->getNodeAt(i), m_nodes[i]);
            sizes.push_back({m_nodes[i].getWidth(), m_nodes[i].getHeight()});
        }
        if (m_suspended == 0) {
            ASSERT_EQ(shownIn(*m_panel), referenceFlow(m_rules, sizes));
        }
    }

private:
    int below(int limit) { return static_cast<int>(m_random() % limit); }
    double length() { return below(40) / 2.0; }
    int anyIndex() { return below(static_cast<int>(m_nodes.size()) + 1); }
    Node* anyMember() { return m_nodes.empty() ? nullptr : &m_nodes[below(m_nodes.size())]; }

    void operate(int operation)
    {
        Node* const member = anyMember();
        switch (operation) {
        case 0:
        case 1:
            return add(boxNode({length(), length()}), anyIndex());
        case 2:
            if (member)
                add(*member, below(static_cast<int>(m_nodes.size())));
            return;
        case 3:
            if (const int index = anyIndex(); m_panel->removeNodeAt(index).isValid())
                m_nodes.erase(m_nodes.begin() + index);
            return;
        case 4:
            return leaveBehindItsBack(member);
        case 5:
            if (member)
                member->as<RectNode>().setRect({0, 0, length(), length()});
            return;
        case 6:
            if (member)
                member->setVisible(below(2));
            return;
        case 7:
            if (member)
                member->translate(length(), -length());
            return;
        case 8:
            return m_panel->suspendLayout(), void(++m_suspended);
        case 9:
        case 10:
            return m_panel->resumeLayout(), void(m_suspended = std::max(0, m_suspended - 1));
        case 11:
            return install(below(3));
        default:
            return set(operation);
        }
    }
    void add(Node node, int index)
    {
        m_panel->addNodeAt(index, node);
        std::erase(m_nodes, node);
        m_nodes.insert(m_nodes.begin() + std::min<std::size_t>(index, m_nodes.size()), node);
    }
    void leaveBehindItsBack(Node* member)
    {
        if (!member)
            return;
        Node leaving = *member;
        std::erase(m_nodes, leaving);
        below(2) ? leaving.setParent(m_elsewhere) : leaving.unparent();
        EXPECT_TRUE(leaving.isVisible() || m_suspended > 0);
    }
    void install(int where)
    {
        if (where == 0)
            m_panel->installOnSceneForStaticRender(m_scene.get());
        else if (where == 1)
            m_panel->installOnNode(m_elsewhere, false);
        else
            m_panel->uninstall();
        EXPECT_EQ(m_panel->isInstalled(), where != 2);
    }
    void set(int operation)
    {
        if (operation == 12)
            m_rules.mode = ExpandMode(below(3));
        else if (operation == 13)
            m_rules.h = HorizontalAlignment(below(3));
        else if (operation == 14)
            m_rules.v = VerticalAlignment(below(3));
        else
            m_rules.size = {5 * length(), 3 * length()};
        apply(m_rules, *m_panel);
    }

    std::mt19937 m_random;
    CountingScale m_scale{0.5};
    Rules m_rules{.mode = ExpandMode::Horizontal, .scale = 0.5};
    Vetra::Holder<Scene> m_scene = Scene::createScene();
    ContainerNode m_elsewhere;
    Vetra::Holder<AutoLayoutPanel> m_panel{new AutoLayoutPanel};
    std::vector<Node> m_nodes;
    int m_suspended = 0;
};

class PanelModelTest : public testing::TestWithParam<unsigned> {};

TEST_P(PanelModelTest, HoldsWhatItWasGivenAndShowsItByTheRules)
{
    PanelModel model(GetParam());
    for (int step = 0; step < 2000; ++step) {
        SCOPED_TRACE(step);
        ASSERT_NO_FATAL_FAILURE(model.step());
    }
}

INSTANTIATE_TEST_SUITE_P(Seeds, PanelModelTest, testing::Range(1U, 9U));

} // namespace
} // namespace Tova2::LayoutTest

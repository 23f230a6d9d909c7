#include "editor.h"

#include <tova/widget/glcanvas.h>

#include <algorithm>

namespace TovaView {
namespace {

constexpr double visibleMargin = 24; ///< around what has to be seen, in points

} // namespace

Editor::Editor(Tova2::GLCanvas& canvas, std::unique_ptr<DiagramDocument> document,
               const Vetra::Color& accent)
    : m_canvas(canvas)
    , m_accent(accent)
    , m_document(std::move(document))
    , m_tool(new MoveTool(*m_document, m_selection, m_history))
{
    m_selection.changed().connect(this, [this] { showSelection(); });
    m_tool->banded().connect(this, [this](const Rect& band) { m_canvas.setMarquee(band); });
    m_tool->moved().connect(this, [this] { placeFrames(); });
    QObject::connect(&m_history, &QUndoStack::indexChanged, &m_history, [this] { placeFrames(); });
    attach();
}

Editor::~Editor()
{
    m_history.disconnect();
    detach();
    m_canvas.setScene(nullptr);
}

void Editor::attach()
{
    m_document->scene().addTool(m_tool.get());
    m_canvas.setScene(&m_document->scene());
}

void Editor::detach()
{
    m_document->scene().removeTool(m_tool.get());
}

void Editor::cancelTools()
{
    m_document->scene().cancelAllTools();
}

void Editor::selectAll()
{
    m_selection.set(m_document->blocks());
}

void Editor::selectNext(int step)
{
    const auto& blocks = m_document->blocks();
    if (blocks.empty())
        return;
    const int count = static_cast<int>(blocks.size());
    int at = step > 0 ? 0 : count - 1;
    if (!m_selection.isEmpty()) {
        const auto found =
            std::lower_bound(blocks.begin(), blocks.end(), m_selection.blocks().front());
        at = (static_cast<int>(found - blocks.begin()) + step + count) % count;
    }
    const int block = blocks[static_cast<std::size_t>(at)];
    m_selection.set({block});
    m_canvas.ensureVisible(m_document->frameOf(block).grown(visibleMargin));
}

void Editor::setGround(const std::optional<Vetra::Color>& color)
{
    detach();
    m_document->setGround(color);
    attach();
}

void Editor::zoomToSelection()
{
    if (m_selection.isEmpty())
        return;
    Rect area = m_document->frameOf(m_selection.blocks().front());
    for (const int block : m_selection.blocks())
        area = area.united(m_document->frameOf(block));
    m_canvas.showSceneRect(area.grown(visibleMargin));
}

void Editor::showSelection()
{
    const std::size_t count = m_selection.blocks().size();
    if (m_frames.size() > count)
        m_frames.erase(m_frames.begin() + static_cast<std::ptrdiff_t>(count), m_frames.end());
    while (m_frames.size() < count)
        m_frames.emplace_back(*m_canvas.getOverlayScene(), m_accent);
    placeFrames();
}

void Editor::placeFrames()
{
    for (std::size_t i = 0; i < m_frames.size(); ++i)
        m_frames[i].place(m_document->frameOf(m_selection.blocks()[i]));
}

} // namespace TovaView

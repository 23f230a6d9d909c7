#include "sealedpage.h"

#include "tova/widget/webblock.h"
#include "webview/webview.h"

#include <QPointer>
#include <QWebView>

namespace Tova2 {

namespace {

class SealedWebBlock : public WebBlock {
public:
    explicit SealedWebBlock(QWidget& parent)
        : m_view(new QWebView(&parent)), m_page(new SealedPage(m_view))
    {
        m_view->setPage(m_page);
        m_view->setAcceptDrops(false);
        m_view->setContextMenuPolicy(Qt::NoContextMenu); // it saves, opens and copies addresses
        m_view->setFocusPolicy(Qt::NoFocus);
    }
    ~SealedWebBlock() override
    {
        if (!m_view)
            return;
        m_view->hide();
        m_view->deleteLater();
    }

    QWidget* widget() const override { return m_view; }
    void setHtml(const std::string& html) override
    {
        if (m_view)
            m_page->setHtml(QString::fromUtf8(html.data(), static_cast<int>(html.size())));
    }
    void setScale(double scale) override
    {
        if (m_view)
            m_view->setZoomFactor(scale);
    }

private:
    const QPointer<QWebView> m_view;
    SealedPage* const m_page; // goes with the view
};

} // namespace

void enableWebBlocks()
{
    setWebBlockFactory([](QWidget& parent) { return std::make_unique<SealedWebBlock>(parent); });
}

} // namespace Tova2

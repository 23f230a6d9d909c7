#include "loadingbar.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QProgressBar>
#include <QPushButton>

namespace TovaView {
namespace {

constexpr int interval = 200;        ///< milliseconds
constexpr qint64 patience = 4000;    ///< before something quicker is proposed
constexpr int widthOfProgress = 120; ///< pixels

QPushButton* makeButton(const char* text, const char* tip, const std::function<void()>& command)
{
    auto* button = new QPushButton(QString::fromLatin1(text));
    button->setToolTip(QString::fromLatin1(tip));
    button->setFocusPolicy(Qt::NoFocus);
    QObject::connect(button, &QPushButton::clicked, button, [command] { command(); });
    return button;
}

} // namespace

LoadingBar::LoadingBar(Handlers handlers)
    : m_handlers(std::move(handlers))
    , m_label(new QLabel)
    , m_hurry(makeButton("Lay Out by Forces",
                         "Quicker for a large graph: blocks lie where their "
                         "connectors pull them, without ranks",
                         [this] {
                             m_hurry->setEnabled(false);
                             m_handlers.hurry();
                         }))
{
    setAutoFillBackground(true);
    auto* progress = new QProgressBar;
    progress->setRange(0, 0);
    progress->setTextVisible(false);
    progress->setFixedWidth(widthOfProgress);
    m_label->setTextFormat(Qt::PlainText);
    m_label->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Preferred);
    auto* layout = new QHBoxLayout(this);
    layout->setContentsMargins(10, 4, 4, 4);
    layout->addWidget(progress);
    layout->addWidget(m_label, 1);
    layout->addWidget(m_hurry);
    layout->addWidget(makeButton("Cancel", "Keep what is shown", m_handlers.cancel));
    m_timer.setInterval(interval);
    QObject::connect(&m_timer, &QTimer::timeout, this, [this] { showProgress(); });
    hide();
}

void LoadingBar::begin(const QString& name)
{
    m_name = name;
    m_since.start();
    m_hurry->setEnabled(true);
    m_timer.start();
    showProgress();
    show();
}

void LoadingBar::end()
{
    m_timer.stop();
    hide();
}

void LoadingBar::showProgress()
{
    const QString stage = m_handlers.stage();
    QString text = stage.isEmpty() ? QStringLiteral("Reading %1").arg(m_name)
                                   : QStringLiteral("Laying out %1 with %2").arg(m_name, stage);
    if (m_since.elapsed() >= 1000)
        text += QStringLiteral(", %1 s").arg(m_since.elapsed() / 1000);
    m_label->setText(text);
    m_label->setToolTip(text);
    m_hurry->setVisible(!stage.isEmpty() && m_since.elapsed() >= patience);
}

} // namespace TovaView

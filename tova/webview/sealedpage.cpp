#include "sealedpage.h"

#include "denyingnetwork.h"

#include <QNetworkRequest>
#include <QScopedValueRollback>
#include <QWebFrame>
#include <QWebHistory>
#include <QWebSettings>

namespace Tova2 {

namespace {

// On by default or by a global setting that the host may have changed for pages of its own.
constexpr QWebSettings::WebAttribute kDenied[] = {
    QWebSettings::AllowRunningInsecureContent,
    QWebSettings::CaretBrowsingEnabled,
    QWebSettings::DeveloperExtrasEnabled,
    QWebSettings::DnsPrefetchEnabled,
    QWebSettings::ErrorPageEnabled,
    QWebSettings::FullScreenSupportEnabled,
    QWebSettings::HyperlinkAuditingEnabled,
    QWebSettings::JavaEnabled,
    QWebSettings::JavascriptCanAccessClipboard,
    QWebSettings::JavascriptCanCloseWindows,
    QWebSettings::JavascriptCanOpenWindows,
    QWebSettings::JavascriptEnabled,
    QWebSettings::LinksIncludedInFocusChain,
    QWebSettings::LocalContentCanAccessFileUrls,
    QWebSettings::LocalContentCanAccessRemoteUrls,
    QWebSettings::LocalStorageEnabled,
    QWebSettings::MediaEnabled,
    QWebSettings::MediaSourceEnabled,
    QWebSettings::NotificationsEnabled,
    QWebSettings::OfflineStorageDatabaseEnabled,
    QWebSettings::OfflineWebApplicationCacheEnabled,
    QWebSettings::PluginsEnabled,
    QWebSettings::WebAudioEnabled,
    QWebSettings::WebGLEnabled,
};

} // namespace

SealedPage::SealedPage(QObject* parent) : QWebPage(parent)
{
    setNetworkAccessManager(new DenyingNetwork(this));
    setPluginFactory(nullptr);
    for (const auto attribute : kDenied)
        settings()->setAttribute(attribute, false);
    settings()->setAttribute(QWebSettings::PrivateBrowsingEnabled, true);
    settings()->setAttribute(QWebSettings::WebSecurityEnabled, true);
    settings()->setUserStyleSheetUrl({});
    history()->setMaximumItemCount(0);
}

void SealedPage::setHtml(const QString& html)
{
    const QScopedValueRollback<bool> loading(m_isLoading, true);
    mainFrame()->setHtml(html); // without a base address: relative ones lead nowhere either
}

bool SealedPage::acceptNavigationRequest(QWebFrame* frame, const QNetworkRequest& request,
                                         NavigationType)
{
    return m_isLoading && frame == mainFrame() &&
           request.url() == QUrl(QStringLiteral("about:blank"));
}

} // namespace Tova2

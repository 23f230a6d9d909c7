#pragma once

#include <QWebPage>

namespace Tova2 {

/// A page that shows one text and goes nowhere from there.
class SealedPage : public QWebPage {
public:
    explicit SealedPage(QObject* parent);

    void setHtml(const QString& html);

    bool supportsExtension(Extension) const override { return false; }
    bool shouldInterruptJavaScript() override { return true; }

protected:
    bool acceptNavigationRequest(QWebFrame* frame, const QNetworkRequest& request,
                                 NavigationType type) override;
    QWebPage* createWindow(WebWindowType) override { return nullptr; }
    QObject* createPlugin(const QString&, const QUrl&, const QStringList&,
                          const QStringList&) override
    {
        return nullptr;
    }
    QString chooseFile(QWebFrame*, const QString&) override { return {}; }

private:
    bool m_isLoading = false;
};

} // namespace Tova2

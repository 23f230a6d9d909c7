#include "denyingnetwork.h"

#include <QMetaObject>
#include <QNetworkReply>

namespace Tova2 {

namespace {

class Refusal : public QNetworkReply {
public:
    Refusal(QNetworkAccessManager::Operation operation, const QNetworkRequest& request,
            QObject* parent)
        : QNetworkReply(parent)
    {
        setOperation(operation);
        setRequest(request);
        setUrl(request.url());
        open(ReadOnly);
        setError(ContentAccessDenied, QStringLiteral("Web blocks load nothing."));
        setFinished(true);
        // Whoever asks connects to the answer first.
        QMetaObject::invokeMethod(this, &QNetworkReply::finished, Qt::QueuedConnection);
    }
    void abort() override {}

protected:
    qint64 readData(char*, qint64) override { return -1; }
};

} // namespace

QNetworkReply* DenyingNetwork::createRequest(Operation operation, const QNetworkRequest& request,
                                             QIODevice*)
{
    return new Refusal(operation, request, this);
}

} // namespace Tova2

#pragma once

#include <QNetworkAccessManager>

namespace Tova2 {

/// Answers every request with a refusal, whatever its scheme; nothing is opened.
class DenyingNetwork : public QNetworkAccessManager {
public:
    using QNetworkAccessManager::QNetworkAccessManager;

protected:
    QNetworkReply* createRequest(Operation operation, const QNetworkRequest& request,
                                 QIODevice* data) override;
};

} // namespace Tova2

#include "hvupdatecheck.h"

#include "common/hvuserdefaults.h"
#include "common/nimboinfo.h"

#include <QNetworkAccessManager>
#include <QNetworkReply>

HVUpdateCheck::HVUpdateCheck(QObject* parent) : QObject(parent), m_network(new QNetworkAccessManager(this)) {}

QUrl HVUpdateCheck::configuredFeed(const HVUserDefaults* defaults)
{
    const QString preferred = defaults ? defaults->stringForKey(QStringLiteral("updateFeedURL")) : QString();
    return QUrl(preferred.isEmpty() ? NimboInfo::updateFeedUrl() : preferred);
}

void HVUpdateCheck::start(const QUrl& feed, const QString& currentVersion)
{
    if (m_reply)
        m_reply->abort();
    m_current = currentVersion;
    if (!feed.isValid() || feed.scheme().isEmpty()) {
        // Reported from the event loop like every other outcome.
        QMetaObject::invokeMethod(
            this,
            [this, feed] {
                finish(QStringLiteral("the feed address \"%1\" is not valid").arg(feed.toString()));
            },
            Qt::QueuedConnection);
        return;
    }
    QNetworkRequest request(feed);
    request.setTransferTimeout(m_timeout);
    request.setMaximumRedirectsAllowed(MaximumRedirects);
    request.setAttribute(QNetworkRequest::RedirectPolicyAttribute, QNetworkRequest::NoLessSafeRedirectPolicy);
    request.setHeader(QNetworkRequest::UserAgentHeader, QStringLiteral("Nimbo/%1").arg(currentVersion));
    m_reply = m_network->get(request);
    // A feed larger than any real one is cut off rather than read into memory.
    connect(m_reply, &QNetworkReply::downloadProgress, this, [this](qint64 received, qint64 total) {
        if (m_reply && (received > MaximumFeedSize || total > MaximumFeedSize))
            finish(QStringLiteral("the feed is larger than %1 bytes").arg(MaximumFeedSize));
    });
    connect(m_reply, &QNetworkReply::finished, this, &HVUpdateCheck::readReply);
}

void HVUpdateCheck::readReply()
{
    if (!m_reply)
        return;
    if (m_reply->error() == QNetworkReply::OperationCanceledError)
        return finish(QStringLiteral("the feed did not answer within %1 seconds").arg(m_timeout / 1000.0));
    if (m_reply->error() != QNetworkReply::NoError)
        return finish(QStringLiteral("the feed could not be read: %1").arg(m_reply->errorString()));
    const AppcastFeed feed = Appcast::parse(m_reply->readAll());
    if (!feed.ok())
        return finish(feed.error);
    UpdateCheckResult result;
    result.current = m_current;
    result.latest = *feed.latest();
    result.newer = Appcast::compareVersions(result.latest.version, m_current) > 0;
    m_reply->deleteLater();
    m_reply = nullptr;
    emit finished(result);
}

void HVUpdateCheck::finish(const QString& error)
{
    if (m_reply) {
        QNetworkReply* reply = m_reply;
        m_reply = nullptr;
        reply->disconnect(this);
        reply->abort();
        reply->deleteLater();
    }
    UpdateCheckResult result;
    result.current = m_current;
    result.error = error;
    emit finished(result);
}

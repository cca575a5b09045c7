#include "hvfeedbacksender.h"

#include "common/hvuserdefaults.h"
#include "common/nimboinfo.h"

#include <QNetworkAccessManager>
#include <QNetworkReply>
#include <QTimer>

#include <utility>

HVFeedbackSender::HVFeedbackSender(QObject* parent)
    : QObject(parent), m_network(new QNetworkAccessManager(this)), m_deadline(new QTimer(this))
{
    m_deadline->setSingleShot(true);
    connect(m_deadline, &QTimer::timeout, this, [this] {
        if (!m_refusal.isEmpty())
            return finish(m_refusal);
        finish(tr("The feedback server %1 did not answer within %2 seconds.")
                   .arg(serverName())
                   .arg(m_timeout / 1000.0));
    });
}

QUrl HVFeedbackSender::configuredAddress(const HVUserDefaults* defaults)
{
    const QString preferred = defaults ? defaults->stringForKey(QStringLiteral("feedbackURL")) : QString();
    return QUrl(preferred.isEmpty() ? NimboInfo::feedbackUrl() : preferred);
}

bool HVFeedbackSender::isSending() const
{
    return m_reply || m_deadline->isActive();
}

void HVFeedbackSender::send(const QUrl& address, const QByteArray& json)
{
    cancel();
    m_address = address;
    m_answerSize = 0;
    if (!address.isValid() || address.host().isEmpty() ||
        (address.scheme() != QLatin1String("http") && address.scheme() != QLatin1String("https"))) {
        m_refusal = tr("The feedback address \"%1\" is not a web address.").arg(address.toString());
        m_deadline->start(0);
        return;
    }
    QNetworkRequest request(address);
    request.setHeader(QNetworkRequest::ContentTypeHeader, QStringLiteral("application/json; charset=utf-8"));
    request.setHeader(QNetworkRequest::UserAgentHeader, QStringLiteral("Nimbo"));
    request.setMaximumRedirectsAllowed(MaximumRedirects);
    request.setAttribute(QNetworkRequest::RedirectPolicyAttribute, QNetworkRequest::NoLessSafeRedirectPolicy);
    m_reply = m_network->post(request, json);
    connect(m_reply, &QNetworkReply::readyRead, this, &HVFeedbackSender::readAnswer);
    connect(m_reply, &QNetworkReply::finished, this, &HVFeedbackSender::settle);
    m_deadline->start(m_timeout);
}

void HVFeedbackSender::cancel()
{
    m_deadline->stop();
    m_refusal.clear();
    if (QNetworkReply* reply = std::exchange(m_reply, nullptr)) {
        reply->disconnect(this);
        reply->abort();
        reply->deleteLater();
    }
}

void HVFeedbackSender::readAnswer()
{
    // Only the status matters: the answer is passed over as it comes, and one that goes on and on
    // is settled by the status it came with.
    m_answerSize += m_reply->skip(m_reply->bytesAvailable());
    if (m_answerSize > MaximumAnswerSize)
        settle();
}

void HVFeedbackSender::settle()
{
    if (m_reply)
        finish(failure());
}

void HVFeedbackSender::finish(QString error)
{
    cancel(); // clears m_refusal, which `error` may have been
    emit finished(error);
}

QString HVFeedbackSender::failure() const
{
    const int status = m_reply->attribute(QNetworkRequest::HttpStatusCodeAttribute).toInt();
    if (status >= 200 && status < 300)
        return {};
    switch (m_reply->error()) {
    case QNetworkReply::TooManyRedirectsError:
    case QNetworkReply::InsecureRedirectError:
        return tr("The feedback address %1 redirects too often, or to an address that is not safe.")
            .arg(m_address.toString());
    default:
        break;
    }
    if (status != 0) {
        const QString reason =
            m_reply->attribute(QNetworkRequest::HttpReasonPhraseAttribute).toString().trimmed();
        return tr("The feedback server %1 answered with HTTP status %2.")
            .arg(serverName(), (QString::number(status) + QLatin1Char(' ') + reason).trimmed());
    }
    switch (m_reply->error()) {
    case QNetworkReply::ConnectionRefusedError:
        return tr("The feedback server %1 refused the connection.").arg(serverName());
    case QNetworkReply::RemoteHostClosedError:
        return tr("The feedback server %1 closed the connection without an answer.").arg(serverName());
    case QNetworkReply::HostNotFoundError:
    case QNetworkReply::TemporaryNetworkFailureError:
    case QNetworkReply::NetworkSessionFailedError:
    case QNetworkReply::UnknownNetworkError:
        return tr("Nimbo could not reach %1. Is this computer online?").arg(serverName());
    default:
        return tr("Nimbo could not send the report to %1: %2").arg(serverName(), m_reply->errorString());
    }
}

QString HVFeedbackSender::serverName() const
{
    const int port = m_address.port();
    return port < 0 ? m_address.host() : QStringLiteral("%1:%2").arg(m_address.host()).arg(port);
}

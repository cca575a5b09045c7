// Posts one feedback report to the feedback address and says how it went. The whole exchange is
// bounded: a total time limit, a few redirects, and an answer that is read past and never kept,
// so a server that refuses, hangs or talks without end gives a clear message and nothing more.
#pragma once

#include <QObject>
#include <QUrl>

class HVUserDefaults;
class QNetworkAccessManager;
class QNetworkReply;
class QTimer;

class HVFeedbackSender : public QObject
{
    Q_OBJECT
public:
    static constexpr qint64 MaximumAnswerSize = 64 * 1024;
    static constexpr int MaximumRedirects = 3;

    explicit HVFeedbackSender(QObject* parent = nullptr);

    // The address of the build configuration, unless the "feedbackURL" preference names another.
    static QUrl configuredAddress(const HVUserDefaults* defaults);

    // Posts `json` to `address`; finished() follows, once, unless cancel() comes first.
    void send(const QUrl& address, const QByteArray& json);
    void cancel();
    bool isSending() const;
    void setTimeout(int milliseconds) { m_timeout = milliseconds; }
    int timeout() const { return m_timeout; }

signals:
    // `error` is empty when the server took the report, else a sentence for the user.
    void finished(const QString& error);

private:
    void readAnswer();
    void settle();
    void finish(QString error);
    QString failure() const;
    QString serverName() const;

    QNetworkAccessManager* m_network;
    QNetworkReply* m_reply = nullptr;
    QTimer* m_deadline;
    QUrl m_address;
    QString m_refusal; // an address that cannot be posted to, reported from the event loop
    qint64 m_answerSize = 0;
    int m_timeout = 20000;
};

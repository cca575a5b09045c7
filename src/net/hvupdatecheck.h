// One check for a newer Nimbo: fetches the release feed (bounded in size, time and redirects),
// reads it and compares its newest release with this build's version.
#pragma once

#include "common/appcast.h"

#include <QObject>
#include <QUrl>

class HVUserDefaults;
class QNetworkAccessManager;
class QNetworkReply;

struct UpdateCheckResult
{
    QString error;   // empty when the feed was read
    QString current; // this build's version
    AppcastItem latest;
    bool newer = false;
};

class HVUpdateCheck : public QObject
{
    Q_OBJECT
public:
    static constexpr qint64 MaximumFeedSize = 1024 * 1024;
    static constexpr int MaximumRedirects = 5;

    explicit HVUpdateCheck(QObject* parent = nullptr);

    // The feed of the build configuration, unless the "updateFeedURL" preference names another.
    static QUrl configuredFeed(const HVUserDefaults* defaults);

    // Starts a check of `feed` against `currentVersion`; finished() follows, once.
    void start(const QUrl& feed, const QString& currentVersion);
    void setTimeout(int milliseconds) { m_timeout = milliseconds; }
    bool isRunning() const { return m_reply != nullptr; }

signals:
    void finished(const UpdateCheckResult& result);

private:
    void readReply();
    void finish(const QString& error);

    QNetworkAccessManager* m_network;
    QNetworkReply* m_reply = nullptr;
    QString m_current;
    int m_timeout = 15000;
};
Q_DECLARE_METATYPE(UpdateCheckResult)

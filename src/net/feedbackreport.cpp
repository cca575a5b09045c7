#include "feedbackreport.h"

#include <QJsonDocument>
#include <QJsonObject>

QByteArray FeedbackReport::toJson() const
{
    QJsonObject report{{QStringLiteral("kind"), kind}, {QStringLiteral("message"), message}};
    if (!replyTo.isEmpty())
        report.insert(QStringLiteral("replyTo"), replyTo);
    if (system) {
        QJsonObject counts;
        for (auto it = system->appCounts.cbegin(); it != system->appCounts.cend(); ++it)
            counts.insert(it.key(), it.value());
        report.insert(QStringLiteral("system"),
                      QJsonObject{{QStringLiteral("nimboVersion"), system->nimboVersion},
                                  {QStringLiteral("qtVersion"), system->qtVersion},
                                  {QStringLiteral("desktop"), system->desktop},
                                  {QStringLiteral("windowSystem"), system->windowSystem},
                                  {QStringLiteral("appCounts"), counts}});
    }
    return QJsonDocument(report).toJson(QJsonDocument::Indented);
}

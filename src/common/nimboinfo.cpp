#include "nimboinfo.h"

QString NimboInfo::version()
{
    return QStringLiteral(NIMBO_VERSION);
}

QString NimboInfo::homeUrl()
{
    return QStringLiteral(NIMBO_HOME_URL);
}

QString NimboInfo::updateFeedUrl()
{
    return QStringLiteral(NIMBO_UPDATE_FEED_URL);
}

QString NimboInfo::feedbackUrl()
{
    return QStringLiteral(NIMBO_FEEDBACK_URL);
}

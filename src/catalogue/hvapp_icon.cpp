// A record's icon and its colours: what it shows, when it asks the loader for a new icon, and
// what it does when one arrives.
#include "hvapp.h"

#include "iconanalysis.h"
#include "iconloader.h"
#include "iconloadoperation.h"
#include "iconlogging.h"

#include "common/hvnotificationcenter.h"
#include "common/notificationnames.h"

#include <QFile>

#include <cerrno>
#include <cstring>
#include <sys/stat.h>

QImage HVApp::dotImage()
{
    static const QImage dot(QStringLiteral(":/dot.png"));
    return dot;
}

QImage HVApp::notFoundImage()
{
    static const QImage notFound(QStringLiteral(":/notfound.png"));
    return notFound;
}

QImage HVApp::icon() const
{
    return m_icon.isNull() ? notFoundImage() : m_icon;
}

bool HVApp::hasIcon() const
{
    return !m_icon.isNull() && m_icon.cacheKey() != dotImage().cacheKey();
}

void HVApp::setIcon(const QImage& icon)
{
    // Images are shared values: the same image keeps its cache key, a new one gets its own.
    if (icon.cacheKey() == m_icon.cacheKey())
        return;
    m_icon = icon;
    m_colour.freeColorSortData();
    setColorSortParameters(m_colour.colorSortParameters());
}

void HVApp::setWindowIcon(const QImage& icon)
{
    m_iconFromWindow = true;
    setIcon(icon);
}

void HVApp::setLoadedIcon(const LoadedIcon& loaded)
{
    if (loaded.image.cacheKey() == m_icon.cacheKey())
        return;
    m_icon = loaded.image;
    m_colour.freeColorSortData();
    const IconParameters params = m_colour.colorSortParameters();
    // Colours found on the loading thread for other parameters (the preferences changed while
    // the icon loaded) are not the record's: it then analyses the icon itself.
    if (!m_icon.isNull() && loaded.analysis &&
        IconAnalysisWork::matches(*loaded.analysis, params.colorfulness, params.lightness))
        m_colour.setColorSortParameters(params, m_icon, name(), loaded.analysis->colors);
    else
        m_colour.setColorSortParameters(params, m_icon, name());
    postIconChanged();
}

void HVApp::resetIconToDot()
{
    m_icon = dotImage();
    m_fileID = 0;
}

void HVApp::setColorSortParameters(const IconParameters& params)
{
    m_colour.setColorSortParameters(params, m_icon, name());
    postIconChanged();
}

void HVApp::postIconChanged()
{
    // A record outside any catalogue (not shared) has no identity to announce.
    const HVAppRef self = weak_from_this().lock();
    HVNotificationCenter::defaultCenter()->postNotificationName(
        HVNotificationNames::AppIconChanged, self ? QVariant::fromValue(self) : QVariant());
}

void HVApp::setIconParameters(const IconParameters& params)
{
    findLetters();
    findExcludedStringsInName();
    m_pathIsValid = !m_path.isEmpty() && QFile::exists(m_path);
    if (!m_pathIsValid) {
        m_colour.storeColorSortParameters(params);
        setIcon(QImage());
        return;
    }
    loadIconWithParameters(params);
}

void HVApp::loadIconWithParameters(const IconParameters& params)
{
    if (m_iconFromWindow && !m_icon.isNull()) {
        setColorSortParameters(params);
        return;
    }
    struct stat info;
    if (::stat(QFile::encodeName(m_path).constData(), &info) != 0) {
        qWarning("Cannot read the attributes of %s: %s", qUtf8Printable(m_path), std::strerror(errno));
        m_colour.storeColorSortParameters(params);
        setIcon(QImage());
        return;
    }
    const quint64 fileID = quint64(info.st_ino);
    // The same file at the same size: the loaded icon stays, only its colour values may change.
    if (params.iconSize == m_colour.colorSortParameters().iconSize && fileID == m_fileID &&
        !m_icon.isNull()) {
        setColorSortParameters(params);
        return;
    }
    m_fileID = fileID;
    m_colour.storeColorSortParameters(params);
    HVAppRef self = weak_from_this().lock();
    if (!self) {
        qCDebug(lcIconLoading, "%s is in no catalogue: its icon is not loaded", qUtf8Printable(m_path));
        return;
    }
    IconLoader::sharedIconLoader()->addOperation(
        new IconLoadOperation(m_path, params, std::move(self), &HVApp::setLoadedIcon));
}

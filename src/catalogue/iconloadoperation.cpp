#include "iconloadoperation.h"

#include "iconanalysis.h"
#include "iconloader.h"
#include "iconlogging.h"

#include <QtDebug>

Q_LOGGING_CATEGORY(lcIconLoading, "nimbo.icons", QtWarningMsg)

namespace {
quint64 cappedIconSize(quint64 size)
{
    // Icons are rendered once at the panel's largest icon size, never above 128 pixels; a size
    // of 0 (no preference at all) loads the largest.
    return size == 0 || size > IconLoadOperation::MaxIconSize ? IconLoadOperation::MaxIconSize : size;
}
} // namespace

IconLoadOperation::IconLoadOperation(const QString& path, const IconParameters& parameters, HVAppRef sender,
                                     Selector selector)
    : m_filePath(path), m_iconSize(cappedIconSize(parameters.iconSize)), m_sender(std::move(sender)),
      m_selector(selector), m_colorfulness(parameters.colorfulness), m_lightness(parameters.lightness)
{}

void IconLoadOperation::main()
{
    IconLoader* loader = IconLoader::sharedIconLoader();
    LoadedIcon icon;
    QString error = QStringLiteral("no icon source");
    if (const std::shared_ptr<IconSource> source = loader->iconSource()) {
        const IconRequest request{m_filePath, int(m_iconSize), m_colorfulness, m_lightness};
        icon = source->loadIcon(request, &error);
    }
    const bool found = !icon.image.isNull();
    if (!found) {
        qWarning("%s Error loading icon for path: %s", "main", qUtf8Printable(m_filePath));
        qCDebug(lcIconLoading, "%s: %s", qUtf8Printable(m_filePath), qUtf8Printable(error));
        icon = LoadedIcon();
    } else if (!icon.analysis || !IconAnalysisWork::matches(*icon.analysis, m_colorfulness, m_lightness)) {
        icon.analysis = IconAnalysisWork::analyse(icon.image, m_colorfulness, m_lightness);
    }
    // No icon is handed over without waiting; an icon is installed before the load ends, so no
    // more than eight rendered icons are ever in flight.
    loader->deliverOnMainThread(
        [record = m_sender, selector = m_selector, icon = std::move(icon)] {
            if (record && selector)
                (record.get()->*selector)(icon);
        },
        found);
}

#include "panelalpha.h"

#include <QGraphicsOpacityEffect>
#include <QGuiApplication>
#include <QWidget>

PanelAlpha::PanelAlpha(QWidget* window)
    : QObject(window), m_window(window), m_painted(!windowSystemHasOpacity())
{
    if (m_painted)
        qInfo("The window system has no window opacity: the panel paints its own alpha when it fades");
}

bool PanelAlpha::windowSystemHasOpacity()
{
    return QGuiApplication::platformName() == QLatin1String("xcb");
}

double PanelAlpha::opacity() const
{
    return m_painted ? m_opacity : m_window->windowOpacity();
}

void PanelAlpha::setOpacity(double opacity)
{
    if (!m_painted) {
        m_window->setWindowOpacity(opacity);
        return;
    }
    m_opacity = qBound(0.0, opacity, 1.0);
    paintAt(m_opacity);
}

void PanelAlpha::paintAt(double opacity)
{
    // Each part of the panel is drawn through an opacity effect while it is not opaque; opaque,
    // the parts draw directly again.
    const auto parts = m_window->findChildren<QWidget*>(Qt::FindDirectChildrenOnly);
    for (QWidget* part : parts) {
        auto* effect = qobject_cast<QGraphicsOpacityEffect*>(part->graphicsEffect());
        if (opacity >= 1.0) {
            if (effect)
                part->setGraphicsEffect(nullptr);
            continue;
        }
        if (!effect && part->graphicsEffect())
            continue; // a part with an effect of its own keeps it
        if (!effect) {
            effect = new QGraphicsOpacityEffect(part);
            part->setGraphicsEffect(effect);
        }
        effect->setOpacity(opacity);
    }
    m_window->update();
}

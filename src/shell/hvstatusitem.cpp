#include "shell/hvstatusitem.h"

#include "shell/hvstatusmenu.h"

#include <QApplication>
#include <QCursor>
#include <QPainter>
#include <QPalette>
#include <QSystemTrayIcon>

namespace {
bool darkTheme()
{
    return QApplication::palette().color(QPalette::Window).lightness() < 128;
}
} // namespace

HVStatusItem::HVStatusItem(HVStatusMenu* menu, bool clickToggles, QObject* parent)
    : QObject(parent), m_tray(new QSystemTrayIcon(this)), m_menu(menu), m_clickToggles(clickToggles)
{
    m_tray->setToolTip(QStringLiteral("Nimbo"));
    m_tray->setContextMenu(menu);
    setImage(normalImage(darkTheme()));
    connect(m_tray, &QSystemTrayIcon::activated, this, [this](QSystemTrayIcon::ActivationReason reason) {
        if (reason != QSystemTrayIcon::Trigger)
            return; // the right click's menu is opened by the tray host itself
        if (m_clickToggles)
            emit toggleRequested();
        else
            m_menu->popup(QCursor::pos());
    });
    m_tray->show();
}

bool HVStatusItem::isAvailable()
{
    return QSystemTrayIcon::isSystemTrayAvailable();
}

void HVStatusItem::showProgressStep(int step, int count)
{
    const bool dark = darkTheme();
    setImage(count > 0 ? progressImage(step, count, dark) : normalImage(dark));
}

void HVStatusItem::setImage(const QPixmap& image)
{
    m_image = image;
    m_tray->setIcon(QIcon(image));
}

QPixmap HVStatusItem::normalImage(bool dark)
{
    QPixmap image(22, 22);
    image.fill(Qt::transparent);
    QPainter painter(&image);
    const QColor ink = dark ? Qt::white : Qt::black;
    for (int row = 0; row < 3; ++row)
        for (int column = 0; column < 3; ++column)
            painter.fillRect(3 + column * 6, 3 + row * 6, 4, 4, ink);
    return image;
}

QPixmap HVStatusItem::progressImage(int step, int count, bool dark)
{
    QPixmap image(16, 16);
    image.fill(Qt::transparent);
    QPainter painter(&image);
    const QColor ink = dark ? Qt::white : Qt::black;
    painter.setPen(ink);
    painter.drawRect(1, 1, 13, 13); // the frame (1, 1, 14, 14)
    const int width = 12 * qBound(0, step, count) / count;
    painter.fillRect(2, 2, width, 12, ink);
    return image;
}

// Nimbo's tray item: a StatusNotifierItem where the desktop hosts them (QSystemTrayIcon, with
// XEmbed as its fallback). It carries the shared status menu; a left click toggles the panel or
// opens the menu, as the controller asks; during a scan its image becomes a progress bar.
#pragma once

#include <QObject>
#include <QPixmap>

class HVStatusMenu;
class QSystemTrayIcon;

class HVStatusItem : public QObject
{
    Q_OBJECT
public:
    HVStatusItem(HVStatusMenu* menu, bool clickToggles, QObject* parent = nullptr);

    // Whether the desktop can show a tray item at all right now.
    static bool isAvailable();

    // step/count of a scan; a count of 0 brings the normal image back.
    void showProgressStep(int step, int count);
    QPixmap currentImage() const { return m_image; }

    // The images: a 3 × 3 grid of tiles, and the progress frame filled to step/count; black on a
    // light theme, white on a dark one.
    static QPixmap normalImage(bool dark);
    static QPixmap progressImage(int step, int count, bool dark);

signals:
    void toggleRequested();

private:
    void setImage(const QPixmap& image);

    QSystemTrayIcon* m_tray;
    HVStatusMenu* m_menu;
    QPixmap m_image;
    bool m_clickToggles;
};

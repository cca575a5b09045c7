#include "hvaboutwindow.h"

#include "common/nimboinfo.h"

#include <QDialogButtonBox>
#include <QIcon>
#include <QLabel>
#include <QVBoxLayout>

#include <glib.h>

HVAboutWindow::HVAboutWindow(QWidget* parent) : QDialog(parent)
{
    setObjectName(QStringLiteral("AboutWindow"));
    setWindowTitle(tr("About Nimbo"));
    auto* layout = new QVBoxLayout(this);
    layout->setSpacing(10);

    auto* icon = new QLabel(this);
    icon->setPixmap(QIcon(QStringLiteral(":/nimbo.svg")).pixmap(96, 96));
    icon->setAlignment(Qt::AlignCenter);
    layout->addWidget(icon);

    auto* name = new QLabel(QStringLiteral("<b style='font-size:x-large'>Nimbo</b>"), this);
    name->setAlignment(Qt::AlignCenter);
    layout->addWidget(name);

    auto* version = new QLabel(tr("Version %1").arg(NimboInfo::version()), this);
    version->setObjectName(QStringLiteral("version"));
    version->setAlignment(Qt::AlignCenter);
    version->setTextInteractionFlags(Qt::TextSelectableByMouse);
    layout->addWidget(version);

    auto* summary = new QLabel(tr("Launch and organise your applications from one floating panel."), this);
    summary->setAlignment(Qt::AlignCenter);
    summary->setWordWrap(true);
    layout->addWidget(summary);

    const QString home = NimboInfo::homeUrl();
    auto* link = new QLabel(QStringLiteral("<a href=\"%1\">%1</a>").arg(home.toHtmlEscaped()), this);
    link->setObjectName(QStringLiteral("homePage"));
    link->setAlignment(Qt::AlignCenter);
    link->setOpenExternalLinks(true);
    layout->addWidget(link);

    auto* libraries = new QLabel(tr("Built on:") + QStringLiteral("\n") + libraryLines().join(u'\n'), this);
    libraries->setObjectName(QStringLiteral("libraries"));
    libraries->setAlignment(Qt::AlignCenter);
    libraries->setTextInteractionFlags(Qt::TextSelectableByMouse);
    layout->addWidget(libraries);

    auto* licence = new QLabel(tr("© Halvorn Design. All rights reserved."), this);
    licence->setAlignment(Qt::AlignCenter);
    layout->addWidget(licence);

    auto* buttons = new QDialogButtonBox(QDialogButtonBox::Close, this);
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::close);
    layout->addWidget(buttons);
    setMinimumWidth(360);
}

QStringList HVAboutWindow::libraryLines()
{
    return {
        tr("Qt %1 (running %2)").arg(QStringLiteral(QT_VERSION_STR), QString::fromLatin1(qVersion())),
        tr("GLib and GIO %1.%2.%3").arg(glib_major_version).arg(glib_minor_version).arg(glib_micro_version),
        tr("libplist"), tr("X11 and XCB")};
}

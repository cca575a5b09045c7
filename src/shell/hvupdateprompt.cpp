#include "hvupdateprompt.h"

#include "common/hvuserdefaults.h"
#include "common/nimboinfo.h"
#include "net/hvupdatecheck.h"

#include <QDesktopServices>
#include <QMessageBox>
#include <QPushButton>

HVUpdatePrompt::HVUpdatePrompt(HVUserDefaults* defaults, QObject* parent)
    : QObject(parent), m_defaults(defaults), m_check(new HVUpdateCheck(this))
{
    connect(m_check, &HVUpdateCheck::finished, this, &HVUpdatePrompt::showResult);
}

void HVUpdatePrompt::checkNow()
{
    if (m_check->isRunning())
        return;
    m_check->start(HVUpdateCheck::configuredFeed(m_defaults), NimboInfo::version());
}

void HVUpdatePrompt::showResult(const UpdateCheckResult& result)
{
    delete m_notice;
    m_notice = new QMessageBox;
    m_notice->setObjectName(QStringLiteral("UpdateNotice"));
    m_notice->setAttribute(Qt::WA_DeleteOnClose);
    m_notice->setWindowTitle(tr("Software Update"));
    if (!result.error.isEmpty()) {
        qWarning("Nimbo could not check for updates: %s", qPrintable(result.error));
        m_notice->setIcon(QMessageBox::Warning);
        m_notice->setText(tr("Nimbo could not check for updates."));
        m_notice->setInformativeText(result.error);
    } else if (!result.newer) {
        m_notice->setIcon(QMessageBox::Information);
        m_notice->setText(tr("You're up to date!"));
        m_notice->setInformativeText(tr("Nimbo %1 is the newest version available.").arg(result.current));
    } else {
        m_notice->setIcon(QMessageBox::Information);
        m_notice->setText(tr("A new version of Nimbo is available!"));
        m_notice->setInformativeText(
            tr("Nimbo %1 is out; you have %2. Your distribution's package manager or the home page has it.")
                .arg(result.latest.version, result.current));
        const QUrl notes =
            result.latest.releaseNotes.isEmpty() ? result.latest.download : result.latest.releaseNotes;
        QPushButton* notesButton = m_notice->addButton(tr("Release Notes"), QMessageBox::AcceptRole);
        QPushButton* skip = m_notice->addButton(tr("Skip This Version"), QMessageBox::DestructiveRole);
        m_notice->addButton(tr("Remind Me Later"), QMessageBox::RejectRole);
        connect(notesButton, &QPushButton::clicked, this, [notes] { QDesktopServices::openUrl(notes); });
        connect(skip, &QPushButton::clicked, this, [this, version = result.latest.version] {
            m_defaults->setString(version, QStringLiteral("skippedUpdateVersion"));
        });
    }
    m_notice->open();
}

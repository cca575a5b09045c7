#include "hvremoverchooser.h"

#include "catalogue/hvapp.h"
#include "catalogue/hvappmanager.h"
#include "common/hvuserdefaults.h"

#include <QApplication>
#include <QDialogButtonBox>
#include <QLabel>
#include <QListWidget>
#include <QMessageBox>
#include <QPushButton>
#include <QVBoxLayout>

namespace {
const QString RemoverNameKey = QStringLiteral("appRemoverName");
const QString RemoverIdKey = QStringLiteral("appRemoverBundleIdentifier");
} // namespace

HVRemoverChooser::HVRemoverChooser(HVUserDefaults* defaults, HVAppManager* catalogue, QWidget* parent)
    : QDialog(parent), m_defaults(defaults), m_catalogue(catalogue), m_list(new QListWidget(this))
{
    setObjectName(QStringLiteral("AppRemoverChooser"));
    setWindowTitle(tr("Choose the App Remover"));
    m_list->setObjectName(QStringLiteral("removerCandidates"));
    m_list->setIconSize(QSize(24, 24));
    m_list->setUniformItemSizes(true);
    auto* buttons = new QDialogButtonBox(QDialogButtonBox::Cancel, this);
    m_choose = buttons->addButton(tr("Choose"), QDialogButtonBox::AcceptRole);
    m_choose->setObjectName(QStringLiteral("chooseAppRemover"));
    connect(buttons, &QDialogButtonBox::accepted, this, &HVRemoverChooser::chooseSelected);
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::hide);
    connect(m_list, &QListWidget::itemDoubleClicked, this, &HVRemoverChooser::chooseSelected);
    connect(m_list, &QListWidget::currentRowChanged, this,
            [this](int row) { m_choose->setEnabled(row >= 0); });
    auto* layout = new QVBoxLayout(this);
    layout->addWidget(new QLabel(tr("The application that Nimbo sends applications to for removal:")));
    layout->addWidget(m_list);
    layout->addWidget(buttons);
    resize(360, 420);
}

void HVRemoverChooser::reload()
{
    m_candidates = RemoverCandidates::installed();
    m_list->clear();
    const QString current = m_defaults->stringForKey(RemoverIdKey);
    for (const RemoverCandidate& candidate : std::as_const(m_candidates)) {
        auto* item = new QListWidgetItem(candidate.name, m_list);
        item->setToolTip(candidate.desktopId);
        // The panel's own icon for an entry it catalogues; none for the others.
        if (const HVAppRef app = m_catalogue->liveRecordForPath(candidate.path); app && app->hasIcon())
            item->setIcon(QIcon(QPixmap::fromImage(app->icon())));
        if (candidate.desktopId == current)
            m_list->setCurrentItem(item);
    }
    m_choose->setEnabled(m_list->currentRow() >= 0);
}

void HVRemoverChooser::chooseSelected()
{
    const int row = m_list->currentRow();
    if (row >= 0 && row < m_candidates.size())
        choose(m_candidates.at(row));
}

bool HVRemoverChooser::choose(const RemoverCandidate& candidate)
{
    if (candidate.desktopId.isEmpty()) {
        QApplication::beep();
        qWarning("Couldn't get a desktop ID for the chosen application \"%s\"", qPrintable(candidate.path));
        return false;
    }
    if (!candidate.handlesAppstream) {
        qWarning("\"%s\" does not open appstream links; the app remover stays \"%s\"",
                 qPrintable(candidate.desktopId), qPrintable(m_defaults->stringForKey(RemoverIdKey)));
        const QString name = candidate.name.isEmpty() ? tr("No name") : candidate.name;
        auto* alert = new QMessageBox(
            QMessageBox::Warning, QStringLiteral("Nimbo"),
            tr("\"%1\" cannot accept an application file, so it probably can't delete one either.").arg(name),
            QMessageBox::NoButton, this);
        alert->setObjectName(QStringLiteral("removerRefused"));
        alert->setInformativeText(tr("Please choose a different app for removing application files."));
        alert->addButton(tr("Ok"), QMessageBox::AcceptRole);
        alert->setAttribute(Qt::WA_DeleteOnClose);
        alert->open();
        return false;
    }
    m_defaults->setString(candidate.name.isEmpty() ? tr("No name") : candidate.name, RemoverNameKey);
    m_defaults->setString(candidate.desktopId, RemoverIdKey);
    m_defaults->synchronize();
    hide();
    return true;
}

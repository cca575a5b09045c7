#include "hvfeedbackwindow.h"

#include "catalogue/hvappmanager.h"
#include "common/nimboinfo.h"
#include "net/hvfeedbacksender.h"
#include "platform/desktopfacts.h"

#include <QCheckBox>
#include <QComboBox>
#include <QDialogButtonBox>
#include <QDir>
#include <QFileDialog>
#include <QFontDatabase>
#include <QFormLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QSaveFile>
#include <QStandardPaths>
#include <QTimer>
#include <QVBoxLayout>

namespace {
// How long the thanks stay before the form closes.
constexpr int ThanksDelay = 1500;
} // namespace

HVFeedbackWindow::HVFeedbackWindow(HVUserDefaults* defaults, HVAppManager* catalogue, QWidget* parent)
    : QDialog(parent), m_defaults(defaults), m_catalogue(catalogue), m_sender(new HVFeedbackSender(this)),
      m_kind(new QComboBox(this)), m_message(new QPlainTextEdit(this)), m_replyTo(new QLineEdit(this)),
      m_includeSystem(new QCheckBox(tr("Include system details"), this)), m_preview(new QPlainTextEdit(this)),
      m_status(new QLabel(this)), m_closeTimer(new QTimer(this))
{
    setObjectName(QStringLiteral("FeedbackWindow"));
    setWindowTitle(tr("Send Feedback"));

    m_kind->setObjectName(QStringLiteral("kind"));
    m_kind->addItem(tr("Bug report"), QStringLiteral("bug"));
    m_kind->addItem(tr("Crash report"), QStringLiteral("crash"));
    m_kind->addItem(tr("Feature request"), QStringLiteral("feature"));
    m_kind->addItem(tr("Question"), QStringLiteral("question"));
    m_message->setObjectName(QStringLiteral("message"));
    m_message->setPlaceholderText(tr("What happened, or what would you like Nimbo to do?"));
    m_message->setTabChangesFocus(true);
    m_replyTo->setObjectName(QStringLiteral("replyTo"));
    m_replyTo->setPlaceholderText(tr("Your e-mail address, if you would like an answer"));
    m_includeSystem->setObjectName(QStringLiteral("includeSystem"));
    m_includeSystem->setChecked(true);
    m_includeSystem->setToolTip(tr("Nimbo and Qt versions, the desktop, X11 or Wayland, and how many "
                                   "applications each group holds"));
    m_preview->setObjectName(QStringLiteral("preview"));
    m_preview->setReadOnly(true);
    m_preview->setFont(QFontDatabase::systemFont(QFontDatabase::FixedFont));
    m_preview->setLineWrapMode(QPlainTextEdit::WidgetWidth);
    m_status->setObjectName(QStringLiteral("status"));
    m_status->setWordWrap(true);
    m_status->setTextInteractionFlags(Qt::TextSelectableByMouse);

    auto* form = new QFormLayout;
    form->addRow(tr("Kind:"), m_kind);
    form->addRow(tr("Message:"), m_message);
    form->addRow(tr("Reply to (optional):"), m_replyTo);
    form->addRow(QString(), m_includeSystem);
    form->addRow(tr("What is sent:"), m_preview);

    auto* buttons = new QDialogButtonBox(this);
    m_send = buttons->addButton(tr("Send"), QDialogButtonBox::AcceptRole);
    m_send->setObjectName(QStringLiteral("send"));
    m_save = buttons->addButton(tr("Save Report…"), QDialogButtonBox::ActionRole);
    m_save->setObjectName(QStringLiteral("saveReport"));
    m_cancel = buttons->addButton(QDialogButtonBox::Cancel);
    m_cancel->setObjectName(QStringLiteral("cancel"));
    // Return in the reply address must not send a half-written report.
    for (QPushButton* button : {m_send, m_save, m_cancel})
        button->setAutoDefault(false);

    auto* layout = new QVBoxLayout(this);
    layout->addLayout(form, 1);
    layout->addWidget(m_status);
    layout->addWidget(buttons);
    setMinimumSize(520, 560);

    connect(m_send, &QPushButton::clicked, this, &HVFeedbackWindow::send);
    connect(m_save, &QPushButton::clicked, this, &HVFeedbackWindow::chooseFileAndSave);
    connect(m_cancel, &QPushButton::clicked, this, &HVFeedbackWindow::reject);
    connect(m_kind, &QComboBox::currentIndexChanged, this, &HVFeedbackWindow::updatePreview);
    connect(m_message, &QPlainTextEdit::textChanged, this, &HVFeedbackWindow::updatePreview);
    connect(m_replyTo, &QLineEdit::textChanged, this, &HVFeedbackWindow::updatePreview);
    connect(m_includeSystem, &QCheckBox::toggled, this, &HVFeedbackWindow::updatePreview);
    if (m_catalogue) {
        // The counts shown stay those that would be sent, also while a scan changes them.
        connect(m_catalogue, &HVAppManager::didChange, this, [this] {
            if (isVisible() && m_includeSystem->isChecked())
                updatePreview();
        });
    }
    connect(m_sender, &HVFeedbackSender::finished, this, &HVFeedbackWindow::sendingFinished);
    m_closeTimer->setSingleShot(true);
    connect(m_closeTimer, &QTimer::timeout, this, [this] {
        hide();
        m_message->clear();
        m_status->clear();
        setSending(false);
    });
    updatePreview();
}

FeedbackReport HVFeedbackWindow::report() const
{
    FeedbackReport report;
    report.kind = m_kind->currentData().toString();
    report.message = m_message->toPlainText();
    report.replyTo = m_replyTo->text().trimmed();
    if (m_includeSystem->isChecked())
        report.system = systemDetails();
    return report;
}

FeedbackSystemDetails HVFeedbackWindow::systemDetails() const
{
    FeedbackSystemDetails details;
    details.nimboVersion = NimboInfo::version();
    details.qtVersion = QString::fromLatin1(qVersion());
    details.desktop = DesktopFacts::currentDesktop();
    details.windowSystem = DesktopFacts::windowSystem();
    if (m_catalogue) {
        details.appCounts = {{QStringLiteral("total"), m_catalogue->allApps1D().size()},
                             {QStringLiteral("included"), m_catalogue->includedApps1D().size()},
                             {QStringLiteral("excluded"), m_catalogue->excludedApps1D().size()},
                             {QStringLiteral("favorites"), m_catalogue->userApps1D().size()},
                             {QStringLiteral("running"), m_catalogue->runningApps().size()}};
    }
    return details;
}

void HVFeedbackWindow::send()
{
    if (m_sender->isSending() || m_message->toPlainText().trimmed().isEmpty())
        return;
    // The bytes shown are the bytes posted, counts and all, as they are at this moment.
    const QByteArray json = report().toJson();
    m_preview->setPlainText(QString::fromUtf8(json));
    const QUrl address = HVFeedbackSender::configuredAddress(m_defaults);
    m_sender->send(address, json);
    setSending(true);
    showStatus(tr("Sending the report to %1…").arg(address.host()));
}

bool HVFeedbackWindow::saveReport(const QString& path)
{
    QSaveFile file(path);
    if (!file.open(QIODevice::WriteOnly) || file.write(report().toJson()) < 0 || !file.commit()) {
        showStatus(tr("Nimbo could not save the report to %1: %2")
                       .arg(QDir::toNativeSeparators(path), file.errorString()),
                   true);
        return false;
    }
    showStatus(tr("The report was saved to %1.").arg(QDir::toNativeSeparators(path)));
    return true;
}

void HVFeedbackWindow::reject()
{
    if (m_closeTimer->isActive())
        return; // the thanks are showing; the form closes by itself
    if (m_sender->isSending()) {
        m_sender->cancel();
        setSending(false);
        showStatus(tr("Sending stopped. The report is still here."));
        return;
    }
    QDialog::reject();
}

void HVFeedbackWindow::chooseFileAndSave()
{
    const QString folder = QStandardPaths::writableLocation(QStandardPaths::DocumentsLocation);
    const QString path = QFileDialog::getSaveFileName(
        this, tr("Save Report"), folder + QStringLiteral("/Nimbo Feedback.json"), tr("JSON files (*.json)"));
    if (!path.isEmpty())
        saveReport(path);
}

void HVFeedbackWindow::updatePreview()
{
    const QString json = QString::fromUtf8(report().toJson());
    if (m_preview->toPlainText() != json)
        m_preview->setPlainText(json);
    updateButtons();
}

void HVFeedbackWindow::updateButtons()
{
    const bool written = !m_message->toPlainText().trimmed().isEmpty();
    const bool idle = !m_sender->isSending() && !m_closeTimer->isActive();
    m_send->setEnabled(written && idle);
    m_save->setEnabled(written && idle);
}

void HVFeedbackWindow::setSending(bool sending)
{
    for (QWidget* control : std::initializer_list<QWidget*>{m_kind, m_message, m_replyTo, m_includeSystem})
        control->setEnabled(!sending);
    updateButtons();
}

void HVFeedbackWindow::sendingFinished(const QString& error)
{
    if (!error.isEmpty()) {
        setSending(false);
        showStatus(error, true);
        // A report that failed while the form was away comes back with the reason.
        if (!isVisible())
            show();
        return;
    }
    showStatus(tr("Thank you! Your report was sent."));
    if (!isVisible()) {
        m_closeTimer->start(0);
        return;
    }
    m_closeTimer->start(ThanksDelay);
    updateButtons();
}

void HVFeedbackWindow::showStatus(const QString& text, bool problem)
{
    m_status->setStyleSheet(problem ? QStringLiteral("font-weight: bold") : QString());
    m_status->setText(text);
}

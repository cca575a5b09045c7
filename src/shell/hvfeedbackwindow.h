// "Send Feedback…": a form for a bug report, crash report, feature request or question, with an
// optional reply address and, when the user includes them, a few facts about this system. The
// form shows the exact JSON document it posts (or saves with "Save Report…"), and stays usable
// while it sends: a failure leaves everything typed in place, with the reason beside it.
#pragma once

#include "net/feedbackreport.h"

#include <QDialog>

class HVAppManager;
class HVFeedbackSender;
class HVUserDefaults;
class QCheckBox;
class QComboBox;
class QLabel;
class QLineEdit;
class QPlainTextEdit;
class QPushButton;
class QTimer;

class HVFeedbackWindow : public QDialog
{
    Q_OBJECT
public:
    // The catalogue gives the application counts; without one the report has none.
    HVFeedbackWindow(HVUserDefaults* defaults, HVAppManager* catalogue, QWidget* parent = nullptr);

    // The report as the form stands; its JSON is what the form shows under "What is sent".
    FeedbackReport report() const;
    FeedbackSystemDetails systemDetails() const;

    // Posts the report to the configured address; the status line follows how it goes.
    void send();
    // Writes the report's JSON to `path`; the status line says where, or why not.
    bool saveReport(const QString& path);
    HVFeedbackSender* feedbackSender() const { return m_sender; }

    // Cancel and Escape stop a sending report; otherwise they close the form, keeping its text.
    void reject() override;

private:
    void chooseFileAndSave();
    void updatePreview();
    void updateButtons();
    void setSending(bool sending);
    void sendingFinished(const QString& error);
    void showStatus(const QString& text, bool problem = false);

    HVUserDefaults* m_defaults;
    HVAppManager* m_catalogue;
    HVFeedbackSender* m_sender;
    QComboBox* m_kind;
    QPlainTextEdit* m_message;
    QLineEdit* m_replyTo;
    QCheckBox* m_includeSystem;
    QPlainTextEdit* m_preview;
    QLabel* m_status;
    QPushButton* m_send;
    QPushButton* m_save;
    QPushButton* m_cancel;
    QTimer* m_closeTimer;
};

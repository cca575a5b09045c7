// "Check for Updates...": runs the update check without holding up the panel and tells the user
// what it found: a newer Nimbo with its release notes and "Skip This Version", no newer one, or why
// the feed could not be read.
#pragma once

#include <QMessageBox>
#include <QObject>
#include <QPointer>

class HVUpdateCheck;
class HVUserDefaults;

struct UpdateCheckResult;

class HVUpdatePrompt : public QObject
{
    Q_OBJECT
public:
    HVUpdatePrompt(HVUserDefaults* defaults, QObject* parent = nullptr);

    void checkNow();
    QMessageBox* notice() const { return m_notice; }

private:
    void showResult(const UpdateCheckResult& result);

    HVUserDefaults* m_defaults;
    HVUpdateCheck* m_check;
    QPointer<QMessageBox> m_notice;
};

// The welcome tour: a small window paging through a built-in PDF, one page a step, with
// Previous / Next (Close on the last page) and "2 of 5", remembering the step across launches.
// One at a time: the shared assistant is brought to the front when asked for again.
#pragma once

#include <QPointer>
#include <QWidget>

class HVUserDefaults;
class QLabel;
class QPdfDocument;
class QPdfView;
class QPushButton;

class HVWelcomeAssistant : public QWidget
{
    Q_OBJECT
public:
    // The shared assistant for the built-in document of that name, made and shown when there is
    // none. A document that cannot be read leaves the window hidden, with a line in the log.
    // Shown beside the panel, the window leaves it the keys and the focus.
    static HVWelcomeAssistant* sharedAssistantWithPDFName(const QString& pdfName, HVUserDefaults* defaults,
                                                          bool besidePanel = false);
    static bool isWindowVisible();
    static void bringWindowToFront();
    static void closeWindow();
    static void registerDefaults(HVUserDefaults* defaults);

    void showStep(int step);
    void showNextStep();
    void showPreviousStep();
    void updateStepNumberField();
    int currentStep() const { return m_curStep; }
    int lastStep() const { return m_lastStep; }

    QPdfView* pdfView() const { return m_pdfView; }
    QPushButton* nextButton() const { return m_nextButton; }
    QPushButton* prevButton() const { return m_prevButton; }
    QLabel* stepLabel() const { return m_stepLabel; }

protected:
    void keyPressEvent(QKeyEvent* event) override;
    void closeEvent(QCloseEvent* event) override;

private:
    HVWelcomeAssistant(const QString& pdfName, HVUserDefaults* defaults);
    bool windowDidLoad(bool besidePanel);
    void storeStep();

    static QPointer<HVWelcomeAssistant> s_shared;
    QString m_pdfName;
    HVUserDefaults* m_defaults;
    QPdfDocument* m_document;
    QPdfView* m_pdfView;
    QPushButton* m_nextButton;
    QPushButton* m_prevButton;
    QLabel* m_stepLabel;
    int m_firstStep = 1;
    int m_lastStep = 1;
    int m_curStep = 1;
};

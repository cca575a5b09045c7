#include "hvwelcomeassistant.h"

#include "common/hvuserdefaults.h"

#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QPdfDocument>
#include <QPdfPageNavigator>
#include <QPdfView>
#include <QPushButton>
#include <QVBoxLayout>

#include <algorithm>

namespace {
const QString ShowKey = QStringLiteral("showWelcomeWindow");
const QString StepKey = QStringLiteral("lastShownWelcomeStep");
constexpr int MinimumWidth = 320;
constexpr int MinimumHeight = 304;
} // namespace

QPointer<HVWelcomeAssistant> HVWelcomeAssistant::s_shared;

void HVWelcomeAssistant::registerDefaults(HVUserDefaults* defaults)
{
    defaults->registerDefaults({{ShowKey, true}, {StepKey, 0}});
}

HVWelcomeAssistant* HVWelcomeAssistant::sharedAssistantWithPDFName(const QString& pdfName,
                                                                   HVUserDefaults* defaults, bool besidePanel)
{
    if (s_shared) {
        bringWindowToFront();
        return s_shared;
    }
    s_shared = new HVWelcomeAssistant(pdfName, defaults);
    if (!s_shared->windowDidLoad(besidePanel)) {
        delete s_shared;
        return nullptr;
    }
    return s_shared;
}

bool HVWelcomeAssistant::isWindowVisible()
{
    return s_shared && s_shared->isVisible();
}

void HVWelcomeAssistant::bringWindowToFront()
{
    if (!s_shared)
        return;
    s_shared->show();
    s_shared->raise();
    s_shared->activateWindow();
}

void HVWelcomeAssistant::closeWindow()
{
    if (s_shared)
        s_shared->close();
}

HVWelcomeAssistant::HVWelcomeAssistant(const QString& pdfName, HVUserDefaults* defaults)
    : m_pdfName(pdfName), m_defaults(defaults), m_document(new QPdfDocument(this)),
      m_pdfView(new QPdfView(this)), m_nextButton(new QPushButton(tr("Next"), this)),
      m_prevButton(new QPushButton(tr("Previous"), this)), m_stepLabel(new QLabel(this))
{
    setAttribute(Qt::WA_DeleteOnClose); // the window goes, and the assistant with it
    setWindowFlag(Qt::Dialog);
    m_pdfView->setStyleSheet(QStringLiteral("background: white"));
    m_pdfView->setPageMode(QPdfView::PageMode::SinglePage);
    m_pdfView->setZoomMode(QPdfView::ZoomMode::Custom);
    m_pdfView->setZoomFactor(1.0);
    m_pdfView->setDocumentMargins(QMargins());
    m_pdfView->setPageSpacing(0);
    m_pdfView->setFrameShape(QFrame::NoFrame);
    m_pdfView->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    m_pdfView->setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOff);

    auto* buttons = new QHBoxLayout;
    buttons->addWidget(m_stepLabel);
    buttons->addStretch();
    buttons->addWidget(m_prevButton);
    buttons->addWidget(m_nextButton);
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 10);
    layout->addWidget(m_pdfView, 1);
    buttons->setContentsMargins(12, 0, 12, 0);
    layout->addLayout(buttons);
    m_nextButton->setDefault(true);
    connect(m_nextButton, &QPushButton::clicked, this, &HVWelcomeAssistant::showNextStep);
    connect(m_prevButton, &QPushButton::clicked, this, &HVWelcomeAssistant::showPreviousStep);
}

bool HVWelcomeAssistant::windowDidLoad(bool besidePanel)
{
    const QString path = QStringLiteral(":/docs/") + m_pdfName + QStringLiteral(".pdf");
    if (m_document->load(path) != QPdfDocument::Error::None || m_document->pageCount() < 1) {
        qWarning("PDF not found for welcome window");
        return false;
    }
    m_pdfView->setDocument(m_document);
    m_lastStep = m_document->pageCount();
    setWindowTitle(m_pdfName);
    // The window fits one page, never smaller than the buttons need.
    const QSize page = (m_document->pagePointSize(0) * logicalDpiX() / 72.0).toSize();
    const int buttonsHeight = m_nextButton->sizeHint().height() + 20;
    resize(std::max(MinimumWidth, page.width()), std::max(MinimumHeight, page.height() + buttonsHeight));

    m_curStep = int(std::clamp<qint64>(m_defaults->integerForKey(StepKey), m_firstStep, m_lastStep));
    if (!m_defaults->boolForKey(ShowKey) && m_curStep == m_lastStep)
        m_curStep = m_firstStep; // completed once: the tour starts again
    showStep(m_curStep);
    connect(m_pdfView->pageNavigator(), &QPdfPageNavigator::currentPageChanged, this,
            &HVWelcomeAssistant::updateStepNumberField);
    if (besidePanel) {
        setAttribute(Qt::WA_ShowWithoutActivating);
        show();
        return true;
    }
    show();
    raise();
    activateWindow();
    return true;
}

void HVWelcomeAssistant::showStep(int step)
{
    const int page = std::clamp(step, m_firstStep, m_lastStep) - 1;
    m_pdfView->pageNavigator()->jump(page, QPointF(), 1.0);
    updateStepNumberField();
}

void HVWelcomeAssistant::updateStepNumberField()
{
    m_curStep = m_pdfView->pageNavigator()->currentPage() + 1;
    m_stepLabel->setText(tr("%1 of %2").arg(m_curStep).arg(m_lastStep));
    storeStep();
    m_nextButton->setText(m_curStep >= m_lastStep ? tr("Close") : tr("Next"));
    m_prevButton->setEnabled(m_curStep > m_firstStep);
}

void HVWelcomeAssistant::showNextStep()
{
    if (m_curStep >= m_lastStep) {
        close();
        return;
    }
    showStep(m_curStep + 1);
    storeStep();
    if (m_curStep == m_lastStep)
        m_defaults->setBool(false, ShowKey); // the tour counts as done once its end was reached
}

void HVWelcomeAssistant::showPreviousStep()
{
    if (m_curStep > m_firstStep)
        showStep(m_curStep - 1);
    storeStep();
}

void HVWelcomeAssistant::storeStep()
{
    m_defaults->setInteger(m_curStep, StepKey);
}

void HVWelcomeAssistant::closeEvent(QCloseEvent* event)
{
    // Closing lets the assistant go (it deletes itself): the next one asked for is new.
    if (s_shared == this)
        s_shared = nullptr;
    QWidget::closeEvent(event);
}

void HVWelcomeAssistant::keyPressEvent(QKeyEvent* event)
{
    const bool commandW = event->key() == Qt::Key_W && (event->modifiers() & Qt::ControlModifier);
    const bool deleteKey = (event->key() == Qt::Key_Backspace || event->key() == Qt::Key_Delete) &&
                           !(event->modifiers() & Qt::ControlModifier);
    if (commandW || deleteKey || event->key() == Qt::Key_Escape) {
        close();
        return;
    }
    QWidget::keyPressEvent(event);
}

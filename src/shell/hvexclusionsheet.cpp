#include "hvexclusionsheet.h"

#include "catalogue/hvappmanager.h"

#include <QCheckBox>
#include <QDialogButtonBox>
#include <QLabel>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QVBoxLayout>

HVExclusionSheet::HVExclusionSheet(HVAppManager* catalogue, QWidget* parent)
    : QDialog(parent), m_catalogue(catalogue), m_words(new QPlainTextEdit(this)),
      m_named(new QCheckBox(tr("Exclude applications whose names contain one of these words"), this)),
      m_dock(new QCheckBox(tr("Exclude the applications kept in the desktop's dock or favourites"), this))
{
    setObjectName(QStringLiteral("AutomaticExclusion"));
    setWindowTitle(tr("Automatic Exclusion"));
    m_words->setObjectName(QStringLiteral("nameSubstrings"));
    m_words->setLineWrapMode(QPlainTextEdit::NoWrap);
    m_named->setObjectName(QStringLiteral("excludeAppsWithSubstrings"));
    m_named->setChecked(true);
    m_dock->setObjectName(QStringLiteral("excludeDockApps"));

    auto* buttons = new QDialogButtonBox(QDialogButtonBox::Cancel, this);
    QPushButton* exclude = buttons->addButton(tr("Exclude"), QDialogButtonBox::AcceptRole);
    exclude->setObjectName(QStringLiteral("excludeApps"));
    exclude->setDefault(true);
    connect(buttons, &QDialogButtonBox::accepted, this, &HVExclusionSheet::exclude);
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::hide);
    const auto enableExclude = [this, exclude] {
        exclude->setEnabled(m_named->isChecked() || m_dock->isChecked());
    };
    connect(m_named, &QCheckBox::toggled, this, enableExclude);
    connect(m_dock, &QCheckBox::toggled, this, enableExclude);

    auto* layout = new QVBoxLayout(this);
    auto* intro = new QLabel(tr("Words that mark applications to leave out, one per line:"));
    intro->setWordWrap(true);
    layout->addWidget(intro);
    layout->addWidget(m_words);
    layout->addWidget(m_named);
    layout->addWidget(m_dock);
    layout->addWidget(buttons);
    resize(440, 380);
}

void HVExclusionSheet::fillWords()
{
    const QStringList words = m_catalogue->excludedNameSubstrings();
    if (!words.isEmpty())
        m_words->setPlainText(words.join(QLatin1Char('\n')));
}

QStringList HVExclusionSheet::words() const
{
    QStringList words;
    for (const QString& line : m_words->toPlainText().split(QLatin1Char('\n'))) {
        const QString word = line.trimmed();
        if (!word.isEmpty())
            words.append(word);
    }
    return words;
}

void HVExclusionSheet::exclude()
{
    bool named = m_named->isChecked();
    if (named) {
        const QStringList given = words();
        if (given.isEmpty()) {
            qWarning("Automatic exclusion: no words given, so no application is excluded by its name");
            named = false;
        } else {
            m_catalogue->setExcludedNameSubstrings(given);
        }
    }
    const qsizetype before = m_catalogue->excludedApps1D().size();
    m_catalogue->autoExcludeDockApps(m_dock->isChecked(), named);
    qInfo("Automatic exclusion excluded %lld applications",
          qlonglong(m_catalogue->excludedApps1D().size() - before));
    hide();
}

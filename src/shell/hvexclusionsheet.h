// The automatic exclusion sheet over the panel: words that mark applications nobody launches by
// hand (uninstallers, updaters, helpers...), one a line, and two boxes — exclude the
// applications whose names contain one of them, exclude the desktop's favourites (its dock or
// taskbar launchers, already a click away). Exclude applies them to the live catalogue at once;
// the words count for the rest of the session.
#pragma once

#include <QDialog>

class HVAppManager;
class QCheckBox;
class QPlainTextEdit;

class HVExclusionSheet : public QDialog
{
    Q_OBJECT
public:
    HVExclusionSheet(HVAppManager* catalogue, QWidget* parent);

    // Shows the catalogue's words; an empty list leaves the text as it is.
    void fillWords();
    // The text's lines, trimmed, blank ones left out.
    QStringList words() const;

private:
    void exclude();

    HVAppManager* m_catalogue;
    QPlainTextEdit* m_words;
    QCheckBox* m_named;
    QCheckBox* m_dock;
};

// The about window: Nimbo's icon, name and version, its licence and home page, and the libraries
// it stands on with the versions it was built with and runs on.
#pragma once

#include <QDialog>

class HVAboutWindow : public QDialog
{
    Q_OBJECT
public:
    explicit HVAboutWindow(QWidget* parent = nullptr);

    // The lines of the libraries section, also what the window shows.
    static QStringList libraryLines();
};

// Shows a file selected in the file manager through org.freedesktop.FileManager1.ShowItems on
// the session bus; when no file manager answers, the containing folder is opened with the
// desktop's default handler for folders. Returns at once; the answer arrives later.
#pragma once

#include <QString>

namespace FileManagerReveal {
void reveal(const QString& path);
// Opens the folder with its default handler; false (and a log line) when none could be started.
bool openFolder(const QString& folder);
} // namespace FileManagerReveal

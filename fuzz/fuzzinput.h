// What the fuzz targets share: a quiet Qt (readers log every bad input), and a scratch folder
// where the input is written as the file a reader opens.
#pragma once

#include <QDir>
#include <QFile>
#include <QGuiApplication>
#include <QString>
#include <QTemporaryDir>
#include <QtGlobal>

#include <cstddef>
#include <cstdint>

namespace FuzzInput {

inline void quietMessages(QtMsgType, const QMessageLogContext&, const QString&) {}

inline void silenceQt()
{
    qInstallMessageHandler(quietMessages);
}

// A quiet, offscreen application object, for readers that need one (image plugins, Gui types).
inline void startQuietGuiApplication(int* argc, char*** argv)
{
    silenceQt();
    qputenv("QT_QPA_PLATFORM", "offscreen");
    new QGuiApplication(*argc, *argv);
}

// The process's scratch folder, emptied of anything a reader left behind (set-aside files).
inline QString scratchFolder()
{
    static QTemporaryDir dir;
    QDir folder(dir.path());
    for (const QString& name : folder.entryList(QDir::Files | QDir::Hidden | QDir::System))
        folder.remove(name);
    return dir.path();
}

// Writes the input to `name` in the scratch folder; returns its path.
inline QString writeFile(const QString& name, const uint8_t* data, size_t size)
{
    const QString path = scratchFolder() + QLatin1Char('/') + name;
    QFile file(path);
    if (!file.open(QIODevice::WriteOnly | QIODevice::Truncate))
        qFatal("cannot write the fuzz input");
    file.write(reinterpret_cast<const char*>(data), qint64(size));
    return path;
}

} // namespace FuzzInput

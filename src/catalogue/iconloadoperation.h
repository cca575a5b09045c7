// One icon load: the icon of the file at `filePath`, rendered at `iconSize` (capped at 128)
// on a loading thread and handed to the record by calling `selector` on it on the main thread.
// The record is held until then, so a record dropped from every list meanwhile still gets it.
#pragma once

#include "hvapp.h"
#include "iconsource.h"

#include "colour/iconparameters.h"

#include <QRunnable>

class IconLoadOperation : public QRunnable
{
public:
    static constexpr quint64 MaxIconSize = 128;
    using Selector = void (HVApp::*)(const LoadedIcon&);

    IconLoadOperation(const QString& path, const IconParameters& parameters, HVAppRef sender,
                      Selector selector);

    QString filePath() const { return m_filePath; }
    quint64 iconSize() const { return m_iconSize; }
    const HVAppRef& sender() const { return m_sender; }
    Selector selector() const { return m_selector; }

    // The work: fetch and render, then hand over and wait.
    void main();
    void run() override { main(); }

private:
    const QString m_filePath;
    const quint64 m_iconSize;
    const HVAppRef m_sender;
    const Selector m_selector;
    // The colour parameters the record holds, so the colours can be found here rather than on
    // the main thread.
    const float m_colorfulness;
    const float m_lightness;
};

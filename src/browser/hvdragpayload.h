// What a favourite being dragged inside the panel carries: the app's path and where it was
// dragged from (group shown, the cell's bunch and index). It travels as the "HVApp" data of the
// drag, a QDataStream holding one dictionary named "ivDict", stamped with the process that made
// it so that a payload from another Nimbo, or a damaged one, is refused.
#pragma once

#include <QByteArray>
#include <QString>

#include <optional>

struct HVDragPayload
{
    static constexpr const char* MimeType = "HVApp";

    QString appPath;
    quint64 group = 0;
    quint64 bunch = 0;
    quint64 index = 0;

    QByteArray encoded() const;
    // Nothing for data that is malformed or was made by another process (with a log line).
    static std::optional<HVDragPayload> decoded(const QByteArray& data);
};

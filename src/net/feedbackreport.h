// A feedback report as the user writes it, and the one JSON document made from it that is
// posted, saved to a file and shown in the form: what the user sees is byte for byte what leaves.
#pragma once

#include <QByteArray>
#include <QMap>
#include <QString>

#include <optional>

// The facts about this machine a report carries when the user includes them.
struct FeedbackSystemDetails
{
    QString nimboVersion;
    QString qtVersion;
    QString desktop;                 // XDG_CURRENT_DESKTOP as Nimbo found it
    QString windowSystem;            // "x11", "wayland" (or the toolkit's own name for anything else)
    QMap<QString, qint64> appCounts; // applications per group of the panel
};

struct FeedbackReport
{
    QString kind; // "bug", "crash", "feature" or "question"
    QString message;
    QString replyTo; // left out of the document when empty
    std::optional<FeedbackSystemDetails> system;

    // An indented UTF-8 JSON object: "kind", "message", "replyTo" and "system".
    QByteArray toJson() const;
};

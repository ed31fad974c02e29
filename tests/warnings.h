#pragma once

#include <QStringList>
#include <QtGlobal>

inline QStringList collectedWarnings;

/// The Qt warnings that an action gives, instead of printing them.
template <typename Action>
QStringList warningsOf(const Action& action)
{
    collectedWarnings.clear();
    const QtMessageHandler before = qInstallMessageHandler(
        [](QtMsgType type, const QMessageLogContext&, const QString& message) {
            if (type == QtWarningMsg)
                collectedWarnings.append(message);
        });
    action();
    qInstallMessageHandler(before);
    return collectedWarnings;
}

#pragma once

#include <QAbstractMessageHandler>

namespace vantrel::report {

/// Puts the validator's messages together in one text.
class MessageHandler : public QAbstractMessageHandler {
public:
    /// @param messages takes the text; may be null
    /// @param next     is handed each message as well; may be null
    MessageHandler(QString* messages, QAbstractMessageHandler* next)
        : error(messages), chained(next)
    {}

protected:
    void handleMessage(QtMsgType type, const QString& description, const QUrl& identifier,
                       const QSourceLocation& sourceLocation) override;

private:
    QString* error;
    QAbstractMessageHandler* chained;
};

} // namespace vantrel::report

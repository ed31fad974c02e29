#include "tool/engine_warnings.h"

namespace vantrel::tool {

namespace {

QStringList& collected()
{
    static QStringList texts;
    return texts;
}

void collect(QtMsgType type, const QMessageLogContext& /*context*/, const QString& text)
{
    if (type != QtDebugMsg && type != QtInfoMsg)
        collected().append(text);
}

} // namespace

EngineWarnings::EngineWarnings()
{
    collected().clear();
    qInstallMessageHandler(collect);
}

EngineWarnings::~EngineWarnings()
{
    qInstallMessageHandler(nullptr);
}

QStringList EngineWarnings::texts() const
{
    return collected();
}

} // namespace vantrel::tool

// The life of a report: creation from a definition, the latch, notices.
#include "api/custom_report.h"
#include "definition/schema_file.h"

#include <QObject>
#include <QTextCodec>

#include <cstring>
#include <exception>
#include <memory>

namespace vantrel {

using report::ReportDefinition;
using report::ReportIdScheme;

CustomReport::CustomReport(const char* xmlLayout)
{
    // Pages leave as local 8-bit text, which has to be UTF-8.
    QTextCodec::setCodecForLocale(QTextCodec::codecForName("UTF-8"));
    if (loadDefinition(xmlLayout))
        setUpMetrics();
}

bool CustomReport::loadDefinition(const char* xmlLayout)
{
    if (!xmlLayout) {
        setError("xml layout buffer pointer is null");
        return false;
    }
    QString error;
    const std::unique_ptr<ReportDefinition> definition(ReportDefinition::load(
        QByteArray(xmlLayout), QUrl(), report::compiledInSchema(), &error, 0, ReportIdScheme()));
    if (!error.isEmpty()) {
        setErrorFromFormat(error);
        return false;
    }
    if (!definition) {
        setError("internal report definition pointer is null");
        return false;
    }
    ReportDefinition::operator=(*definition);
    return true;
}

void CustomReport::setError(const char* format, ...)
{
    va_list arguments;
    va_start(arguments, format);
    errorText.format(format, arguments);
    va_end(arguments);
}

void CustomReport::setErrorFromFormat(const QString& format)
{
    errorText.formatWithoutArguments(format.toUtf8().constData());
}

int CustomReport::handleException(const char* context)
{
    try {
        throw;
    } catch (const std::exception& exception) {
        setError("EXCEPTION! context: %s | fatal error with found message: %s", context,
                 exception.what());
    } catch (...) {
        setError("EXCEPTION! context: %s | unknown error", context);
    }
    return VANTREL_EXCEPTION;
}

bool CustomReport::isValidUtf8(const char* text, QString* decoded)
{
    static QTextCodec* const codec = QTextCodec::codecForName("UTF-8");
    QTextCodec::ConverterState state;
    const int length = text ? int(std::strlen(text)) : 0;
    const QString unicode = codec->toUnicode(text, length, &state);
    if (decoded)
        *decoded = unicode;
    return state.invalidChars < 1 && state.remainingChars < 1;
}

QString CustomReport::noticeText() const
{
    QString text;
    for (const QString& notice : notices)
        text += QObject::tr("%1\n").arg(notice);
    return text;
}

} // namespace vantrel

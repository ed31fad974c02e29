// The life of a report: creation from a definition, the latch, notices.
#include "api/custom_report.h"
#include "api/process_setup.h"
#include "api/utf8_text.h"
#include "definition/compiled_in_schema.h"

#include <QObject>

#include <exception>
#include <memory>

namespace vantrel {

using report::ReportDefinition;
using report::ReportIdScheme;

CustomReport::CustomReport(const char* xmlLayout)
{
    if (setUpProcess() && loadDefinition(xmlLayout))
        setUpMetrics();
}

CustomReport::CustomReport(const ReportDefinition& definition) : ReportDefinition(definition)
{
    if (setUpProcess())
        setUpMetrics();
}

bool CustomReport::loadDefinition(const char* xmlLayout)
{
    if (!xmlLayout) {
        setError("xml layout buffer pointer is null");
        return false;
    }
    if (checkLength(xmlLayout, "report definition") != VANTREL_OK)
        return false;
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

int CustomReport::checkLength(const char* text, const char* what)
{
    if (!isTooLong(text))
        return VANTREL_OK;
    setError("%s is longer than %zu bytes", what, longestText);
    return VANTREL_INVALID_TEXT;
}

int CustomReport::checkText(const char* text, const char* what)
{
    if (const int code = checkLength(text, what))
        return code;
    if (!isValidUtf8(text)) {
        setError("invalid UTF-8 sequence found in %s", what);
        return VANTREL_INVALID_TEXT;
    }
    return VANTREL_OK;
}

QString CustomReport::noticeText() const
{
    QString text;
    for (const QString& notice : notices)
        text += QObject::tr("%1\n").arg(notice);
    return text;
}

} // namespace vantrel

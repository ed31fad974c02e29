// Advice: texts that the caller adds to the run, to summary entries and to subsections.
#include "api/custom_report.h"
#include "definition/metric_ids.h"
#include "host/process_end.h"
#include "html/html_text.h"

namespace vantrel {

using namespace report;

namespace {

/// The form in which advice keys are looked up. For an id outside ASCII it isn't the key that was
/// declared, so the advice is refused.
QString storedKey(const QString& key)
{
    return QString::fromLatin1(key.toUtf8());
}

} // namespace

int CustomReport::checkAdvice(const char* advice)
{
    if (const int code = checkText(advice, "advice string"))
        return code;
    if (processEnds()) {
        setError("the process is ending: advice can't be checked any more");
        return VANTREL_EXCEPTION;
    }
    if (!validateHtml(QString::fromUtf8(advice))) {
        setError("invalid HTML sequence found in advice string");
        return VANTREL_INVALID_TEXT;
    }
    return VANTREL_OK;
}

int CustomReport::setDominantMetricAdvice(const char* advice)
{
    if (!advice) {
        setError("null advice string found when setting dominant metric advice");
        return VANTREL_NULL_STRING;
    }
    if (const int code = checkAdvice(advice))
        return code;
    return setMetricValue(QLatin1String(ids::overviewAdvice), QString::fromUtf8(advice),
                          RejectUnknown);
}

int CustomReport::setSummaryAdviceFromCaller(const char* entryId, const char* advice)
{
    if (!advice) {
        setError("null advice string found when trying to set summary entry advice");
        return VANTREL_NULL_STRING;
    }
    if (const int code = checkAdvice(advice))
        return code;
    if (const int code = checkLength(entryId, "summary entry ID"))
        return code;
    return setSummaryEntryAdvice(QString::fromUtf8(entryId), QString::fromUtf8(advice));
}

int CustomReport::setSectionAdviceFromCaller(const char* sectionId, const char* advice)
{
    if (!advice) {
        setError("null advice string found when setting section advice");
        return VANTREL_NULL_STRING;
    }
    if (const int code = checkText(sectionId, "section ID"))
        return code;
    if (const int code = checkAdvice(advice))
        return code;
    return setSubsectionAdvice(QString::fromUtf8(sectionId), 1, QString::fromUtf8(advice));
}

int CustomReport::setSummaryEntryAdvice(const QString& entryId, const QString& advice)
{
    if (!hasSummaryEntry(entryId)) {
        setError("no summary entry found with ID: \"%s\"", entryId.toUtf8().constData());
        return VANTREL_UNKNOWN_SUMMARY_ENTRY;
    }
    return setMetricValue(storedKey(summaryAdviceKey(entryId, idScheme())), advice, RejectUnknown);
}

int CustomReport::setSubsectionAdvice(const QString& id, int number, const QString& advice)
{
    const int slotCount = adviceSlotCount(id);
    if (!hasSubsection(id))
        return VANTREL_UNKNOWN_SECTION;
    const QByteArray utf8Id = id.toUtf8();
    if (number < 1) {
        setError("bad advice string number (%d) for subsection with ID \"%s\".Advice string "
                 "indexing starts at '1'.",
                 number, utf8Id.constData());
        return VANTREL_INVALID_ADVICE_NUMBER;
    }
    if (number > slotCount) {
        setError("bad advice string number (%d) for subsection with ID \"%s\".Expected number in "
                 "range %d..%d",
                 number, utf8Id.constData(), 1, slotCount);
        return VANTREL_INVALID_ADVICE_NUMBER;
    }
    return setMetricValue(storedKey(subsectionAdviceKey(id, idScheme(), number)), advice,
                          RejectUnknown);
}

int CustomReport::setSubsectionAdvices(const QString& id, const QStringList& advices)
{
    const int count = adviceSlotCount(id);
    if (!hasSubsection(id))
        return VANTREL_UNKNOWN_SECTION;
    for (int i = 0; i < count; ++i) {
        const int code =
            setSubsectionAdvice(id, i + 1, i < advices.size() ? advices.at(i) : QLatin1String(""));
        if (code != VANTREL_OK)
            return code;
    }
    return VANTREL_OK;
}

int CustomReport::adviceSlotCount(const QString& id)
{
    if (!hasSubsection(id)) {
        setError("subsection with ID \"%s\" was not found", id.toUtf8().constData());
        return -1;
    }
    return subsection(id).maxAdviceStrings;
}

} // namespace vantrel

#include "definition/record_merging.h"

namespace vantrel::report {

namespace {

bool isGiven(const QString& text)
{
    return !text.isEmpty();
}

bool isGiven(const Colour& colour)
{
    return colour.isValid();
}

/// Numbers and choices, whose 0 stands for what isn't said.
template <typename Number>
bool isGiven(Number number)
{
    return number != Number{};
}

template <typename Field>
void replaceIfGiven(Field* earlier, const Field& later)
{
    if (isGiven(later))
        *earlier = later;
}

} // namespace

bool mergeRecord(ReportMetric* earlier, const ReportMetric& later)
{
    if (earlier->id != later.id)
        return false;
    replaceIfGiven(&earlier->displayName, later.displayName);
    replaceIfGiven(&earlier->units, later.units);
    replaceIfGiven(&earlier->breakdownSubsection, later.breakdownSubsection);
    replaceIfGiven(&earlier->source, later.source);
    replaceIfGiven(&earlier->metricRef, later.metricRef);
    replaceIfGiven(&earlier->colour, later.colour);
    replaceIfGiven(&earlier->sampleValue, later.sampleValue);
    replaceIfGiven(&earlier->aggregation, later.aggregation);
    return true;
}

bool mergeRecord(Subsection* earlier, const Subsection& later)
{
    if (earlier->id != later.id)
        return false;
    replaceIfGiven(&earlier->heading, later.heading);
    replaceIfGiven(&earlier->colour, later.colour);
    replaceIfGiven(&earlier->text, later.text);
    replaceIfGiven(&earlier->requirement, later.requirement);
    replaceIfGiven(&earlier->order, later.order);
    earlier->maxAdviceStrings = qMax(earlier->maxAdviceStrings, later.maxAdviceStrings);
    earlier->entries += later.entries;
    return true;
}

} // namespace vantrel::report

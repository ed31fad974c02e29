#include "definition/record_merging.h"

namespace vantrel::report {

namespace {

void takeGiven(QString* earlier, const QString& later)
{
    if (!later.isEmpty())
        *earlier = later;
}

void takeGiven(Colour* earlier, const Colour& later)
{
    if (later.isValid())
        *earlier = later;
}

void takeGiven(int* earlier, int later)
{
    if (later != 0)
        *earlier = later;
}

} // namespace

bool mergeRecord(ReportMetric* earlier, const ReportMetric& later)
{
    if (earlier->id != later.id)
        return false;
    takeGiven(&earlier->displayName, later.displayName);
    takeGiven(&earlier->units, later.units);
    takeGiven(&earlier->breakdownSubsection, later.breakdownSubsection);
    takeGiven(&earlier->source, later.source);
    takeGiven(&earlier->metricRef, later.metricRef);
    takeGiven(&earlier->colour, later.colour);
    takeGiven(&earlier->sampleValue, later.sampleValue);
    takeGiven(&earlier->aggregation, later.aggregation);
    return true;
}

bool mergeRecord(Subsection* earlier, const Subsection& later)
{
    if (earlier->id != later.id)
        return false;
    takeGiven(&earlier->heading, later.heading);
    takeGiven(&earlier->colour, later.colour);
    takeGiven(&earlier->text, later.text);
    takeGiven(&earlier->requires, later.requires);
    takeGiven(&earlier->order, later.order);
    earlier->maxAdviceStrings = qMax(earlier->maxAdviceStrings, later.maxAdviceStrings);
    earlier->entries += later.entries;
    return true;
}

} // namespace vantrel::report

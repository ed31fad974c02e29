#pragma once

#include <QString>

namespace vantrel {

/// A value in flat form, under a name that is unique among all tools.
struct MetricRecord {
    QString id;    ///< "com.corvane." and the place of the value
    QString value; ///< as metricValueText() writes it
    QString type;  ///< the storage that the value takes
    QString units;
    QString displayName;

    bool operator==(const MetricRecord& other) const;
    bool operator!=(const MetricRecord& other) const { return !(*this == other); }
};

} // namespace vantrel

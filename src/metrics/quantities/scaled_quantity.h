#pragma once

#include "metrics/quantities/dynamic_number.h"
#include "metrics/quantities/unit.h"

#include <QString>

namespace vantrel {

/// A quantity with the prefix that suits it, of a unit such as "B" or "bytes/s".
struct ScaledQuantity {
    /// @param unitText a unit, or two with a "/" between them; a text with more of them has no
    /// units
    /// @param system   the system of prefixes that the caller wants, or NoSystem
    ScaledQuantity(const QString& unitText, DynamicNumber quantity, int system);

    /// The units to show; the denominator is always in the singular.
    QString text() const;

    DynamicNumber value; ///< the quantity times the factor
    double factor = 1.0; ///< the prefix chosen in terms of the one given: 1024 for B shown as KiB
    Unit numerator;
    Unit denominator; ///< empty for a unit without "/"
};

/// Finds the units in which to show a value, and their factor: the prefix chosen in terms of the
/// one given, so that 2048 bytes give kibibytes and 1024. Who shows the value divides it by that.
/// Values below 1 stay as they are unless they are of "second" or "seconds".
void fitUnits(const QString& unitText, DynamicNumber value, QString& outUnits, double& outFactor,
              int requestedSystem);

} // namespace vantrel

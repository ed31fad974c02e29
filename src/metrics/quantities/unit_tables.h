#pragma once

#include "metrics/quantities/unit.h"

#include <QVector>

namespace vantrel {

/// All prefixes, in the order in which a text is compared with them.
const QVector<UnitPrefix>& unitPrefixes();
/// All known units, in the order in which a text is compared with them.
const QVector<BaseUnit>& baseUnits();
/// The prefix of a system with an exponent; one that isn't valid if there is none.
UnitPrefix findUnitPrefix(int exponent, int system);

} // namespace vantrel

#include "metrics/quantities/scaled_quantity.h"

#include <QObject>
#include <QStringList>

#include <cmath>

namespace vantrel {

ScaledQuantity::ScaledQuantity(const QString& unitText, DynamicNumber quantity, int system)
    : value(quantity)
{
    const QStringList parts = unitText.split(u'/');
    if (parts.size() <= 2)
        numerator = Unit(parts.first(), system);
    if (parts.size() == 2)
        denominator = Unit(parts.last(), system);
    // An empty unit would get the empty prefix, and be empty no longer.
    if (!numerator.isEmpty()) {
        factor = numerator.scaleFor(quantity);
        numerator.adjustPrefix(quantity);
    }
    if (!denominator.isEmpty()) {
        factor /= denominator.scaleFor(1.0);
        denominator.resetPrefix();
    }
    value *= factor;
}

QString ScaledQuantity::text() const
{
    const double size = std::abs(value.toDouble());
    const double tolerance = size < 1.0 ? 1e-12 * size : 1e-12;
    QString above = numerator.text(std::abs(size - 1.0) <= tolerance);
    if (denominator.isEmpty())
        return above;
    return QObject::tr("%1/%2").arg(above, denominator.text(true));
}

void fitUnits(const QString& unitText, DynamicNumber value, QString& outUnits, double& outFactor,
              int requestedSystem)
{
    const bool isTime = unitText == QLatin1String("second") || unitText == QLatin1String("seconds");
    if (!isTime && value < 1.0) {
        outUnits = unitText;
        outFactor = 1.0;
        return;
    }
    const ScaledQuantity quantity(unitText, value, requestedSystem);
    outUnits = quantity.text();
    outFactor = quantity.factor;
}

} // namespace vantrel

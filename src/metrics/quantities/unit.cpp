#include "metrics/quantities/unit.h"

#include "metrics/quantities/unit_tables.h"

#include <algorithm>
#include <cmath>

namespace vantrel {

namespace {

/// Only a unit that we don't know stands apart from its prefix.
QString joined(const QString& prefix, const QString& unit, int kind)
{
    const bool isApart = !prefix.isEmpty() && kind == BaseUnit::Unknown;
    return isApart ? prefix + u' ' + unit : prefix + unit;
}

BaseUnit unknownUnit(const QString& text)
{
    return {text, text, text, -8, 8, BaseUnit::Unknown, NoSystem};
}

} // namespace

Unit::Unit(const QString& text, int system) : requestedSystem(system)
{
    if (!readKnown(text))
        readUnknown(text);
}

bool Unit::readKnown(const QString& text)
{
    const auto readRest = [&](const UnitPrefix& row, int length, bool isSymbol) {
        const QStringRef rest = text.midRef(length);
        const auto found =
            std::find_if(baseUnits().begin(), baseUnits().end(), [&](const BaseUnit& unit) {
                return isSymbol ? rest == unit.symbol
                                : rest == unit.singular || rest == unit.plural;
            });
        if (found == baseUnits().end())
            return false;
        prefix = row;
        base = *found;
        useSymbol = isSymbol;
        return true;
    };
    return std::any_of(unitPrefixes().begin(), unitPrefixes().end(), [&](const UnitPrefix& row) {
        return (text.startsWith(row.symbol) && readRest(row, row.symbol.size(), true)) ||
               (text.startsWith(row.name) && readRest(row, row.name.size(), false));
    });
}

void Unit::readUnknown(const QString& text)
{
    const int space = text.indexOf(u' ');
    if (space < 0) {
        prefix = findUnitPrefix(0, requestedSystem);
        base = unknownUnit(text);
        return;
    }
    const QString first = text.left(space);
    for (const UnitPrefix& row : unitPrefixes()) {
        if (first != row.symbol && first != row.name)
            continue;
        prefix = row;
        base = unknownUnit(text.mid(space + 1));
        useSymbol = first == row.symbol;
        return;
    }
}

int Unit::system() const
{
    for (const int candidate : {prefix.system, requestedSystem, base.defaultSystem}) {
        if (candidate != NoSystem)
            return candidate;
    }
    return SiSystem;
}

double Unit::radix() const
{
    switch (system()) {
    case SiSystem:
        return 1000.0;
    case IecSystem:
        return 1024.0;
    default:
        return 1.0;
    }
}

int Unit::bestExponent(DynamicNumber quantity) const
{
    int exponent = prefix.exponent;
    for (; quantity >= radix() && exponent < base.maxExponent; ++exponent)
        quantity /= radix();
    for (; quantity != 0 && quantity < 1.0 && exponent > base.minExponent; --exponent)
        quantity *= radix();
    return exponent;
}

double Unit::scaleFor(DynamicNumber quantity) const
{
    return std::pow(radix(), bestExponent(quantity) - prefix.exponent);
}

void Unit::adjustPrefix(DynamicNumber quantity)
{
    prefix = findUnitPrefix(bestExponent(quantity), system());
}

void Unit::resetPrefix()
{
    prefix = findUnitPrefix(0, system());
}

QString Unit::text(bool singular) const
{
    if (useSymbol)
        return joined(prefix.symbol, base.symbol, base.kind);
    return joined(prefix.name, singular ? base.singular : base.plural, base.kind);
}

} // namespace vantrel

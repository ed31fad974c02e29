#include "metrics/quantities/unit_tables.h"

namespace vantrel {

namespace {

struct PrefixRow {
    const char* symbol;
    const char* name;
    int exponent;
    PrefixSystem system;
};

// clang-format off
constexpr PrefixRow prefixRows[] = {
    {"", "", 0, NoSystem},
    {"y", "yocto", -8, SiSystem},
    {"z", "zepto", -7, SiSystem},
    {"a", "atto", -6, SiSystem},
    {"f", "femto", -5, SiSystem},
    {"p", "pico", -4, SiSystem},
    {"n", "nano", -3, SiSystem},
    {"\u00b5", "micro", -2, SiSystem},
    {"m", "milli", -1, SiSystem},
    {"", "", 0, SiSystem},
    {"k", "kilo", 1, SiSystem},
    {"M", "mega", 2, SiSystem},
    {"G", "giga", 3, SiSystem},
    {"T", "tera", 4, SiSystem},
    {"P", "peta", 5, SiSystem},
    {"E", "exa", 6, SiSystem},
    {"Z", "zetta", 7, SiSystem},
    {"Y", "yotta", 8, SiSystem},
    {"", "", 0, IecSystem},
    {"Ki", "kibi", 1, IecSystem},
    {"Mi", "mebi", 2, IecSystem},
    {"Gi", "gibi", 3, IecSystem},
    {"Ti", "tebi", 4, IecSystem},
    {"Pi", "pebi", 5, IecSystem},
    {"Ei", "exbi", 6, IecSystem},
    {"Zi", "zebi", 7, IecSystem},
    {"Yi", "yobi", 8, IecSystem},
};
// clang-format on

struct BaseRow {
    const char* symbol;
    const char* singular;
    const char* plural;
    int minExponent;
    int maxExponent;
    PrefixSystem defaultSystem;
};

// clang-format off
constexpr BaseRow baseRows[] = {
    {"W", "watt", "watts", -8, 8, SiSystem},
    {"Wh", "watt-hour", "watt-hours", -8, 8, SiSystem},
    {"J", "Joule", "joules", -8, 8, SiSystem},
    {"s", "second", "seconds", -8, 0, SiSystem},
    {"B", "byte", "bytes", 0, 8, IecSystem},
};
// clang-format on

QVector<UnitPrefix> makePrefixes()
{
    QVector<UnitPrefix> prefixes;
    for (const PrefixRow& row : prefixRows) {
        prefixes.append({QString::fromUtf8(row.symbol), QString::fromUtf8(row.name), row.exponent,
                         1, row.system});
    }
    return prefixes;
}

QVector<BaseUnit> makeBaseUnits()
{
    QVector<BaseUnit> units;
    for (const BaseRow& row : baseRows) {
        units.append({QString::fromUtf8(row.symbol), QString::fromUtf8(row.singular),
                      QString::fromUtf8(row.plural), row.minExponent, row.maxExponent,
                      BaseUnit::Known, row.defaultSystem});
    }
    return units;
}

} // namespace

const QVector<UnitPrefix>& unitPrefixes()
{
    static const QVector<UnitPrefix> prefixes = makePrefixes();
    return prefixes;
}

const QVector<BaseUnit>& baseUnits()
{
    static const QVector<BaseUnit> units = makeBaseUnits();
    return units;
}

UnitPrefix findUnitPrefix(int exponent, int system)
{
    for (const UnitPrefix& prefix : unitPrefixes()) {
        if (prefix.exponent == exponent && prefix.system == system)
            return prefix;
    }
    return UnitPrefix();
}

} // namespace vantrel

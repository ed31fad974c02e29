#include "metrics/quantities/scaled_quantity.h"
#include "metrics/quantities/unit.h"
#include "metrics/quantities/unit_tables.h"
#include "warnings.h"

#include <gtest/gtest.h>

#include <limits>
#include <utility>
#include <vector>

using namespace vantrel;

namespace {

using Unsigned = std::numeric_limits<quint64>;

const double infinity = std::numeric_limits<double>::infinity();
const double notANumber = std::numeric_limits<double>::quiet_NaN();

/// The prefix with exponent and system, the base with its kind, the use of symbols, radix and text.
std::string shown(const Unit& unit)
{
    const QStringList parts({unit.prefix.symbol + QString::number(unit.prefix.exponent) + '/' +
                                 QString::number(unit.prefix.system),
                             unit.isEmpty() ? "-" : unit.base.symbol,
                             QString::number(unit.base.kind), QString::number(unit.useSymbol),
                             QString::number(unit.radix()), unit.text(false)});
    return parts.join('|').toStdString();
}

} // namespace

TEST(Unit, readsTexts)
{
    const std::tuple<const char*, int, const char*> rows[] = {
        {"B", 1, "0/0|B|1|1|1000|B"},
        {"bytes", 0, "0/0|B|1|0|1024|bytes"},
        {"kB", 2, "k1/1|B|1|1|1000|kB"},
        {"KiB", 0, "Ki1/2|B|1|1|1024|KiB"},
        {"kibibytes", 0, "Ki1/2|B|1|0|1024|kibibytes"},
        {"Wh", 0, "0/0|Wh|1|1|1000|Wh"},
        {"KB", 0, "0/0|KB|2|1|1000|KB"},
        {"Kbytes", 2, "0/2|Kbytes|2|1|1024|Kbytes"},
        {"processes", 7, "0/0|processes|2|1|1|processes"},
        {"kilo things more", 0, "k1/1|things more|2|0|1000|kilo things more"},
        {"Gi B", 0, "Gi3/2|B|2|1|1024|Gi B"},
        {"many things", 2, "0/0|-|0|1|1024|"},
    };
    for (const auto& [text, system, expected] : rows)
        EXPECT_EQ(shown(Unit(text, system)), expected) << text;
    EXPECT_TRUE(Unit().isEmpty());
}

TEST(Unit, knowsPrefixesAndBases)
{
    QString rows;
    for (const UnitPrefix& row : unitPrefixes()) {
        rows += row.symbol + ' ' + row.name + QString(" %1 %2,").arg(row.exponent).arg(row.system);
    }
    for (const BaseUnit& row : baseUnits()) {
        rows += row.symbol + ' ' + row.singular + ' ' + row.plural + ' ';
        rows +=
            QString("%1 %2 %3,").arg(row.minExponent).arg(row.maxExponent).arg(row.defaultSystem);
    }
    EXPECT_EQ(rows.toStdString(),
              "  0 0,y yocto -8 1,z zepto -7 1,a atto -6 1,f femto -5 1,p pico -4 1,"
              "n nano -3 1,\xC2\xB5 micro -2 1,m milli -1 1,  0 1,k kilo 1 1,M mega 2 1,"
              "G giga 3 1,T tera 4 1,P peta 5 1,E exa 6 1,Z zetta 7 1,Y yotta 8 1,  0 2,"
              "Ki kibi 1 2,Mi mebi 2 2,Gi gibi 3 2,Ti tebi 4 2,Pi pebi 5 2,Ei exbi 6 2,"
              "Zi zebi 7 2,Yi yobi 8 2,W watt watts -8 8 1,Wh watt-hour watt-hours -8 8 1,"
              "J Joule joules -8 8 1,s second seconds -8 0 1,B byte bytes 0 8 2,");
}

TEST(Unit, findsTheBestExponent)
{
    const std::pair<const char*, std::vector<std::pair<DynamicNumber, int>>> rows[] = {
        {"B", {{1023, 0}, {1024, 1}, {0.5, 0}, {1e300, 8}, {Unsigned::max(), 6}}},
        {"kB", {{0.5, 0}, {{}, 1}}},
        {"MiB", {{0, 2}, {0.0001, 0}}},
        {"s", {{5000, 0}, {0.001, -1}, {1e-300, -8}}},
        {"ms", {{5e9, 0}, {1500, 0}}},
        {"ns", {{1500, -2}}},
        {"ks", {{5, 1}}},
        {"W", {{1, 0}, {-5, -8}, {infinity, 8}, {-infinity, -8}, {notANumber, 0}}},
        {"things", {{1e7, 2}, {1e30, 8}, {1e-30, -8}}},
    };
    for (const auto& [text, exponents] : rows) {
        for (const auto& [quantity, exponent] : exponents)
            EXPECT_EQ(Unit(text, 0).bestExponent(quantity), exponent)
                << text << ' ' << quantity.toString().toStdString();
    }
    EXPECT_EQ(Unit("MiB", 0).scaleFor(0.5), 1 / 1024.0);
    Unit unit("processes", 7);
    unit.adjustPrefix(5);
    EXPECT_EQ(unit.prefix.valid, 0) << "a system that there isn't";
    unit = Unit("Gi things", 0);
    unit.resetPrefix();
    EXPECT_TRUE(unit.prefix.exponent == 0 && unit.prefix.system == IecSystem);
}

TEST(FitUnits, givesUnitsAndFactor)
{
    const std::tuple<const char*, double, int, const char*, double> rows[] = {
        {"bytes/s", 2048, 0, "kibibytes/s", 1024},
        {"B/s", 2048, 1, "kB/s", 1000},
        {"bytes/seconds", 5, 0, "bytes/second", 1},
        {"B/ms", 5, 0, "B/s", 1},
        {"cores/node", 2000, 0, "k cores/node", 1000},
        {"a/b/c", 5, 0, "", 1},
        {"a%2/b", 5, 0, "a%2/b", 1},
        {"joules", 1, 0, "Joule", 1},
        {"byte", 1 + 1e-13, 0, "byte", 1},
        {"byte", 1 + 1e-11, 0, "bytes", 1},
        {"seconds", 0.001, 0, "milliseconds", 0.001},
        {"second", 0.5, 0, "milliseconds", 0.001},
        {"s", 0.001, 0, "s", 1},
    };
    for (const auto& [units, quantity, system, text, expected] : rows) {
        QString shown;
        double factor = 0;
        fitUnits(units, quantity, shown, factor, system);
        EXPECT_EQ(shown.toStdString(), text) << units;
        EXPECT_EQ(factor, expected) << units;
    }
}

TEST(ScaledQuantity, isTheQuantityTimesTheFactor)
{
    EXPECT_EQ(ScaledQuantity("M things/Ki B", 1000, 0).value.toDouble(), 1e6);
    const ScaledQuantity none("a/b/c", 5, 0);
    EXPECT_TRUE(none.numerator.isEmpty() && none.denominator.isEmpty());
    EXPECT_EQ(ScaledQuantity("B/s", 1, 2).denominator.requestedSystem, 2);
    EXPECT_EQ(ScaledQuantity("bytes", -1, 0).text(), "byte");
    EXPECT_EQ(warningsOf([] { EXPECT_EQ(ScaledQuantity("B", {}, 0).text(), "B"); }),
              QStringList("unsupported datatype"));
}

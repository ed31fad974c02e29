#include "metrics/scaled_quantity.h"
#include "metrics/unit.h"
#include "metrics/unit_tables.h"
#include "warnings.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>

using namespace vantrel;

namespace {

using Double = std::numeric_limits<double>;

struct UnitRow {
    const char* text;
    int system;
    const char* prefix; ///< the prefix's symbol and exponent
    const char* base;   ///< the base's symbol; null for an empty unit
    int kind;
    bool useSymbol;
    int radix;
    const char* plural; ///< the text to show
};

const UnitRow unitRows[] = {
    {"B", 0, "0", "B", 1, true, 1024, "B"},
    {"B", 1, "0", "B", 1, true, 1000, "B"},
    {"bytes", 0, "0", "B", 1, false, 1024, "bytes"},
    {"byte", 0, "0", "B", 1, false, 1024, "bytes"},
    {"kB", 0, "k1", "B", 1, true, 1000, "kB"},
    {"kB", 2, "k1", "B", 1, true, 1000, "kB"},
    {"KiB", 0, "Ki1", "B", 1, true, 1024, "KiB"},
    {"PiB", 0, "Pi5", "B", 1, true, 1024, "PiB"},
    {"kibibytes", 0, "Ki1", "B", 1, false, 1024, "kibibytes"},
    {"megabyte", 0, "M2", "B", 1, false, 1000, "megabytes"},
    {"ms", 0, "m-1", "s", 1, true, 1000, "ms"},
    {"\xC2\xB5s", 0, "\xC2\xB5-2", "s", 1, true, 1000, "\xC2\xB5s"},
    {"Wh", 0, "0", "Wh", 1, true, 1000, "Wh"},
    {"kilowatt-hours", 0, "k1", "Wh", 1, false, 1000, "kilowatt-hours"},
    {"Joule", 0, "0", "J", 1, false, 1000, "joules"},
    {"joule", 0, "0", "joule", 2, true, 1000, "joule"},
    {"KB", 0, "0", "KB", 2, true, 1000, "KB"},
    {"Kbytes", 2, "0", "Kbytes", 2, true, 1024, "Kbytes"},
    {"processes", 1, "0", "processes", 2, true, 1000, "processes"},
    {"processes", 7, "0", "processes", 2, true, 1, "processes"},
    {"k", 0, "0", "k", 2, true, 1000, "k"},
    {"k things", 0, "k1", "things", 2, true, 1000, "k things"},
    {"kilo things more", 0, "k1", "things more", 2, false, 1000, "kilo things more"},
    {"Gi B", 0, "Gi3", "B", 2, true, 1024, "Gi B"},
    {" things", 0, "0", "things", 2, true, 1000, "things"},
    {"", 0, "0", "", 2, true, 1000, ""},
    {"many things", 0, "0", nullptr, 0, true, 1000, ""},
    {"many things", 2, "0", nullptr, 0, true, 1024, ""},
};

} // namespace

TEST(Unit, readsTexts)
{
    for (const UnitRow& row : unitRows) {
        SCOPED_TRACE(row.text);
        const Unit unit(row.text, row.system);
        EXPECT_EQ(unit.isEmpty(), !row.base);
        EXPECT_EQ((unit.prefix.symbol + QString::number(unit.prefix.exponent)).toStdString(),
                  row.prefix);
        EXPECT_EQ(unit.base.symbol.toStdString(), row.base ? row.base : "");
        EXPECT_EQ(unit.base.kind, row.kind);
        EXPECT_EQ(unit.useSymbol, row.useSymbol);
        EXPECT_EQ(unit.radix(), row.radix);
        EXPECT_EQ(unit.text(false).toStdString(), row.plural);
    }
    EXPECT_TRUE(Unit().isEmpty());
    EXPECT_EQ(Unit("bytes", 0).text(true), "byte");
    EXPECT_EQ(Unit("joules", 0).text(true), "Joule");
}

TEST(Unit, readsBackEveryTextThatItShows)
{
    EXPECT_EQ(unitPrefixes().size(), 27);
    EXPECT_EQ(baseUnits().size(), 5);
    for (const UnitPrefix& prefix : unitPrefixes()) {
        EXPECT_EQ(findUnitPrefix(prefix.exponent, prefix.system).symbol, prefix.symbol);
        for (const BaseUnit& base : baseUnits()) {
            for (const bool useSymbol : {true, false}) {
                Unit unit;
                unit.prefix = prefix;
                unit.base = base;
                unit.useSymbol = useSymbol;
                for (const bool singular : {true, false}) {
                    const Unit again(unit.text(singular), unit.system());
                    SCOPED_TRACE(unit.text(singular).toStdString());
                    EXPECT_EQ(again.prefix.symbol, prefix.symbol);
                    EXPECT_EQ(again.prefix.exponent, prefix.exponent);
                    EXPECT_EQ(again.base.symbol, base.symbol);
                    EXPECT_EQ(again.useSymbol, useSymbol);
                    EXPECT_EQ(again.system(), unit.system());
                    EXPECT_EQ(again.text(singular), unit.text(singular));
                }
            }
        }
    }
}

TEST(Unit, findsTheBestExponent)
{
    const struct {
        const char* text;
        double quantity;
        int exponent;
    } rows[] = {
        {"bytes", 2048, 1},
        {"B", 1023, 0},
        {"B", 1024, 1},
        {"B", 0.5, 0},
        {"kB", 0.5, 0},
        {"MiB", 0.5, 1},
        {"MiB", 0.0001, 0},
        {"B", 1e300, 8},
        {"s", 5000, 0},
        {"s", 0.001, -1},
        {"ms", 5000, 0},
        {"ms", 5e9, 0},
        {"ns", 1500, -2},
        {"s", 1e-300, -8},
        {"MiB", 0, 2},
        {"W", -5, -8},
        {"B", -5, 0},
        {"things", 1e7, 2},
        {"things", 1e-7, -3},
        {"W", Double::infinity(), 8},
        {"W", -Double::infinity(), -8},
        {"kW", Double::quiet_NaN(), 1},
    };
    for (const auto& row : rows) {
        const Unit unit(row.text, 0);
        EXPECT_EQ(unit.bestExponent(row.quantity), row.exponent) << row.text << row.quantity;
        EXPECT_EQ(unit.scaleFor(row.quantity),
                  std::pow(unit.radix(), row.exponent - unit.prefix.exponent));
    }
    EXPECT_EQ(Unit("kB", 0).bestExponent(DynamicNumber()), 1) << "nothing to compare";
    EXPECT_EQ(Unit("B", 0).bestExponent(std::numeric_limits<quint64>::max()), 6);
    Unit unit("processes", 7);
    unit.adjustPrefix(5);
    EXPECT_EQ(unit.prefix.valid, 0) << "a system that there isn't";
    unit = Unit("GiB", 0);
    unit.resetPrefix();
    EXPECT_EQ(unit.text(false), "B");
    EXPECT_EQ(unit.radix(), 1024.0);
}

TEST(ScaledQuantity, showsBothUnits)
{
    const struct {
        const char* units;
        double quantity;
        int system;
        const char* text;
    } rows[] = {
        {"bytes/s", 1, 0, "byte/s"},
        {"bytes/s", 2, 0, "bytes/s"},
        {"bytes/s", 2048, 0, "kibibytes/s"},
        {"B/s", 2048, 1, "kB/s"},
        {"bytes/seconds", 5, 0, "bytes/second"},
        {"B/ms", 5, 0, "B/s"},
        {"cores/node", 2, 0, "cores/node"},
        {"cores/node", 2000, 0, "k cores/node"},
        {"J", 2e6, 0, "MJ"},
        {"a/b/c", 5, 0, ""},
        {"many things", 5, 0, ""},
        {"B/", 5, 0, "B/"},
        {"byte", 1 + 1e-13, 0, "byte"},
        {"byte", 1 + 1e-11, 0, "bytes"},
        {"byte", -1, 0, "byte"},
        {"byte", 0, 0, "bytes"},
        {"byte", Double::quiet_NaN(), 0, "bytes"},
    };
    for (const auto& row : rows) {
        const ScaledQuantity quantity(row.units, row.quantity, row.system);
        EXPECT_EQ(quantity.text().toStdString(), row.text) << row.units << row.quantity;
    }
    const ScaledQuantity none("a/b/c", 5, 0);
    EXPECT_TRUE(none.numerator.isEmpty() && none.denominator.isEmpty());
    EXPECT_EQ(none.factor, 1.0);
    EXPECT_EQ(warningsOf([] { EXPECT_EQ(ScaledQuantity("B", {}, 0).text(), "B"); }),
              QStringList("unsupported datatype"));
}

TEST(ScaledQuantity, isTheQuantityTimesTheFactor)
{
    const double quantities[] = {0,
                                 1,
                                 -1,
                                 0.001,
                                 999,
                                 1000,
                                 1024,
                                 1e9,
                                 -1e9,
                                 1e-30,
                                 1e308,
                                 Double::denorm_min(),
                                 Double::infinity()};
    for (const char* units : {"B", "kB", "seconds", "ms/B", "GiB/s", "things", "M things/Ki B"}) {
        for (const int system : {0, 1, 2, 7}) {
            for (const double number : quantities) {
                const Unit given = Unit(QString(units).section('/', 0, 0), system);
                const ScaledQuantity quantity(units, number, system);
                SCOPED_TRACE(std::string(units) + ' ' + std::to_string(number));
                EXPECT_EQ(quantity.value.toDouble(), number * quantity.factor);
                EXPECT_EQ(quantity.factor, std::pow(given.radix(), given.bestExponent(number) -
                                                                       given.prefix.exponent));
                QString shown;
                double factor = 0;
                fitUnits(units, number, shown, factor, system);
                const bool stays = number < 1 && QLatin1String(units) != QLatin1String("seconds");
                EXPECT_EQ(factor, stays ? 1.0 : quantity.factor);
                EXPECT_EQ(shown, stays ? QString(units) : quantity.text());
            }
        }
    }
}

TEST(FitUnits, scalesSmallValuesOfSecondsOnly)
{
    const struct {
        const char* units;
        double value;
        const char* shown;
        double factor;
    } rows[] = {
        {"seconds", 0.001, "milliseconds", 0.001},
        {"second", 0.5, "milliseconds", 0.001},
        {"s", 0.001, "s", 1},
        {"bytes", 0.001, "bytes", 1},
        {"seconds", 5000, "seconds", 1},
        {"a/b/c", 0.5, "a/b/c", 1},
        {"a/b/c", 5, "", 1},
        {"bytes", 2048, "kibibytes", 1024},
    };
    for (const auto& row : rows) {
        QString shown;
        double factor = 0;
        fitUnits(row.units, row.value, shown, factor, 0);
        EXPECT_EQ(shown.toStdString(), row.shown);
        EXPECT_EQ(factor, row.factor);
    }
}

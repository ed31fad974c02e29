#include "definition/color_string.h"
#include "definition/definition_text.h"

#include <gtest/gtest.h>

using namespace vantrel::report;

TEST(ColorString, readsColors)
{
    const std::pair<const char*, QColor> rows[] = {
        {"#f00", QColor(255, 0, 0)},
        {"#0000fF", QColor(0, 0, 255)},
        {"#fff000000", QColor(255, 0, 0)},
        {"#0000ffff0000", QColor(0, 255, 0)},
        {"ForestGreen", QColor(34, 139, 34)},
        {"rgb(255,255,255)", QColor(255, 255, 255)},
        {"rgb( 1 ,\t2\n, -0 )", QColor(1, 2, 0)},
        {"rgb(007,2,99999999999)", QColor(7, 2, 0)},
        {"rgb(0,-99999999999,3)", QColor(0, 0, 3)},
        {"hsl(359,100,100)", QColor::fromHsl(359, 255, 255)},
        {"hsl(0,50,99)", QColor::fromHsl(0, 127, 252)},
        {"hsv(10,100,1)", QColor::fromHsv(10, 255, 2)},
        {"hsv(0,0,0)", QColor::fromHsv(0, 0, 0)},
    };
    for (const auto& [text, color] : rows) {
        SCOPED_TRACE(text);
        QString error;
        EXPECT_EQ(parseColor(text, &error), color);
        EXPECT_EQ(error, QString());
    }
}

TEST(ColorString, refusesWithAMessage)
{
    const char outOfRange[] =
        "Invalid %1 component '%2' in the colour string '%3'. Expected a value in the range 0-%4.";
    const char badPrefix[] = "Invalid format prefix '%1' in the colour string '%3'. Expected a "
                             "prefix of 'rgb', 'hsv', or 'hsl'.";
    const char badText[] =
        "Invalid colour string '%3'. Expected a hex code in the form #RGB, #RRGGBB, #RRRGGGBBB, "
        "#RRRRGGGGBBBB, a SVG colour name, or a string of the form hsv(H,S,V) or hsl(H,S,L) where "
        "H is in the range 0-359 and S, V and L are in the range 0-100.";
    const struct {
        const char* text;
        const char* message;
        const char* culprit;
        const char* number;
        const char* greatest;
    } rows[] = {
        {"rgb(256,-1,-1)", outOfRange, "red", "256", "255"},
        {"rgb(255, 00256 ,999)", outOfRange, "green", "256", "255"},
        {"rgb(0,0,-2147483648)", outOfRange, "blue", "-2147483648", "255"},
        {"hsl(360,101,0)", outOfRange, "hue", "360", "359"},
        {"hsl(0,100,101)", outOfRange, "lightness", "101", "100"},
        {"hsv(0,-5,0)", outOfRange, "saturation", "-5", "100"},
        {"hsv(0,0,255)", outOfRange, "value", "255", "100"},
        {"abc(1,2,3)", badPrefix, "abc", "", ""},
        {"RGB(1,2,3)", badPrefix, "RGB", "", ""},
        {"ab(1,2,3)", badText, "", "", ""},
        {"rgb(1,2,3) ", badText, "", "", ""},
        {"rgb(1.5,2,3)", badText, "", "", ""},
        {"rgb(1,2)", badText, "", "", ""},
        {"rgba(1,2,3,4)", badText, "", "", ""},
        {"#ggg", badText, "", "", ""},
        {"%1%2%3", badText, "", "", ""},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.text);
        QString error;
        EXPECT_FALSE(parseColor(row.text, &error).isValid());
        EXPECT_EQ(error.toStdString(), QString(row.message)
                                           .replace("%1", row.culprit)
                                           .replace("%2", row.number)
                                           .replace("%4", row.greatest)
                                           .replace("%3", row.text)
                                           .toStdString());
    }
}

TEST(ColorString, isOptionalInADefinition)
{
    const Loaded loaded =
        load(section("><entry reportMetric='a' colour=''/><entry reportMetric='a' "
                     "colour='rgb(1,2,3)'/></subsection>"));
    ASSERT_TRUE(loaded.definition);
    EXPECT_EQ(loaded.error, QString());
    const Subsection read = loaded.definition->subsection("s");
    EXPECT_FALSE(read.colour.isValid() || loaded.definition->metric("a").colour.isValid());
    EXPECT_FALSE(read.entries.at(0).colour.isValid());
    EXPECT_EQ(read.entries.at(1).colour, QColor(1, 2, 3));
}

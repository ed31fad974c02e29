#include "definition/reading/colour_string.h"

#include <QRegExp>
#include <QStringList>

#include "qt_printing.h"

#include <gtest/gtest.h>

#include <random>

using namespace vantrel::report;

TEST(ColourString, readsColoursAndRefusesWithAMessage)
{
    const QString outOfRange = "Invalid %1 component '%2' in the colour string '@'. "
                               "Expected a value in the range 0-%3.";
    const QString badPrefix = "Invalid format prefix 'RGB' in the colour string '@'. "
                              "Expected a prefix of 'rgb', 'hsv', or 'hsl'.";
    const QString badText =
        "Invalid colour string '@'. Expected a hex code in the form #RGB, #RRGGBB, #RRRGGGBBB, "
        "#RRRRGGGGBBBB, a SVG colour name, or a string of the form hsv(H,S,V) or hsl(H,S,L) where "
        "H is in the range 0-359 and S, V and L are in the range 0-100.";
    const std::pair<QString, QString> rows[] = {
        {"#0000ffff0000", "#00ff00"},
        {"ForestGreen", "#228b22"},
        {"rgb(255,255,255)", "#ffffff"},
        {"rgb( 1 ,\t2\n, -0 )", "#010200"},
        {"rgb(007,2,99999999999)", "#070200"},
        {QString::fromUtf8("rgb(1,\u00a0255,\u0663)"), "#01ff00"},
        {"hsl(359,100,51)", Colour::fromHsl(359, 255, 130).name()},
        {"hsl(0,50,99)", Colour::fromHsl(0, 127, 252).name()},
        {"hsv(10,50,100)", Colour::fromHsv(10, 127, 255).name()},
        {"rgb(256,-1,-1)", outOfRange.arg("red", "256", "255")},
        {"rgb(255, 00256 ,999)", outOfRange.arg("green", "256", "255")},
        {"rgb(0,0,-2147483648)", outOfRange.arg("blue", "-2147483648", "255")},
        {"hsl(360,101,0)", outOfRange.arg("hue", "360", "359")},
        {"hsl(0,101,0)", outOfRange.arg("saturation", "101", "100")},
        {"hsl(0,100,101)", outOfRange.arg("lightness", "101", "100")},
        {"hsv(360,0,0)", outOfRange.arg("hue", "360", "359")},
        {"hsv(0,-5,0)", outOfRange.arg("saturation", "-5", "100")},
        {"hsv(0,0,255)", outOfRange.arg("value", "255", "100")},
        {"RGB(1,2,3)", badPrefix},
        {"ab(1,2,3)", badText},
        {"rgb(1.5,2,3)", badText},
        {"rgb(1,2)", badText},
        {"rgb(1,2,3) ", badText},
        {"%1%2%3", badText},
    };
    for (const auto& [text, result] : rows) {
        QString error;
        const Colour colour = parseColour(text, &error);
        EXPECT_EQ(colour.isValid(), error.isEmpty());
        EXPECT_EQ(error.isEmpty() ? colour.name() : error, QString(result).replace("@", text));
    }
}

TEST(ColourString, takesForFunctionsWhatThePatternMatches)
{
    const QRegExp pattern(
        "^([a-zA-Z]{3})\\(\\s*(-?\\d+)\\s*,\\s*(-?\\d+)\\s*,\\s*(-?\\d+)\\s*\\)$");
    const QStringList right = QString("rgb|(| 1|\t,|-2 |,|  |3\n|)").split('|');
    const QStringList others =
        QString::fromUtf8("Abc|ab|\u00e9|(|)|,|1|22|-|--3| |\u00a0|\u0663|.|4,5||").split('|');
    std::mt19937 random(1);
    int matches = 0;
    for (int i = 0; i < 20000; ++i) {
        QString text;
        for (const QString& piece : right)
            text += random() % 6 ? piece : others.at(int(random() % unsigned(others.size())));
        QString error;
        parseColour(text, &error);
        const bool isFunction = !error.startsWith("Invalid colour string");
        const bool isMatch = pattern.indexIn(text) >= 0;
        ASSERT_EQ(isFunction, isMatch) << text.toStdString();
        matches += isMatch;
    }
    EXPECT_GT(matches, 1000);
}

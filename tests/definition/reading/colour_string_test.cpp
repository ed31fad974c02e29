#include "definition/reading/colour_string.h"

#include <QRegExp>
#include <QStringList>

#include <gtest/gtest.h>

#include <random>

using namespace vantrel::report;

namespace {

std::string described(const Colour& colour)
{
    return QString("%1 %2 %3 %4")
        .arg(colour.name())
        .arg(colour.hslHue())
        .arg(colour.hslSaturation())
        .arg(colour.lightness())
        .toStdString();
}

} // namespace

TEST(ColourString, readsColours)
{
    const std::pair<const char*, Colour> rows[] = {
        {"#0000fF", Colour::fromRgb(0, 0, 255)},
        {"#0000ffff0000", Colour::fromRgb(0, 255, 0)},
        {"ForestGreen", Colour::fromRgb(34, 139, 34)},
        {"rgb(255,255,255)", Colour::fromRgb(255, 255, 255)},
        {"rgb( 1 ,\t2\n, -0 )", Colour::fromRgb(1, 2, 0)},
        {"rgb(007,2,99999999999)", Colour::fromRgb(7, 2, 0)},
        {"hsl(359,100,100)", Colour::fromHsl(359, 255, 255)},
        {"hsl(0,50,99)", Colour::fromHsl(0, 127, 252)},
        {"hsv(10,100,1)", Colour::fromHsv(10, 255, 2)},
    };
    for (const auto& [text, colour] : rows) {
        SCOPED_TRACE(text);
        QString error;
        EXPECT_EQ(described(parseColour(text, &error)), described(colour));
        EXPECT_EQ(error, QString());
    }
}

TEST(ColourString, refusesWithAMessage)
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
        {"rgb(1,2,3) ", badText},
        {"rgb(1.5,2,3)", badText},
        {"rgb(1,2)", badText},
        {"%1%2%3", badText},
    };
    for (const auto& [text, message] : rows) {
        QString error;
        EXPECT_FALSE(parseColour(text, &error).isValid());
        EXPECT_EQ(error, QString(message).replace("@", text));
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

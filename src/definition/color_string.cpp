#include "definition/color_string.h"

#include <QObject>
#include <QRegExp>

namespace vantrel::report {

namespace {

constexpr char badHue[] =
    "Invalid hue component '%1' in the colour string '%2'. Expected a value in the range 0-359.";
constexpr char badSaturation[] = "Invalid saturation component '%1' in the colour string '%2'. "
                                 "Expected a value in the range 0-100.";
constexpr char badLightness[] = "Invalid lightness component '%1' in the colour string '%2'. "
                                "Expected a value in the range 0-100.";
constexpr char badValue[] =
    "Invalid value component '%1' in the colour string '%2'. Expected a value in the range 0-100.";
constexpr char badRed[] =
    "Invalid red component '%1' in the colour string '%2'. Expected a value in the range 0-255.";
constexpr char badGreen[] =
    "Invalid green component '%1' in the colour string '%2'. Expected a value in the range 0-255.";
constexpr char badBlue[] =
    "Invalid blue component '%1' in the colour string '%2'. Expected a value in the range 0-255.";

QColor fromHsl(int h, int s, int l)
{
    return QColor::fromHsl(h, s * 255 / 100, l * 255 / 100, 255);
}

QColor fromHsv(int h, int s, int v)
{
    return QColor::fromHsv(h, s * 255 / 100, v * 255 / 100, 255);
}

QColor fromRgb(int r, int g, int b)
{
    return QColor::fromRgb(r, g, b, 255);
}

struct Component {
    unsigned max;
    const char* message;
};

struct ColorFunction {
    const char* name;
    Component components[3];
    QColor (*make)(int, int, int);
};

constexpr ColorFunction colorFunctions[] = {
    {"hsl", {{359, badHue}, {100, badSaturation}, {100, badLightness}}, fromHsl},
    {"hsv", {{359, badHue}, {100, badSaturation}, {100, badValue}}, fromHsv},
    {"rgb", {{255, badRed}, {255, badGreen}, {255, badBlue}}, fromRgb},
};

QColor parseFunction(const ColorFunction& function, const QRegExp& match, const QString& text,
                     QString* error)
{
    int numbers[3];
    for (int i = 0; i < 3; ++i) {
        numbers[i] = match.cap(i + 2).toInt();
        // A negative number is beyond every bound when it is taken as unsigned.
        if (unsigned(numbers[i]) > function.components[i].max) {
            *error =
                QObject::tr(function.components[i].message).arg(QString::number(numbers[i]), text);
            return QColor();
        }
    }
    return function.make(numbers[0], numbers[1], numbers[2]);
}

QColor parseName(const QString& text, QString* error)
{
    QColor color;
    color.setNamedColor(text);
    if (!color.isValid()) {
        *error =
            QObject::tr("Invalid colour string '%1'. Expected a hex code in the form #RGB, "
                        "#RRGGBB, #RRRGGGBBB, #RRRRGGGGBBBB, a SVG colour name, or a string of the "
                        "form hsv(H,S,V) or hsl(H,S,L) where H is in the range 0-359 and S, V and "
                        "L are in the range 0-100.")
                .arg(text);
    }
    return color;
}

} // namespace

QColor parseColor(const QString& text, QString* error)
{
    static const QRegExp pattern(
        QStringLiteral("^([a-zA-Z]{3})\\(\\s*(-?\\d+)\\s*,\\s*(-?\\d+)\\s*,\\s*(-?\\d+)\\s*\\)$"));
    QRegExp match(pattern);
    if (match.indexIn(text) < 0)
        return parseName(text, error);
    const QString name = match.cap(1);
    for (const ColorFunction& function : colorFunctions) {
        if (name == QLatin1String(function.name))
            return parseFunction(function, match, text, error);
    }
    *error = QObject::tr("Invalid format prefix '%1' in the colour string '%2'. Expected a prefix "
                         "of 'rgb', 'hsv', or 'hsl'.")
                 .arg(name, text);
    return QColor();
}

} // namespace vantrel::report

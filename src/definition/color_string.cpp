#include "definition/color_string.h"

#include <QObject>

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

/// A colour in the form of a function: three letters and three whole numbers in brackets.
struct FunctionText {
    QString name;
    QStringRef numbers[3];
};

/// Reads a text from its start on.
class Reading {
public:
    explicit Reading(const QString& whole) : text(whole) {}

    QString letters(int count)
    {
        const int begin = at;
        while (at < text.size() && at < begin + count && text.at(at) < QChar(0x80) &&
               text.at(at).isLetter())
            ++at;
        return text.mid(begin, at - begin);
    }
    /// Digits, with or without a minus sign, and blanks around them.
    bool number(QStringRef* number)
    {
        skipBlanks();
        const int begin = at;
        skip(u'-');
        const int digits = at;
        while (at < text.size() && text.at(at).isDigit())
            ++at;
        *number = text.midRef(begin, at - begin);
        const bool found = at > digits;
        skipBlanks();
        return found;
    }
    bool skip(QChar c)
    {
        const bool found = at < text.size() && text.at(at) == c;
        at += found;
        return found;
    }
    bool isAtEnd() const { return at == text.size(); }

private:
    void skipBlanks()
    {
        while (at < text.size() && text.at(at).isSpace())
            ++at;
    }

    const QString& text;
    int at = 0;
};

bool readFunction(const QString& text, FunctionText* function)
{
    Reading reading(text);
    function->name = reading.letters(3);
    return function->name.size() == 3 && reading.skip(u'(') &&
           reading.number(&function->numbers[0]) && reading.skip(u',') &&
           reading.number(&function->numbers[1]) && reading.skip(u',') &&
           reading.number(&function->numbers[2]) && reading.skip(u')') && reading.isAtEnd();
}

QColor makeColor(const ColorFunction& function, const QStringRef* texts, const QString& text,
                 QString* error)
{
    int numbers[3];
    for (int i = 0; i < 3; ++i) {
        // A number that is too long counts as 0.
        numbers[i] = texts[i].toInt();
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
    FunctionText function;
    if (!readFunction(text, &function))
        return parseName(text, error);
    for (const ColorFunction& known : colorFunctions) {
        if (function.name == QLatin1String(known.name))
            return makeColor(known, function.numbers, text, error);
    }
    *error = QObject::tr("Invalid format prefix '%1' in the colour string '%2'. Expected a prefix "
                         "of 'rgb', 'hsv', or 'hsl'.")
                 .arg(function.name, text);
    return QColor();
}

} // namespace vantrel::report

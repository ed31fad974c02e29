#include "definition/reading/colour_string.h"

#include "host/error_message.h"

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

Colour fromHsl(int h, int s, int l)
{
    return Colour::fromHsl(h, s * 255 / 100, l * 255 / 100);
}

Colour fromHsv(int h, int s, int v)
{
    return Colour::fromHsv(h, s * 255 / 100, v * 255 / 100);
}

struct Component {
    unsigned max;
    const char* message;
};

struct ColourFunction {
    const char* name;
    Component components[3];
    Colour (*make)(int, int, int);
};

constexpr ColourFunction colourFunctions[] = {
    {"hsl", {{359, badHue}, {100, badSaturation}, {100, badLightness}}, fromHsl},
    {"hsv", {{359, badHue}, {100, badSaturation}, {100, badValue}}, fromHsv},
    {"rgb", {{255, badRed}, {255, badGreen}, {255, badBlue}}, Colour::fromRgb},
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

Colour makeColour(const ColourFunction& function, const QStringRef* texts, const QString& text,
                  QString* error)
{
    int numbers[3];
    for (int i = 0; i < 3; ++i) {
        // A number that is too long counts as 0.
        numbers[i] = texts[i].toInt();
        // A negative number is beyond every bound when it is taken as unsigned.
        if (unsigned(numbers[i]) > function.components[i].max) {
            fail(
                error,
                QObject::tr(function.components[i].message).arg(QString::number(numbers[i]), text));
            return Colour();
        }
    }
    return function.make(numbers[0], numbers[1], numbers[2]);
}

Colour parseName(const QString& text, QString* error)
{
    const Colour colour = Colour::fromName(text);
    if (!colour.isValid()) {
        fail(error, QObject::tr(
                        "Invalid colour string '%1'. Expected a hex code in the form #RGB, "
                        "#RRGGBB, #RRRGGGBBB, #RRRRGGGGBBBB, a SVG colour name, or a string of the "
                        "form hsv(H,S,V) or hsl(H,S,L) where H is in the range 0-359 and S, V and "
                        "L are in the range 0-100.")
                        .arg(text));
    }
    return colour;
}

} // namespace

Colour parseColour(const QString& text, QString* error)
{
    clearError(error);
    FunctionText function;
    if (!readFunction(text, &function))
        return parseName(text, error);
    for (const ColourFunction& known : colourFunctions) {
        if (function.name == QLatin1String(known.name))
            return makeColour(known, function.numbers, text, error);
    }
    fail(error,
         QObject::tr("Invalid format prefix '%1' in the colour string '%2'. Expected a prefix "
                     "of 'rgb', 'hsv', or 'hsl'.")
             .arg(function.name, text));
    return Colour();
}

} // namespace vantrel::report

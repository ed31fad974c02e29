#include "definition/colour.h"

#include "definition/colour_names.h"

#include <algorithm>
#include <array>

namespace vantrel::report {

namespace {

constexpr double full = 0xFFFF;

int scaled(double part)
{
    return qRound(part * full);
}

/// Eight bits as sixteen.
int widened(int component)
{
    return component * 0x101;
}

/// Sixteen bits as the nearest eight.
int narrowed(int component)
{
    return (component + 0x80) / 0x101;
}

/// A component of one to four hex digits as sixteen bits; -1 if it is none.
int hexComponent(const QString& code, int begin, int digits)
{
    int value = 0;
    for (int i = begin; i < begin + digits; ++i) {
        const int digit = QByteArray("0123456789abcdef").indexOf(code.at(i).toLower().toLatin1());
        if (digit < 0 || code.at(i).unicode() > 0x7F)
            return -1;
        value = value * 16 + digit;
    }
    switch (digits) {
    case 1:
        return value * 0x1111;
    case 2:
        return value * 0x101;
    case 3:
        return value << 4 | value >> 8;
    default:
        return value;
    }
}

/// How much of a primary colour there is at a hue of the colour circle, which is 1 around.
double primaryAt(double hue, double low, double high)
{
    const double place = hue < 0 ? hue + 1 : hue > 1 ? hue - 1 : hue;
    if (place * 6 < 1)
        return low + (high - low) * (place * 6);
    if (place * 2 < 1)
        return high;
    if (place * 3 < 2)
        return low + (high - low) * (2.0 / 3 - place) * 6;
    return low;
}

} // namespace

Colour Colour::fromRgb(int red, int green, int blue)
{
    return {Kind::Rgb, widened(red), widened(green), widened(blue)};
}

Colour Colour::fromHsv(int hue, int saturation, int value)
{
    return {Kind::Hsv, hue * 100, widened(saturation), widened(value)};
}

Colour Colour::fromHsl(int hue, int saturation, int lightness)
{
    return {Kind::Hsl, hue * 100, widened(saturation), widened(lightness)};
}

Colour Colour::fromName(const QString& name)
{
    if (name.startsWith(u'#')) {
        const int digits = name.size() - 1;
        // Of eight digits the first two are the alpha.
        const int begin = digits == 8 ? 3 : 1;
        if (digits != 3 && digits != 6 && digits != 8 && digits != 9 && digits != 12)
            return {};
        const int each = (digits + 1 - begin) / 3;
        const int red = hexComponent(name, begin, each);
        const int green = hexComponent(name, begin + each, each);
        const int blue = hexComponent(name, begin + 2 * each, each);
        const bool isRight =
            red >= 0 && green >= 0 && blue >= 0 && (begin == 1 || hexComponent(name, 1, 2) >= 0);
        return isRight ? Colour(Kind::Rgb, red, green, blue) : Colour();
    }
    constexpr int longestName = 255;
    if (name.size() > longestName)
        return {};
    QByteArray word;
    for (const QChar c : name) {
        if (c != u' ' && c != u'\t')
            word += c.toLower().toLatin1();
    }
    unsigned rgb = 0;
    return findNamedColour(word.constData(), &rgb)
               ? fromRgb(int(rgb >> 16), int(rgb >> 8 & 0xFF), int(rgb & 0xFF))
               : Colour();
}

int Colour::hslHue() const
{
    const int hue = inHsl().first;
    return hue == noHue ? -1 : hue / 100;
}

int Colour::hslSaturation() const
{
    return narrowed(inHsl().second);
}

int Colour::lightness() const
{
    return narrowed(inHsl().third);
}

QString Colour::name() const
{
    const Colour rgb = inRgb();
    const int number = narrowed(rgb.first) << 16 | narrowed(rgb.second) << 8 | narrowed(rgb.third);
    return u'#' + QString::number(0x1000000 + number, 16).mid(1);
}

Colour Colour::inRgb() const
{
    if (kind == Kind::Hsv)
        return hsvInRgb();
    return kind == Kind::Hsl ? hslInRgb() : *this;
}

Colour Colour::hsvInRgb() const
{
    if (second == 0)
        return {Kind::Rgb, third, third, third};
    const double sixths = first / 6000.0;
    const int sector = int(sixths);
    const double rest = sixths - sector;
    const double saturation = second / full;
    const double value = third / full;
    const int most = scaled(value);
    const int least = scaled(value * (1 - saturation));
    const int falling = scaled(value * (1 - saturation * rest));
    const int rising = scaled(value * (1 - saturation * (1 - rest)));
    const std::array<Colour, 6> sectors = {
        Colour(Kind::Rgb, most, rising, least), Colour(Kind::Rgb, falling, most, least),
        Colour(Kind::Rgb, least, most, rising), Colour(Kind::Rgb, least, falling, most),
        Colour(Kind::Rgb, rising, least, most), Colour(Kind::Rgb, most, least, falling),
    };
    return sectors[std::size_t(sector)];
}

Colour Colour::hslInRgb() const
{
    if (second == 0)
        return {Kind::Rgb, third, third, third};
    if (third == 0)
        return {Kind::Rgb, 0, 0, 0};
    const double hue = first / 36000.0;
    const double saturation = second / full;
    const double light = third / full;
    const double high =
        light < 0.5 ? light * (1 + saturation) : light + saturation - light * saturation;
    const double low = 2 * light - high;
    const auto component = [=](double at) {
        const int amount = scaled(primaryAt(at, low, high));
        return amount == 1 ? 0 : amount;
    };
    return {Kind::Rgb, component(hue + 1.0 / 3), component(hue), component(hue - 1.0 / 3)};
}

Colour Colour::inHsl() const
{
    if (kind == Kind::None || kind == Kind::Hsl)
        return *this;
    const Colour rgb = inRgb();
    const double red = rgb.first / full;
    const double green = rgb.second / full;
    const double blue = rgb.third / full;
    const double most = std::max({red, green, blue});
    const double least = std::min({red, green, blue});
    const double range = most - least;
    const double light = 0.5 * (most + least);
    if (most == least)
        return {Kind::Hsl, noHue, 0, scaled(light)};
    const double saturation = light < 0.5 ? range / (most + least) : range / (2 - (most + least));
    double hue = red == most     ? (green - blue) / range
                 : green == most ? 2 + (blue - red) / range
                                 : 4 + (red - green) / range;
    hue *= 60;
    if (hue < 0)
        hue += 360;
    return {Kind::Hsl, qRound(hue * 100), scaled(saturation), scaled(light)};
}

} // namespace vantrel::report

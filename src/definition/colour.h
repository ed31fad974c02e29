#pragma once

#include <QString>

namespace vantrel::report {

/// A colour as it was given, in red, green and blue or in hue, saturation and lightness or value.
///
/// It answers as Qt's own class does, with the same rounding, which a test holds it to; that class
/// would bring the whole of Qt Gui into every process. There is no alpha.
class Colour {
public:
    /// An invalid colour: none.
    Colour() = default;
    /// Components from 0 to 255.
    static Colour fromRgb(int red, int green, int blue);
    /// The hue from 0 to 359, the others from 0 to 255.
    static Colour fromHsv(int hue, int saturation, int value);
    static Colour fromHsl(int hue, int saturation, int lightness);
    /// Of a hex code (#RGB, #RRGGBB, #AARRGGBB, #RRRGGGBBB, #RRRRGGGGBBBB) or an SVG colour name in
    /// any case, with or without blanks. Invalid for any other text.
    static Colour fromName(const QString& name);

    bool isValid() const { return kind != Kind::None; }
    /// From 0 to 359; -1 for a grey of red, green and blue, 0 for an invalid colour.
    int hslHue() const;
    /// From 0 to 255.
    int hslSaturation() const;
    int lightness() const;
    /// "#rrggbb"; that of black for an invalid colour.
    QString name() const;

private:
    enum class Kind { None, Rgb, Hsv, Hsl };
    static constexpr int noHue = 0xFFFF;

    Colour(Kind givenKind, int a, int b, int c) : kind(givenKind), first(a), second(b), third(c) {}
    Colour inRgb() const;
    Colour inHsl() const;
    Colour hsvInRgb() const;
    Colour hslInRgb() const;

    Kind kind = Kind::None;
    // 16 bits each; a hue in hundredths of a degree.
    int first = 0;
    int second = 0;
    int third = 0;
};

} // namespace vantrel::report

#include "definition/colour.h"

#include <QColor>

#include <gtest/gtest.h>

#include <random>

using vantrel::report::Colour;

namespace {

/// Whether both classes say the same of a colour.
bool isSame(const Colour& ours, const QColor& qts)
{
    return ours.isValid() == qts.isValid() && ours.name() == qts.name() &&
           ours.hslHue() == qts.hslHue() && ours.hslSaturation() == qts.hslSaturation() &&
           ours.lightness() == qts.lightness();
}

bool isSameByName(const QString& name)
{
    QColor qts;
    qts.setNamedColor(name);
    return isSame(Colour::fromName(name), qts);
}

} // namespace

TEST(Colour, knowsNamesAsQtDoes)
{
    const QStringList names = QColor::colorNames();
    EXPECT_GT(names.size(), 140);
    for (const QString& name : names) {
        for (const QString& form : {name, name.toUpper(), ' ' + name + '\t', name + 'x',
                                    name.mid(1), name + QChar(0x101), name + "\n"})
            EXPECT_TRUE(isSameByName(form)) << form.toStdString();
    }
    for (const QString& other :
         {QString(), QString("blac\u212A"), QString(" "), "red" + QString(252, ' '),
          "red" + QString(253, ' '), QString("color0"), QString("#")})
        EXPECT_TRUE(isSameByName(other)) << other.toStdString();
}

TEST(Colour, readsHexCodesAsQtDoes)
{
    std::mt19937 random(1);
    const QString digits =
        QString::fromUtf8("0123456789abcdefABCDEF0123456789abcdefABCDEFgx \u0661\u0101");
    int valid = 0;
    for (int i = 0; i < 300000; ++i) {
        QString code = "#";
        for (unsigned n = random() % 14; n > 0; --n)
            code += digits.at(int(random() % unsigned(digits.size())));
        ASSERT_TRUE(isSameByName(code)) << code.toStdString();
        valid += Colour::fromName(code).isValid();
    }
    EXPECT_GT(valid, 10000);
}

TEST(Colour, convertsAsQtDoes)
{
    for (int hue = 0; hue < 360; ++hue) {
        for (int a = 0; a < 256; a += 9) {
            for (int b = 0; b < 256; b += 13) {
                ASSERT_TRUE(isSame(Colour::fromHsl(hue, a, b), QColor::fromHsl(hue, a, b)));
                ASSERT_TRUE(isSame(Colour::fromHsv(hue, a, b), QColor::fromHsv(hue, a, b)));
            }
        }
    }
    for (int rgb = 0; rgb < 0x1000000; rgb += 13) {
        ASSERT_TRUE(isSame(Colour::fromRgb(rgb >> 16, rgb >> 8 & 0xFF, rgb & 0xFF), QColor(rgb)));
    }
    EXPECT_TRUE(isSame(Colour(), QColor()));
}

#include "metrics/quantities/dynamic_number.h"
#include "metrics/quantities/number_warnings.h"
#include "warnings.h"

#include <gtest/gtest.h>

#include <cerrno>
#include <cmath>
#include <csignal>
#include <cstring>
#include <limits>
#include <unistd.h>

using namespace vantrel;

namespace {

using Signed = std::numeric_limits<qint64>;
using Unsigned = std::numeric_limits<quint64>;

const double notANumber = std::numeric_limits<double>::quiet_NaN();
const double two63 = std::ldexp(1.0, 63);

/// A number of a kind that there isn't.
DynamicNumber foreignNumber()
{
    DynamicNumber number(quint64(7));
    const quint32 type = 4;
    std::memcpy(static_cast<void*>(&number), &type, sizeof type);
    return number;
}

/// The kind's letter and the value.
std::string shown(DynamicNumber number)
{
    const char* const kinds[] = {"-", "U", "S", "F", "?"};
    return kinds[number.type()] + (number == number ? number.toString().toStdString() : "");
}

std::string shown(const QString& text)
{
    return text.isNull() ? "null" : text.toStdString();
}

/// What an action gives, and "!" with the first letter of each of its warnings.
template <typename Action>
std::string told(const Action& action)
{
    std::string text;
    for (const QString& warning : warningsOf([&] { text = shown(action()); }))
        text += std::string("!") + warning.at(0).toLatin1();
    return text;
}

/// Sum, difference, product and quotient with one right operand after the other.
template <typename... Right>
std::string resultsWith(DynamicNumber left, Right... right)
{
    const auto results = [=](auto other) {
        return told([=] { return left + other; }) + ' ' + told([=] { return left - other; }) + ' ' +
               told([=] { return left * other; }) + ' ' + told([=] { return left / other; }) + '|';
    };
    return (results(right) + ...);
}

std::string integers(DynamicNumber number)
{
    return told([=] { return number.toUInt64(); }) + ' ' + told([=] { return number.toInt64(); }) +
           ' ' + told([=] { return number.toInt32(); });
}

void expectRows(std::initializer_list<std::pair<std::string, const char*>> rows)
{
    for (const auto& [text, expected] : rows)
        EXPECT_EQ(text, expected);
}

} // namespace

TEST(DynamicNumber, picksTheKindsOfResults)
{
    const DynamicNumber none, seven = 7u, minus = -2, half = 0.5;
    const auto product = [](DynamicNumber a, DynamicNumber b) {
        return told([=] { return DynamicNumber::multiplyChecked(a, b); });
    };
    const quint64 two32 = quint64(1) << 32;
    expectRows({
        {resultsWith(none, none, seven, minus, half),
         "- - - -|U7 S-7 - -|S-2 S2 - -|F0.5 F-0.5 - -|"},
        {resultsWith(seven, none, seven, minus, half),
         "U7 U7 U7!u U7!u|U14 S0 U49 F1|S5 S9 S-14 F-3.5|F7.5 F6.5 F3.5 F14|"},
        {resultsWith(minus, seven, minus, half),
         "S5 S-9 S-14 F-0.285714285714286|S-4 S0 S4 F1|F-1.5 F-2.5 F-1 F-4|"},
        {resultsWith(half, none, minus, half),
         "F0.5 F0.5 F0.5!u F0.5!u|F-1.5 F2.5 F-1 F-0.25|F1 F0 F0.25 F1|"},
        {resultsWith(foreignNumber(), 1), "?!u ?!u ?!u ?!u|"},
        // A built-in number counts as one of its kind, but nothing adopts it.
        {resultsWith(none, 2u) + resultsWith(seven, -2), "- - - -|S5 S9 S-14 F-3.5|"},
        // Bits that don't fit are lost.
        {resultsWith(Signed::min(), -1), "S9223372036854775807 S-9223372036854775807 "
                                         "S-9223372036854775808 F9.22337203685478e+18|"},
        {shown(-DynamicNumber(Unsigned::max())) + shown(-half), "S1F-0.5"},
        {told([] { return -foreignNumber(); }), "-!u"},
        {product(3u, 4u) + product(3u, -4) + product(0u, 4u) + product(0, 4u), "U12F-12F0S0"},
        {product(two32, two32) + product(two32, two32 >> 1),
         "F1.84467440737096e+19U9223372036854775808"},
        {product(Signed::min(), 1), "F-9.22337203685478e+18"},
        {product(0.5, 2) + product({}, 2) + product(2, {}), "F1-F0!u!u"},
        {product(foreignNumber(), 2), "F6.91691904177745e-323!u!u!u"},
        {shown(DynamicNumber(9u).squareRoot()), "F3"},
        {shown(DynamicNumber(2.5).rounded()) + shown(DynamicNumber(7u).rounded()), "S2U7"},
        {shown(DynamicNumber().orElse(1)) + shown(DynamicNumber(2).orElse(1)), "S1S2"},
    });
}

TEST(DynamicNumber, comparesIntegersExactly)
{
    const quint64 two53 = quint64(1) << 53;
    const quint64 end = Signed::max();
    // In order. Numbers of the same text are equal.
    const DynamicNumber numbers[] = {
        Signed::min(),  -1, 0, 0u, two53, qint64(two53), two53 + 1, Signed::max(), end, end + 1,
        Unsigned::max()};
    for (const DynamicNumber& a : numbers) {
        for (const DynamicNumber& b : numbers) {
            const bool isSame = a.toString() == b.toString();
            const bool isLess = &a < &b && !isSame;
            const bool isGreater = &a > &b && !isSame;
            EXPECT_TRUE((a < b) == isLess && (a > b) == isGreater && (a == b) == isSame &&
                        (a <= b) != isGreater && (a >= b) != isLess && (a != b) != isSame &&
                        DynamicNumber::max(a, b).identicalTo(isLess ? b : a) &&
                        DynamicNumber::min(a, b).identicalTo(isGreater ? b : a))
                << shown(a) << ' ' << shown(b);
        }
    }
}

TEST(DynamicNumber, comparesAsDoublesOrNotAtAll)
{
    EXPECT_TRUE(DynamicNumber(Unsigned::max()) == 2 * two63) << "rounded to a double";
    EXPECT_TRUE(DynamicNumber(-1) < 0.5 && DynamicNumber(0.5) >= -1);
    for (const DynamicNumber nothing : {DynamicNumber(), DynamicNumber(notANumber)}) {
        for (const DynamicNumber other : {DynamicNumber(0), nothing}) {
            EXPECT_FALSE(nothing == other || nothing < other || nothing > other ||
                         nothing <= other || other >= nothing);
            EXPECT_TRUE(nothing != other && other != nothing);
        }
    }
    EXPECT_TRUE(DynamicNumber().identicalTo({}) && DynamicNumber(0.0).identicalTo(-0.0));
    EXPECT_FALSE(DynamicNumber(1).identicalTo(1u) || DynamicNumber(1).identicalTo(2) ||
                 DynamicNumber(notANumber).identicalTo(notANumber));
}

TEST(DynamicNumber, convertsToOtherTypes)
{
    const qint64 two31 = qint64(1) << 31;
    const auto asFloat = [](DynamicNumber number) {
        number.toFloat();
        return number;
    };
    const auto assigned = [](const QVariant& variant) {
        DynamicNumber number = 3;
        number.assign(variant);
        return number.toVariant().typeName() + number.toString();
    };
    expectRows({
        {integers(foreignNumber()), "U0!u S0!u S0!u"},
        {integers(two31), "U2147483648 S2147483648 S0!t"},
        {integers(quint64(two31) - 1), "U2147483647 S2147483647 S2147483647"},
        {integers(-two31), "U0!t S-2147483648 S-2147483648"},
        {integers(-two31 - 1), "U0!t S-2147483649 S0!t"},
        {integers(quint64(1) << 63), "U9223372036854775808 S0!t S0!t"},
        {integers(-0.9), "U0!t S0 S0!i"},
        {integers(two63 + 2048), "U9223372036854777856 S9223372036854775807 S0!i"},
        {integers(2 * two63), "U18446744073709551615 S9223372036854775807 S0!i"},
        {integers(-2 * two63), "U0!t S-9223372036854775808 S0!i"},
        {integers(notANumber), "U0 S0 S0!i"},
        {told([] { return foreignNumber().toDouble(); }), "F!u"},
        {told([] { return DynamicNumber().toVariant().typeName(); }), "null!u"},
        {shown(asFloat(-5)) + shown(asFloat(5u)) + shown(asFloat(0.5)), "F-5F5F0.5"},
        {told([=] { return asFloat(foreignNumber()); }), "F3.45845952088873e-323!u"},
        {told([=] { return assigned(-5) + assigned(qlonglong(-5)); }), "qlonglong-5qlonglong-5"},
        {told([=] { return assigned(5u) + assigned(qulonglong(5)); }), "qulonglong5qulonglong5"},
        {told([=] { return assigned(0.5) + assigned(1.0f); }), "double0.5qlonglong3!u"},
    });
}

TEST(DynamicNumber, readsAndWritesText)
{
    const auto parsed = [](const char* text) { return shown(DynamicNumber::parse(text)); };
    const DynamicNumber large = 1234567.875;
    expectRows({
        {parsed("3") + parsed("-3") + parsed("3.0"), "U3S-3F3"},
        {parsed("0x9") + parsed("-x") + parsed("1.x"), "U0S0F0"},
        {shown(large.toStringG(3) + ' ' + large.toStringF(2)), "1.23e+06 1,234,567.88"},
        {shown(DynamicNumber(12345).toStringF(2) + DynamicNumber(12345u).toStringG(2)),
         "1234512345"},
        {shown(DynamicNumber().describe() + ", " + foreignNumber().describe()),
         "<undefined> of type 0, <unknown> of type 4"},
        {told([] { return DynamicNumber(-5).toIntegerString(); }), "-5"},
        {told([] { return DynamicNumber(5.0).toIntegerString(); }), "null!i"},
    });
    EXPECT_EQ(large.toStringF(1000000).size(), 1000010);
    const QStringList warnings = warningsOf([] {
        warnUnsupportedDatatype();
        warnConversionOverflow();
        warnInvalidConversion();
        warnEmptyOperand();
        warnOfNumber("50%s");
    });
    EXPECT_EQ(warnings.join('|'), "unsupported datatype|type conversion would overflow|"
                                  "invalid type conversion|empy operand|50%s");
}

TEST(DynamicNumber, travelsThroughDescriptors)
{
    static int ends[2];
    ASSERT_EQ(pipe(ends), 0);
    // The bytes are those of machines with the least one first.
    const std::pair<DynamicNumber, const char*> rows[] = {
        {{}, "00000000"},
        {Unsigned::max(), "01000000ffffffffffffffff"},
        {-1, "02000000ffffffffffffffff"},
        {0.1, "030000009a9999999999b93f"},
    };
    char bytes[13];
    for (const auto& [number, hex] : rows) {
        ASSERT_EQ(number.writeTo(ends[1]), 0);
        const ssize_t size = read(ends[0], bytes, sizeof bytes);
        EXPECT_EQ(QByteArray(bytes, int(size)).toHex(), hex);
        for (const ssize_t length : {ssize_t(3), size - 1, size}) {
            ASSERT_EQ(write(ends[1], bytes, std::size_t(length)), length);
            DynamicNumber again = 99;
            EXPECT_EQ(again.readFrom(ends[0]), length < size ? -1 : 0);
            EXPECT_TRUE(again.identicalTo(length < size ? 99 : number));
        }
    }
    DynamicNumber number;
    EXPECT_TRUE(foreignNumber().writeTo(ends[1]) == -1 && errno == EINVAL);
    EXPECT_TRUE(number.readFrom(ends[0]) == -1 && errno == EIO) << "the kind was written";
    EXPECT_EQ(number.writeTo(-1), -1);

    // A signal finds the process reading, and its handler writes what is read then.
    struct sigaction action = {};
    action.sa_handler = [](int) { EXPECT_EQ(DynamicNumber(-7).writeTo(ends[1]), 0); };
    sigaction(SIGALRM, &action, nullptr);
    ualarm(20000, 0);
    EXPECT_EQ(number.readFrom(ends[0]), 0);
    EXPECT_TRUE(number.identicalTo(-7));
    std::signal(SIGALRM, SIG_DFL);
    close(ends[0]);
    close(ends[1]);
}

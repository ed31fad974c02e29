#include "metrics/dynamic_number.h"
#include "metrics/number_warnings.h"
#include "warnings.h"

#include <gtest/gtest.h>

#include <cerrno>
#include <cmath>
#include <csignal>
#include <cstring>
#include <fcntl.h>
#include <limits>
#include <random>
#include <unistd.h>
#include <vector>

using namespace vantrel;

namespace {

using Float = std::numeric_limits<double>;
using Signed = std::numeric_limits<qint64>;
using Unsigned = std::numeric_limits<quint64>;

const char* const unsupported = "unsupported datatype";
const char* const overflow = "type conversion would overflow";
const char* const invalid = "invalid type conversion";

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
    const char* const kinds[] = {"-", "U", "S", "F"};
    return number.isUndefined() ? "-" : kinds[number.type()] + number.toString().toStdString();
}

void apply(char operation, DynamicNumber* left, DynamicNumber right)
{
    switch (operation) {
    case '+':
        *left += right;
        break;
    case '-':
        *left -= right;
        break;
    case '*':
        *left *= right;
        break;
    default:
        *left /= right;
    }
}

const DynamicNumber operands[] = {DynamicNumber(), quint64(7), qint64(-2), 0.5};

/// What each operand becomes with each on its right; "!" marks a warning.
struct Table {
    char operation;
    const char* results[4][4];
};

const Table tables[] = {
    {'+',
     {{"-", "U7", "S-2", "F0.5"},
      {"U7", "U14", "S5", "F7.5"},
      {"S-2", "S5", "S-4", "F-1.5"},
      {"F0.5", "F7.5", "F-1.5", "F1"}}},
    {'-',
     {{"-", "S-7", "S2", "F-0.5"},
      {"U7", "S0", "S9", "F6.5"},
      {"S-2", "S-9", "S0", "F-2.5"},
      {"F0.5", "F-6.5", "F2.5", "F0"}}},
    {'*',
     {{"-", "-", "-", "-"},
      {"U7!", "U49", "S-14", "F3.5"},
      {"S-2!", "S-14", "S4", "F-1"},
      {"F0.5!", "F3.5", "F-1", "F0.25"}}},
    {'/',
     {{"-", "-", "-", "-"},
      {"U7!", "F1", "F-3.5", "F14"},
      {"S-2!", "F-0.285714285714286", "F1", "F-4"},
      {"F0.5!", "F0.0714285714285714", "F-0.25", "F1"}}},
};

} // namespace

TEST(DynamicNumber, picksTheKindOfAResult)
{
    for (const Table& table : tables) {
        for (int row = 0; row < 4; ++row) {
            for (int column = 0; column < 4; ++column) {
                DynamicNumber number = operands[row];
                const QStringList warnings =
                    warningsOf([&] { apply(table.operation, &number, operands[column]); });
                const std::string mark = warnings == QStringList(unsupported) ? "!" : "";
                EXPECT_EQ(shown(number) + mark, table.results[row][column])
                    << table.operation << ' ' << row << ' ' << column;
                EXPECT_EQ(warnings.isEmpty(), mark.empty());
            }
        }
        DynamicNumber foreign = foreignNumber();
        EXPECT_EQ(warningsOf([&] { apply(table.operation, &foreign, 1); }),
                  QStringList(unsupported));
        EXPECT_TRUE(foreign.identicalTo(foreignNumber()));
    }
}

namespace {

template <typename Number>
void expectLikeDynamic(DynamicNumber left, Number right)
{
    const DynamicNumber plain[] = {left + right, left - right, left * right, left / right};
    const char operations[] = {'+', '-', '*', '/'};
    for (int i = 0; i < 4; ++i) {
        DynamicNumber expected = left;
        if (!left.isUndefined())
            apply(operations[i], &expected, right);
        EXPECT_TRUE(plain[i].identicalTo(expected))
            << shown(left) << operations[i] << shown(right) << " is " << shown(plain[i]);
    }
    EXPECT_EQ(left == right, left == DynamicNumber(right));
    EXPECT_EQ(left < right, left < DynamicNumber(right));
}

} // namespace

TEST(DynamicNumber, takesPlainNumbersButAdoptsNone)
{
    const QStringList warnings = warningsOf([] {
        for (const DynamicNumber left : operands) {
            expectLikeDynamic(left, quint64(3));
            expectLikeDynamic(left, quint32(3));
            expectLikeDynamic(left, qint64(-3));
            expectLikeDynamic(left, qint32(-3));
            expectLikeDynamic(left, 2.5);
        }
    });
    EXPECT_EQ(warnings, QStringList());
    EXPECT_EQ(shown(DynamicNumber(quint32(1))) + shown(DynamicNumber(qint32(-1))) +
                  shown(DynamicNumber(1.0)),
              "U1S-1F1");
}

TEST(DynamicNumber, wrapsAround)
{
    const std::pair<DynamicNumber, const char*> rows[] = {
        {DynamicNumber(Unsigned::max()) + quint64(1), "U0"},
        {DynamicNumber(Signed::max()) + 1, "S-9223372036854775808"},
        {DynamicNumber(Signed::min()) - 1, "S9223372036854775807"},
        {DynamicNumber(quint64(2)) - quint64(3), "S-1"},
        {DynamicNumber(Signed::min()) * -1, "S-9223372036854775808"},
        {DynamicNumber(Signed::max()) * Signed::max(), "S1"},
        {DynamicNumber(Unsigned::max()) * Unsigned::max(), "U1"},
        {-DynamicNumber(Signed::min()), "S-9223372036854775808"},
        {-DynamicNumber(Unsigned::max()), "S1"},
        {-DynamicNumber(-0.5), "F0.5"},
        {-DynamicNumber(), "-"},
        {DynamicNumber(1) / 0, "Finf"},
        {DynamicNumber(0) / 0, "Fnan"},
    };
    for (const auto& [number, expected] : rows)
        EXPECT_EQ(shown(number), expected);
    DynamicNumber negative = 1;
    EXPECT_EQ(warningsOf([&] { negative = -foreignNumber(); }), QStringList(unsupported));
    EXPECT_TRUE(negative.isUndefined());
}

TEST(DynamicNumber, comparesIntegersExactly)
{
    std::mt19937_64 random(20140228);
    const quint64 edges[] = {0,
                             1,
                             quint64(Signed::max()),
                             quint64(Signed::max()) + 1,
                             Unsigned::max(),
                             quint64(1) << 53,
                             (quint64(1) << 53) + 1};
    std::vector<DynamicNumber> numbers;
    for (const quint64 edge : edges) {
        for (const DynamicNumber number : {DynamicNumber(edge), DynamicNumber(qint64(edge))})
            numbers.push_back(number);
    }
    for (int i = 0; i < 100; ++i) {
        const quint64 bits = random() >> random() % 64;
        numbers.push_back(random() % 2 ? DynamicNumber(bits) : DynamicNumber(qint64(bits)));
    }
    // A long double holds every 64-bit integer.
    const auto exact = [](DynamicNumber number) {
        return number.type() == DynamicNumber::Unsigned
                   ? static_cast<long double>(number.toUInt64())
                   : static_cast<long double>(number.toInt64());
    };
    static_assert(std::numeric_limits<long double>::digits >= 64);
    for (const DynamicNumber a : numbers) {
        for (const DynamicNumber b : numbers) {
            const long double x = exact(a);
            const long double y = exact(b);
            ASSERT_TRUE((a < b) == (x < y) && (a > b) == (x > y) && (a == b) == (x == y) &&
                        (a <= b) == (x <= y) && (a >= b) == (x >= y) && (a != b) == (x != y))
                << shown(a) << ' ' << shown(b);
            ASSERT_TRUE(exact(DynamicNumber::max(a, b)) == std::max(x, y) &&
                        exact(DynamicNumber::min(a, b)) == std::min(x, y));
        }
    }
}

TEST(DynamicNumber, comparesAsDoublesOrNotAtAll)
{
    EXPECT_TRUE(DynamicNumber(quint64(1) << 63) == std::ldexp(1.0, 63));
    EXPECT_TRUE(DynamicNumber(Unsigned::max()) == std::ldexp(1.0, 64)) << "rounded to a double";
    EXPECT_TRUE(DynamicNumber(-1) < 0.5 && DynamicNumber(0.5) >= -1 && 1 > DynamicNumber(0.5));
    for (const DynamicNumber nothing :
         {DynamicNumber(), DynamicNumber(Float::quiet_NaN()), foreignNumber()}) {
        for (const DynamicNumber other : {DynamicNumber(0), DynamicNumber(1.0), nothing}) {
            EXPECT_FALSE(nothing == other || nothing < other || nothing > other ||
                         nothing <= other || other >= nothing);
            EXPECT_TRUE(nothing != other && other != nothing);
        }
        EXPECT_TRUE(DynamicNumber::max(1, nothing).identicalTo(1));
        EXPECT_EQ(DynamicNumber::min(nothing, 1).type(), nothing.type());
    }
    EXPECT_TRUE(DynamicNumber().identicalTo(DynamicNumber()));
    EXPECT_FALSE(DynamicNumber(1).identicalTo(quint64(1)) || DynamicNumber(1).identicalTo(1.0));
    EXPECT_FALSE(DynamicNumber(Float::quiet_NaN()).identicalTo(Float::quiet_NaN()));
    EXPECT_TRUE(DynamicNumber(0.0).identicalTo(-0.0));
}

namespace {

struct Conversions {
    DynamicNumber number;
    quint64 toUInt64;
    const char* unsignedWarning;
    qint64 toInt64;
    const char* signedWarning;
    qint32 toInt32;
    const char* shortWarning;
};

const double two31 = std::ldexp(1.0, 31);
const double two63 = std::ldexp(1.0, 63);
const double two64 = std::ldexp(1.0, 64);
const quint64 top = quint64(1) << 63;

const Conversions conversions[] = {
    {DynamicNumber(), 0, unsupported, 0, unsupported, 0, unsupported},
    {foreignNumber(), 0, unsupported, 0, unsupported, 0, unsupported},
    {5u, 5, nullptr, 5, nullptr, 5, nullptr},
    {-5, 0, overflow, -5, nullptr, -5, nullptr},
    {qint64(1) << 31, 1u << 31, nullptr, qint64(1) << 31, nullptr, 0, overflow},
    {-(qint64(1) << 31), 0, overflow, -(qint64(1) << 31), nullptr, -2147483647 - 1, nullptr},
    {-(qint64(1) << 31) - 1, 0, overflow, -(qint64(1) << 31) - 1, nullptr, 0, overflow},
    {quint64(1) << 31, 1u << 31, nullptr, qint64(1) << 31, nullptr, 0, overflow},
    {top, top, nullptr, 0, overflow, 0, overflow},
    {2.9, 2, nullptr, 2, nullptr, 0, invalid},
    {-0.9, 0, overflow, 0, nullptr, 0, invalid},
    {-two31, 0, overflow, -(qint64(1) << 31), nullptr, 0, invalid},
    {two63, top, nullptr, Signed::max(), nullptr, 0, invalid},
    {two63 + 2048, top + 2048, nullptr, Signed::max(), nullptr, 0, invalid},
    {two64, Unsigned::max(), nullptr, Signed::max(), nullptr, 0, invalid},
    {-two64, 0, overflow, Signed::min(), nullptr, 0, invalid},
    {Float::infinity(), Unsigned::max(), nullptr, Signed::max(), nullptr, 0, invalid},
    {Float::quiet_NaN(), 0, nullptr, 0, nullptr, 0, invalid},
};

/// Converts, and compares result and warning.
template <typename Action, typename Result>
void expectConversion(const Action& action, Result expected, const char* warning)
{
    Result result{};
    const QStringList warnings = warningsOf([&] { result = action(); });
    EXPECT_EQ(result, expected);
    EXPECT_EQ(warnings, warning ? QStringList(warning) : QStringList());
}

} // namespace

TEST(DynamicNumber, convertsToIntegers)
{
    for (const Conversions& row : conversions) {
        const DynamicNumber number = row.number;
        SCOPED_TRACE(number.describe().toStdString());
        expectConversion([=] { return number.toUInt64(); }, row.toUInt64, row.unsignedWarning);
        expectConversion([=] { return number.toInt64(); }, row.toInt64, row.signedWarning);
        expectConversion([=] { return number.toInt32(); }, row.toInt32, row.shortWarning);
    }
}

TEST(DynamicNumber, convertsToDoublesAndVariants)
{
    EXPECT_EQ(DynamicNumber(Unsigned::max()).toDouble(), 18446744073709551616.0);
    EXPECT_EQ(DynamicNumber(top + 1025).toDouble(), two63 + 2048) << "rounded to the nearest";
    EXPECT_EQ(DynamicNumber(Signed::min()).toDouble(), -two63);
    EXPECT_EQ(DynamicNumber(quint64(9)).squareRoot().toString(), "3");
    EXPECT_TRUE(DynamicNumber(2.5).rounded().identicalTo(2));
    EXPECT_TRUE(DynamicNumber(7u).rounded().identicalTo(7u));
    EXPECT_TRUE(DynamicNumber().orElse(1).identicalTo(1) && DynamicNumber(2).orElse(1) == 2);
    for (const DynamicNumber number : {DynamicNumber(), foreignNumber()}) {
        double result = 0;
        EXPECT_EQ(warningsOf([&] { result = number.toDouble(); }), QStringList(unsupported));
        EXPECT_TRUE(std::isnan(result));
        expectConversion([=] { return number.toVariant(); }, QVariant(), unsupported);
        DynamicNumber converted = number;
        EXPECT_EQ(warningsOf([&] { converted.toFloat(); }), QStringList(unsupported));
        EXPECT_TRUE(converted.isFloat()) << "all the same";
    }
    for (const QVariant& variant : {QVariant(5), QVariant(5u), QVariant(qlonglong(-5)),
                                    QVariant(qulonglong(5)), QVariant(0.5)}) {
        DynamicNumber number;
        number.assign(variant);
        EXPECT_EQ(number.toVariant(), variant);
        number.toFloat();
        EXPECT_EQ(number.toVariant(), QVariant(variant.toDouble()));
    }
    for (const QVariant& variant : {QVariant(), QVariant("5"), QVariant(true), QVariant(1.0f)}) {
        DynamicNumber number = 3;
        EXPECT_EQ(warningsOf([&] { number.assign(variant); }), QStringList(unsupported));
        EXPECT_TRUE(number.identicalTo(3));
    }
}

TEST(DynamicNumber, readsAndWritesText)
{
    const std::pair<const char*, const char*> texts[] = {
        {"3", "U3"},
        {"-3", "S-3"},
        {"3.0", "F3"},
        {"1e5", "U0"},
        {"-x", "S0"},
        {"", "U0"},
        {"1.x", "F0"},
        {".5", "F0.5"},
        {"18446744073709551615", "U18446744073709551615"},
        {"18446744073709551616", "U0"},
        {"-9223372036854775808", "S-9223372036854775808"}};
    for (const auto& [text, expected] : texts)
        EXPECT_EQ(shown(DynamicNumber::parse(text)), expected) << text;
    const DynamicNumber large = 1234567.875;
    EXPECT_EQ(DynamicNumber(0.1 + 0.2).toString(), "0.3");
    EXPECT_EQ(large.toStringG(3), "1.23e+06");
    EXPECT_EQ(large.toStringF(2), "1,234,567.88");
    EXPECT_EQ(DynamicNumber(12345).toStringF(2) + DynamicNumber(12345u).toStringG(2), "1234512345");
    EXPECT_LT(large.toStringF(std::numeric_limits<int>::max()).size(), 1100);
    EXPECT_EQ(DynamicNumber(-5).describe(), "-5 of type 2");
    EXPECT_EQ(DynamicNumber().describe(), "<undefined> of type 0");
    EXPECT_EQ(foreignNumber().describe(), "<unknown> of type 4");
    EXPECT_EQ(foreignNumber().toIntegerString(), "<unknown>");
    EXPECT_EQ(DynamicNumber(-5).toIntegerString(), "-5");
    expectConversion([] { return DynamicNumber(5.0).toIntegerString(); }, QString(), invalid);
    EXPECT_EQ(warningsOf(warnEmptyOperand) + warningsOf([] { warnOfNumber("50%s"); }),
              QStringList({"empy operand", "50%s"}));
}

TEST(DynamicNumber, multipliesWithoutWrappingAround)
{
    const quint64 two30 = quint64(1) << 30;
    const std::pair<DynamicNumber, const char*> rows[] = {
        {DynamicNumber::multiplyChecked(quint64(3), quint64(4)), "U12"},
        {DynamicNumber::multiplyChecked(two30 << 10, two30), "F1.18059162071741e+21"},
        {DynamicNumber::multiplyChecked(two30, two30 << 4), "F1.84467440737096e+19"},
        {DynamicNumber::multiplyChecked(two30, two30 << 3), "U9223372036854775808"},
        {DynamicNumber::multiplyChecked(quint64(3), qint64(-4)), "F-12"},
        {DynamicNumber::multiplyChecked(quint64(0), quint64(4)), "F0"},
        {DynamicNumber::multiplyChecked(qint64(0), quint64(4)), "S0"},
        {DynamicNumber::multiplyChecked(qint64(-3), quint64(4)), "S-12"},
        {DynamicNumber::multiplyChecked(Signed::min(), 1), "F-9.22337203685478e+18"},
        {DynamicNumber::multiplyChecked(Signed::max(), -2), "F-1.84467440737096e+19"},
        {DynamicNumber::multiplyChecked(2, 0.5), "F1"},
        {DynamicNumber::multiplyChecked(0.5, 2), "F1"},
        {DynamicNumber::multiplyChecked(DynamicNumber(), 2), "-"},
    };
    for (const auto& [product, expected] : rows)
        EXPECT_EQ(shown(product), expected);
    const auto multiply = [](DynamicNumber a, DynamicNumber b) {
        return warningsOf([&] { EXPECT_TRUE(DynamicNumber::multiplyChecked(a, b).isFloat()); });
    };
    EXPECT_EQ(multiply(2, DynamicNumber()), QStringList({unsupported, unsupported}));
    EXPECT_EQ(multiply(foreignNumber(), 2), QStringList({unsupported, unsupported, unsupported}));
}

namespace {

/// The two ends of a pipe.
struct Pipe {
    Pipe() { EXPECT_EQ(pipe(ends), 0); }
    ~Pipe()
    {
        close(ends[0]);
        close(ends[1]);
    }
    /// Makes what was written all that can be read.
    void endWriting()
    {
        close(ends[1]);
        ends[1] = -1;
    }
    std::size_t readRest()
    {
        char buffer[64];
        const ssize_t size = read(ends[0], buffer, sizeof buffer);
        return size < 0 ? 0 : std::size_t(size);
    }

    int ends[2] = {-1, -1};
};

const Pipe* served = nullptr;

/// Puts a number into the pipe, or makes room in it, while a call waits for that.
void serveReader(int)
{
    EXPECT_EQ(DynamicNumber(-7).writeTo(served->ends[1]), 0);
}

void serveWriter(int)
{
    char page[4096];
    EXPECT_GT(read(served->ends[0], page, sizeof page), 0);
}

/// Has the handler interrupt what the process does in a moment.
void interruptWith(void (*handler)(int))
{
    struct sigaction action = {};
    action.sa_handler = handler;
    sigaction(SIGALRM, &action, nullptr);
    ualarm(20000, 0);
}

} // namespace

TEST(DynamicNumber, travelsThroughDescriptors)
{
    for (const DynamicNumber number :
         {DynamicNumber(), DynamicNumber(Unsigned::max()), DynamicNumber(-1), DynamicNumber(0.1)}) {
        Pipe pipe;
        ASSERT_EQ(number.writeTo(pipe.ends[1]), 0);
        ASSERT_EQ(write(pipe.ends[1], "x", 1), 1);
        DynamicNumber again = 99;
        EXPECT_EQ(again.readFrom(pipe.ends[0]), 0);
        EXPECT_TRUE(again.identicalTo(number));
        EXPECT_EQ(pipe.readRest(), 1U) << "and not a byte more is read";
    }
    for (const std::size_t length : {0, 3, 4, 11}) {
        Pipe pipe;
        const DynamicNumber number = -1;
        char bytes[12];
        std::memcpy(bytes, &number, 4);
        std::memset(bytes + 4, 0xff, 8);
        ASSERT_EQ(write(pipe.ends[1], bytes, length), ssize_t(length));
        pipe.endWriting();
        DynamicNumber again = 99;
        EXPECT_EQ(again.readFrom(pipe.ends[0]), -1) << length;
        EXPECT_TRUE(again.identicalTo(99)) << "a failed read changes nothing";
    }
    Pipe pipe;
    errno = 0;
    EXPECT_EQ(foreignNumber().writeTo(pipe.ends[1]), -1);
    EXPECT_EQ(errno, EINVAL);
    DynamicNumber number;
    EXPECT_EQ(number.readFrom(pipe.ends[0]), -1) << "the kind had been written";
    EXPECT_EQ(errno, EIO);
    EXPECT_EQ(number.writeTo(-1), -1);
    EXPECT_EQ(number.readFrom(-1), -1);
}

TEST(DynamicNumber, goesOnAfterAnInterruption)
{
    Pipe pipe;
    served = &pipe;
    interruptWith(serveReader);
    DynamicNumber number;
    EXPECT_EQ(number.readFrom(pipe.ends[0]), 0);
    EXPECT_TRUE(number.identicalTo(-7));

    ASSERT_EQ(fcntl(pipe.ends[1], F_SETPIPE_SZ, 4096), 4096);
    const std::vector<char> page(4096);
    ASSERT_EQ(write(pipe.ends[1], page.data(), page.size()), 4096);
    interruptWith(serveWriter);
    EXPECT_EQ(DynamicNumber(-8).writeTo(pipe.ends[1]), 0);
    EXPECT_EQ(number.readFrom(pipe.ends[0]), 0);
    EXPECT_TRUE(number.identicalTo(-8));
    std::signal(SIGALRM, SIG_DFL);
}

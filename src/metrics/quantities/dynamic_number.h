#pragma once

#include <QString>
#include <QVariant>

#include <type_traits>

namespace vantrel {

/// A number that knows its kind: unsigned or signed 64-bit integer, double, or nothing.
///
/// Arithmetic picks the kind of its result by the kinds of the operands. Integers wrap around. What
/// can't be done gives a Qt warning and a neutral result.
class DynamicNumber {
    template <typename Number>
    using IfNumber =
        std::enable_if_t<std::is_arithmetic_v<Number> && !std::is_same_v<Number, bool>, int>;
    template <typename Operand>
    using IfOperand = std::enable_if_t<std::is_constructible_v<DynamicNumber, Operand>, int>;

public:
    enum Type : quint32 { Undefined = 0, Unsigned = 1, Signed = 2, Float = 3 };

    DynamicNumber() = default;
    /// A number of the kind that fits the built-in type.
    template <typename Number, IfNumber<Number> = 0>
    DynamicNumber(Number number)
    {
        if constexpr (std::is_floating_point_v<Number>)
            setFloat(double(number));
        else if constexpr (std::is_unsigned_v<Number>)
            setInteger(Unsigned, number);
        else
            setInteger(Signed, quint64(qint64(number)));
    }
    /// A text with a point is a Float, one with a leading "-" Signed, any other Unsigned. What
    /// can't be read is the 0 of that kind; a Float too great is an infinity.
    static DynamicNumber parse(const QString& text);
    /// Takes an integer or a double; warns of any other variant and stays as it was.
    void assign(const QVariant& variant);

    Type type() const { return kind; }
    bool isUndefined() const { return kind == Undefined; }
    bool isFloat() const { return kind == Float; }

    /// @name Conversions
    /// An integer that doesn't fit gives 0 and a warning. A Float loses its fraction; NaN is 0.
    /// @{
    /// A negative Float gives 0 and a warning, one too great the limit without a warning.
    quint64 toUInt64() const;
    /// A Float out of range gives the nearest limit, without a warning.
    qint64 toInt64() const;
    /// Refuses any Float.
    qint32 toInt32() const;
    /// NaN for Undefined.
    double toDouble() const;
    QVariant toVariant() const;
    /// A Float has up to 15 significant digits.
    QString toString() const;
    /// Refuses a Float.
    QString toIntegerString() const;
    /// A Float in English form with groups of thousands, as 1,234,567.88, in the notation of
    /// printf's %g and %f; other kinds as toString() does.
    QString toStringG(int precision) const;
    QString toStringF(int precision) const;
    /// The text with the number of the kind.
    QString describe() const;
    /// @}

    /// @name Binary form
    /// Four bytes of the kind and, unless that is Undefined, eight bytes of the value, both in the
    /// byte order of the machine. 0 for success, -1 for failure: a short transfer, or a kind that
    /// there isn't (errno EINVAL in writing, EIO in reading). A failed read changes nothing.
    /// @{
    int writeTo(int fd) const;
    int readFrom(int fd);
    /// @}

    /// @name Arithmetic with numbers of any kind
    /// An Undefined left operand becomes the right one under += and its negative under -=, and
    /// stays under *= and /=. An Undefined right one is ignored by += and -=, and refused by *=
    /// and /=, unless the left one is Undefined as well. The difference of integers is Signed,
    /// their quotient a Float; else a Float makes the result one, and then a Signed number.
    /// @{
    DynamicNumber& operator+=(DynamicNumber right);
    DynamicNumber& operator-=(DynamicNumber right);
    DynamicNumber& operator*=(DynamicNumber right);
    DynamicNumber& operator/=(DynamicNumber right);
    /// @}

    /// @name Arithmetic with built-in numbers
    /// The same, but an Undefined left operand always stays. The operators below are templates so
    /// that it stays there too.
    /// @{
    template <typename Number, IfNumber<Number> = 0>
    DynamicNumber& operator+=(Number right)
    {
        return isUndefined() ? *this : *this += DynamicNumber(right);
    }
    template <typename Number, IfNumber<Number> = 0>
    DynamicNumber& operator-=(Number right)
    {
        return isUndefined() ? *this : *this -= DynamicNumber(right);
    }
    template <typename Number, IfNumber<Number> = 0>
    DynamicNumber& operator*=(Number right)
    {
        return *this *= DynamicNumber(right);
    }
    template <typename Number, IfNumber<Number> = 0>
    DynamicNumber& operator/=(Number right)
    {
        return *this /= DynamicNumber(right);
    }
    /// @}

    template <typename Right, IfOperand<Right> = 0>
    friend DynamicNumber operator+(DynamicNumber left, Right right)
    {
        return left += right;
    }
    template <typename Right, IfOperand<Right> = 0>
    friend DynamicNumber operator-(DynamicNumber left, Right right)
    {
        return left -= right;
    }
    template <typename Right, IfOperand<Right> = 0>
    friend DynamicNumber operator*(DynamicNumber left, Right right)
    {
        return left *= right;
    }
    template <typename Right, IfOperand<Right> = 0>
    friend DynamicNumber operator/(DynamicNumber left, Right right)
    {
        return left /= right;
    }
    DynamicNumber operator-() const;

    /// @name Comparison
    /// Integers compare exactly, whatever their kinds; with a Float both compare as doubles. An
    /// Undefined number isn't equal to anything, nor less or greater.
    /// @{
    friend bool operator==(DynamicNumber a, DynamicNumber b) { return compare(a, b) == Equal; }
    friend bool operator!=(DynamicNumber a, DynamicNumber b) { return !(a == b); }
    friend bool operator<(DynamicNumber a, DynamicNumber b) { return compare(a, b) == Less; }
    friend bool operator>(DynamicNumber a, DynamicNumber b) { return compare(a, b) == Greater; }
    friend bool operator<=(DynamicNumber a, DynamicNumber b) { return a < b || a == b; }
    friend bool operator>=(DynamicNumber a, DynamicNumber b) { return a > b || a == b; }
    /// Whether kind and value are the same; two Undefined numbers are.
    bool identicalTo(DynamicNumber other) const;
    /// The greater and the lesser one; the first where neither is.
    static DynamicNumber max(DynamicNumber a, DynamicNumber b) { return b > a ? b : a; }
    static DynamicNumber min(DynamicNumber a, DynamicNumber b) { return b < a ? b : a; }
    /// @}

    DynamicNumber squareRoot() const;
    /// The nearest integer of a Float, the even one of two, as Signed; out of range the nearest
    /// limit. Any other number unchanged.
    DynamicNumber rounded() const;
    /// Becomes a Float. A number without a value keeps its bits, after a warning.
    void toFloat();
    DynamicNumber orElse(DynamicNumber other) const { return isUndefined() ? other : *this; }
    /// The product, as a Float unless that of the doubles lies strictly between the limits of a's
    /// kind: 0 and 2^64, or -2^63 and 2^63. That isn't exact near the limits.
    static DynamicNumber multiplyChecked(DynamicNumber a, DynamicNumber b);

private:
    enum Operation { Add, Subtract, Multiply, Divide };
    enum Ordering { Unordered, Less, Equal, Greater };

    bool hasValue() const { return kind >= Unsigned && kind <= Float; }
    bool isNegativeInteger() const { return kind == Signed && qint64(payload) < 0; }
    void setInteger(Type type, quint64 bits);
    void setFloat(double number);
    static double compute(Operation operation, double left, double right);
    double floatValue() const;
    /// The value as a double, exactly converted; for numbers that have one.
    double numericValue() const;
    DynamicNumber& apply(Operation operation, DynamicNumber right);
    static Ordering compare(DynamicNumber a, DynamicNumber b);

    Type kind = Undefined;
    quint64 payload = 0; ///< of the value, whatever its kind
};

static_assert(sizeof(DynamicNumber) == 16 && std::is_trivially_copyable_v<DynamicNumber>,
              "numbers travel in two machine words");

} // namespace vantrel

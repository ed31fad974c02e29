#include "metrics/quantities/dynamic_number.h"

#include "metrics/quantities/number_warnings.h"
#include "metrics/quantities/saturated_cast.h"

#include <QLocale>

#include <cerrno>
#include <cmath>
#include <cstring>
#include <limits>
#include <unistd.h>

namespace vantrel {

namespace {

/// No double has more digits behind the point that aren't 0, and Qt's formatting aborts far above.
constexpr int maxDecimals = 1074;

/// Makes a transfer of so many bytes; one that a signal interrupts is made again.
template <typename Transfer>
int transferAll(std::size_t size, const Transfer& transfer)
{
    ssize_t done = 0;
    do {
        done = transfer();
    } while (done < 0 && errno == EINTR);
    return done == ssize_t(size) ? 0 : -1;
}

int writeAll(int fd, const void* bytes, std::size_t size)
{
    return transferAll(size, [=] { return write(fd, bytes, size); });
}

int readAll(int fd, void* bytes, std::size_t size)
{
    return transferAll(size, [=] { return read(fd, bytes, size); });
}

QString englishText(double number, char format, int precision)
{
    const QString text = QLocale(QLocale::English, QLocale::AnyCountry)
                             .toString(number, format, qMin(precision, maxDecimals));
    const bool isCut = format == 'f' && precision > maxDecimals && std::isfinite(number);
    return isCut ? text + QString(precision - maxDecimals, u'0') : text;
}

} // namespace

void DynamicNumber::setInteger(Type type, quint64 bits)
{
    kind = type;
    payload = bits;
}

void DynamicNumber::setFloat(double number)
{
    kind = Float;
    std::memcpy(&payload, &number, sizeof number);
}

double DynamicNumber::floatValue() const
{
    double number = 0.0;
    std::memcpy(&number, &payload, sizeof number);
    return number;
}

double DynamicNumber::numericValue() const
{
    if (kind == Float)
        return floatValue();
    return kind == Signed ? double(qint64(payload)) : double(payload);
}

DynamicNumber DynamicNumber::parse(const QString& text)
{
    if (text.contains(u'.'))
        return text.toDouble();
    if (text.startsWith(u'-'))
        return text.toLongLong();
    return text.toULongLong();
}

void DynamicNumber::assign(const QVariant& variant)
{
    switch (variant.userType()) {
    case QMetaType::Int:
    case QMetaType::LongLong:
        *this = variant.toLongLong();
        break;
    case QMetaType::UInt:
    case QMetaType::ULongLong:
        *this = variant.toULongLong();
        break;
    case QMetaType::Double:
        *this = variant.toDouble();
        break;
    default:
        warnUnsupportedDatatype();
    }
}

quint64 DynamicNumber::toUInt64() const
{
    if (!hasValue()) {
        warnUnsupportedDatatype();
        return 0;
    }
    if (isNegativeInteger() || (isFloat() && floatValue() < 0.0)) {
        warnConversionOverflow();
        return 0;
    }
    return isFloat() ? saturatedCast<quint64>(floatValue()) : payload;
}

qint64 DynamicNumber::toInt64() const
{
    if (!hasValue()) {
        warnUnsupportedDatatype();
        return 0;
    }
    if (isFloat())
        return saturatedCast<qint64>(floatValue());
    if (kind == Unsigned && qint64(payload) < 0) {
        warnConversionOverflow();
        return 0;
    }
    return qint64(payload);
}

qint32 DynamicNumber::toInt32() const
{
    using Limits = std::numeric_limits<qint32>;
    if (isFloat()) {
        warnInvalidConversion();
        return 0;
    }
    if (!hasValue()) {
        warnUnsupportedDatatype();
        return 0;
    }
    if (*this < Limits::min() || *this > Limits::max()) {
        warnConversionOverflow();
        return 0;
    }
    return qint32(payload);
}

double DynamicNumber::toDouble() const
{
    if (hasValue())
        return numericValue();
    warnUnsupportedDatatype();
    return std::numeric_limits<double>::quiet_NaN();
}

QVariant DynamicNumber::toVariant() const
{
    switch (kind) {
    case Unsigned:
        return qulonglong(payload);
    case Signed:
        return qlonglong(payload);
    case Float:
        return floatValue();
    case Undefined:
        break;
    }
    warnUnsupportedDatatype();
    return QVariant();
}

QString DynamicNumber::toString() const
{
    switch (kind) {
    case Undefined:
        return QStringLiteral("<undefined>");
    case Unsigned:
        return QString::number(payload);
    case Signed:
        return QString::number(qint64(payload));
    case Float:
        return QString::number(floatValue(), 'g', 15);
    }
    return QStringLiteral("<unknown>");
}

QString DynamicNumber::toIntegerString() const
{
    if (!isFloat())
        return toString();
    warnInvalidConversion();
    return QString();
}

QString DynamicNumber::toStringG(int precision) const
{
    return isFloat() ? englishText(floatValue(), 'g', precision) : toString();
}

QString DynamicNumber::toStringF(int precision) const
{
    return isFloat() ? englishText(floatValue(), 'f', precision) : toString();
}

QString DynamicNumber::describe() const
{
    return toString() + QLatin1String(" of type ") + QString::number(kind);
}

int DynamicNumber::writeTo(int fd) const
{
    if (writeAll(fd, &kind, sizeof kind) != 0)
        return -1;
    if (isUndefined())
        return 0;
    if (!hasValue()) {
        errno = EINVAL;
        return -1;
    }
    return writeAll(fd, &payload, sizeof payload);
}

int DynamicNumber::readFrom(int fd)
{
    DynamicNumber number;
    quint32 type = Undefined;
    if (readAll(fd, &type, sizeof type) != 0)
        return -1;
    number.kind = Type(type);
    if (!number.isUndefined()) {
        if (!number.hasValue()) {
            errno = EIO;
            return -1;
        }
        if (readAll(fd, &number.payload, sizeof number.payload) != 0)
            return -1;
    }
    *this = number;
    return 0;
}

DynamicNumber& DynamicNumber::operator+=(DynamicNumber right)
{
    if (isUndefined())
        return *this = right;
    return right.isUndefined() ? *this : apply(Add, right);
}

DynamicNumber& DynamicNumber::operator-=(DynamicNumber right)
{
    if (isUndefined())
        return *this = -right;
    return right.isUndefined() ? *this : apply(Subtract, right);
}

DynamicNumber& DynamicNumber::operator*=(DynamicNumber right)
{
    return isUndefined() ? *this : apply(Multiply, right);
}

DynamicNumber& DynamicNumber::operator/=(DynamicNumber right)
{
    return isUndefined() ? *this : apply(Divide, right);
}

double DynamicNumber::compute(Operation operation, double left, double right)
{
    switch (operation) {
    case Add:
        return left + right;
    case Subtract:
        return left - right;
    case Multiply:
        return left * right;
    case Divide:
        break;
    }
    return left / right;
}

DynamicNumber& DynamicNumber::apply(Operation operation, DynamicNumber right)
{
    if (!hasValue() || !right.hasValue()) {
        warnUnsupportedDatatype();
        return *this;
    }
    if (isFloat() || right.isFloat() || operation == Divide)
        return *this = compute(operation, numericValue(), right.numericValue());
    // Sums, differences and products of integers have the same bits with a sign and without.
    const quint64 bits[] = {payload + right.payload, payload - right.payload,
                            payload * right.payload};
    const bool isUnsigned = kind == Unsigned && right.kind == Unsigned && operation != Subtract;
    setInteger(isUnsigned ? Unsigned : Signed, bits[operation]);
    return *this;
}

DynamicNumber DynamicNumber::operator-() const
{
    if (isUndefined())
        return *this;
    DynamicNumber negative;
    if (!hasValue())
        warnUnsupportedDatatype();
    else if (isFloat())
        negative.setFloat(-floatValue());
    else
        negative.setInteger(Signed, 0 - payload);
    return negative;
}

DynamicNumber::Ordering DynamicNumber::compare(DynamicNumber a, DynamicNumber b)
{
    const auto order = [](auto left, auto right) {
        if (left < right)
            return Less;
        if (left > right)
            return Greater;
        return left == right ? Equal : Unordered;
    };
    if (!a.hasValue() || !b.hasValue())
        return Unordered;
    if (a.isFloat() || b.isFloat())
        return order(a.numericValue(), b.numericValue());
    if (a.isNegativeInteger() != b.isNegativeInteger())
        return a.isNegativeInteger() ? Less : Greater;
    // Integers of one sign are in the order of their bits.
    return order(a.payload, b.payload);
}

bool DynamicNumber::identicalTo(DynamicNumber other) const
{
    if (kind != other.kind)
        return false;
    if (isFloat())
        return floatValue() == other.floatValue();
    return isUndefined() || payload == other.payload;
}

DynamicNumber DynamicNumber::squareRoot() const
{
    return std::sqrt(toDouble());
}

DynamicNumber DynamicNumber::rounded() const
{
    return isFloat() ? DynamicNumber(saturatedCast<qint64>(std::nearbyint(floatValue()))) : *this;
}

void DynamicNumber::toFloat()
{
    if (kind == Unsigned || kind == Signed) {
        setFloat(numericValue());
    } else if (!isFloat()) {
        warnUnsupportedDatatype();
        kind = Float;
    }
}

DynamicNumber DynamicNumber::multiplyChecked(DynamicNumber a, DynamicNumber b)
{
    if (a.isFloat() || a.isUndefined())
        return a * b;
    const double product = a.toDouble() * b.toDouble();
    double lowest = 0.0;
    double end = 0.0;
    if (a.kind == Unsigned) {
        end = std::ldexp(1.0, 64);
    } else if (a.kind == Signed) {
        end = std::ldexp(1.0, 63);
        lowest = -end;
    } else {
        warnUnsupportedDatatype();
    }
    if (!(product > lowest && product < end)) {
        a.toFloat();
        b.toFloat();
    }
    return a * b;
}

} // namespace vantrel

#include "api/error_text.h"

#include <QByteArray>

#include <algorithm>
#include <cstdio>
#include <cstring>
#include <string>

namespace vantrel {

namespace {

/// One conversion of a printf format, such as "%-8.3ld".
struct Conversion {
    std::string flags;
    int width = 0;
    int precision = -1;
    char kind = '\0';
    const char* end = nullptr; ///< behind the conversion
};

/// Wider fields than any message can show are of no use, and slow to fill.
constexpr int widestField = 4096;

int parseNumber(const char*& at)
{
    int number = 0;
    for (; *at >= '0' && *at <= '9'; ++at)
        number = std::min(number * 10 + (*at - '0'), widestField);
    return number;
}

/// A width or precision, in digits or as an argument, which there isn't and so counts as 0.
int parseFieldSize(const char*& at)
{
    if (*at != '*')
        return parseNumber(at);
    ++at;
    return 0;
}

/// @p at stands behind the percent sign.
Conversion parseConversion(const char* at)
{
    Conversion conversion;
    const char* position = at;
    parseNumber(position);
    if (*position == '$' && position != at)
        at = position + 1;
    for (; *at && std::strchr("-+ #0'I", *at); ++at) {
        if (*at != 'I')
            conversion.flags += *at;
    }
    conversion.width = parseFieldSize(at);
    if (*at == '.')
        conversion.precision = parseFieldSize(++at);
    while (*at && std::strchr("hlqjzZtL", *at))
        ++at;
    conversion.kind = *at;
    conversion.end = *at ? at + 1 : at;
    return conversion;
}

template <typename Value>
std::string print(const Conversion& conversion, Value value)
{
    const std::string format = '%' + conversion.flags + "*.*" + conversion.kind;
    char field[2 * widestField];
    // The format is put together from one conversion and given just the arguments that it takes.
#pragma GCC diagnostic push
#pragma GCC diagnostic ignored "-Wformat-nonliteral"
    const int length = std::snprintf(field, sizeof field, format.c_str(), conversion.width,
                                     conversion.precision, value);
#pragma GCC diagnostic pop
    return length < 0 ? std::string() : std::string(field);
}

/// What the conversion prints for a zero or an empty text.
bool printNothingGiven(const Conversion& conversion, std::string* out)
{
    if (conversion.kind == '\0')
        return false;
    if (std::strchr("diouxX", conversion.kind))
        *out += print(conversion, 0);
    else if (std::strchr("eEfFgGaA", conversion.kind))
        *out += print(conversion, 0.0);
    else if (std::strchr("csCSmp", conversion.kind))
        out->append(std::size_t(conversion.width), ' ');
    else if (conversion.kind == '%')
        *out += '%';
    else
        return conversion.kind == 'n';
    return true;
}

} // namespace

void ErrorText::format(const char* format, va_list arguments)
{
    qvsnprintf(text, limit, format, arguments);
}

void ErrorText::formatWithoutArguments(const char* format)
{
    std::string out;
    while (*format && out.size() < limit) {
        if (*format == '%') {
            const Conversion conversion = parseConversion(format + 1);
            if (printNothingGiven(conversion, &out)) {
                format = conversion.end;
                continue;
            }
        }
        out += *format++;
    }
    const std::size_t length = std::min(out.size(), limit - 1);
    std::memcpy(text, out.data(), length);
    text[length] = '\0';
}

} // namespace vantrel

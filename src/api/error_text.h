#pragma once

#include <cstdarg>
#include <cstddef>

namespace vantrel {

/// The text of a report's first failure, in a fixed place that callers can hold a pointer to.
/// Texts that are too long are cut off.
class ErrorText {
public:
    bool isSet() const { return text[0] != '\0'; }
    const char* get() const { return text; }

    /// Writes as printf does.
    void format(const char* format, va_list arguments) __attribute__((format(printf, 2, 0)));

    /// Takes a text as a format for which there are no arguments: "%%" is a percent sign, and each
    /// conversion is given a zero or an empty text.
    void formatWithoutArguments(const char* format);

private:
    static constexpr std::size_t limit = 0xfff; ///< closing NUL included

    char text[limit + 1] = {};
};

} // namespace vantrel

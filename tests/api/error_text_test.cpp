#include "api/custom_report.h"

#include <gtest/gtest.h>

#include <memory>
#include <string>

using vantrel::ErrorText;

namespace {

/// The text as it comes out of a buffer that ends with it, so that reading on would be noticed.
std::string formatted(const std::string& format)
{
    const std::unique_ptr<char[]> exact(new char[format.size() + 1]);
    format.copy(exact.get(), format.size());
    exact[format.size()] = '\0';
    ErrorText text;
    text.formatWithoutArguments(exact.get());
    EXPECT_EQ(text.isSet(), *text.get() != '\0');
    return text.get();
}

} // namespace

TEST(ErrorText, readsPercentSignsAsConversionsOfNothing)
{
    const std::pair<const char*, const char*> rows[] = {
        {"", ""},
        {"%%d %%%%s", "%d %%s"},
        {"%d|%i|%u|%o|%x|%X", "0|0|0|0|0|0"},
        {"%5d|%-5d|%05d|%+d|% d|%#x|%'d", "    0|0    |00000|+0| 0|0|0"},
        {"%.3d|%6.3d|%.0d|%.d|", "000|   000|||"},
        {"%hhd%hd%ld%lld%qd%jd%zu%td", "00000000"},
        {"%s|%5s|%-3s|%.2s|%ls|%S|", "|     |   ||||"},
        {"[%c%lc%C%p]%3p|", "[]   |"},
        {"%f %.1f %Lf %e %G", "0.000000 0.0 0.000000 0.000000e+00 0"},
        {"a%nb%hhnc%5n", "abc"},
        {"100% of 5% sure", "1000f 5ure"},
        {"%1$s%2$d%3$5d", "0    0"},
        {"%*d|%*.*f|%-*s|", "0|0||"},
        {"%y %Q %\xC3\xA9 %<", "%y %Q %\xC3\xA9 %<"},
    };
    for (const auto& [given, expected] : rows)
        EXPECT_EQ(formatted(given), expected) << given;
    for (const char* incomplete : {"50%", "%5", "%-+ #0'.7ll", "%.", "%1$", "%$d", "%*"})
        EXPECT_EQ(formatted(incomplete), incomplete);
}

TEST(ErrorText, cutsOffWhatIsTooLong)
{
    const std::string blanks(4094, ' ');
    const std::string zeros(4094, '0');
    const std::string letters(4094, 'x');
    const std::pair<std::string, std::string> rows[] = {
        {"%999999999d", blanks},
        {"%-999999999dx", "0" + blanks.substr(1)},
        {"%999999999.999999999d", zeros},
        {letters + letters, letters},
    };
    for (const auto& [given, expected] : rows)
        EXPECT_EQ(formatted(given), expected);
    vantrel::CustomReport report(nullptr);
    report.setError("%s%d", letters.substr(2).c_str(), 1234);
    EXPECT_EQ(report.errorMessage(), letters.substr(2) + "12");
}

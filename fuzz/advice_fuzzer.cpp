// Any text as advice: the test of its tags, and its plain text.
#include "html/html_text.h"

#include <cstdint>
#include <cstdlib>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    if (size == 0)
        return 0;
    const QString text = QString::fromUtf8(reinterpret_cast<const char*>(data + 1), int(size - 1));
    vantrel::validateHtml(text);
    const vantrel::HtmlOptions options{data[0] & 0x7f, (data[0] & 0x80) != 0};
    const QString wrapped = vantrel::htmlToPlainText(text, options);
    const QString unwrapped = vantrel::htmlToPlainText(
        text, {vantrel::HtmlOptions::noWrapping, options.collapseWhitespace});
    // Wrapping turns blanks into newlines and changes nothing else.
    if (QString(wrapped).replace('\n', ' ') != QString(unwrapped).replace('\n', ' '))
        std::abort();
    return 0;
}

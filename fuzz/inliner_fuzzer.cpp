// Any text as a page whose files are our resources.
#include "render/html_inliner.h"
#include "render/resources.h"

#include <cstdint>
#include <cstdlib>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    const QString html = QString::fromUtf8(reinterpret_cast<const char*>(data), int(size));
    const QString once = vantrel::inlineHtmlResources(html, vantrel::resourceRoot());
    if (!html.contains(u'<') && once != html)
        std::abort();
    return 0;
}

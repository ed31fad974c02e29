#include "api/process_setup.h"

#include "host/application.h"
#include "host/process_end.h"
#include "render/report_renderer.h"

#include <QTextCodec>

#include <mutex>
#include <new>

namespace vantrel {

namespace {

void makeTables()
{
    prepareRendering();
    if (!noteTablesOfQt())
        throw std::bad_alloc();
}

} // namespace

bool setUpProcess()
{
    static std::mutex mutex;
    static bool hasThrown = false;
    static QTextCodec* utf8 = nullptr;
    const std::lock_guard<std::mutex> lock(mutex);
    if (hasThrown)
        return false;
    hasThrown = true;
    const bool hasApplication = ensureApplication();
    if (hasApplication && !utf8) {
        QTextCodec* const codec = QTextCodec::codecForName("UTF-8");
        QTextCodec::setCodecForLocale(codec);
        makeTables();
        utf8 = codec;
    }
    hasThrown = false;
    // Pages leave as local 8-bit text. The host may have set another codec in the meantime.
    if (utf8)
        QTextCodec::setCodecForLocale(utf8);
    return hasApplication;
}

} // namespace vantrel

#include "api/library_id.h"

#include "build_id.h"

#include <QByteArray>

namespace vantrel {

QString softwareVersion()
{
    return QStringLiteral(VANTREL_SOFTWARE_VERSION);
}

const char* libraryIdText()
{
    static const QByteArray text =
        QStringLiteral("Corvane Custom Vantrel library\n"
                       "    API version      : %1\n"
                       "    Software version : %2\n"
                       "    Build ID         : %3\n"
                       "    Build platform   : %4 %5 %6\n")
            .arg(QString::number(apiVersion), softwareVersion(), QStringLiteral(VANTREL_BUILD_ID),
                 QStringLiteral(VANTREL_PLATFORM_NAME), QStringLiteral(VANTREL_PLATFORM_VERSION),
                 QStringLiteral(VANTREL_PLATFORM_ARCH))
            .toUtf8();
    return text.constData();
}

} // namespace vantrel

#include "api/library_id.h"

#include "build_id.h"

namespace vantrel {

QString softwareVersion()
{
    return QStringLiteral(VANTREL_SOFTWARE_VERSION);
}

const char* libraryIdText()
{
    return "Corvane Custom Vantrel library\n"
           "    API version      : " QT_STRINGIFY(
               VANTREL_API_VERSION) "\n"
                                    "    Software version : " VANTREL_SOFTWARE_VERSION "\n"
                                    "    Build ID         : " VANTREL_BUILD_ID "\n"
                                    "    Build platform   : " VANTREL_PLATFORM_NAME
                                    " " VANTREL_PLATFORM_VERSION " " VANTREL_PLATFORM_ARCH "\n";
}

} // namespace vantrel

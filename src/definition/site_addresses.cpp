#include "definition/site_addresses.h"

namespace vantrel::report {

namespace {

QString sitePage(const char* path)
{
    return QStringLiteral("https://www.corvane.example") + QLatin1String(path);
}

} // namespace

QString defaultLogoPrefix()
{
    return sitePage("/downloads/vantrel-logo");
}

QString defaultLogo()
{
    return QStringLiteral("%1-50.png").arg(defaultLogoPrefix());
}

QString defaultLogoLink()
{
    return sitePage("/products/vantrel");
}

QString poweredByLogo()
{
    return sitePage("/downloads/powered-by-corvane-reports-61.png");
}

QString poweredByLink()
{
    return sitePage("/products/corvane-vantrels");
}

} // namespace vantrel::report

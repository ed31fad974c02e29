#include "render/branding.h"

#include "definition/site_addresses.h"
#include "render/resources.h"

#include <QFile>
#include <QJsonArray>

namespace vantrel {

using namespace report;

namespace {

QJsonObject makeLogo(const QString& image, const QString& link, int height, const QString& altData)
{
    QJsonObject logo{{QStringLiteral("image"), image}, {QStringLiteral("height"), height}};
    if (!link.isEmpty())
        logo.insert(QStringLiteral("link"), link);
    if (!altData.isEmpty())
        logo.insert(QStringLiteral("altData"), altData);
    return logo;
}

const QString& defaultLogoCopy()
{
    static const auto& copy =
        *new QString(imageFileToDataUri(resourcePath(QStringLiteral("logo.png"))));
    return copy;
}

const QString& badgeCopy()
{
    static const auto& copy = *new QString(
        imageFileToDataUri(resourcePath(QStringLiteral("powered-by-corvane-reports.png"))));
    return copy;
}

} // namespace

void prepareBranding()
{
    defaultLogoCopy();
    badgeCopy();
}

QJsonObject makeBrandingData(const ReportDefinition& definition)
{
    const bool isDefault = definition.logo().startsWith(defaultLogoPrefix());
    QJsonArray logos{makeLogo(definition.logo(), definition.logoLink(), 150,
                              isDefault ? defaultLogoCopy() : QString())};
    if (!isDefault)
        logos.append(makeLogo(poweredByLogo(), poweredByLink(), 30, badgeCopy()));
    return {{QStringLiteral("logos"), logos}};
}

QString imageFileToDataUri(const QString& path)
{
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly)) {
        qWarning("Error: %s not found.", qPrintable(path));
        return QString();
    }
    return QLatin1String("data:image/png;base64,") + QString::fromLatin1(file.readAll().toBase64());
}

} // namespace vantrel

#pragma once

#include <QString>

/// The addresses of the product's site that definitions and pages name.
namespace vantrel::report {

/// What the addresses of all default logos begin with.
QString defaultLogoPrefix();
/// The logo of a report that brings none.
QString defaultLogo();
/// Where a click on that logo leads.
QString defaultLogoLink();
/// The badge beside a logo that a report brings, and where it leads.
QString poweredByLogo();
QString poweredByLink();

} // namespace vantrel::report

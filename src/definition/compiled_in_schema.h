#pragma once

#include <QString>

namespace vantrel::report {

/// Path of the schema that is compiled in.
constexpr char compiledInSchemaPath[] = ":/vantrel/custom/validation.xsd";
inline QString compiledInSchema()
{
    return QString::fromLatin1(compiledInSchemaPath);
}

} // namespace vantrel::report

#include "metrics/quantities/number_warnings.h"

#include <QtGlobal>

namespace vantrel {

void warnUnsupportedDatatype()
{
    warnOfNumber("unsupported datatype");
}

void warnConversionOverflow()
{
    warnOfNumber("type conversion would overflow");
}

void warnInvalidConversion()
{
    warnOfNumber("invalid type conversion");
}

void warnEmptyOperand()
{
    // Spelled so for all who look for it.
    warnOfNumber("empy operand");
}

void warnOfNumber(const char* text)
{
    qWarning("%s", text);
}

} // namespace vantrel

#pragma once

/// What DynamicNumber says, through Qt's warnings, when it can't do what it is asked.
namespace vantrel {

void warnUnsupportedDatatype();
void warnConversionOverflow();
void warnInvalidConversion();
/// Belongs to the set, though no operation gives it.
void warnEmptyOperand();
/// Warns with any text.
void warnOfNumber(const char* text);

} // namespace vantrel

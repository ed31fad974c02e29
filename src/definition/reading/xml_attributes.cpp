// The attribute parsers of XmlSource, one for each type that an attribute can have.
#include "definition/reading/xml_source.h"

#include "definition/reading/colour_string.h"
#include "definition/report_records.h"

#include <QObject>

#include <iterator>
#include <limits>

namespace vantrel::report {

/// A word that an attribute can hold, and what it stands for.
struct XmlSource::Word {
    const char* word;
    int code;
};

namespace {

constexpr char missingAttribute[] = "Missing attribute '%1' for '%2' element";

} // namespace

QStringRef XmlSource::attributeText(const char* attribute) const
{
    return reader.attributes().value(QLatin1String(attribute));
}

bool XmlSource::hasAttribute(const char* attribute) const
{
    return reader.attributes().hasAttribute(QLatin1String(attribute));
}

bool XmlSource::failMissing(const char* message, const char* attribute)
{
    return fail(QObject::tr(message).arg(QLatin1String(attribute), elementName().toString()));
}

const XmlSource::Word* XmlSource::findWord(const Word* begin, const Word* end,
                                           const QStringRef& text) const
{
    for (const Word* word = begin; word != end; ++word) {
        if (text == QLatin1String(word->word))
            return word;
    }
    return nullptr;
}

bool XmlSource::readString(const char* attribute, Mode mode, QString* out)
{
    const QStringRef text = attributeText(attribute);
    *out = text.toString();
    if (text.isNull()) {
        return mode != Required ||
               failMissing("Missing string attribute '%1' for '%2' element", attribute);
    }
    return mode == Optional || !text.isEmpty();
}

bool XmlSource::readBool(const char* attribute, bool fallback, bool* out)
{
    *out = fallback;
    const QStringRef given = attributeText(attribute);
    if (given.isNull())
        return true;
    const QStringRef text = given.trimmed();
    const bool isTrue = text == QLatin1String("1") || text == QLatin1String("true");
    if (!isTrue && text != QLatin1String("0") && text != QLatin1String("false")) {
        return fail(QObject::tr("Invalid boolean value '%1' for '%2' attribute in '%3' element. "
                                "Expected 'true', 'false', '0' or '1'.")
                        .arg(text.toString(), QLatin1String(attribute), elementName().toString()));
    }
    *out = isTrue;
    return true;
}

bool XmlSource::readInt(const char* attribute, Mode mode, int* out)
{
    *out = 0;
    const QStringRef text = attributeText(attribute);
    if (text.isNull()) {
        return mode != Required ||
               failMissing("Missing int attribute '%1' for '%2' element", attribute);
    }
    bool ok = false;
    *out = text.toInt(&ok);
    return ok ||
           fail(QObject::tr("Could not convert '%1' to an int in attribute '%2' for '%3' element")
                    .arg(text.toString(), QLatin1String(attribute), elementName().toString()));
}

bool XmlSource::readDouble(const char* attribute, Mode mode, double* out)
{
    *out = std::numeric_limits<double>::quiet_NaN();
    const QStringRef text = attributeText(attribute);
    if (text.isNull()) {
        return mode != Required ||
               failMissing("Missing double attribute '%1' for '%2' element", attribute);
    }
    // The words of non-finite numbers are understood and refused all the same.
    const QString number = text.toString().toLower();
    bool ok = false;
    if (number == QLatin1String("inf"))
        *out = std::numeric_limits<double>::infinity();
    else if (number == QLatin1String("-inf"))
        *out = -std::numeric_limits<double>::infinity();
    else if (number != QLatin1String("nan"))
        *out = number.toDouble(&ok);
    return ok ||
           fail(
               QObject::tr("Could not convert '%1' to an double in attribute '%2' for '%3' element")
                   .arg(text.toString(), QLatin1String(attribute), elementName().toString()));
}

bool XmlSource::readMetricType(const char* attribute, MetricType* out, QString* word)
{
    static constexpr Word words[] = {{"string", int(MetricType::String)},
                                     {"boolean", int(MetricType::Bool)},
                                     {"integer", int(MetricType::Integer)},
                                     {"double", int(MetricType::Double)}};
    *out = MetricType::Double;
    *word = QStringLiteral("double");
    const QStringRef text = attributeText(attribute);
    if (text.isNull())
        return true;
    const Word* found = findWord(std::begin(words), std::end(words), text);
    if (!found) {
        return fail(QObject::tr("Unrecognised value for attribute '%1' for '%2' element: '%3'. "
                                "Expected one of: 'string', 'boolean', 'integer', 'double'.")
                        .arg(QLatin1String(attribute), elementName().toString(), text.toString()));
    }
    *out = MetricType(found->code);
    *word = text.toString();
    return true;
}

bool XmlSource::readUnitPrefix(const char* attribute, int* out)
{
    static constexpr Word words[] = {{"si", SiPrefix}, {"iec", IecPrefix}};
    *out = SiPrefix;
    const QStringRef text = attributeText(attribute);
    if (text.isNull())
        return true;
    const Word* found = findWord(std::begin(words), std::end(words), text);
    if (!found) {
        return fail(QObject::tr("Unrecognised value for attribute '%1' for '%2' element: '%3'. "
                                "Expected one of: 'si', 'iec'.")
                        .arg(QLatin1String(attribute), elementName().toString(), text.toString()));
    }
    *out = found->code;
    return true;
}

bool XmlSource::readMetricVersion(const char* attribute, int* out)
{
    const bool ok = readInt(attribute, Optional, out);
    *out = metricDataVersion(*out);
    return ok;
}

bool XmlSource::readRequiredWord(const char* attribute, const Word* begin, const Word* end,
                                 int* out)
{
    const QStringRef text = attributeText(attribute);
    if (text.isNull())
        return failMissing(missingAttribute, attribute);
    const Word* found = findWord(begin, end, text);
    if (!found)
        return false;
    *out = found->code;
    return true;
}

bool XmlSource::readSampleValue(const char* attribute, int* out)
{
    static constexpr Word words[] = {{"min", 1}, {"max", 2}, {"mean", 3}, {"sum", 4}};
    return readRequiredWord(attribute, std::begin(words), std::end(words), out);
}

bool XmlSource::readAggregation(const char* attribute, int* out)
{
    static constexpr Word words[] = {{"min", 1}, {"max", 2}, {"mean", 3}};
    return readRequiredWord(attribute, std::begin(words), std::end(words), out);
}

bool XmlSource::readColour(const char* attribute, Colour* out)
{
    *out = Colour();
    const QStringRef text = attributeText(attribute);
    if (text.isEmpty())
        return true;
    QString problem;
    *out = parseColour(text.toString(), &problem);
    return out->isValid() || fail(problem);
}

} // namespace vantrel::report

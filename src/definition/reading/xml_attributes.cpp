// The attribute parsers of XmlSource, one for each type that an attribute can have.
#include "definition/reading/xml_source.h"

#include "definition/reading/colour_string.h"

#include <QObject>
#include <QStringList>

#include <algorithm>
#include <iterator>
#include <limits>

namespace vantrel::report {

namespace {

template <typename Words>
auto findWord(const Words& words, const QStringRef& text)
{
    return std::find_if(std::begin(words), std::end(words),
                        [&text](const auto& word) { return text == QLatin1String(word.text); });
}

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

bool XmlSource::failConversion(const char* message, const QStringRef& text, const char* attribute)
{
    return fail(QObject::tr(message).arg(text.toString(), QLatin1String(attribute),
                                         elementName().toString()));
}

template <typename Code, std::size_t count>
bool XmlSource::readWord(const char* attribute, const Word<Code> (&words)[count], Code* out)
{
    const QStringRef text = attributeText(attribute);
    if (text.isNull())
        return true;
    const auto found = findWord(words, text);
    if (found != std::end(words)) {
        *out = found->code;
        return true;
    }
    QStringList expected;
    for (const Word<Code>& word : words)
        expected.append(QStringLiteral("'%1'").arg(QLatin1String(word.text)));
    return fail(QObject::tr("Unrecognised value for attribute '%1' for '%2' element: '%3'. "
                            "Expected one of: %4.")
                    .arg(QLatin1String(attribute), elementName().toString(), text.toString(),
                         expected.join(QLatin1String(", "))));
}

template <typename Code, std::size_t count>
bool XmlSource::readRequiredWord(const char* attribute, const Word<Code> (&words)[count], Code* out)
{
    const QStringRef text = attributeText(attribute);
    if (text.isNull())
        return failMissing("Missing attribute '%1' for '%2' element", attribute);
    const auto found = findWord(words, text);
    if (found == std::end(words))
        return false;
    *out = found->code;
    return true;
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
    return ok || failConversion("Could not convert '%1' to an int in attribute '%2' for '%3' "
                                "element",
                                text, attribute);
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
    return ok || failConversion("Could not convert '%1' to an double in attribute '%2' for '%3' "
                                "element",
                                text, attribute);
}

bool XmlSource::readMetricType(const char* attribute, MetricType* out)
{
    static constexpr Word<MetricType> words[] = {{"string", MetricType::String},
                                                 {"boolean", MetricType::Bool},
                                                 {"integer", MetricType::Integer},
                                                 {"double", MetricType::Double}};
    *out = MetricType::Double;
    return readWord(attribute, words, out);
}

bool XmlSource::readUnitPrefix(const char* attribute, UnitPrefixChoice* out)
{
    static constexpr Word<UnitPrefixChoice> words[] = {{"si", UnitPrefixChoice::Si},
                                                       {"iec", UnitPrefixChoice::Iec}};
    *out = UnitPrefixChoice::Si;
    return readWord(attribute, words, out);
}

bool XmlSource::readMetricVersion(const char* attribute, int* out)
{
    const bool ok = readInt(attribute, Optional, out);
    *out = metricDataVersion(*out);
    return ok;
}

bool XmlSource::readSampleValue(const char* attribute, SampleValue* out)
{
    static constexpr Word<SampleValue> words[] = {{"min", SampleValue::Min},
                                                  {"max", SampleValue::Max},
                                                  {"mean", SampleValue::Mean},
                                                  {"sum", SampleValue::Sum}};
    return readRequiredWord(attribute, words, out);
}

bool XmlSource::readAggregation(const char* attribute, Aggregation* out)
{
    static constexpr Word<Aggregation> words[] = {
        {"min", Aggregation::Min}, {"max", Aggregation::Max}, {"mean", Aggregation::Mean}};
    return readRequiredWord(attribute, words, out);
}

bool XmlSource::readColourAttribute(const char* attribute, Colour* out)
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

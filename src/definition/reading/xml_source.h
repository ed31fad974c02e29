#pragma once

#include "definition/framed_message.h"
#include "definition/report_records.h"

#include <QString>
#include <QUrl>
#include <QXmlStreamReader>

#include <cstddef>

namespace vantrel::report {

/// A definition document on its way in: the stream, where it comes from, and where messages go.
/// Messages replace each other: the last one stays.
class XmlSource {
public:
    enum Mode { Required, Optional, OptionalNotEmpty };

    /// @param messages emptied; may be null; must outlive the source
    XmlSource(const QByteArray& xml, const QUrl& url, QString* messages);

    /// The local name of the element that the stream stands on.
    QStringRef elementName() const { return reader.name(); }
    bool hasAttribute(const char* attribute) const;
    /// The attribute's text; empty if it is absent.
    QString attribute(const char* name) const { return attributeText(name).toString(); }
    QUrl url() const { return location; }

    /// @name Messages, framed by the place in the document
    /// @{
    void setError(const QString& text) { report(errorFrame, text); }
    void setWarning(const QString& text) { report(warningFrame, text); }
    /// setError() as the result of a failing step.
    bool fail(const QString& text);
    /// @}

    /// @name Moving on
    /// @{
    /// Goes to the next child's start tag; false at the end tag of the current element.
    bool readNextStart();
    /// Goes to the end tag of the current element; false if the document ends before it.
    bool skipElement();
    /// The content of the current element as text, tags included.
    QString readMarkup();
    QXmlStreamReader::TokenType readNext() { return reader.readNext(); }
    /// @}

    /// @name Attributes of the current element
    /// Each stores what the attribute says, or what its absence means, and is false if the
    /// attribute is missing or wrong.
    /// @{
    bool readString(const char* attribute, Mode mode, QString* out);
    bool readBool(const char* attribute, bool fallback, bool* out);
    bool readInt(const char* attribute, Mode mode, int* out);
    /// NaN if the attribute is absent.
    bool readDouble(const char* attribute, Mode mode, double* out);
    bool readMetricType(const char* attribute, MetricType* out);
    bool readUnitPrefix(const char* attribute, UnitPrefixChoice* out);
    bool readMetricVersion(const char* attribute, int* out);
    bool readSampleValue(const char* attribute, SampleValue* out);
    bool readAggregation(const char* attribute, Aggregation* out);
    /// Invalid if the attribute is absent or empty.
    bool readColourAttribute(const char* attribute, Colour* out);
    /// @}

private:
    /// A word that an attribute can hold, and what it stands for.
    template <typename Code>
    struct Word {
        const char* text;
        Code code;
    };

    void report(const char* frame, const QString& text);
    /// The attribute's text; null if it is absent.
    QStringRef attributeText(const char* attribute) const;
    bool failMissing(const char* message, const char* attribute);
    bool failConversion(const char* message, const QStringRef& text, const char* attribute);
    /// An attribute that is absent leaves @p out as it is.
    template <typename Code, std::size_t count>
    bool readWord(const char* attribute, const Word<Code> (&words)[count], Code* out);
    /// A word that isn't among them is refused without a message.
    template <typename Code, std::size_t count>
    bool readRequiredWord(const char* attribute, const Word<Code> (&words)[count], Code* out);

    QXmlStreamReader reader;
    QUrl location;
    QString* error;
};

} // namespace vantrel::report

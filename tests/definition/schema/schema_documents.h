#pragma once

#include "definition/compiled_in_schema.h"
#include "definition/schema/schema_acceptance.h"
#include "definition/schema/schema_explanation.h"
#include "definition/schema/schema_messages.h"
#include "definition/schema/schema_validation.h"

#include <QFile>

#include <gtest/gtest.h>

#include <fstream>

/// Qt never gives back all memory of a schema. A test that loads several can't look for leaks.
#ifdef __SANITIZE_ADDRESS__
#include <sanitizer/lsan_interface.h>
using LeaksOfQt = __lsan::ScopedDisabler;
#else
struct LeaksOfQt {
    LeaksOfQt() {}
};
#endif

/// Documents for the schema check, and its two judges.
namespace vantrel::report {

inline const QUrl place("file:///d/r.xml");

/// A valid document with one place for more of each kind.
inline QByteArray document(const QByteArray& before, const QByteArray& after)
{
    QByteArray text = R"(<report xmlns="http://www.corvane.example/2016/CorvaneReports" name="r">
<reportMetrics><reportMetric id="a.b" displayName="A"/></reportMetrics>
<summary><heading>h</heading><footer/><entry id="e" reportMetric="a.b"/></summary>
<subsections><subsection id="s" heading="S"><text>t</text><entry reportMetric="a.b"/><spacer/>
</subsection></subsections></report>)";
    EXPECT_TRUE(text.contains(before)) << before.constData();
    return text.replace(before, after);
}

inline QByteArray markup(const QByteArray& content)
{
    return document("<footer/>", "<footer>" + content + "</footer>");
}

struct Verdict {
    bool accepted;
    QString error;
};

inline Verdict validate(const QByteArray& xml, const QString& schema = compiledInSchema(),
                        const QUrl& url = place)
{
    Verdict verdict;
    verdict.accepted = validateDefinition(xml, url, schema, &verdict.error, 0);
    return verdict;
}

inline bool qtAccepts(const QByteArray& xml)
{
    SchemaFile schema;
    EXPECT_TRUE(readSchemaFile(compiledInSchema(), &schema, nullptr));
    return explainSchemaFaults(xml, place, schema, nullptr, 0);
}

inline QByteArray contentOf(const QString& path)
{
    QFile file(path);
    EXPECT_TRUE(file.open(QIODevice::ReadOnly)) << path.toStdString();
    return file.readAll();
}

inline void writeFile(const QString& path, const QByteArray& content)
{
    std::ofstream(path.toStdString()) << content.constData();
}

} // namespace vantrel::report

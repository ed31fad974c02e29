// A host that uses Qt reads values through the static library, also before there is a library.
#include <QCoreApplication>

#include "host.h"

#include <cstring>
#include <new>

int main(int argc, char** argv)
{
    QCoreApplication application(argc, argv);
    alignas(QVariant) unsigned char place[sizeof(QVariant)];
    std::memset(place, 0xAA, sizeof place);
    auto* const none = new (place) QVariant(vantrel_internal_get_value(nullptr, "any"));
    const QVariant expected;
    CHECK(!none->isValid() && none->isNull() && *none == expected);
    // All that has a meaning: the data, and the type with its flags.
    CHECK(std::memcmp(place, &expected, 12) == 0);
    *none = QStringLiteral("assignable");
    none->~QVariant();

    vantrel* const report = vantrel_create(definition);
    CHECK(fill(report) == 0);
    CHECK(vantrel_internal_get_value(report, "custom.report.metric.a") == QVariant(61.5));
    CHECK(vantrel_internal_get_value(report, CORVANE_APPLICATION_DETAIL_EXE_NAME) ==
          QVariant(QString::fromUtf8("h\xC3\xB6st")));
    CHECK(!vantrel_internal_get_value(nullptr, "any").isValid());
    vantrel_free(report);
    return failures != 0;
}

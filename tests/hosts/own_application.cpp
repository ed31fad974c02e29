// A host with an application object of its own: it stays the only one, before and after a report.
#include <QCoreApplication>

#include "host.h"

int main(int argc, char** argv)
{
    QCoreApplication application(argc, argv);
    vantrel* report = vantrel_create(definition);
    CHECK(QCoreApplication::instance() == &application);
    CHECK(fill(report) == 0);
    char* const page = page_of(report);
    CHECK(page != nullptr);
    free(page);
    vantrel_free(report);
    CHECK(QCoreApplication::instance() == &application);
    return failures != 0;
}

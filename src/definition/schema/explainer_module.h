#pragma once

#include "definition/schema/schema_file.h"

#include <QByteArray>
#include <QSet>
#include <QString>
#include <QUrl>

/// The module that lets Qt's validator judge a document: a shared object of its own, since what it
/// is linked with would cost every process that maps the library.
namespace vantrel::report {

constexpr char explainerModule[] = "explainer.so";
/// The module's one function. Its name changes with what it takes.
constexpr char explainerFunction[] = "vantrel_explain_1";

/// Qt numbers the names of a schema and of all documents checked with it, 511 namespaces at most,
/// and takes one name for another when it runs out of numbers.
constexpr int maxNamesOfValidator = 300;

struct SchemaQuestion {
    QByteArray xml;
    QUrl url;
    SchemaFile schema;
    QSet<QString> names; ///< all that occur in the document
    int messageMode = 0; ///< 1 hands the messages on to Qt's handler as well
    /// Whether the module has brought Qt XML Patterns with it; false if the host had it before.
    bool hasOwnValidator = false;
};

/// @return the validator's verdict
using Explainer = bool(const SchemaQuestion& question, QString* error);

} // namespace vantrel::report

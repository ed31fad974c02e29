#include "tool/definition_files.h"

#include "definition/compiled_in_schema.h"
#include "definition/default_definition.h"
#include "tool/findings.h"

#include <QFileInfo>

#include <memory>

namespace vantrel::tool {

using report::ReportDefinition;
using report::ReportIdScheme;

namespace {

/// The library doesn't tell a file that can't be read from one whose content is wrong.
ExitCode tell(const QString& file, const QString& message)
{
    const QFileInfo info(file);
    const bool isReadable = info.isFile() && info.isReadable();
    printFindings(findingsFromMessage(
        file, message.isEmpty() ? QStringLiteral("an attribute that must not be empty is, or a "
                                                 "word isn't one of those that are allowed")
                                : message));
    return isReadable ? WrongInput : FileTrouble;
}

} // namespace

ExitCode loadDefinition(const DefinitionFiles& files, ReportDefinition* definition)
{
    const bool isDefault = files.definition.isEmpty();
    const QString file = isDefault ? report::defaultDefinitionPath() : files.definition;
    QString error;
    const std::unique_ptr<ReportDefinition> loaded(
        ReportDefinition::loadFile(file, report::compiledInSchema(), &error, 0,
                                   isDefault ? ReportIdScheme::builtin() : ReportIdScheme()));
    // As for reports of the exported calls, a message alone is a refusal.
    if (!loaded || !error.isEmpty())
        return tell(file, error);
    for (const QString& partial : files.partials) {
        if (!loaded->mergeFile(partial, report::compiledInSchema(), &error, 0) || !error.isEmpty())
            return tell(partial, error);
    }
    *definition = *loaded;
    return Done;
}

} // namespace vantrel::tool

#include "tool/command_line.h"

#include "api/library_id.h"
#include "tool/commands.h"

namespace vantrel::tool {

std::unique_ptr<CLI::App> makeCommandLine(ExitCode* result)
{
    auto app = std::make_unique<CLI::App>(
        "Renders reports on runs of parallel applications, and tells about their definitions.",
        "vantrel");
    app->set_version_flag("--version", libraryIdText(), "Print what this is and exit");
    app->require_subcommand(1);
    app->footer("Example:\n  vantrel render report.xml --values values.json -o report.html\n"
                "Each command has a help of its own: vantrel render --help");
    addRenderCommand(*app, result);
    addListCommand(*app, result);
    addRecordsCommand(*app, result);
    addSchemaCommand(*app, result);
    return app;
}

void addDefinitionOptions(CLI::App* command, DefinitionOptions* options)
{
    command
        ->add_option("DEFINITION", options->definition,
                     "Definition; without it the installed default one")
        ->type_name("");
    command->add_option("--partial", options->partials, "Partial definition to merge into it")
        ->type_name("FILE")
        ->allow_extra_args(false);
}

DefinitionFiles filesOf(const DefinitionOptions& options)
{
    DefinitionFiles files;
    files.definition = textFrom(options.definition);
    for (const std::string& partial : options.partials)
        files.partials.append(textFrom(partial));
    return files;
}

} // namespace vantrel::tool

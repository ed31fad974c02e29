// One report from a definition and the values of one run.
#include "tool/command_line.h"
#include "tool/commands.h"
#include "tool/engine_warnings.h"
#include "tool/findings.h"
#include "tool/given_values.h"
#include "tool/result_output.h"

#include <algorithm>
#include <map>

namespace vantrel::tool {

namespace {

struct RenderOptions {
    DefinitionOptions definition;
    std::vector<std::string> values;
    std::vector<std::string> settings;
    std::vector<std::string> advice;
    std::string dominant;
    std::string format = "html";
    std::string output;
};

const std::map<std::string, ReportOutputKind> formats{
    {"html", ReportOutputKind::DynamicHtml},
    {"text", ReportOutputKind::Text},
    {"csv", ReportOutputKind::Csv},
    {"json", ReportOutputKind::Json},
};

/// The worse of two results: where a file is missing, more than its values is.
ExitCode worse(ExitCode a, ExitCode b)
{
    return std::max(a, b);
}

/// All values are tried, so that one run tells all that is wrong with them.
ExitCode fill(const RenderOptions& options, const ValueNames& names, CustomReport* report)
{
    ExitCode code = Done;
    for (const std::string& file : options.values)
        code = worse(code, takeValueFile(textFrom(file), names, report));
    for (const std::string& setting : options.settings)
        code = worse(code, takeSetting(textFrom(setting), names, report));
    for (const std::string& advice : options.advice)
        code = worse(code, takeAdvice(textFrom(advice), report));
    if (code != Done)
        return code;
    const QString source =
        options.values.empty() ? QStringLiteral("(no values)") : textFrom(options.values.back());
    return checkMissingValues(source, names, *report);
}

ExitCode refuse(const QString& file, const CustomReport& report)
{
    printFindings({fileError(file, QString::fromUtf8(report.errorMessage()))});
    return WrongInput;
}

ExitCode render(const RenderOptions& options)
{
    report::ReportDefinition definition;
    if (const ExitCode code = loadDefinition(filesOf(options.definition), &definition))
        return code;
    const QString file = definition.url().toLocalFile();
    CustomReport report(definition);
    if (report.hasError())
        return refuse(file, report);
    if (const ExitCode code = fill(options, ValueNames(definition), &report))
        return code;
    if (!options.dominant.empty() &&
        report.setDominantMetricFromCaller(options.dominant.c_str()) != VANTREL_OK)
        return refuse(QStringLiteral("--dominant"), report);
    const EngineWarnings warnings;
    QByteArray bytes;
    if (report.generateReport(&bytes, formats.at(options.format)) != VANTREL_OK)
        return refuse(file, report);
    if (!warnings.texts().isEmpty()) {
        printFindings({fileError(file, warnings.texts().join(u'\n'))});
        return WrongInput;
    }
    return writeResult(textFrom(options.output), bytes);
}

} // namespace

void addRenderCommand(CLI::App& app, ExitCode* result)
{
    auto options = std::make_shared<RenderOptions>();
    CLI::App* const command =
        app.add_subcommand("render", "Make a report from a definition and the values of a run");
    addDefinitionOptions(command, &options->definition);
    command
        ->add_option("--values", options->values,
                     "Values of the run: a metric data file, or one JSON object from names to "
                     "values; - is the standard input")
        ->type_name("FILE")
        ->allow_extra_args(false);
    command->add_option("--set", options->settings, "One value, after those of the files")
        ->type_name("NAME=VALUE")
        ->allow_extra_args(false);
    command
        ->add_option("--advice", options->advice,
                     "Advice: WHERE is dominant, or the id of a summary entry or a section")
        ->type_name("WHERE=TEXT")
        ->allow_extra_args(false);
    command->add_option("--dominant", options->dominant, "Metric that dominated the run")
        ->type_name("ID");
    command->add_option("--format", options->format, "Form of the report: html, text, csv or json")
        ->check(CLI::IsMember(formats).description(""))
        ->type_name("FORM")
        ->capture_default_str();
    command->add_option("-o,--output", options->output, "File to write; else the standard output")
        ->type_name("FILE");
    command->footer("Example:\n  vantrel render report.xml --values values.json --set time=90 -o "
                    "report.html");
    command->callback([options, result] { *result = render(*options); });
}

} // namespace vantrel::tool

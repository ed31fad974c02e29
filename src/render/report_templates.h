#pragma once

#include "render/report_engine.h"

namespace vantrel {

struct ReportTemplate {
    const char* file; ///< in resources/custom/templates; without its suffix the name
    corvane::ReportFormat::value_type format;
};

/// All templates of the report in the order of loading: the text form of headerResourcesTemplate
/// comes after the one that is derived from its html form, and replaces it.
constexpr ReportTemplate reportTemplates[] = {
    {"html_template.html", corvane::ReportFormat::Html},
    {"csv_template.txt", corvane::ReportFormat::Text},
    {"applicationDetailsTemplate.html", corvane::ReportFormat::Html},
    {"headerMemoryTemplate.html", corvane::ReportFormat::Html},
    {"headerResourcesTemplate.html", corvane::ReportFormat::Html},
    {"headerTasksTemplate.html", corvane::ReportFormat::Html},
    {"headerTimeTemplate.html", corvane::ReportFormat::Html},
    {"logoTemplate.html", corvane::ReportFormat::Html},
    {"subsectionsTemplate.html", corvane::ReportFormat::Html},
    {"summaryTemplate.html", corvane::ReportFormat::Html},
    {"titleTemplate.html", corvane::ReportFormat::Html},
    {"headerResourcesTemplate.txt", corvane::ReportFormat::Text},
    {"text_header.txt", corvane::ReportFormat::Text},
    {"text_subsections.txt", corvane::ReportFormat::Text},
    {"text_summary.txt", corvane::ReportFormat::Text},
    {"text_template.txt", corvane::ReportFormat::Text},
};

} // namespace vantrel

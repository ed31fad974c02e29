#pragma once

#include <QString>

namespace vantrel {

#define VANTREL_API_VERSION 1
constexpr int apiVersion = VANTREL_API_VERSION;
QString softwareVersion();

/// What vantrel_library_id_string() gives.
const char* libraryIdText();

} // namespace vantrel

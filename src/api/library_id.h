#pragma once

#include <QString>

namespace vantrel {

constexpr int apiVersion = 1;
QString softwareVersion();

/// What vantrel_library_id_string() gives.
const char* libraryIdText();

} // namespace vantrel

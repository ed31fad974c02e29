#pragma once

namespace vantrel {

/// Whether the process is ending and tables of Qt are gone that the calls need. Hosts report while
/// they end: in exit handlers, in destructor functions.
bool processEnds();

/// Notes that tables of Qt have been made just now, so that processEnds() holds before they go.
/// Exit handlers run in reverse order, and making a table registers one.
///
/// @return false if the note can't be made
bool noteTablesOfQt();

} // namespace vantrel

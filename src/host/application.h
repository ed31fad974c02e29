#pragma once

namespace vantrel {

/// Provides a QCoreApplication if the process has none yet. An existing one is left alone.
///
/// To be called by one thread at a time, and not again once it has thrown: Qt is left with a
/// pointer to nothing then.
///
/// @return false, after a Qt warning, if none could be made
bool ensureApplication();

} // namespace vantrel

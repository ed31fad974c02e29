#pragma once

namespace vantrel {

/// Provides a QCoreApplication if the process has none yet. An existing one is left alone.
///
/// @return false, after a Qt warning, if none could be made
bool ensureApplication();

} // namespace vantrel

#pragma once

namespace vantrel {

/// Makes what all reports of the process share: the application object, if the host has none, UTF-8
/// as Qt's local encoding, and what pages are made of.
///
/// @return false, after a Qt warning, if there can be no application object, and for good once this
///         has thrown: tables of Qt that are half made crash or hang whoever uses them
bool setUpProcess();

} // namespace vantrel

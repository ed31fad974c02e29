#pragma once

#include <QByteArray>

namespace vantrel {

/// The folder of the file that this code was loaded from, by the kernel's word, so that no setting
/// of the environment and no working directory can change it. Empty if it isn't known.
QByteArray ownFolder();

/// Opens a module of the installation: a shared object in the folder "corvane-custom-vantrel"
/// beside the library or beside the folder of a program that is linked with it. It stays open.
///
/// @return a function of the module, or null if there is none
void* moduleFunction(const char* module, const char* function);

/// Whether the process has a shared object of this name.
bool isLoaded(const char* sharedObject);

} // namespace vantrel

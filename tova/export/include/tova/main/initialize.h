#pragma once

#include "tova/tova_export.h"
#include "vetra/errorholder.h"

namespace Tova2 {

/// Starts the library, with the services that the host lends; before the first scene, on the GUI
/// thread. What fails is collected in `errors`, and the rest is started all the same. Only the
/// first call of a process does anything, even if that is one from within itself.
///
/// The switches, testing hooks and counters of the library are listed without it, from the moment
/// the library is loaded.
TOVA_EXPORT void initialize_tova(Vetra::ErrorHolder& errors);

/// Ends the library; on the GUI thread. Called by the host, or else by its shutdown registry under
/// the name "Tova2" at the end of the process. Only the first call of a process does anything, so
/// what is initialised later than that is never ended. Scenes and nodes may outlive it.
TOVA_EXPORT void terminate_tova();

} // namespace Tova2

#pragma once

/// What of the library the services of the host hold while it runs.
namespace Tova2::HostLinks {

/// Has the end of the process end the library.
void registerForShutdown();
void unregisterFromShutdown();

/// Has the host's interaction logger go by the feature "SegvLogging".
void checkInteractionLogger();

/// Before the code of the library leaves the process: nobody may call it any more.
void cut();

} // namespace Tova2::HostLinks

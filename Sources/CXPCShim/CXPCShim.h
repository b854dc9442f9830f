#pragma once

#ifdef __cplusplus
extern "C" {
#else
#include <stdbool.h>
#endif

/// Whether a process of the person's session owns this name now. Registers nothing and starts
/// nothing, so a service that would be started on demand counts as absent. False without a bus.
/// Blocks on the bus, a second at most while the bus is well; never for the UI thread. Any thread.
bool wendlow_mach_service_registered(const char* name);

#ifdef __cplusplus
}
#endif

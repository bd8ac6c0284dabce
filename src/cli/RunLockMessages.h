#pragma once

#include "app/RunLock.h"

class Controller;

// The exit status of a run refused because another run is erasing in the same
// home; nothing was touched, not even the activity log.
inline constexpr int kBusyExitCode = 3;

// What vantle-cli says on the standard error when another process holds the run lock.
namespace RunLockMessages {

void waiting(const RunLock::Holder& holder);
// Returns kBusyExitCode.
int refused(const RunLock::Holder& holder);

// Says both for the controller's runs; refused is set when a run was refused.
void report(Controller& controller, bool& refused);

} // namespace RunLockMessages

#pragma once

#include <OstrelLib/String.h>
#include <OstrelLib/Types.h>

/// What the program asks of its process and its caller, on each system in its own way.
namespace Ostrel::Gallery {

/// The command line's arguments without the program's name. `argc` and `argv` are `main`'s.
Array<String> getArguments(int argc, const char* const* argv);

/// Makes the standard streams reach the terminal from which the program was started, where the system does not see to
/// it itself. Streams that have been redirected stay so.
void connectToTerminal();

} // namespace Ostrel::Gallery

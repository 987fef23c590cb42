#include "platform/Process.h"

namespace Ostrel::Gallery {

Array<String> getArguments(int argc, const char* const* argv) {
    Array<String> arguments;
    for (int i = 1; i < argc; ++i) {
        arguments.push_back(String::fromUtf8(argv[i]));
    }
    return arguments;
}

void connectToTerminal() {}

} // namespace Ostrel::Gallery

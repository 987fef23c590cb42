#include "platform/Process.h"

#include <windows.h>

#include <shellapi.h>

#include <cstdio>

namespace Ostrel::Gallery {

namespace {

bool isConnected(DWORD handle) {
    const HANDLE present = GetStdHandle(handle);
    return present != nullptr && present != INVALID_HANDLE_VALUE;
}

} // namespace

Array<String> getArguments(int, const char* const*) {
    // The system's own line: `argv` has lost whatever the process's code page cannot say.
    Array<String> arguments;
    int count = 0;
    wchar_t** const all = CommandLineToArgvW(GetCommandLineW(), &count);
    for (int i = 1; i < count; ++i) {
        arguments.emplace_back(all[i]);
    }
    LocalFree(all);
    return arguments;
}

void connectToTerminal() {
    // A program of the windows subsystem is given no terminal; only what the caller has redirected is there already.
    const bool hasOutput = isConnected(STD_OUTPUT_HANDLE);
    const bool hasErrors = isConnected(STD_ERROR_HANDLE);
    if ((hasOutput && hasErrors) || AttachConsole(ATTACH_PARENT_PROCESS) == 0) {
        return;
    }
    // If a stream cannot be opened, there is nobody to tell.
    if (!hasOutput) {
        [[maybe_unused]] std::FILE* const output = std::freopen("CONOUT$", "w", stdout);
    }
    if (!hasErrors) {
        [[maybe_unused]] std::FILE* const errors = std::freopen("CONOUT$", "w", stderr);
    }
}

} // namespace Ostrel::Gallery

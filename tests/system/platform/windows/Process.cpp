#include "system/Process.h"

#include <fstream>
#include <iterator>

#include <windows.h>

ProcessResult runProcess(const std::filesystem::path& program, const std::vector<std::string>& arguments,
                         std::chrono::seconds deadline) {
    // Arguments of tests hold neither quotes nor backslashes before a quote.
    std::wstring line = L'"' + program.wstring() + L'"';
    for (const std::string& argument : arguments) {
        line += L" \"" + std::filesystem::path(argument).wstring() + L'"';
    }
    const std::wstring name = L"ostrel-output-" + std::to_wstring(GetCurrentProcessId());
    const std::filesystem::path outputPath = std::filesystem::temp_directory_path() / name;
    SECURITY_ATTRIBUTES inherited{sizeof(inherited), nullptr, TRUE};
    STARTUPINFOW startup{};
    startup.cb = sizeof(startup);
    startup.dwFlags = STARTF_USESTDHANDLES;
    startup.hStdOutput = CreateFileW(outputPath.c_str(), GENERIC_WRITE, FILE_SHARE_READ | FILE_SHARE_WRITE, &inherited,
                                     CREATE_ALWAYS, FILE_ATTRIBUTE_NORMAL, nullptr);
    startup.hStdError = startup.hStdOutput;

    ProcessResult result;
    PROCESS_INFORMATION process{};
    if (CreateProcessW(nullptr, line.data(), nullptr, nullptr, TRUE, 0, nullptr, nullptr, &startup, &process) != 0) {
        const auto limit = std::chrono::duration_cast<std::chrono::milliseconds>(deadline).count();
        DWORD exitCode = 0;
        if (WaitForSingleObject(process.hProcess, static_cast<DWORD>(limit)) == WAIT_OBJECT_0) {
            GetExitCodeProcess(process.hProcess, &exitCode);
            result.exitCode = static_cast<int>(exitCode);
        } else {
            TerminateProcess(process.hProcess, 1);
            WaitForSingleObject(process.hProcess, INFINITE);
        }
        CloseHandle(process.hThread);
        CloseHandle(process.hProcess);
    }
    CloseHandle(startup.hStdOutput);
    {
        std::ifstream file(outputPath, std::ios::binary);
        result.output.assign(std::istreambuf_iterator<char>(file), {});
    }
    std::erase(result.output, '\r');
    std::filesystem::remove(outputPath);
    return result;
}

std::filesystem::path programBesideThisOne(const std::string& name) {
    wchar_t path[MAX_PATH];
    const DWORD length = GetModuleFileNameW(nullptr, path, MAX_PATH);
    return std::filesystem::path(std::wstring(path, length)).parent_path() / (name + ".exe");
}

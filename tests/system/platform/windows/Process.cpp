#include "system/Process.h"

#include <algorithm>
#include <fstream>
#include <iterator>

#include <windows.h>

namespace {

/// A file that another program can write into, gone with this object.
class OutputFile {
public:
    OutputFile() {
        wchar_t folder[MAX_PATH];
        wchar_t name[MAX_PATH];
        GetTempPathW(MAX_PATH, folder);
        GetTempFileNameW(folder, L"ost", 0, name);
        _path = name;
        SECURITY_ATTRIBUTES inherited{sizeof(inherited), nullptr, TRUE};
        _handle = CreateFileW(name, GENERIC_WRITE, FILE_SHARE_READ | FILE_SHARE_WRITE, &inherited, CREATE_ALWAYS,
                              FILE_ATTRIBUTE_NORMAL, nullptr);
    }
    ~OutputFile() {
        CloseHandle(_handle);
        DeleteFileW(_path.c_str());
    }
    OutputFile(const OutputFile&) = delete;
    OutputFile& operator=(const OutputFile&) = delete;

    [[nodiscard]] HANDLE handle() const { return _handle; }

    [[nodiscard]] std::string read() const {
        std::ifstream file(_path, std::ios::binary);
        std::string text{std::istreambuf_iterator<char>(file), {}};
        std::erase(text, '\r');
        return text;
    }

private:
    std::filesystem::path _path;
    HANDLE _handle = INVALID_HANDLE_VALUE;
};

/// Arguments of tests hold neither quotes nor backslashes before a quote.
std::wstring commandLine(const std::filesystem::path& program, const std::vector<std::string>& arguments) {
    std::wstring line = L'"' + program.wstring() + L'"';
    for (const std::string& argument : arguments) {
        line += L" \"" + std::filesystem::path(argument).wstring() + L'"';
    }
    return line;
}

} // namespace

ProcessResult runProcess(const std::filesystem::path& program, const std::vector<std::string>& arguments,
                         std::chrono::seconds deadline) {
    const OutputFile output;
    STARTUPINFOW startup{};
    startup.cb = sizeof(startup);
    startup.dwFlags = STARTF_USESTDHANDLES;
    startup.hStdOutput = output.handle();
    startup.hStdError = output.handle();
    std::wstring line = commandLine(program, arguments);
    PROCESS_INFORMATION process{};
    if (CreateProcessW(nullptr, line.data(), nullptr, nullptr, TRUE, 0, nullptr, nullptr, &startup, &process) == 0) {
        return {};
    }
    ProcessResult result;
    const auto milliseconds = std::chrono::duration_cast<std::chrono::milliseconds>(deadline).count();
    if (WaitForSingleObject(process.hProcess, static_cast<DWORD>(milliseconds)) == WAIT_OBJECT_0) {
        DWORD exitCode = 0;
        GetExitCodeProcess(process.hProcess, &exitCode);
        result.exitCode = static_cast<int>(exitCode);
    } else {
        TerminateProcess(process.hProcess, 1);
        WaitForSingleObject(process.hProcess, INFINITE);
    }
    CloseHandle(process.hThread);
    CloseHandle(process.hProcess);
    result.output = output.read();
    return result;
}

std::filesystem::path programBesideThisOne(const std::string& name) {
    wchar_t path[MAX_PATH];
    const DWORD length = GetModuleFileNameW(nullptr, path, MAX_PATH);
    return std::filesystem::path(std::wstring(path, length)).parent_path() / (name + ".exe");
}

#include "system/Process.h"

#include <glib.h>
#include <sys/wait.h>
#include <unistd.h>

ProcessResult runProcess(const std::filesystem::path& program, const std::vector<std::string>& arguments,
                         std::chrono::seconds deadline) {
    std::vector<std::string> words{"timeout", "--signal=KILL", std::to_string(deadline.count()), program.string()};
    words.insert(words.end(), arguments.begin(), arguments.end());
    std::vector<char*> argv;
    for (std::string& word : words) {
        argv.push_back(word.data());
    }
    argv.push_back(nullptr);

    ProcessResult result;
    gchar* output = nullptr;
    int status = 0;
    const auto joinErrorsToOutput = [](gpointer) { dup2(STDOUT_FILENO, STDERR_FILENO); };
    if (g_spawn_sync(nullptr, argv.data(), nullptr, G_SPAWN_SEARCH_PATH, joinErrorsToOutput, nullptr, &output, nullptr,
                     &status, nullptr) != FALSE) {
        result.exitCode = WIFEXITED(status) ? WEXITSTATUS(status) : -1;
        result.output = output;
        g_free(output);
    }
    return result;
}

std::filesystem::path programBesideThisOne(const std::string& name) {
    return std::filesystem::read_symlink("/proc/self/exe").parent_path() / name;
}

#include "system/Process.h"

#include <algorithm>
#include <cerrno>
#include <csignal>

#include <fcntl.h>
#include <poll.h>
#include <spawn.h>
#include <sys/wait.h>
#include <unistd.h>

namespace {

using Clock = std::chrono::steady_clock;

int millisecondsUntil(Clock::time_point end) {
    const auto left = std::chrono::duration_cast<std::chrono::milliseconds>(end - Clock::now()).count();
    return static_cast<int>(std::max<long long>(left, 0));
}

/// All that comes out of the pipe until its other end is closed. False at the deadline.
bool readAll(int pipe, Clock::time_point end, std::string& output) {
    char buffer[4096];
    for (;;) {
        pollfd waiting{pipe, POLLIN, 0};
        const int ready = poll(&waiting, 1, millisecondsUntil(end));
        if (ready == 0) {
            return false;
        }
        const ssize_t count = read(pipe, buffer, sizeof(buffer));
        if (count > 0) {
            output.append(buffer, static_cast<std::size_t>(count));
        } else if (count == 0 || errno != EINTR) {
            return count == 0;
        }
    }
}

} // namespace

ProcessResult runProcess(const std::filesystem::path& program, const std::vector<std::string>& arguments,
                         std::chrono::seconds deadline) {
    std::vector<std::string> words{program.string()};
    words.insert(words.end(), arguments.begin(), arguments.end());
    std::vector<char*> argv;
    argv.reserve(words.size() + 1);
    for (std::string& word : words) {
        argv.push_back(word.data());
    }
    argv.push_back(nullptr);

    int ends[2];
    if (pipe2(ends, O_CLOEXEC) != 0) {
        return {};
    }
    posix_spawn_file_actions_t actions;
    posix_spawn_file_actions_init(&actions);
    posix_spawn_file_actions_adddup2(&actions, ends[1], STDOUT_FILENO);
    posix_spawn_file_actions_adddup2(&actions, ends[1], STDERR_FILENO);
    pid_t child = 0;
    const bool spawned = posix_spawn(&child, argv[0], &actions, nullptr, argv.data(), environ) == 0;
    posix_spawn_file_actions_destroy(&actions);
    close(ends[1]);

    ProcessResult result;
    if (spawned) {
        const bool ended = readAll(ends[0], Clock::now() + deadline, result.output);
        if (!ended) {
            kill(child, SIGKILL);
        }
        int status = 0;
        waitpid(child, &status, 0);
        if (ended && WIFEXITED(status)) {
            result.exitCode = WEXITSTATUS(status);
        }
    }
    close(ends[0]);
    return result;
}

std::filesystem::path programBesideThisOne(const std::string& name) {
    return std::filesystem::read_symlink("/proc/self/exe").parent_path() / name;
}

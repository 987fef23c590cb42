#pragma once

#include <chrono>
#include <filesystem>
#include <string>
#include <vector>

/// How a program ended.
struct ProcessResult {
    int exitCode = -1;  ///< -1: it could not be started, or did not end by itself
    std::string output; ///< what it wrote to its standard output and error, lines ending with '\n'
};

/// Runs a program to its end. At the deadline it is ended by force.
ProcessResult runProcess(const std::filesystem::path& program, const std::vector<std::string>& arguments,
                         std::chrono::seconds deadline);

/// The program `name` of this build, which stands beside the running one.
std::filesystem::path programBesideThisOne(const std::string& name);

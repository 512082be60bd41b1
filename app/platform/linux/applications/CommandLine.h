#pragma once

#include <string>
#include <string_view>
#include <vector>

/// What a command line runs, seen through what only runs others: `env`, interpreters, launchers. Pure; any thread.
namespace velmorin::CommandLine {

using Arguments = std::vector<std::string>;

/// Whether a program of this file name is nobody's own: an interpreter, a virtual machine, a launcher.
bool isRuntime(std::string_view fileName);

/// The name or path of the program that a command line runs; of a script, the script's. Empty when it cannot be told,
/// as with code on the command line itself, or what a launcher starts in a sandbox.
std::string program(const Arguments& arguments);

/// The part of a path behind the last slash.
std::string_view fileName(std::string_view path);

} // namespace velmorin::CommandLine

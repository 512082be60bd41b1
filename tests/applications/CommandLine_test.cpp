#include "app/platform/linux/applications/CommandLine.h"

#include <gtest/gtest.h>

namespace velmorin {
namespace {

using CommandLine::program;

TEST(CommandLineTest, theFirstWordIsTheProgram) {
    EXPECT_EQ(program({"/usr/bin/editor", "--new", "file"}), "/usr/bin/editor");
    EXPECT_EQ(program({"editor"}), "editor");
    EXPECT_EQ(program({}), "");
}

TEST(CommandLineTest, envIsSeenThrough) {
    EXPECT_EQ(program({"env", "A=1", "B=2", "editor"}), "editor");
    EXPECT_EQ(program({"/usr/bin/env", "-i", "-u", "HOME", "editor", "A=1"}), "editor");
    EXPECT_EQ(program({"env", "env", "editor"}), "editor");
    EXPECT_EQ(program({"env", "A=1"}), "");
    EXPECT_EQ(program({"env"}), "");
    EXPECT_EQ(program({"env", "-u"}), "");
    EXPECT_EQ(program({"env", "-S", "A=1 editor"}), "");
}

TEST(CommandLineTest, aScriptIsTheProgramOfItsInterpreter) {
    EXPECT_EQ(program({"python3", "/usr/bin/tool", "x"}), "/usr/bin/tool");
    EXPECT_EQ(program({"/usr/bin/python3.11", "-s", "-E", "/usr/bin/tool"}), "/usr/bin/tool");
    EXPECT_EQ(program({"env", "gjs", "-m", "/usr/bin/tool"}), "/usr/bin/tool");
    EXPECT_EQ(program({"/bin/sh", "-e", "/usr/bin/tool"}), "/usr/bin/tool");
}

TEST(CommandLineTest, aScriptBehindAnOptionThatMayTakeItIsNotBelieved) {
    EXPECT_EQ(program({"python3", "-c", "import os", "/usr/bin/orca"}), "");
    EXPECT_EQ(program({"python3", "-W", "/usr/bin/orca", "game.py"}), "");
    EXPECT_EQ(program({"python3", "-m", "orca"}), "");
    EXPECT_EQ(program({"perl", "-I", "/usr/bin/tool", "game"}), "");
    EXPECT_EQ(program({"sh", "-c", "editor"}), "");
    EXPECT_EQ(program({"python3"}), "");
    EXPECT_EQ(program({"python3", "-u"}), "");
}

TEST(CommandLineTest, whatALauncherStartsCannotBeTold) {
    EXPECT_EQ(program({"/usr/bin/flatpak", "run", "org.example.Paint"}), "");
    EXPECT_EQ(program({"electron25", "/usr/lib/app.asar"}), "");
    EXPECT_EQ(program({"java", "-jar", "x.jar"}), "");
    EXPECT_EQ(program({"wine64", "game.exe"}), "");
}

TEST(CommandLineTest, onlyWholeNamesAreRuntimes) {
    for (const auto* name : {"python3", "python3.11", "sh", "bash", "env", "gjs-console", "electron", "snap"})
        EXPECT_TRUE(CommandLine::isRuntime(name)) << name;
    for (const auto* name : {"snapshot", "shotwell", "nautilus", "pythonista", "", "2048"})
        EXPECT_FALSE(CommandLine::isRuntime(name)) << name;
}

} // namespace
} // namespace velmorin

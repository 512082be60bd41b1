// Gives the pure logic a door for any language: one JSON request a line in, one JSON answer a line out.

#include "core/session/Profile.h"
#include "core/session/Schedule.h"
#include "tests/conformance/Operations.h"

#include <cmath>
#include <cstdio>
#include <exception>
#include <iostream>
#include <string>
#include <string_view>

namespace velmorin::conformance {

namespace {

Operations allOperations() {
    Operations operations;
    addLanguageOperations(operations);
    addPhoneOperations(operations);
    addRulesOperations(operations);
    addSessionOperations(operations);
    addStatisticsOperations(operations);
    addStoreOperations(operations);
    addStringsOperations(operations);
    return operations;
}

std::string errorText(std::string_view message) {
    JSONOutput output;
    output.beginObject();
    output.key("error");
    output.write(message);
    output.endObject();
    return output.take().value_or(R"({"error":"the request holds text that is not UTF-8"})");
}

std::string answer(const Operations& operations, std::string line) {
    try {
        const Request request{std::move(line)};
        const auto operation = operations.find(request.operation());
        if (operation == operations.end()) return errorText("there is no operation \"" + request.operation() + "\"");
        JSONOutput output;
        output.beginObject();
        output.key("value");
        operation->second(request, output);
        output.endObject();
        const auto text = output.take();
        return text ? *text : errorText("the result has no JSON form");
    } catch (const std::exception& failure) {
        return errorText(failure.what());
    }
}

std::string clock(double seconds) {
    const auto minutes = static_cast<long>(std::lround(seconds / 60.0));
    char text[32];
    std::snprintf(text, sizeof text, "%ld:%02ld", minutes / 60, minutes % 60);
    return text;
}

void printPlan(const Profile& profile) {
    const auto plan = profile.segments();
    std::cout << "A " << rawValue(profile.mode) << " session, " << clock(Schedule::totalDuration(plan))
              << " hours in all, leaving early costs " << exitWaitSeconds(profile.mode) << " seconds\n\n"
              << "   from     to   min   kind\n";
    double start = 0;
    for (const auto& segment : plan) {
        const double end = start + segment.duration;
        std::printf("%7s%7s%6.0f   %s%s\n", clock(start).c_str(), clock(end).c_str(), segment.duration / 60.0,
                    std::string{rawValue(segment.kind)}.c_str(), isLocked(segment.kind) ? " (locked)" : "");
        std::fflush(stdout);
        start = end;
    }
    std::cout << std::endl;
}

int run(int count, char** arguments) {
    const std::string_view option = count > 1 ? arguments[1] : "";
    if (option == "--demo") {
        for (const auto mode : allCases<SessionMode>())
            printPlan(Profile{"", mode});
        return 0;
    }
    if (option == "--operations") {
        for (const auto& [name, operation] : allOperations())
            std::cout << name << '\n';
        return 0;
    }
    if (!option.empty()) {
        std::cerr << "usage: velmorin-conformance [--demo | --operations]\n"
                     "Without an option: reads one JSON request a line and writes one JSON answer a line.\n"
                     "--demo: prints the plans of a default session of both kinds.\n"
                     "--operations: prints the names of all operations.\n";
        return option == "--help" ? 0 : 2;
    }
    const Operations operations = allOperations();
    for (std::string line; std::getline(std::cin, line);) {
        std::cout << answer(operations, std::move(line)) << '\n' << std::flush;
    }
    return 0;
}

} // namespace

} // namespace velmorin::conformance

int main(int count, char** arguments) {
    return velmorin::conformance::run(count, arguments);
}

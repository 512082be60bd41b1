#pragma once

#include "app/seams/ServiceManager.h"
#include "tests/contracts/Bench.h"

#include <optional>
#include <string>
#include <vector>

namespace velmorin {

class ServiceManagerBench : public Bench {
public:
    virtual ServiceManager& serviceManager() = 0;
    /// Why it cannot be tried here; absent when it can.
    virtual std::optional<std::string> obstacle() { return std::nullopt; }
    /// The arguments with which the job would start the program, as whoever keeps the jobs has them; absent without a
    /// job.
    virtual std::optional<std::vector<std::string>> job() = 0;
};

/// What the keeper of the watchdog's job promises.
class ServiceManagerContract : public Contract<ServiceManagerBench> {
protected:
    void SetUp() override {
        if (const auto obstacle = bench().obstacle()) GTEST_SKIP() << *obstacle;
    }
};

} // namespace velmorin

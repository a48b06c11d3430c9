// What the tests of the host data server share.
#pragma once

#include "components/hostdata/Clock.h"
#include "components/hostdata/HostDataError.h"
#include "components/hostdata/operators/Cryptography.h"
#include "components/hostdata/operators/OperatorService.h"

#include <gtest/gtest.h>

#include <atomic>
#include <filesystem>
#include <functional>
#include <random>
#include <string>

namespace tollvane::hostdata {

// A folder of its own for each test, gone afterwards.
class TestFolder {
public:
    TestFolder() {
        const auto* test = ::testing::UnitTest::GetInstance()->current_test_info();
        path_ =
            std::filesystem::temp_directory_path() / (std::string("hostdata-") + test->name() +
                                                      "-" + std::to_string(std::random_device()()));
        std::filesystem::create_directories(path_);
    }
    TestFolder(const TestFolder&) = delete;
    TestFolder& operator=(const TestFolder&) = delete;
    ~TestFolder() {
        std::error_code ignored;
        std::filesystem::remove_all(path_, ignored);
    }
    [[nodiscard]] std::string file(const std::string& name = "hostdata.db") const {
        return (path_ / name).string();
    }

private:
    std::filesystem::path path_;
};

class FakeClock final : public Clock {
public:
    [[nodiscard]] std::int64_t now() const override { return time_; }
    void advance(std::int64_t milliseconds) { time_ += milliseconds; }

private:
    std::atomic<std::int64_t> time_{1'800'000'000'000};
};

// Depends on every argument, as the real one does, and costs nothing.
class FakeCryptography final : public Cryptography {
public:
    [[nodiscard]] Bytes derive(std::string_view password, const Bytes& salt,
                               std::int64_t iterations, std::size_t length) const override {
        ++derivations;
        if (onDerive)
            onDerive();
        std::uint64_t state = 14695981039346656037ULL;
        const auto mix = [&](std::uint64_t byte) { state = (state ^ byte) * 1099511628211ULL; };
        for (const char c : password)
            mix(static_cast<unsigned char>(c));
        mix(0x100);
        for (const auto byte : salt)
            mix(byte);
        mix(static_cast<std::uint64_t>(iterations));
        Bytes out;
        while (out.size() < length) {
            mix(out.size());
            out.push_back(static_cast<std::uint8_t>(state >> 32));
        }
        return out;
    }
    [[nodiscard]] Bytes random(std::size_t length) const override {
        return derive("random", {}, ++next_, length);
    }
    mutable std::atomic<int> derivations{0};
    // What happens in the time that a derivation takes.
    std::function<void()> onDerive;

private:
    mutable std::atomic<std::int64_t> next_{0};
};

// The failure that the action raises; a test failure when it raises none.
inline Failure failureOf(const std::function<void()>& action) {
    try {
        action();
    } catch (const HostDataError& error) {
        EXPECT_FALSE(std::string(error.what()).empty());
        return error.failure();
    }
    ADD_FAILURE() << "no failure was raised";
    return Failure{};
}

inline Secret secret(const std::string& text) {
    return Secret(text);
}

// A store with its services, as the server puts them together.
struct Server {
    explicit Server(const std::string& path) : store(path) {}

    FakeClock clock;
    FakeCryptography cryptography;
    Store store;
    OperatorService operators{store, cryptography, clock, 10};

    std::int64_t createAnna() {
        return operators.createFirst({"Anna", "Keller", "anna"}, secret("counter-one"));
    }
    std::string signInAnna() { return operators.signIn("anna", secret("counter-one")).token; }
    std::int64_t addBen(const std::string& token) {
        return operators.add(token, {"Ben", "Moss", "ben"}, secret("counter-two"));
    }
};

} // namespace tollvane::hostdata

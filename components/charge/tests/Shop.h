// A till with its component, a steerable clock and files in memory.
#pragma once

#include "components/charge/core/ChargeService.h"
#include "components/charge/core/OperationBook.h"
#include "components/charge/core/SimulatedProcessor.h"
#include "components/charge/tests/MemoryFiles.h"

#include <memory>
#include <string>
#include <vector>

namespace tollvane::charge {

class HandClock final : public Clock {
public:
    Moment now() override { return moment; }
    void forwardSeconds(int seconds) { moment.epochSeconds += seconds; }
    void nextDay() {
        ++moment.day;
        moment.epochSeconds += 86'400;
    }

    Moment moment{2026, 11, 21, 9, 5, 3, 1'795'252'000};
};

class HandSettings final : public SettingsSource {
public:
    Settings read() override { return settings; }

    Settings settings{true, "merchant", 120, "data", "logs", "ZENDACARD.LOG"};
};

// The simulated processor, counting what reaches it.
class CountedProcessor final : public Processor {
public:
    CountedProcessor(FileStore& files, const Settings& settings, int& submissions)
        : inner_(files, settings.dataFolder), submissions_(submissions) {}
    ProcessorAnswer submit(const ProcessorRequest& request) override {
        ++submissions_;
        return inner_.submit(request);
    }
    std::optional<ProcessorAnswer> find(const std::string& key, bool testMode) override {
        return inner_.find(key, testMode);
    }

private:
    SimulatedProcessor inner_;
    int& submissions_;
};

struct Shop {
    static constexpr const char* card = "4111111111111111";
    static constexpr const char* otherCard = "5555555555554444";
    static constexpr const char* track = "%B4111111111111111^SMITH/JOHN^2712101000000000123?";

    MemoryFiles files;
    HandClock clock;
    HandSettings settings;
    int submissions = 0;
    int keys = 0;
    std::unique_ptr<ChargeService> service = start();

    // A new start of the component on the same files.
    std::unique_ptr<ChargeService> start() {
        return std::make_unique<ChargeService>(
            ServiceParts{files, clock, settings, [this] { return newKey(); },
                         [this](const Settings& current) {
                             return std::make_unique<CountedProcessor>(files, current, submissions);
                         }});
    }
    void restart() {
        files.heal();
        service = start();
        service->settleOpenOperations();
    }

    void fill(const std::string& amount, const char* number = card) {
        service->clearFields();
        TransactionFields& fields = service->fields();
        fields.set(Field::CardNumber, number);
        fields.set(Field::ExpirationDate, "3-2027");
        fields.set(Field::Amount, amount);
    }
    bool charge(const std::string& amount, const char* number = card) {
        fill(amount, number);
        return service->run(Operation::Charge, {});
    }
    // Charges and answers the transaction id, whatever the outcome.
    std::string charged(const std::string& amount, const char* number = card) {
        charge(amount, number);
        return service->answer().transactionId;
    }
    bool refund(const std::string& id, const std::string& amount, const char* digits = "1111") {
        service->clearFields();
        service->fields().set(Field::CardNumber, digits);
        service->fields().set(Field::Amount, amount);
        return service->run(Operation::Refund, id);
    }
    bool voidIt(const std::string& id, const std::string& amount = "1.00") {
        service->clearFields();
        service->fields().set(Field::Amount, amount);
        return service->run(Operation::Void, id);
    }
    // A copy: the next operation replaces the answer.
    std::string lastId() const { return service->answer().transactionId; }
    int reason() const { return service->answer().reasonCode; }
    int response() const { return service->answer().responseCode; }

    std::string log() { return files.read("logs/ZENDACARD.LOG"); }
    std::vector<std::string> logLines() {
        std::vector<std::string> lines;
        const std::string text = log();
        std::size_t start = 0;
        for (std::size_t end = text.find("\r\n"); end != std::string::npos;
             end = text.find("\r\n", start)) {
            lines.push_back(text.substr(start, end - start));
            start = end + 2;
        }
        return lines;
    }
    Ledger ledger(bool testMode = true) {
        Ledger result(files, SimulatedProcessor::ledgerPath("data", testMode));
        result.load();
        return result;
    }

private:
    std::string newKey() {
        std::string key = "KEY";
        for (int number = ++keys; number > 0; number /= 26)
            key += static_cast<char>('A' + number % 26);
        return key + "END";
    }
};

} // namespace tollvane::charge

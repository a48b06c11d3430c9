// Damage to the host data server's store: a payment is read as it was stored, or not at all, and
// the check of the store tells.

#include "components/hostdata/payments/PaymentRecord.h"
#include "components/hostdata/payments/PaymentTable.h"
#include "components/hostdata/store/StoreCare.h"
#include "components/hostdata/tests/TestSupport.h"
#include "tests/fuzz/Damage.h"
#include "tests/fuzz/EveryCut.h"

#include <fstream>
#include <iterator>

#include <unistd.h>

namespace {

using namespace tollvane;
using namespace tollvane::hostdata;
using test::require;

constexpr std::int64_t kPayments = 60;

/// A file of this process's own, gone at its end.
class WorkFile {
public:
    WorkFile()
        : path_(std::filesystem::temp_directory_path() /
                ("store_file-" + std::to_string(::getpid()) + ".db")) {}
    WorkFile(const WorkFile&) = delete;
    WorkFile& operator=(const WorkFile&) = delete;
    ~WorkFile() { remove(); }

    std::string path() const { return path_.string(); }
    void write(const std::string& content) const {
        remove();
        std::ofstream(path_, std::ios::binary) << content;
    }
    std::string content() const {
        std::ifstream in(path_, std::ios::binary);
        return {std::istreambuf_iterator<char>(in), {}};
    }

private:
    void remove() const {
        std::error_code ignored;
        std::filesystem::remove(path_, ignored);
        std::filesystem::remove(path_.string() + "-journal", ignored);
    }
    std::filesystem::path path_;
};

const WorkFile& file() {
    static const WorkFile file;
    return file;
}

void addPayment(Store& store, const Clock& clock, std::int64_t amount) {
    PaymentRecord record(store, clock, "anna", "Shop one");
    record.addNew();
    record.setValue(paymentField("Account"), std::string("************1111"));
    record.setValue(paymentField("Amount"), amount);
    record.setValue(paymentField("SoldToLast"),
                    std::string(static_cast<std::size_t>(amount % 97), 'x'));
    record.setValue(paymentField("TransID"), std::to_string(1'000'000'000 + amount));
    record.update();
}

std::optional<PaymentValues> read(Store& store, std::int64_t id) {
    return store.read([&](Database& database) { return PaymentTable(database).find(id); });
}

struct Sound {
    Sound() {
        file().write({});
        {
            Server server(file().path());
            server.createAnna();
            for (std::int64_t i = 1; i <= kPayments; ++i) {
                addPayment(server.store, server.clock, i * 12'345);
                payments.push_back(*read(server.store, i));
            }
        }
        content = file().content();
    }
    std::string content;
    std::vector<PaymentValues> payments;
};

const Sound& sound() {
    static const Sound sound;
    return sound;
}

/// True when the store did it; its own failures are answers, every other end is not.
template <class Work>
bool succeeds(Work&& work) {
    try {
        work();
        return true;
    } catch (const HostDataError& error) {
        require(error.failure() <= Failure::storeOther, "a failure of the store");
        require(std::string(error.what()).size() > 20, "a failure has words");
        return false;
    }
}

bool isFoundSound() {
    bool isSound = false;
    return succeeds([&] { isSound = checkStore(file().path()).sound(); }) && isSound;
}

/// How many of the payments can be read. What can be read is what was stored.
std::size_t readAll(Store& store) {
    std::size_t found = 0;
    for (std::int64_t id = 1; id <= kPayments; ++id) {
        std::optional<PaymentValues> payment;
        if (succeeds([&] { payment = read(store, id); }) && payment) {
            require(*payment == sound().payments[static_cast<std::size_t>(id - 1)],
                    "a payment is as it was stored");
            ++found;
        }
    }
    return found;
}

void judge() {
    const bool isSound = isFoundSound();
    Server server(file().path());
    const std::size_t found = readAll(server.store);
    require(found == sound().payments.size() || !isSound, "a lost payment is told");
    std::int64_t count = -1;
    if (succeeds([&] {
            count = server.store.read(
                [](Database& database) { return PaymentTable(database).count(); });
        })) {
        require(count == kPayments || !isSound, "payments are counted right");
    }
    if (!isSound) {
        return;
    }
    succeeds([&] {
        require(server.operators.signIn("anna", secret("counter-two")).token.empty(),
                "nobody signs in with a wrong password");
    });
    if (succeeds([&] { addPayment(server.store, server.clock, 7); })) {
        require(readAll(server.store) == sound().payments.size(), "the others stay");
    }
}

/// The store has lost its end: that is told, or no payment misses anything. A last page can do
/// without zeros at its end, but never without all of it.
void judgeCut(std::size_t length) {
    constexpr std::size_t kPage = 4096;
    // An empty file is a new store.
    if (length > 0) {
        file().write(sound().content.substr(0, length));
        require(length % kPage != 0 || !isFoundSound(), "a lost page is told");
        judge();
    }
}

} // namespace

namespace tollvane::test {
std::vector<CutFile> cutFiles() {
    return {{"store", sound().content.size(), 997, judgeCut}};
}
} // namespace tollvane::test

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    test::Script script(data, size);
    std::string content = sound().content;
    while (!script.atEnd()) {
        test::damageOnce(content, script, 0);
    }
    // An empty file is a new store.
    if (!content.empty()) {
        file().write(content);
        judge();
    }
    return 0;
}

// Damage to the charge component's ledger and journal, and a charge on what is left of them.

#include "components/charge/core/Failure.h"
#include "components/charge/tests/Shop.h"
#include "tests/fuzz/Damage.h"
#include "tests/fuzz/EveryCut.h"

#include <bit>
#include <set>

namespace {

using namespace tollvane;
using namespace tollvane::charge;
using test::require;

constexpr const char* kLedger = "data/ledger-test.dat";
constexpr const char* kJournal = "data/journal.dat";

/// A day at the counter that ends with an operation whose outcome is not known yet.
struct Day {
    Day() {
        Shop shop;
        shop.service->signIn("Mary Smith");
        const std::string first = shop.charged("12.50");
        shop.charge("7002.20", Shop::otherCard);
        shop.refund(first, "2.50");
        shop.voidIt(shop.charged("40.00", Shop::otherCard));
        shop.charge("7004.80");
        try {
            shop.charge("7005.03");
        } catch (const com::ComponentError&) {
            // Its journal entry stays open.
        }
        files = shop.files.contents;
        entries = shop.ledger().entries();
    }
    std::map<std::string, std::string> files;
    std::vector<LedgerEntry> entries;
};

const Day& day() {
    static const Day day;
    return day;
}

std::int64_t approvedCharges(const std::vector<LedgerEntry>& entries) {
    std::int64_t total = 0;
    for (const LedgerEntry& entry : entries) {
        total +=
            entry.operation == Operation::Charge && entry.approved() ? entry.amount.scaled() : 0;
    }
    return total;
}

/// Nothing when the file is reported as damaged.
std::optional<std::vector<LedgerEntry>> loaded(MemoryFiles files) {
    try {
        Ledger ledger(files, kLedger);
        ledger.load();
        return ledger.entries();
    } catch (const com::ComponentError& error) {
        require(error.number() == failurenumber::damagedFile, "damage is reported as damage");
        return std::nullopt;
    }
}

void requireBeginning(const std::vector<LedgerEntry>& entries, std::size_t count) {
    require(entries.size() >= count && count <= day().entries.size(), "no entry is made up");
    for (std::size_t i = 0; i < count; ++i) {
        const LedgerEntry& was = day().entries[i];
        require(entries[i].key == was.key && entries[i].amount == was.amount &&
                    entries[i].answer == was.answer && entries[i].reference == was.reference,
                "an entry is as it was written");
    }
}

bool isOneBit(const std::string& one, const std::string& other) {
    int bits = one.size() == other.size() ? 0 : 2;
    for (std::size_t i = 0; i < one.size() && bits < 2; ++i) {
        bits += std::popcount(static_cast<unsigned char>(one[i] ^ other[i]));
    }
    return bits == 1;
}

void judgeLedger(const MemoryFiles& files, const std::string& damaged, bool isOneBit) {
    const std::string& before = day().files.at(kLedger);
    const auto entries = loaded(files);
    if (damaged == before) {
        require(entries && entries->size() == day().entries.size(), "a sound ledger is loaded");
    }
    if (!entries) {
        return;
    }
    requireBeginning(*entries, entries->size());
    const std::size_t lost = day().entries.size() - entries->size();
    const bool wasCut = damaged.size() < before.size();
    // A damaged end looks like what a crash leaves, unless it is one bit.
    const bool looksTorn =
        !isOneBit && (!damaged.ends_with('\n') || damaged.find('\0') != std::string::npos);
    require(lost == 0 || wasCut || looksTorn, "changed entries are reported");
}

void chargeOn(Shop& shop) {
    const auto before = loaded(shop.files);
    const std::string ledger = shop.files.contents[kLedger];
    bool approved = false;
    try {
        approved = shop.charge("55.00", Shop::otherCard);
    } catch (const com::ComponentError& error) {
        require(error.number() == failurenumber::damagedFile, "only damage keeps from charging");
        require(shop.files.contents[kLedger] == ledger, "nothing is charged on damaged files");
        return;
    }
    require(before.has_value(), "no charge on a damaged ledger");
    require(approved && shop.submissions == 1, "a charge on sound files is approved");
    const auto after = loaded(shop.files);
    require(after && after->size() == before->size() + 1, "the charge is in the ledger, once");
    requireBeginning(*after, before->size());
    require(approvedCharges(*after) == approvedCharges(*before) + 550'000, "the total is right");
}

std::size_t lines(const std::string& text) {
    return static_cast<std::size_t>(std::ranges::count(text, '\n'));
}

/// A ledger without its end is what it was when its last whole entry had been written.
void judgeCutLedger(std::size_t length) {
    Shop shop;
    shop.files.contents = day().files;
    shop.keys = 100;
    std::string& ledger = shop.files.contents[kLedger];
    ledger.resize(length);
    const std::size_t whole = lines(ledger);
    const auto entries = loaded(shop.files);
    require(entries && entries->size() == whole, "every whole entry is there, and no other");
    requireBeginning(*entries, whole);
    chargeOn(shop);
}

/// Operations that the journal's whole lines leave open.
std::set<std::string> openIn(const std::string& journal) {
    std::set<std::string> open;
    for (const Record& record : decodeRecords(journal).records) {
        if (record[0] == "open") {
            open.insert(record[1]);
        } else if (record[0] == "closed") {
            open.erase(record[1]);
        }
    }
    return open;
}

/// Lines of the log that tell an operation's outcome.
std::ptrdiff_t outcomes(Shop& shop, const std::string& key) {
    return std::ranges::count_if(shop.logLines(), [&](const std::string& line) {
        return line.find("[" + key + "]") != std::string::npos &&
               line.find(" UNKNOWN ") == std::string::npos;
    });
}

/// After the next start of a shop whose journal has lost its end, what the journal still calls open
/// has its line in the log, and nothing has two. What it no longer knows stays unknown in the log.
void judgeCutJournal(std::size_t length) {
    Shop shop;
    shop.files.contents = day().files;
    shop.keys = 100;
    shop.files.contents[kJournal].resize(length);
    const std::string journal = shop.files.contents[kJournal];
    require(decodeRecords(journal).records.size() == lines(journal), "whole lines are read");
    const auto open = openIn(journal);
    const auto unknown = openIn(day().files.at(kJournal));
    shop.restart();
    require(openIn(shop.files.contents[kJournal]).empty(), "nothing stays open");
    require(shop.submissions == 0, "nothing is charged again");
    for (const LedgerEntry& entry : day().entries) {
        const bool isForgotten = unknown.count(entry.key) != 0 && open.count(entry.key) == 0;
        require(outcomes(shop, entry.key) == (isForgotten ? 0 : 1), "one line tells the outcome");
    }
    chargeOn(shop);
}

} // namespace

namespace tollvane::test {
std::vector<CutFile> cutFiles() {
    return {{"ledger", day().files.at(kLedger).size(), 1, judgeCutLedger},
            {"journal", day().files.at(kJournal).size(), 1, judgeCutJournal}};
}
} // namespace tollvane::test

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    test::Script script(data, size);
    Shop shop;
    shop.files.contents = day().files;
    shop.keys = 100;
    while (!script.atEnd()) {
        const bool ofLedger = script.next() % 2 == 0;
        test::damageOnce(shop.files.contents[ofLedger ? kLedger : kJournal], script, 0);
    }
    const std::string& ledger = shop.files.contents[kLedger];
    judgeLedger(shop.files, ledger, isOneBit(ledger, day().files.at(kLedger)));
    chargeOn(shop);
    return 0;
}

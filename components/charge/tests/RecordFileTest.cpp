#include "components/charge/core/RecordFile.h"

#include "components/charge/core/Failure.h"
#include "components/charge/tests/MemoryFiles.h"
#include "platform/Checksum.h"

#include <gtest/gtest.h>

namespace tollvane::charge {
namespace {

const std::vector<Record> samples = {
    {"one", "two"}, {"", "tab\tline\nback\\slash\r", ""}, {"last"}};

std::string contentOf(const std::vector<Record>& records) {
    std::string content;
    for (const Record& each : records)
        content += encodeRecord(each);
    return content;
}

TEST(RecordFile, TheChecksumIsTheWellKnownOne) {
    EXPECT_EQ(0xCBF43926u, crc32("123456789"));
    EXPECT_EQ(0u, crc32(""));
}

TEST(RecordFile, RecordsComeBackAsTheyWere) {
    MemoryFiles files;
    RecordFile file(files, "f", "ledger");
    EXPECT_TRUE(file.load().empty());
    for (const Record& each : samples)
        file.append(each);
    EXPECT_EQ(samples, RecordFile(files, "f", "ledger").load());
}

TEST(RecordFile, WhereverTheTailIsCutOffTheRecordsBeforeItRemain) {
    const std::string content = contentOf(samples);
    for (std::size_t cut = 0; cut <= content.size(); ++cut) {
        MemoryFiles files;
        files.contents["f"] = content.substr(0, cut);
        const auto records = RecordFile(files, "f", "ledger").load();
        ASSERT_LE(records.size(), samples.size());
        for (std::size_t i = 0; i < records.size(); ++i)
            ASSERT_EQ(samples[i], records[i]) << cut;
        ASSERT_EQ(contentOf(records), files.contents["f"]) << "the rest is gone from the file";
    }
}

// The failure that loading the content raises; the records are compared when it raises none.
bool isReportedDamaged(const std::string& content) {
    MemoryFiles files;
    files.contents["f"] = content;
    try {
        EXPECT_EQ(samples, RecordFile(files, "f", "ledger").load());
        EXPECT_EQ(contentOf(samples), files.contents["f"]);
        return false;
    } catch (const com::ComponentError& error) {
        EXPECT_EQ(failurenumber::damagedFile, error.number());
        EXPECT_EQ(content, files.contents["f"]) << "the damaged file is left alone";
        return true;
    }
}

TEST(RecordFile, WhatACrashLeavesOfARecordIsCutOff) {
    const std::string zeros(9, '\0');
    for (const std::string& tail : {std::string(4096, '\0'), std::string("12345678 x"),
                                    zeros + "rest of it\n", zeros + "beginning", std::string("1")})
        EXPECT_FALSE(isReportedDamaged(contentOf(samples) + tail)) << tail;
}

TEST(RecordFile, WholeLinesThatAreNoRecordsAreReported) {
    const std::string zeros(9, '\0');
    for (const std::string& tail : {std::string("12345678 x\n"), std::string("noise\nmore noise\n"),
                                    std::string("\n"), zeros + "\n" + zeros + "\n", zeros + "\n1"})
        EXPECT_TRUE(isReportedDamaged(contentOf(samples) + tail)) << tail;
}

TEST(RecordFile, EverySingleChangedBitIsReported) {
    const std::string content = contentOf(samples);
    for (std::size_t place = 0; place < content.size(); ++place) {
        for (int bit = 0; bit < 8; ++bit) {
            std::string changed = content;
            changed[place] = static_cast<char>(changed[place] ^ (1 << bit));
            EXPECT_TRUE(isReportedDamaged(changed)) << place << ", bit " << bit;
        }
    }
}

TEST(RecordFile, DamageInsideIsReportedAndTheFileIsLeftAlone) {
    MemoryFiles files;
    std::string content = contentOf(samples);
    content[10] ^= 1;
    files.contents["f"] = content;
    try {
        RecordFile(files, "f", "ledger").load();
        FAIL() << "no error";
    } catch (const com::ComponentError& error) {
        EXPECT_EQ(failurenumber::damagedFile, error.number());
        EXPECT_NE(std::string::npos, error.description().find("ledger"));
    }
    EXPECT_EQ(content, files.contents["f"]);
}

TEST(RecordFile, AfterAFailedAppendTheNextOneStandsAtTheRightPlace) {
    for (auto fault : {MemoryFiles::Fault::Refuse, MemoryFiles::Fault::Short}) {
        for (bool cutFails : {false, true}) {
            MemoryFiles files;
            RecordFile file(files, "f", "ledger");
            file.load();
            file.append(samples[0]);
            files.failAt(1, fault, cutFails);
            EXPECT_THROW(file.append(samples[1]), FileFailure);
            files.heal();
            file.append(samples[2]);
            EXPECT_EQ((std::vector<Record>{samples[0], samples[2]}),
                      RecordFile(files, "f", "ledger").load());
        }
    }
}

TEST(RecordFile, AnEmptyLineIsNoRecord) {
    EXPECT_TRUE(decodeRecords("\n").records.empty());
    EXPECT_EQ(0u, decodeRecords("\n").validSize);
}

} // namespace
} // namespace tollvane::charge

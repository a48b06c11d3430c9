// The log viewer's reading of a damaged log, and of texts that never were one.

#include "components/charge/core/TransactionLog.h"
#include "components/charge/tests/MemoryFiles.h"
#include "components/logviewer/tests/LogText.h"
#include "tests/fuzz/Damage.h"
#include "tests/fuzz/EveryCut.h"

#include <array>
#include <set>

namespace {

using namespace tollvane;
using namespace tollvane::logviewer;
using test::require;
using test::Script;

/// What a line of the log is known to say.
struct Known {
    charge::Operation operation;
    bool live;
    std::int64_t amount; ///< scaled by 10,000
    int response;
    const char* id;
    const char* reference;
    std::string line{};
};

constexpr std::size_t kLines = 10;

std::array<Known, kLines> knownLines() {
    using charge::Operation;
    return {{{Operation::Charge, true, 125'000, 1, "1000000001", ""},
             {Operation::VoiceCapture, true, 990'100, 1, "1000000002", ""},
             {Operation::Charge, false, 70'000, 1, "1000000001", ""},
             {Operation::Charge, true, 10'000, 2, "", ""},
             {Operation::Refund, true, 25'000, 1, "1000000003", "1000000002"},
             {Operation::Void, true, 0, 1, "1000000004", "1000000001"},
             {Operation::Void, true, 0, 1, "1000000005", "1000000003"},
             {Operation::Charge, true, 1'000'000'000, 4, "1000000006", ""},
             {Operation::Void, false, 0, 2, "", "1000000001"},
             {Operation::Charge, false, 1'234, 1, "1000000002", ""}}};
}

/// The lines as the charge component writes them, behind the line of a sign-in.
struct Log {
    Log() : lines(knownLines()) {
        charge::MemoryFiles files;
        charge::TransactionLog log(files, "log");
        log.writeSignIn({}, "Mary Smith", "merchant");
        first = files.size("log");
        for (std::size_t i = 0; i < kLines; ++i) {
            const std::uint64_t before = files.size("log");
            log.writeOperation(noteOf(i), answerOf(i), charge::Settlement::AtOnce);
            lines[i].line = files.read("log", before);
        }
        text = files.read("log", 0);
    }
    charge::OperationNote noteOf(std::size_t i) const {
        charge::OperationNote note;
        note.key = "KEY" + std::string(1, static_cast<char>('A' + i)) + "END";
        note.date = "2026-11-21";
        note.time = "09:05:03";
        note.operatorName = i % 2 == 0 ? "Mary Smith" : "Ben Moss";
        note.operation = lines[i].operation;
        note.testMode = !lines[i].live;
        note.amount = Money::fromScaled(lines[i].amount);
        note.lastFour = "1111";
        note.reference = lines[i].reference;
        return note;
    }
    charge::ProcessorAnswer answerOf(std::size_t i) const {
        return {lines[i].response, 1, 0, "As it was answered.", "A1B2C3", lines[i].id};
    }
    std::array<Known, kLines> lines;
    std::string text;
    std::size_t first = 0; ///< where the second line starts
};

const Log& log() {
    static const Log log;
    return log;
}

/// The lines that are still as they were written.
std::set<std::size_t> soundLines(const std::string& text) {
    std::set<std::size_t> sound;
    for (std::size_t i = 0; i < kLines; ++i) {
        if (text.find("\n" + log().lines[i].line) != std::string::npos) {
            sound.insert(i);
        }
    }
    return sound;
}

/// What an approved line did to the shop's money; a void does nothing by itself.
std::int64_t effectOf(const Known& line) {
    switch (line.operation) {
    case charge::Operation::Refund: return -line.amount;
    case charge::Operation::Void: return 0;
    default: return line.amount;
    }
}

std::int64_t expectedNet(const std::set<std::size_t>& sound, bool live) {
    std::int64_t net = 0;
    for (const std::size_t i : sound) {
        const Known& line = log().lines[i];
        if (line.live != live || line.response != 1) {
            continue;
        }
        net += effectOf(line);
        for (const std::size_t other : sound) {
            const Known& undone = log().lines[other];
            if (line.operation == charge::Operation::Void && undone.live == live &&
                undone.response == 1 && std::string(undone.id) == line.reference) {
                net -= effectOf(undone);
            }
        }
    }
    return net;
}

void requireSame(const LogIndex& one, const LogIndex& other) {
    require(one.rows().size() == other.rows().size() && one.taken() == other.taken(),
            "pieces give as many lines as the whole");
    for (std::size_t i = 0; i < one.rows().size(); ++i) {
        const LogRow& row = one.rows()[i];
        const LogRow& twin = other.rows()[i];
        require(row.offset == twin.offset && row.effect == twin.effect &&
                    row.length == twin.length && row.kind == twin.kind,
                "pieces give the same lines as the whole");
    }
}

LogIndex inPieces(const std::string& text, std::size_t piece) {
    LogIndex index;
    std::string waiting;
    for (std::size_t at = 0; at < text.size(); at += piece) {
        waiting += text.substr(at, piece);
        waiting.erase(0, index.feed(waiting));
        index.finish(waiting);
    }
    return index;
}

void judge(const std::string& text, std::size_t piece) {
    const LogIndex whole = indexOf(text);
    requireSame(whole, inPieces(text, piece));
    std::uint64_t end = 0;
    for (const LogRow& row : whole.rows()) {
        require(row.offset >= end, "lines follow each other");
        end = row.offset + row.length;
        const bool counts = row.result == LineResult::Approved;
        require(counts || row.effect == 0, "only what was approved counts");
    }
    require(end <= text.size(), "lines are parts of the text");
    const LogTotals totals = totalsOf(whole);
    require(totals.lines == whole.rows().size() && totals.damaged <= totals.lines, "all are told");
}

void judgeDamaged(const std::string& text) {
    const LogTotals totals = totalsOf(indexOf(text));
    const auto sound = soundLines(text);
    require(totals.live.net() == expectedNet(sound, true), "the live total is that of sound lines");
    require(totals.test.net() == expectedNet(sound, false),
            "the test total is that of sound lines");
    const bool isCut = test::isBeginningOf(text, log().text) && text.back() == '\n';
    require(sound.size() == kLines || totals.damaged > 0 || isCut, "a lost line is told");
}

/// The log has lost its end. What is left of its last line counts for nothing and is told.
void judgeCut(std::size_t length) {
    const std::string text = log().text.substr(0, length);
    std::set<std::size_t> kept;
    std::size_t end = log().first;
    for (std::size_t i = 0; i < kLines; ++i) {
        end += log().lines[i].line.size();
        if (end <= length) {
            kept.insert(i);
        }
    }
    judge(text, length % 97 + 1);
    const LogTotals totals = totalsOf(indexOf(text));
    require(totals.live.net() == expectedNet(kept, true), "the live total is that of whole lines");
    require(totals.test.net() == expectedNet(kept, false), "the test total is that of whole lines");
    const bool isTorn = length > 0 && text.back() != '\n';
    require(totals.damaged == (isTorn ? 1U : 0U), "the torn line is told, and nothing else");
}

} // namespace

namespace tollvane::test {
std::vector<CutFile> cutFiles() {
    return {{"log", log().text.size(), 1, judgeCut}};
}
} // namespace tollvane::test

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    Script script(data, size);
    const std::size_t kind = script.next();
    const std::size_t piece = kind / 2 + 1;
    if (kind % 2 == 0) {
        judge(script.rest(), piece);
        return 0;
    }
    std::string text = log().text;
    while (!script.atEnd()) {
        test::damageOnce(text, script, log().first);
    }
    judge(text, piece);
    judgeDamaged(text);
    return 0;
}

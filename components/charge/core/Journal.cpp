#include "components/charge/core/Journal.h"

#include "components/charge/core/Failure.h"
#include "components/charge/core/GatewayMoney.h"

#include <algorithm>
#include <charconv>

namespace tollvane::charge {

namespace {

constexpr const char* openMark = "open";
constexpr const char* answeredMark = "answered";
constexpr const char* closedMark = "closed";
constexpr std::size_t openFields = 10;
constexpr std::size_t answeredFields = 8;
constexpr std::size_t closedFields = 2;
constexpr std::uint64_t longJournal = 16'384;

[[noreturn]] void notUnderstood() {
    throw failure(failurenumber::damagedFile, "Journal",
                  "The journal was written by another version of this component.");
}

int numberFrom(const std::string& text) {
    int value = 0;
    const auto [end, problem] = std::from_chars(text.data(), text.data() + text.size(), value);
    if (problem != std::errc() || end != text.data() + text.size())
        notUnderstood();
    return value;
}

OperationNote noteFrom(const Record& record) {
    const auto operation = operationFromText(record[5]);
    if (!operation)
        notUnderstood();
    OperationNote note;
    note.key = record[1];
    note.date = record[2];
    note.time = record[3];
    note.operatorName = record[4];
    note.operation = *operation;
    note.testMode = record[6] == "test";
    note.amount = moneyFromGatewayText(record[7]);
    note.lastFour = record[8];
    note.reference = record[9];
    return note;
}

ProcessorAnswer answerFrom(const Record& record) {
    ProcessorAnswer answer;
    answer.responseCode = numberFrom(record[2]);
    answer.reasonCode = numberFrom(record[3]);
    answer.subCode = numberFrom(record[4]);
    answer.approvalCode = record[5];
    answer.transactionId = record[6];
    answer.reasonText = record[7];
    return answer;
}

void apply(const Record& record, std::vector<OpenOperation>& open) {
    const std::string& mark = record.front();
    if (mark == openMark && record.size() == openFields) {
        open.push_back({noteFrom(record), std::nullopt});
        return;
    }
    const bool isAnswer = mark == answeredMark && record.size() == answeredFields;
    const bool isEnd = mark == closedMark && record.size() == closedFields;
    if (!isAnswer && !isEnd)
        notUnderstood();
    const auto found = std::find_if(open.begin(), open.end(), [&](const OpenOperation& each) {
        return each.note.key == record[1];
    });
    if (found == open.end())
        return;
    if (isAnswer)
        found->answer = answerFrom(record);
    else
        open.erase(found);
}

} // namespace

Journal::Journal(FileStore& files, const FilePath& path) : file_(files, path, "journal") {}

std::vector<OpenOperation> Journal::load() {
    std::vector<OpenOperation> open;
    for (const Record& record : file_.load())
        apply(record, open);
    return open;
}

void Journal::open(const OperationNote& note) {
    file_.append({openMark, note.key, note.date, note.time, note.operatorName,
                  operationText(note.operation), note.testMode ? "test" : "live",
                  gatewayText(note.amount), note.lastFour, note.reference});
}

void Journal::answered(const std::string& key, const ProcessorAnswer& answer) {
    file_.append({answeredMark, key, std::to_string(answer.responseCode),
                  std::to_string(answer.reasonCode), std::to_string(answer.subCode),
                  answer.approvalCode, answer.transactionId, answer.reasonText});
}

void Journal::close(const std::string& key) {
    file_.append({closedMark, key});
}

void Journal::shorten() {
    if (file_.size() > longJournal)
        file_.clear();
}

} // namespace tollvane::charge

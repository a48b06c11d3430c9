#include "components/charge/core/TransactionLog.h"

#include "components/charge/core/CardDataMask.h"
#include "components/charge/core/GatewayMoney.h"
#include "platform/Checksum.h"

#include <algorithm>
#include <string_view>
#include <utility>
#include <vector>

namespace tollvane::charge {

namespace {

constexpr std::size_t probeBytes = 512;
constexpr std::size_t tailBytes = 4096;
constexpr const char* lineEnd = "\r\n";
constexpr const char* unknownResult = "UNKNOWN";

// One line, no control characters, no two blanks together, no card number; "-" when empty.
std::string tidy(std::string_view text) {
    std::string result;
    for (char character : withoutCardNumbers(text)) {
        const bool blank = static_cast<unsigned char>(character) <= ' ' || character == '\x7F';
        if (!blank)
            result += character;
        else if (!result.empty() && result.back() != ' ')
            result += ' ';
    }
    while (!result.empty() && result.back() == ' ')
        result.pop_back();
    return result.empty() ? "-" : result;
}

struct Column {
    std::string text;
    std::size_t width = 0; // 0 for the last one
    bool toTheRight = false;
};

std::string lineOf(const std::vector<Column>& columns) {
    std::string line;
    for (const Column& column : columns) {
        const std::string text = tidy(column.text);
        const std::string filling(column.width > text.size() ? column.width - text.size() : 0, ' ');
        line += (line.empty() ? "" : "  ") + (column.toTheRight ? filling + text : text + filling);
    }
    return line;
}

// Behind a line: "  #1a2b3c4d". Whoever adds up the log sees by it that the line is as written.
std::string checkOf(std::string_view line) {
    return "  #" + checksumText(line);
}

const char* resultText(const ProcessorAnswer& answer) {
    switch (answer.responseCode) {
    case 1: return "APPROVED";
    case 2: return "DECLINED";
    case 4: return "HELD";
    default: return "ERROR";
    }
}

std::string codesText(const ProcessorAnswer& answer) {
    return std::to_string(answer.responseCode) + "/" + std::to_string(answer.reasonCode) + "/" +
           std::to_string(answer.subCode);
}

// The key stands in brackets so that a search meets nothing else.
std::string keyText(const std::string& key) {
    return "[" + key + "]";
}

std::string operationLine(const OperationNote& note, const std::string& result,
                          const ProcessorAnswer& answer, const std::string& text) {
    return lineOf({{note.date + " " + note.time, 19},
                   {note.operatorName, 20},
                   {operationText(note.operation), 7},
                   {note.testMode ? "TEST" : "LIVE", 4},
                   {gatewayText(note.amount), 12, true},
                   {note.lastFour.empty() ? "" : "****" + note.lastFour, 8},
                   {result, 8},
                   {answer.responseCode == 0 ? "" : codesText(answer), 7},
                   {answer.approvalCode, 6},
                   {answer.transactionId, 10},
                   {note.reference, 10},
                   {keyText(note.key), 22},
                   {text}});
}

} // namespace

bool isAsWritten(std::string_view line) {
    const std::size_t checkSize = checkOf({}).size();
    return line.size() >= checkSize &&
           line.substr(line.size() - checkSize) == checkOf(line.substr(0, line.size() - checkSize));
}

TransactionLog::TransactionLog(FileStore& files, FilePath path)
    : files_(files), path_(std::move(path)) {}

// A crash may leave a line without its end, or the blanks of a probe.
void TransactionLog::mendTail() {
    const std::uint64_t size = files_.size(path_);
    const std::string tail = files_.read(path_, size > tailBytes ? size - tailBytes : 0);
    if (tail.empty() || tail.back() == '\n')
        return;
    const std::size_t lastEnd = tail.rfind('\n');
    const std::size_t start = lastEnd == std::string::npos ? 0 : lastEnd + 1;
    const std::size_t text = tail.find_first_not_of(std::string_view(" \0", 2), start);
    if (text == std::string::npos)
        files_.truncate(path_, size - (tail.size() - start));
    else
        files_.append(path_, std::string("  (interrupted)") + lineEnd);
}

void TransactionLog::appendLine(std::string line) {
    mendTail();
    line += checkOf(line) + lineEnd;
    const std::uint64_t before = files_.size(path_);
    try {
        files_.append(path_, line);
    } catch (const FileFailure&) {
        try {
            files_.truncate(path_, before);
        } catch (const FileFailure&) {
            // The next line mends what is left.
        }
        throw;
    }
}

void TransactionLog::probe() {
    mendTail();
    const std::uint64_t before = files_.size(path_);
    files_.append(path_, std::string(probeBytes, ' '));
    files_.truncate(path_, before);
}

void TransactionLog::writeOperation(const OperationNote& note, const ProcessorAnswer& answer,
                                    Settlement settlement) {
    const char* prefix =
        settlement == Settlement::AtOnce ? "" : "Found out after an interruption: ";
    appendLine(operationLine(note, resultText(answer), answer, prefix + answer.reasonText));
}

void TransactionLog::writeUnknown(const OperationNote& note) {
    appendLine(operationLine(note, unknownResult, {},
                             "No answer from the processor yet; a later line tells the outcome."));
}

void TransactionLog::writeSignIn(const Moment& time, const std::string& operatorName,
                                 const std::string& merchantId) {
    appendLine(lineOf({{time.dateText() + " " + time.timeText(), 19},
                       {operatorName, 20},
                       {"SIGN-IN", 7},
                       {merchantId.empty() ? "" : "account " + merchantId}}));
}

bool TransactionLog::hasOutcome(const std::string& key) {
    const std::string content = files_.read(path_);
    const std::string wanted = keyText(key);
    for (std::size_t at = content.find(wanted); at != std::string::npos;
         at = content.find(wanted, at + 1)) {
        const std::size_t lineStart = at == 0 ? 0 : content.rfind('\n', at) + 1;
        const std::size_t end = content.find(lineEnd, at);
        const std::string_view line = std::string_view(content).substr(lineStart, end - lineStart);
        if (end != std::string::npos && isAsWritten(line) &&
            line.find(std::string("  ") + unknownResult + " ") == std::string_view::npos)
            return true;
    }
    return false;
}

} // namespace tollvane::charge

#include "components/charge/core/ApprovedPayments.h"

#include "components/charge/core/GatewayMoney.h"
#include "components/charge/core/TransactionLog.h"

#include <chrono>
#include <optional>

namespace tollvane::charge {

namespace {

constexpr std::uint64_t longestTail = 1u << 20;

enum Column { Time, Operator, Type, Mode, Amount, Card, Result, Codes, Approval, Transaction };
constexpr std::size_t neededColumns = Transaction + 1;

// Two or more blanks separate the columns; "-" stands for an empty one.
std::vector<std::string_view> columnsOf(std::string_view line) {
    std::vector<std::string_view> columns;
    while (!line.empty()) {
        const std::size_t end = line.find("  ");
        const std::string_view column = line.substr(0, end);
        columns.push_back(column == "-" ? std::string_view() : column);
        const std::size_t next =
            end == std::string_view::npos ? end : line.find_first_not_of(' ', end);
        line = next == std::string_view::npos ? std::string_view() : line.substr(next);
    }
    return columns;
}

std::optional<ApprovedPayment> paymentFrom(std::string_view line) {
    const std::vector<std::string_view> columns = columnsOf(line);
    if (columns.size() < neededColumns || columns[Mode] != "LIVE" ||
        columns[Result] != "APPROVED" || columns[Transaction].empty() || !isAsWritten(line))
        return std::nullopt;
    const auto operation = operationFromText(std::string(columns[Type]));
    if (!operation)
        return std::nullopt;
    ApprovedPayment payment;
    payment.transactionId = columns[Transaction];
    payment.approvalCode = columns[Approval];
    payment.time = columns[Time];
    payment.operation = *operation;
    try {
        payment.amount = moneyFromGatewayText(columns[Amount]);
    } catch (const std::exception&) {
        return std::nullopt; // nobody but a person with an editor writes such a line
    }
    const bool outgoing = *operation == Operation::Refund || *operation == Operation::Void;
    if (outgoing && payment.amount > Money())
        payment.amount = Money::fromScaled(-payment.amount.scaled());
    const std::string_view card = columns[Card];
    payment.lastFour = card.substr(card.find_last_of('*') + 1);
    return payment;
}

std::string dayBefore(const Moment& now, int days) {
    using namespace std::chrono;
    const year_month_day today{year(now.year), month(static_cast<unsigned>(now.month)),
                               day(static_cast<unsigned>(now.day))};
    const year_month_day then{sys_days(today) - std::chrono::days(days)};
    Moment moment;
    moment.year = static_cast<int>(then.year());
    moment.month = static_cast<int>(static_cast<unsigned>(then.month()));
    moment.day = static_cast<int>(static_cast<unsigned>(then.day()));
    return moment.dateText();
}

} // namespace

std::vector<ApprovedPayment> approvedPayments(std::string_view log, std::string_view firstDay) {
    std::vector<ApprovedPayment> found;
    while (true) {
        const std::size_t end = log.find("\r\n");
        if (end == std::string_view::npos)
            return found;
        const std::string_view line = log.substr(0, end);
        log.remove_prefix(end + 2);
        if (line.substr(0, firstDay.size()) < firstDay)
            continue;
        if (auto payment = paymentFrom(line))
            found.push_back(std::move(*payment));
    }
}

std::vector<ApprovedPayment> approvedPayments(FileStore& files, const FilePath& log,
                                              const Moment& now, int days) {
    const std::uint64_t size = files.size(log);
    const std::uint64_t start = size > longestTail ? size - longestTail : 0;
    const std::string tail = files.read(log, start);
    const std::size_t firstLine = start == 0 ? 0 : tail.find('\n') + 1;
    return approvedPayments(std::string_view(tail).substr(firstLine), dayBefore(now, days));
}

std::string listText(const std::vector<ApprovedPayment>& payments) {
    std::string text;
    for (const ApprovedPayment& each : payments)
        text += each.transactionId + "\t" + std::to_string(each.amount.scaled()) + "\t" +
                each.approvalCode + "\t" + each.lastFour + "\t" + each.time + "\t" +
                operationText(each.operation) + "\n";
    return text;
}

} // namespace tollvane::charge

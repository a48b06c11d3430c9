#include "components/hostdata/payments/PaymentTable.h"

#include "components/hostdata/HostDataError.h"
#include "components/hostdata/store/Schema.h"
#include "platform/Checksum.h"

namespace tollvane::hostdata {

namespace {

bool isId(const FieldDefinition& field) {
    return std::string_view(field.name) == "Id";
}

void bindValue(Statement& statement, const FieldValue& value) {
    if (const auto* text = std::get_if<std::string>(&value))
        statement.bind(std::string_view(*text));
    else if (const auto* number = std::get_if<std::int64_t>(&value))
        statement.bind(*number);
    else
        statement.bindNull();
}

std::string columnList() {
    std::string columns;
    for (const auto& field : kPaymentFields)
        columns += std::string(field.column) + ", ";
    return columns + "checksum";
}

// Kind, length and content of every field: no two records look the same.
std::string checksumOf(const PaymentValues& values) {
    std::string content;
    for (const FieldValue& value : values) {
        std::string field;
        if (const auto* text = std::get_if<std::string>(&value))
            field = "text " + std::to_string(text->size()) + " " + *text;
        else if (const auto* number = std::get_if<std::int64_t>(&value))
            field = "number " + std::to_string(*number);
        content += field + "\n";
    }
    return checksumText(content);
}

// From a row of columnList().
PaymentValues valuesOf(const Statement& row) {
    PaymentValues values;
    for (std::size_t i = 0; i < values.size(); ++i) {
        const int column = static_cast<int>(i);
        if (row.isNull(column))
            continue;
        if (kPaymentFields[i].type == FieldType::text)
            values[i] = row.text(column);
        else
            values[i] = row.number(column);
    }
    return values;
}

bool isAsStored(const Statement& row, const PaymentValues& values) {
    const std::string checksum = row.text(static_cast<int>(values.size()));
    return checksum == kNoChecksum || checksum == checksumOf(values);
}

} // namespace

std::int64_t PaymentTable::add(const PaymentValues& values) {
    std::string columns;
    std::string marks;
    for (std::size_t i = 0; i < values.size(); ++i) {
        if (isId(kPaymentFields[i]))
            continue;
        columns += (columns.empty() ? "" : ", ") + std::string(kPaymentFields[i].column);
        marks += marks.empty() ? "?" : ", ?";
    }
    auto insert =
        database_.prepare("INSERT INTO payments (" + columns + ") VALUES (" + marks + ")");
    for (std::size_t i = 0; i < values.size(); ++i)
        if (!isId(kPaymentFields[i]))
            bindValue(insert, values[i]);
    insert.run();
    const std::int64_t id = database_.lastInsertId();
    PaymentValues stored = values;
    stored[paymentField("Id")] = id;
    database_.prepare("UPDATE payments SET checksum = ? WHERE id = ?")
        .bind(std::string_view(checksumOf(stored)))
        .bind(id)
        .run();
    return id;
}

std::optional<PaymentValues> PaymentTable::find(std::int64_t id) {
    auto query = database_.prepare("SELECT " + columnList() + " FROM payments WHERE id = ?");
    if (!query.bind(id).step())
        return std::nullopt;
    PaymentValues values = valuesOf(query);
    if (!isAsStored(query, values))
        throw HostDataError(Failure::storeDamaged,
                            "The payment record with the number " + std::to_string(id) +
                                " is damaged. Restore the host data file from the latest backup "
                                "copy.");
    return values;
}

std::vector<std::int64_t> PaymentTable::damaged(std::size_t most) {
    std::vector<std::int64_t> found;
    auto query = database_.prepare("SELECT " + columnList() + " FROM payments ORDER BY id");
    while (found.size() < most && query.step()) {
        const PaymentValues values = valuesOf(query);
        if (!isAsStored(query, values))
            found.push_back(std::get<std::int64_t>(values[paymentField("Id")]));
    }
    return found;
}

bool PaymentTable::hasSamePayment(const PaymentValues& values) {
    auto query =
        database_.prepare("SELECT 1 FROM payments WHERE trans_id IS ? AND amount IS ? LIMIT 1");
    bindValue(query, values[paymentField("TransID")]);
    bindValue(query, values[paymentField("Amount")]);
    return query.step();
}

std::string PaymentTable::listSince(const std::string& time, std::size_t most) {
    // In the order of the primary key: an old store with many records costs no more than a new one.
    auto query =
        database_.prepare("SELECT created, trans_id, amount FROM payments ORDER BY id DESC");
    std::string list;
    std::size_t listed = 0;
    while (listed < most && query.step() && query.text(0) >= time) {
        if (query.isNull(1) || query.isNull(2))
            continue;
        list += query.text(1) + "\t" + std::to_string(query.number(2)) + "\n";
        ++listed;
    }
    return list;
}

std::int64_t PaymentTable::count() {
    auto query = database_.prepare("SELECT count(*) FROM payments");
    return query.step() ? query.number(0) : 0;
}

} // namespace tollvane::hostdata

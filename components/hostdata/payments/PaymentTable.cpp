#include "components/hostdata/payments/PaymentTable.h"

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

} // namespace

std::int64_t PaymentTable::add(const PaymentValues& values) {
    std::string columns;
    std::string marks;
    for (const auto& field : kPaymentFields) {
        if (isId(field))
            continue;
        columns += (columns.empty() ? "" : ", ") + std::string(field.column);
        marks += marks.empty() ? "?" : ", ?";
    }
    auto insert =
        database_.prepare("INSERT INTO payments (" + columns + ") VALUES (" + marks + ")");
    for (std::size_t i = 0; i < values.size(); ++i)
        if (!isId(kPaymentFields[i]))
            bindValue(insert, values[i]);
    insert.run();
    return database_.lastInsertId();
}

std::optional<PaymentValues> PaymentTable::find(std::int64_t id) {
    std::string columns;
    for (const auto& field : kPaymentFields)
        columns += (columns.empty() ? "" : ", ") + std::string(field.column);
    auto query = database_.prepare("SELECT " + columns + " FROM payments WHERE id = ?");
    if (!query.bind(id).step())
        return std::nullopt;
    PaymentValues values;
    for (std::size_t i = 0; i < values.size(); ++i) {
        const int column = static_cast<int>(i);
        if (query.isNull(column))
            continue;
        if (kPaymentFields[i].type == FieldType::text)
            values[i] = query.text(column);
        else
            values[i] = query.number(column);
    }
    return values;
}

std::int64_t PaymentTable::count() {
    auto query = database_.prepare("SELECT count(*) FROM payments");
    return query.step() ? query.number(0) : 0;
}

} // namespace tollvane::hostdata

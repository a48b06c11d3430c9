// The rows of operators and of their privileges. No rules here: see OperatorService.
#pragma once

#include "components/hostdata/operators/Operator.h"
#include "components/hostdata/operators/PasswordHash.h"
#include "components/hostdata/store/Database.h"

#include <optional>
#include <string_view>
#include <vector>

namespace tollvane::hostdata {

class OperatorTable {
public:
    explicit OperatorTable(Database& database) : database_(database) {}

    [[nodiscard]] std::int64_t count();
    // By user name, where capital and small letters are the same.
    [[nodiscard]] std::optional<Operator> find(std::string_view userName);
    [[nodiscard]] std::optional<Operator> find(std::int64_t id);
    [[nodiscard]] std::vector<Operator> all();
    [[nodiscard]] PasswordHash password(std::int64_t id);
    // How many enabled operators hold the privilege.
    [[nodiscard]] std::int64_t holders(std::int32_t privilege);

    std::int64_t add(const OperatorData& data, const PasswordHash& password);
    void setPassword(std::int64_t id, const PasswordHash& password);
    void setEnabled(std::int64_t id, bool enabled);
    void setPrivilege(std::int64_t id, std::int32_t privilege, bool granted);

private:
    Operator read(Statement& row);

    Database& database_;
};

} // namespace tollvane::hostdata

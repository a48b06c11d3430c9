#pragma once

#include "components/environment/MissingPayments.h"
#include "components/hostdata/payments/PaymentRecord.h"
#include "components/hostdata/store/Store.h"
#include "platform/Money.h"
#include "tests/desktop/FakeAutomation.h"

#include <memory>
#include <set>
#include <string>
#include <vector>

namespace tollvane::simulation {

enum class HostTrouble {
    gone,          ///< no record object can be made
    recordRefused, ///< one of the record's members raises
    storeFull,     ///< Update raises and stores nothing
    updateNeverArrived,
    updateAnswerLost, ///< stored, but the answer does not come back
};

struct StoredPayment {
    std::string transactionId;
    Money amount;
    std::string approval;
    std::string account;
    std::string paidBy;

    friend bool operator==(const StoredPayment&, const StoredPayment&) = default;
};

/// The server's time, which somebody sets.
class ServerClock final : public hostdata::Clock {
public:
    std::int64_t now() const override { return milliseconds; }

    std::int64_t milliseconds = 0; ///< since 1970
};

/// The host data server: the shop's real payment store behind its automation contract. Outlives the
/// programs that use it.
class SimulatedHost {
public:
    explicit SimulatedHost(const bool& dark);

    /// The server's object for a program.
    ObjectRef object(test::AutomationRecord& record);

    std::set<HostTrouble> troubles;
    std::set<HostTrouble> struck; ///< of them
    /// Which member of a record raises when it is refused; 0 is GetrecbyIDNumber.
    int refusedCall = 0;

    std::vector<StoredPayment> payments();
    std::int64_t count();
    /// The records of the last days, as the server lists them for a comparison.
    std::string storedPayments(int days);
    /// Records a payment, unless it is there; answers whether it was recorded.
    bool recordOnce(const std::vector<environment::RecordValue>& values);

    ServerClock clock;

private:
    ObjectRef makeRecord(test::AutomationRecord& record);
    void update(hostdata::PaymentRecord& payment);
    void requireLife(HostTrouble deadly);
    bool meets(HostTrouble trouble);
    void countCall(int& calls);

    const bool& dark_;
    hostdata::Store store_{":memory:"};
};

} // namespace tollvane::simulation

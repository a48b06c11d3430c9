// A new payment record that is filled in this process and handed to the host data server whole.
#pragma once

#include "components/environment/Automation.h"

#include <optional>
#include <vector>

namespace tollvane::environment {

// Behaves like a payment record of the server, except that a field is looked at when the record is
// stored and not when it is set. What the server alone can answer (a stored record, the value of a
// field, UpdateOnce) is asked of a record of the server's own, which is then brought to where this
// one stands and used from there on. Everything raises ComponentError as the server gave it.
class PaymentDraft {
public:
    // The server's member that stores a payment in one call.
    PaymentDraft(IDispatch* server, DISPID store)
        : server_(com::ComPtr<IDispatch>::share(server)), store_(store) {}

    // -1 positions on no record.
    void getRecordById(LONG id);
    void addNew();
    // Setting a field again replaces what it had.
    void set(BSTR field, const VARIANT& value);
    // In one call. When it fails the record stays as filled.
    void update();
    [[nodiscard]] bool updateOnce();
    // The server's field of that name.
    [[nodiscard]] Remote field(BSTR name);

private:
    struct Field {
        com::Bstr name;
        com::Variant value;
    };

    void collect(BSTR name, com::Variant value);
    // The server's own record, standing where this one does.
    Remote& record();
    void bringUp(const Remote& record) const;
    void forget() noexcept;

    Remote server_;
    DISPID store_;
    bool adding_ = false;
    std::vector<Field> fields_;
    std::optional<LONG> stored_; // the number of the record that was just stored
    std::optional<Remote> record_;
};

} // namespace tollvane::environment

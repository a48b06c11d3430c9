#include "components/environment/PaymentDraft.h"

#include "components/common/ComFailure.h"
#include "components/environment/HostDataClient.h"

#include <algorithm>

namespace tollvane::environment {

namespace {

constexpr LONG kNoRecord = -1;

// An object gives its value when it is asked, and a list may hold objects: such values go to the
// server at once.
bool canWait(const VARIANT& value) {
    return V_VT(&value) != VT_DISPATCH && V_VT(&value) != VT_UNKNOWN && V_VT(&value) != VT_RECORD &&
           !V_ISARRAY(&value) && !V_ISBYREF(&value);
}

bool isSameName(BSTR one, BSTR other) {
    const auto first = com::view(one);
    const auto second = com::view(other);
    return CompareStringOrdinal(first.data(), static_cast<int>(first.size()), second.data(),
                                static_cast<int>(second.size()), TRUE) == CSTR_EQUAL;
}

// A list of values; owns copies of its elements.
class List {
public:
    explicit List(std::size_t size)
        : array_(SafeArrayCreateVector(VT_VARIANT, 0, static_cast<ULONG>(size))) {
        if (array_ == nullptr)
            com::throwFailure(E_OUTOFMEMORY);
    }
    List(const List&) = delete;
    List& operator=(const List&) = delete;
    ~List() { SafeArrayDestroy(array_); }

    void put(std::size_t place, VARIANT value) {
        auto index = static_cast<LONG>(place);
        com::check(SafeArrayPutElement(array_, &index, &value));
    }
    [[nodiscard]] VARIANT argument() const noexcept {
        VARIANT made;
        VariantInit(&made);
        V_VT(&made) = VT_ARRAY | VT_VARIANT;
        V_ARRAY(&made) = array_;
        return made;
    }

private:
    SAFEARRAY* array_;
};

} // namespace

void PaymentDraft::forget() noexcept {
    adding_ = false;
    fields_.clear();
    stored_.reset();
}

void PaymentDraft::getRecordById(LONG id) {
    if (record_ || id != kNoRecord)
        record().call(L"GetrecbyIDNumber", {argument(id)});
    else
        forget();
}

void PaymentDraft::addNew() {
    if (record_) {
        record_->call(L"AddNew");
        return;
    }
    forget();
    adding_ = true;
}

void PaymentDraft::set(BSTR field, const VARIANT& value) {
    com::Variant plain;
    com::check(VariantCopyInd(plain.put(), const_cast<VARIANT*>(&value))); // it only reads
    if (adding_ && !record_ && canWait(plain.get()))
        collect(field, std::move(plain));
    else
        this->field(field).put(L"Value", value);
}

void PaymentDraft::collect(BSTR name, com::Variant value) {
    const auto same = std::find_if(fields_.begin(), fields_.end(), [&](const Field& field) {
        return isSameName(field.name.get(), name);
    });
    if (same != fields_.end())
        same->value = std::move(value);
    else
        fields_.push_back({com::Bstr(com::view(name)), std::move(value)});
}

void PaymentDraft::update() {
    if (record_ || !adding_) {
        record().call(L"Update");
        return;
    }
    List names(fields_.size());
    List values(fields_.size());
    for (std::size_t i = 0; i < fields_.size(); ++i) {
        names.put(i, argument(fields_[i].name));
        values.put(i, fields_[i].value.get());
    }
    const LONG id = server_.number(store_, {names.argument(), values.argument()});
    forget();
    stored_ = id;
}

bool PaymentDraft::updateOnce() {
    return record().flag(L"UpdateOnce");
}

Remote PaymentDraft::field(BSTR name) {
    return record().object(L"Item", {argument(name)});
}

Remote& PaymentDraft::record() {
    if (!record_) {
        Remote made = server_.object(L"SafeCreateObj", {argument(kPaymentRecord)});
        bringUp(made);
        record_.emplace(std::move(made));
        forget();
    }
    return *record_;
}

void PaymentDraft::bringUp(const Remote& record) const {
    if (stored_)
        record.call(L"GetrecbyIDNumber", {argument(*stored_)});
    if (!adding_)
        return;
    record.call(L"AddNew");
    for (const Field& field : fields_)
        record.object(L"Item", {argument(field.name)}).put(L"Value", field.value.get());
}

} // namespace tollvane::environment

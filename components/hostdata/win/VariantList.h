// A list that a client gives as one argument.
#pragma once

#include "components/common/ComText.h"

#include <windows.h>

#include <oleauto.h>

#include <cstddef>

namespace tollvane::hostdata {

// A copy of a one-dimensional list of values, given by value or by reference. Anything else raises
// run-time error 13.
class VariantList {
public:
    explicit VariantList(const VARIANT& given);
    VariantList(const VariantList&) = delete;
    VariantList& operator=(const VariantList&) = delete;
    ~VariantList();

    [[nodiscard]] std::size_t size() const noexcept { return size_; }
    // Counted from 0, whatever the client counts from; below size().
    [[nodiscard]] const VARIANT& at(std::size_t place) const noexcept { return elements_[place]; }

private:
    com::Variant copy_;
    const VARIANT* elements_ = nullptr;
    std::size_t size_ = 0;
};

} // namespace tollvane::hostdata

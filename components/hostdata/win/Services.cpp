#include "components/hostdata/win/Services.h"

namespace tollvane::hostdata {

Services& services() {
    static Services shared;
    return shared;
}

} // namespace tollvane::hostdata
